#pragma once

// The rows of a statement, fetched completely. Columns are found by name whatever the case. An unset recordset is
// the result of a failed statement; it reads as one without rows.

#include "database/value.h"

#include <QAnyStringView>
#include <memory>
#include <vector>

class Recordset
{
public:
    using Columns = std::vector<QString>;
    using Row = std::vector<Value>;

    /// Unset.
    Recordset() = default;
    Recordset(std::shared_ptr<const Columns> columns, std::vector<Row> rows);

    /// False after a failed statement.
    explicit operator bool() const { return m_columns != nullptr; }
    bool isEmpty() const { return m_rows.empty(); }
    int size() const { return static_cast<int>(m_rows.size()); }
    const Columns& columns() const;
    /// Position of a column, -1 when the statement has none of that name.
    int ColumnOf(QAnyStringView name) const;

    /// The value of a column in a row. A row or column that does not exist reads as null.
    const Value& at(int row, QAnyStringView name) const;
    const Value& at(int row, int column) const;

    bool IsNull(QAnyStringView name, int row = 0) const { return ::IsNull(at(row, name)); }
    QString Text(QAnyStringView name, int row = 0) const { return TextOf(at(row, name)); }
    double Number(QAnyStringView name, int row = 0) const { return NumberOf(at(row, name)); }
    qint64 Integer(QAnyStringView name, int row = 0) const { return IntegerOf(at(row, name)); }
    Currency Money(QAnyStringView name, int row = 0) const { return MoneyOf(at(row, name)); }
    std::optional<QDate> Day(QAnyStringView name, int row = 0) const { return DayOf(at(row, name)); }
    std::optional<Moment> MomentAt(QAnyStringView name, int row = 0) const { return MomentOf(at(row, name)); }

private:
    std::shared_ptr<const Columns> m_columns;
    std::vector<Row> m_rows;
};
