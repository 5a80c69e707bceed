#pragma once

// What a user has put into a bill: compared with what was last loaded or stored it says whether anything would be lost,
// and a draft is made of it.

#include "base/prompt.h"
#include "bills/bill_text.h"

struct Program;

/// What is on the screen now.
BillContent ContentOf(const BillText& bill);
/// Whether the bill holds anything that was neither loaded nor stored. Figures that follow from others do not count,
/// nor does the form in which a number is written.
bool IsChanged(const BillText& bill);
/// The bill has just been blanked, loaded or stored.
void MarkUnchanged(BillText& bill);
/// Puts content onto a bill of the same kind, and what follows from it.
void ShowContent(Program& program, BillText& bill, const BillContent& content);

/// A changed bill is to give way: 保存 is the first choice, 放弃 the second.
Choice AskUnsaved(Program& program, const BillText& bill);
