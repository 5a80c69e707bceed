#include "bills/line_grid.h"

namespace {

QStringList BlankRow(int columns)
{
    return QStringList(columns);
}

} // namespace

void LineGrid::Reset(std::vector<Column> columns)
{
    m_columns = std::move(columns);
    m_cells.assign(1, BlankRow(this->columns()));
    currentRow = 1;
    currentColumn = 1;
}

const QString& LineGrid::Cell(int row, int column) const
{
    return row == 0 ? m_columns[column].caption : m_cells[row - 1][column];
}

void LineGrid::SetCell(int row, int column, const QString& text)
{
    (row == 0 ? m_columns[column].caption : m_cells[row - 1][column]) = text;
}

void LineGrid::AddRow()
{
    m_cells.push_back(BlankRow(columns()));
}

void LineGrid::InsertRow(int row)
{
    m_cells.insert(m_cells.begin() + (row - 1), BlankRow(columns()));
}

void LineGrid::RemoveRow(int row)
{
    m_cells.erase(m_cells.begin() + (row - 1));
}
