#pragma once

// What a save writes once its checks have passed: one head row and a row for each line, or both anew where the bill
// is there already. Head and lines are stored together or not at all.

#include "bills/bill_text.h"
#include "handover/undertaking.h"

/// What a save has made of the bill.
struct Posting
{
    bool stored = false;   // the rows were committed
    bool declined = false; // nothing was: the user would rather not replace the stored bill
    bool unknown = false;  // whether they were is not known, which has been said
    QString code{};        // also of what is not known
};

/// 同价调拨单 and 异价调拨单.
Posting SaveTransferBill(Program& program, BillText& bill);
/// 商品调价单, 盘点报损单 and 盘点报溢单.
Posting SaveStockBill(Program& program, BillText& bill);

/// A stored bill on its screen, audited if so wished.
void ShowAsSaved(Program& program, BillText& bill);

/// What follows a save where each is to be followed by a new bill.
enum class Next
{
    Stay,
    Blank,
    SaveAgain,
};
/// After a save that stored, and after the user's own no, the window is blanked, what is not stored with the user's
/// word alone; after any other refusal the bill stays.
Next NextAfter(Program& program, const BillText& bill, const Posting& posting);

/// After a save that stored nothing the number that it drew goes back, and where the database did not answer, the whole
/// screen is as it was before.
template <typename Bill>
void TakeBack(Bill& bill, const Bill& before, const Undertaking& save)
{
    if (save.failed())
        bill = before;
    bill.TxtBillCode = before.TxtBillCode;
    bill.TxtDate = before.TxtDate;
}
