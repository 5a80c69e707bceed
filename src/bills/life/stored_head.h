#pragma once

// The head of the screen's bill as the account set holds it, looked at again before the bill is changed: meanwhile it
// may be another user's.

#include "bills/bill_text.h"
#include "database/recordset.h"
#include "handover/program.h"

enum class Found
{
    AsRead,
    Gone,
    Changed, // by another user, which has been said
    Unknown, // the database did not answer, which has been shown
};

/// Columns Datee, State, Auditing and DateTimee.
Recordset StoredHead(Program& program, const BillText& bill);
/// Whether a stored head is the one that the screen read or wrote: another bill may bear its number by now.
bool IsAsRead(const BillText& bill, const Recordset& head);
/// Whether the stored bill is still the one on the screen, neither voided nor audited meanwhile.
/// @param command  that it is refused to otherwise: 修改, 审核
Found LookAgain(Program& program, const BillText& bill, const QString& command);
/// The same, and its stored day is open. What is gone may be changed.
bool MayChange(Program& program, const BillText& bill, const QString& command);
