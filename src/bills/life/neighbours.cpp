#include "bills/life/neighbours.h"

#include "bills/life/recall.h"

namespace {

/// Moves through the month's list, around its ends.
void StepThroughMonth(Program& program, BillText& bill, int step)
{
    const int count = static_cast<int>(bill.navigation.size());
    if (count == 0)
        return;
    // A bill that is not stored stands behind the one that was on the screen before it.
    const bool isBehind = !bill.BillSavedFlag || bill.navigationIndex < 0;
    const int from = bill.navigationIndex + (isBehind && step < 0 ? 1 : 0);
    bill.navigationIndex = (from + step + count) % count;
    FillBill(program, bill, bill.NavTableName, bill.navigation[bill.navigationIndex]);
}

} // namespace

void PreviousBill(Program& program, BillText& bill)
{
    StepThroughMonth(program, bill, -1);
}

void NextBill(Program& program, BillText& bill)
{
    StepThroughMonth(program, bill, 1);
}
