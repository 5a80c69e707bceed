#pragma once

// The save command of an assembly.

#include "assembly/group_piece.h"
#include "bills/saving/posting.h"

/// Checks, posts, writes the voucher, re-aims the navigation and, if so wished, opens a blank bill. A refusal has been
/// shown. The caller asks whether the command is enabled.
Posting FSave(Program& program, GroupPieceText& bill);
