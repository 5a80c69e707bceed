#pragma once

// The rows of a large recordset from left to right, column after column: a million of them leave no time to look
// every column up by its name.

#include "database/recordset.h"

#include <initializer_list>

class RowReader
{
public:
    /// Reads the columns as the statement names them.
    explicit RowReader(const Recordset& rows) : m_rows(rows)
    {
        for (size_t column = 0; column < rows.columns().size(); ++column)
            m_columns.push_back(int(column));
    }
    /// Reads the columns in an order of one's own.
    RowReader(const Recordset& rows, std::initializer_list<const char*> columns) : m_rows(rows)
    {
        for (const char* column : columns)
            m_columns.push_back(rows.ColumnOf(column));
    }

    /// Goes on to the next row, at first to the first; false where there is none.
    bool Next()
    {
        m_at = 0;
        return ++m_row < m_rows.size();
    }
    QString Text() { return TextOf(Value()); }
    double Number() { return NumberOf(Value()); }
    int Integer() { return int(IntegerOf(Value())); }
    Currency Money() { return MoneyOf(Value()); }
    std::optional<QDate> Day() { return DayOf(Value()); }
    std::optional<Moment> MomentAt() { return MomentOf(Value()); }

private:
    const ::Value& Value() { return m_rows.at(m_row, m_columns.at(m_at++)); }

    const Recordset& m_rows;
    std::vector<int> m_columns;
    int m_row = -1;
    size_t m_at = 0;
};
