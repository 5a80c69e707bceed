#pragma once

// What has become of a save, and what follows from it on the screen.

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
