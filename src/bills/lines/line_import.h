#pragma once

// Lines out of a workbook that the user chooses: the titles stand in row 1 of its sheet "sheet1", a line in every row
// below it, up to the first one without a code.

#include "bills/bill_text.h"
#include "handover/program.h"
#include "output/grid_export.h"

#include <functional>

/// Asks for the workbook; empty where none was chosen, which has been said.
QString AskImportFile(Program& program, const BillKind& kind);

/// Told at every step.
/// @param total  0 while it is not known
/// @return false once the user has ended the work
using ImportProgress = std::function<bool(int done, int total)>;
/// The lines of the bill become those of the workbook whose goods are known. Nothing is checked here, that is for the
/// save. A file that cannot be read or names no good, work that the user ends and a lost database leave the bill as it
/// was.
/// @return how it went, to be said to the user, with the rows that were left out; empty where he has ended it or has
/// been told
QString ExcelInBill(Program& program, BillText& bill, const QString& path, const ImportProgress& progress);

/// The columns that a workbook for this kind of bill can have, as their titles may stand in row 1.
std::vector<BlankColumn> ImportColumns(const BillKind& kind);
