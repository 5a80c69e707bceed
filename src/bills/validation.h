#pragma once

// The chain of checks before a save. The first that fails has told the user and ends it.

#include "bills/bill_text.h"
#include "handover/program.h"

/// The whole chain. On the way it puts the exact warehouses and goods of the master tables on the screen and gives a
/// new bill its code.
bool CheckBill(Program& program, BillText& bill);
/// The lines: quantities, goods, dates, 唯一码, and figures too large to be money. On a refusal the current cell is
/// the one at fault.
bool CheckBillLines(Program& program, BillText& bill);
/// True when the source warehouse has less than the quantity, which has been said. The bill's own saved lines are
/// counted against it.
/// @param auditedOnly  only audited bills count as stock
bool CheckStockEnough(Program& program, const BillText& bill, const QString& code, double quantity, bool auditedOnly);
