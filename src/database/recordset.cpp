#include "database/recordset.h"

Recordset::Recordset(std::shared_ptr<const Columns> columns, std::vector<Row> rows)
    : m_columns(std::move(columns)), m_rows(std::move(rows))
{}

const Recordset::Columns& Recordset::columns() const
{
    static const Columns kNone;
    return m_columns ? *m_columns : kNone;
}

int Recordset::ColumnOf(QAnyStringView name) const
{
    for (size_t i = 0; i < columns().size(); ++i)
        if (QAnyStringView::compare(columns()[i], name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    return -1;
}

const Value& Recordset::at(int row, QAnyStringView name) const
{
    return at(row, ColumnOf(name));
}

const Value& Recordset::at(int row, int column) const
{
    static const Value kNull;
    if (row < 0 || row >= size() || column < 0 || column >= static_cast<int>(m_rows[row].size()))
        return kNull;
    return m_rows[row][column];
}
