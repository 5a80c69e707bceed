#pragma once

// The chain of checks before a save. The first that fails has told the user and ends it.

#include "bills/bill_text.h"
#include "handover/program.h"

/// The whole chain. On the way it puts the exact warehouses and goods of the master tables on the screen and gives a
/// new bill its code.
bool CheckBill(Program& program, BillText& bill);
// The checks that all bills have in common.

bool Refuse(Program& program, const QString& text);
/// The operator may save and the bill's day is open.
bool CheckMayEdit(Program& program, const BillText& bill);
/// One warehouse of the head must be a leaf of the tree; its exact name and code come from there.
bool CheckWarehouse(Program& program, QString& code, QString& name, const QString& word);
bool CheckCurrency(Program& program, const BillText& bill);
/// Stock is tested at all: a row of settings that does not allow it below zero.
bool IsStockTestOn(Program& program);
/// A new bill takes the next code of its kind; a bill without a code is refused.
bool NumberBill(Program& program, BillText& bill);

struct OnlyCodeQuestion;
/// What is wrong with the 唯一码 of a line, as it stands behind the number of its row; empty for nothing.
using OnlyCodeTest = QString (*)(Program& program, const BillText& bill, const OnlyCodeQuestion& question);
/// The lines: quantities, goods, dates, 唯一码, and figures too large to be money. On a refusal the current cell is
/// the one at fault.
bool CheckBillLines(Program& program, BillText& bill);
bool CheckBillLines(Program& program, BillText& bill, OnlyCodeTest test);

/// Where a bill's own rows of a good stand: a table, and its column with the bill's code.
struct OwnRows
{
    const char* table;
    const char* billColumn;
};
/// True when the source warehouse has less than the quantity, which has been said. The bill's own saved rows are
/// counted against it.
/// @param auditedOnly  only audited bills count as stock
bool CheckStockEnough(Program& program, const BillText& bill, const QString& code, double quantity, bool auditedOnly,
                      const OwnRows& own);
