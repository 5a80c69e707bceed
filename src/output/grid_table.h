#pragma once

// A grid as it goes out of the program, to the print host or into a workbook: texts with the sizes that tell what is
// hidden.

#include <QStringList>
#include <vector>

struct GridTable
{
    std::vector<int> widths;       // of the columns, twips; 0 is hidden
    std::vector<int> heights;      // of the rows, twips; 0 is hidden
    std::vector<QStringList> rows; // row 0 holds the captions
};
