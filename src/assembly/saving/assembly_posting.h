#pragma once

// What a save writes once its checks have passed: the product's row, a row for each line, the audit mark if so wished,
// and the voucher. All of it is stored together or not at all.

#include "assembly/group_piece.h"
#include "bills/saving/posting.h"

/// What a save has come to.
struct PieceSave
{
    Posting posting;
    /// The save has come to its end, be it that it wrote nothing because the number was taken or the user would not
    /// have the bill changed. False where the database could not store it.
    bool isDone = false;
};

/// Writes the bill, 商品组装单 or 商品拆卸单, and writes its voucher or takes it away. What went wrong has been said.
PieceSave PostGroupPiece(Program& program, GroupPieceText& bill, bool wantWarrant);
