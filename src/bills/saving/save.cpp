#include "bills/saving/save.h"

#include "bills/life/bill_content.h"
#include "bills/life/lifecycle.h"
#include "bills/saving/validation.h"

namespace {

/// What the checks and the posting have come to.
struct Attempt
{
    Posting posting;
    bool isOver = true; // a check refused or a question was not answered: nothing follows
};

Attempt CheckAndPost(Program& program, BillText& bill)
{
    const BillText before = bill;
    const Undertaking save(program);
    Attempt attempt;
    if (CheckBill(program, bill)) {
        attempt.posting = bill.kind->hasSource ? SaveTransferBill(program, bill) : SaveStockBill(program, bill);
        attempt.isOver = save.failed();
    }
    if (!attempt.posting.stored)
        TakeBack(bill, before, save);
    return attempt;
}

} // namespace

Posting FSave(Program& program, BillText& bill)
{
    const auto [posting, isOver] = CheckAndPost(program, bill);
    if (isOver)
        return posting;
    if (posting.stored) {
        ShowAsSaved(program, bill);
        MarkUnchanged(bill);
    }
    OpenNavigation(program, bill);
    const Next next = NextAfter(program, bill, posting);
    if (next == Next::Blank)
        NewBill(program, bill);
    return next == Next::SaveAgain ? FSave(program, bill) : posting;
}
