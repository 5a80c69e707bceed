#include "bills/save.h"

#include "bills/bill_content.h"
#include "bills/lifecycle.h"
#include "bills/validation.h"

Posting FSave(Program& program, BillText& bill)
{
    if (!CheckBill(program, bill))
        return {};
    const Posting posting = bill.kind->hasSource ? SaveTransferBill(program, bill) : SaveStockBill(program, bill);
    if (posting.stored)
        MarkUnchanged(bill);
    OpenNavigation(program, bill);
    if (bill.ChAutoAdd)
        NewBill(program, bill);
    return posting;
}
