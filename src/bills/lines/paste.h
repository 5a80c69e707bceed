#pragma once

// Text from a spreadsheet into the lines of a bill: rows end in line breaks, cells in tabs.

#include "bills/bill_text.h"
#include "handover/program.h"

/// Whether a text is more than one cell.
bool IsTable(const QString& text);
/// A text as one box or cell holds it: whole, tabs and line breaks within it a blank, at its ends nothing.
QString OneLine(const QString& text);

/// Fills cells from the current one on, growing the lines; nothing on a locked bill and without warehouses, which has
/// been said. Pasted columns go to the columns in sight, from left to right. A cell is written as Enter would: a code
/// brings its good, figures are formatted. Computed columns take nothing, empty texts change nothing, and neither a
/// good nor an attribute that does not exist is taken, nor what a cell cannot hold; the first cell of these becomes the
/// current one, and they are said.
void PasteTable(Program& program, BillText& bill, const QString& text);
