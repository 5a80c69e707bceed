#include "assembly/saving/assembly_save.h"

#include "assembly/saving/assembly_posting.h"
#include "assembly/saving/assembly_validation.h"
#include "assembly/voucher/voucher.h"
#include "bills/life/bill_content.h"
#include "bills/life/lifecycle.h"
#include "handover/open_query.h"

namespace {

PieceSave CheckAndPost(Program& program, GroupPieceText& bill)
{
    if (!CheckBill(program, bill))
        return {};
    const std::optional<bool> wantWarrant = CheckWarrantSettings(program, bill);
    return wantWarrant ? PostGroupPiece(program, bill, *wantWarrant) : PieceSave();
}

} // namespace

Posting FSave(Program& program, GroupPieceText& bill)
{
    const GroupPieceText before = bill;
    PieceSave save;
    {
        const Undertaking undertaking(program);
        save = CheckAndPost(program, bill);
        if (save.isDone)
            Inform(program, "保存成功！");
        if (!save.posting.stored)
            TakeBack(bill, before, undertaking);
    }
    if (!save.isDone)
        return save.posting;
    if (save.posting.stored)
        MarkUnchanged(bill);
    OpenNavigation(program, bill);
    const Next next = NextAfter(program, bill, save.posting);
    if (next == Next::Blank)
        NewBill(program, bill);
    return next == Next::SaveAgain ? FSave(program, bill) : save.posting;
}
