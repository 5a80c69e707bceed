#pragma once

// The accounting voucher that a save of an assembly or disassembly writes where the account set keeps its own books.
// It hangs on the bill by TabWarrant.JXCBillCode and keeps its code and numbers for as long as the bill wants one.

#include "assembly/group_piece.h"

/// Whether the save is to write a voucher. Unset where the save must stop, which has been said.
std::optional<bool> CheckWarrantSettings(Program& program, const GroupPieceText& bill);
/// Writes the voucher of a stored bill anew, head and rows. A bill in a closed month keeps what it had, which is said.
void WriteBillWarrant(Program& program, const GroupPieceText& bill, const QString& billCode);
/// Removes the voucher of a bill, whatever its state.
void DeleteBillWarrant(Program& program, const QString& billCode);

/// Opens the bill's voucher in the accounting program. A refusal has been said.
/// @param byMenu  the menu asks for the right, the key on the toolbar does not
bool SeeBillWarrant(Program& program, const BillText& bill, bool byMenu);
