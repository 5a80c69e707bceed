#pragma once

// From one bill of the month to the next.

#include "bills/bill_text.h"
#include "handover/program.h"

/// The neighbour in the month's list, around the end; nothing in an empty month.
void PreviousBill(Program& program, BillText& bill);
void NextBill(Program& program, BillText& bill);
