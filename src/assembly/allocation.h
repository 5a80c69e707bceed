#pragma once

// What an assembly does to cost: the product takes the money of its goods and the fee; a disassembly's goods are priced
// by hand until they carry the product's money and the fee. Figures live in texts, and each is rounded where it is
// formatted: the next one is computed from the rounded text.

#include "assembly/group_piece.h"
#include "handover/program.h"

/// The head's money and cost by the lines (assembly), or its money by its cost (disassembly).
void RecalcHeadTotals(const Program& program, GroupPieceText& bill);
/// TxtTotalMoney from TxtAmount and TxtCost, whatever the mode.
void RecalcTotalOfCost(const Program& program, GroupPieceText& bill);
/// A recipe of one piece scaled to TxtAmount pieces, or back. The head then follows the lines in both modes.
void ApplyAutoMultiply(const Program& program, GroupPieceText& bill, bool multiply);
/// Whether the money adds up, exactly; otherwise the user has been told.
bool CheckCostAllocation(Program& program, const GroupPieceText& bill);
