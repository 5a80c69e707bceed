#pragma once

// The lines of a bill as a table for a view: the header row and the row head become headers.

#include "bills/line_grid.h"

#include <QAbstractTableModel>

/// What the rows of a grid are: lines that are entered, the blank one at the end being the next; or a list, which takes
/// no input and does not show that one.
enum class GridRows
{
    Lines,
    List,
};

class GridModel : public QAbstractTableModel
{
public:
    GridModel(LineGrid& grid, GridRows kind, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_rows; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_columns; }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Follows the grid. True when its columns are not those of the last time.
    bool Sync();

private:
    bool ColumnsChanged() const;

    LineGrid& m_grid;
    const GridRows m_kind;
    std::vector<LineGrid::Column> m_shown; // columns as the view knows them
    int m_rows = 0;
    int m_columns = 0;
};
