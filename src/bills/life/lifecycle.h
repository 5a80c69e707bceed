#pragma once

// The life of a bill window: loaded, made a kind, blank, shown, locked by state, moved through the month's bills.

#include "bills/bill_text.h"
#include "handover/program.h"

/// The day that bills are entered for: that of the hand-over, otherwise today.
QDate WorkingDate(const Program& program);
/// Form load: day, operator and currency that a window starts with. The kind is 同价调拨单 until frm_Initialize.
void LoadWindow(Program& program, BillText& bill);
/// Makes the window one of the kind that OperateType names; a word that names none leaves the kind as it is.
/// @param keepLoaded  a recalled bill stays on the screen; otherwise a blank one is shown
void frm_Initialize(Program& program, BillText& bill, bool keepLoaded);
/// What frm_Initialize does once the kind is known.
void StartWindow(Program& program, BillText& bill, bool keepLoaded);
/// A blank bill of a head table's kind, or of the window's own where it does not show that kind.
void OpenBlank(Program& program, BillText& bill, const QString& tableName);
/// Currencies to choose from, the base currency first.
QStringList MoneyNames(Program& program);

void NewBill(Program& program, BillText& bill);
/// Empties fields and lines. Day, currency and BillSavedFlag stay.
void ClearBill(Program& program, BillText& bill);
void SetWindowEnabled(BillText& bill, bool on);
/// Locks what a closed day, an audit or a void forbids.
void RefreshWindowState(Program& program, BillText& bill);

/// Lists the bills of the month of the bill's day and stands on the shown one, or on none: the last one is then the
/// previous and the first one the next.
void OpenNavigation(Program& program, BillText& bill);
