#pragma once

// Bill codes and voucher numbers. Both only propose: nothing is reserved, and whoever saves tests for a code that is
// there already.

#include "handover/program.h"

/// The next code of today: prefix, eight digits of the clock's date and a sequence of at least four digits. Empty where
/// the database did not answer: the first one would be that of another bill.
QString NextBillCode(Program& program, const QString& prefix, const char* table);
/// The next voucher number of a book (1, 2 or 3) within a period, both days included. 0 where the database did not
/// answer.
int NextVoucherNumber(Program& program, const QDate& start, const QDate& end, int book);
