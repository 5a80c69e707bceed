#include "bills/saving/save_outcome.h"

#include "bills/life/bill_content.h"

Next NextAfter(Program& program, const BillText& bill, const Posting& posting)
{
    if (!bill.ChAutoAdd || !(posting.stored || posting.declined))
        return Next::Stay;
    if (posting.stored || !IsChanged(bill))
        return Next::Blank;
    switch (AskUnsaved(program, bill)) {
    case Choice::First:
        return Next::SaveAgain;
    case Choice::Second:
        return Next::Blank;
    case Choice::Cancel:
        break;
    }
    return Next::Stay;
}
