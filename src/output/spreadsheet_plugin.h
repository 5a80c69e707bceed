#pragma once

// The spreadsheet application of the program: a plug-in beside the executable, loaded when a workbook is first asked
// for. Without LibreOffice on the machine the program runs all the same and says what to install.

#include "base/spreadsheet.h"

struct Program;

/// Loads the plug-in of a folder. Throws SpreadsheetError.
std::unique_ptr<SpreadsheetHost> LoadSpreadsheet(const QString& folder);
/// The program's one, loaded when there is none yet. Throws SpreadsheetError.
SpreadsheetHost& SpreadsheetOf(Program& program);
