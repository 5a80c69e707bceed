#pragma once

// The line grid as it goes out of the program: to the print host or into a workbook.

#include "bills/line_grid.h"
#include "output/grid_table.h"

/// All rows and columns, the blank last row as well; the captions are row 0. All rows are equally high.
GridTable TableOf(const LineGrid& grid);
