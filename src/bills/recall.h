#pragma once

// A saved bill back on the screen.

#include "bills/bill_text.h"
#include "handover/program.h"

/// Shows a bill of a head table, locked as its state demands. One that does not exist is said; the head then stays
/// as it was.
void FillBill(Program& program, BillText& bill, const QString& tableName, const QString& billCode);
