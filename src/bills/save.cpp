#include "bills/save.h"

#include "bills/lifecycle.h"
#include "bills/validation.h"

Posting FSave(Program& program, BillText& bill)
{
    if (!CheckBill(program, bill))
        return {};
    const Posting posting = bill.kind->hasSource ? SaveTransferBill(program, bill) : SaveStockBill(program, bill);
    OpenNavigation(program, bill);
    if (bill.ChAutoAdd)
        NewBill(program, bill);
    return posting;
}
