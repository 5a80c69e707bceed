#include "bills/paper/line_table.h"

namespace {

constexpr int kRowHeight = 300; // twips

} // namespace

GridTable TableOf(const LineGrid& grid)
{
    GridTable table;
    for (int column = 0; column < grid.columns(); ++column)
        table.widths.push_back(grid.column(column).width);
    for (int row = 0; row < grid.rows(); ++row) {
        table.heights.push_back(kRowHeight);
        QStringList& texts = table.rows.emplace_back();
        for (int column = 0; column < grid.columns(); ++column)
            texts << grid.Cell(row, column);
    }
    return table;
}
