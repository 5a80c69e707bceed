#pragma once

// The lines of a bill as the screen shows them: a grid of texts. Row 0 holds the captions, column 0 is narrow and
// without a caption, the last row is always blank and no line.

#include <QString>
#include <QStringList>
#include <vector>

class LineGrid
{
public:
    struct Column
    {
        QString caption;
        int width = 0;     // twips; 0 is hidden
        int alignment = 9; // 1 left, 4 centre, 7 right, 9 default: figures right, texts left
        bool isFigure = false;
        bool isDefault = true; // no saved layout stands behind it
    };

    /// Two rows, header and blank, with these columns.
    void Reset(std::vector<Column> columns);

    int rows() const { return static_cast<int>(m_cells.size()) + 1; } // header included
    int columns() const { return static_cast<int>(m_columns.size()); }
    /// The row that is no line.
    int lastRow() const { return rows() - 1; }

    Column& column(int index) { return m_columns[index]; }
    const Column& column(int index) const { return m_columns[index]; }
    /// Row 0 gives the caption.
    const QString& Cell(int row, int column) const;
    /// All cells of a row but row 0.
    const QStringList& Row(int row) const { return m_cells[row - 1]; }
    void SetCell(int row, int column, const QString& text);

    void AddRow();
    void InsertRow(int row);
    void RemoveRow(int row);

    int currentRow = 1;
    int currentColumn = 1;

private:
    std::vector<Column> m_columns;
    std::vector<QStringList> m_cells; // row 1 is m_cells[0]
};
