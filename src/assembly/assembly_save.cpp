#include "assembly/assembly_save.h"

#include "assembly/assembly_posting.h"
#include "assembly/assembly_validation.h"
#include "assembly/voucher.h"
#include "bills/bill_content.h"
#include "bills/lifecycle.h"

Posting FSave(Program& program, GroupPieceText& bill)
{
    if (!CheckBill(program, bill))
        return {};
    const std::optional<bool> wantWarrant = CheckWarrantSettings(program, bill);
    if (!wantWarrant)
        return {};
    const PieceSave save = PostGroupPiece(program, bill, *wantWarrant);
    if (!save.isDone)
        return {};
    program.prompt.Inform("保存成功！");
    if (save.posting.stored)
        MarkUnchanged(bill);
    OpenNavigation(program, bill);
    if (bill.ChAutoAdd)
        NewBill(program, bill);
    return save.posting;
}
