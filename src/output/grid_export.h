#pragma once

// Texts out of the program into a new workbook, which is left to the user unnamed and unsaved.

#include "base/spreadsheet.h"
#include "output/grid_table.h"

/// What of a grid is in sight: no row of height 0, no column of width 0.
std::vector<QStringList> TextsInSight(const GridTable& grid);

/// A column of a workbook that is to be filled in.
struct BlankColumn
{
    QString title;
    bool isText; // kept as it is typed: 001 stays 001
};
/// A workbook of titles alone. Throws SpreadsheetError.
void OpenBlankWorkbook(SpreadsheetHost& host, const std::vector<BlankColumn>& columns, const QString& caption);

/// Told after every block of rows, on the thread that writes.
using RowsWritten = std::function<void(int done, int total)>;
/// Every cell is stored as a text. Throws SpreadsheetError.
/// @param caption  of the window
void OpenNewWorkbook(SpreadsheetHost& host, const std::vector<QStringList>& rows, const QString& caption,
                     const RowsWritten& written = {});
