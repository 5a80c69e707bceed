#pragma once

// The line grid on the screen, for both bill windows: shows a LineGrid, keeps its current cell and says when a cell is
// entered. It edits nothing itself; the editors of a cell lie over it.

#include "bills/window/grid/grid_model.h"
#include "dialogs/grid_format.h"

#include <QTableView>

class QLabel;

class GridView : public QTableView
{
    Q_OBJECT

public:
    GridView(LineGrid& grid, QWidget* parent, GridRows kind = GridRows::Lines);

    /// Shows what the grid holds now, its current cell included.
    void Sync();
    /// Greyed, as the lines of a bill that takes no input.
    void SetLocked(bool locked);
    /// Columns that stay in sight when the grid scrolls sideways, the row head counted.
    void SetFixedColumns(int count);
    /// Goes to the next visible column or row, from the last column on to the first of the next row. False at the end.
    bool MoveBy(int columns, int rows);
    /// Place of the current cell in this widget; empty while it is out of sight.
    QRect CurrentCellRect() const;
    /// Pixels of a width in twips at this screen and font.
    int Pixels(int twips) const;

    /// The layout as it is now, for the window that edits layouts.
    GridFormat Format() const;
    /// Shows a column as that window made it; seen at the next Sync.
    void FormatColumn(int column, const ColumnFormat& format);

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

signals:
    /// The user has come to a cell, or clicked on the current one.
    void CellEntered();
    /// The user has drawn a column to a width.
    void ColumnDrawn(int column, int twips);
    /// The current cell may stand elsewhere now.
    void CellsMoved();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;

private:
    void MakeFixedPart();
    void LayOutColumns();
    void Repaint();
    void PlaceFixedPart();
    void KeepWidth(int section, int pixels);
    double PixelsPerTwip() const;
    int FixedSections() const;
    int FixedWidth() const;
    int NextColumn(int from, int step) const;
    bool isStretched(int section) const;

    LineGrid& m_grid;
    GridModel* m_model;
    QTableView* m_fixed;    // shows the fixed columns over the scrolling ones
    QLabel* m_corner;       // caption of the row head
    int m_fixedColumns = 1; // as wished, the row head counted
    bool m_locked = false;
    bool m_syncing = false;
    bool m_layingOut = false;
};
