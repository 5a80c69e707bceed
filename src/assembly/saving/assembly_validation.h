#pragma once

// The chain of checks before an assembly is saved. The first that fails has told the user and ends it.

#include "assembly/group_piece.h"
#include "handover/program.h"

/// Warehouses, product and quantity; the exact warehouses go to the screen. Asked before a save, an import and
/// scanning.
bool CheckPieceHead(Program& program, GroupPieceText& bill);
/// The product's batch data and the lines.
bool CheckBillLines(Program& program, GroupPieceText& bill);
/// The whole chain up to the voucher's own tests. On the way a new bill gets its code.
bool CheckBill(Program& program, GroupPieceText& bill);
