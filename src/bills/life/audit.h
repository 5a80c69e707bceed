#pragma once

// What happens to a saved bill: audited, taken back, voided, deleted. Rights and questions are part of each command;
// refusals have been shown.

#include "bills/bill_text.h"
#include "handover/program.h"

// An audit, its taking back and a void end with the bill filled again from its rows.

void AuditBill(Program& program, BillText& bill);
/// The same as a part of a save, for a bill whose rows may not be committed yet.
void AuditSaved(Program& program, BillText& bill);
void UnAuditBill(Program& program, BillText& bill);
/// Writes or takes back the auditor on head and lines, without asking for the right. True when it was done.
bool SetAuditMark(Program& program, BillText& bill, bool audit);

/// Takes the bill out of stock and cost for good; its unposted voucher goes with it.
void VoidBill(Program& program, BillText& bill);
/// Removes the bill, its vouchers and its images. Lines of a 异价调拨单 stay behind.
void FDelete(Program& program, BillText& bill);
