#pragma once

// The life of an assembly's window, as far as it is not that of every bill window.

#include "assembly/group_piece.h"
#include "handover/program.h"

/// Form load: as every bill window, of the kind that OperateType names; an assembly for any other word.
void LoadGroupPiece(Program& program, GroupPieceText& bill);
/// Starts the window in its mode.
/// @param isFillBill  a recalled bill stays on the screen; otherwise a blank one is shown
void frm_Initialize(Program& program, GroupPieceText& bill, bool isFillBill);
/// A click on OptGroup or OptPiece: a blank bill of this mode, whatever was on the screen.
void SwitchMode(Program& program, GroupPieceText& bill, bool assembles);
/// ChAutoChen was clicked.
void ClickAutoChen(const Program& program, GroupPieceText& bill, bool on);
