#include "assembly/life/assembly_lifecycle.h"

#include "assembly/allocation.h"
#include "bills/life/lifecycle.h"

void LoadGroupPiece(Program& program, GroupPieceText& bill)
{
    LoadWindow(program, bill);
    const BillKind* const named = KindOfOperation(program.parameters.OperateType);
    const bool isPiece = named && named->lines == LineShape::Pieces;
    bill.kind = isPiece ? named : KindOfBill(PieceModes().front().bill);
    bill.LabBillName = bill.kind->bill;
}

void frm_Initialize(Program& program, GroupPieceText& bill, bool isFillBill)
{
    bill.LabBillName = bill.kind->bill;
    StartWindow(program, bill, isFillBill);
}

void SwitchMode(Program& program, GroupPieceText& bill, bool assembles)
{
    bill.kind = KindOfBill(PieceModes()[assembles ? 0 : 1].bill);
    frm_Initialize(program, bill, false);
}

void ClickAutoChen(const Program& program, GroupPieceText& bill, bool on)
{
    bill.ChAutoChen = on;
    ApplyAutoMultiply(program, bill, on);
}
