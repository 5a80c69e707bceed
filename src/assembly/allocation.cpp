#include "assembly/allocation.h"

#include "bills/lines/line_totals.h"
#include "data/decimals.h"
#include "handover/open_query.h"

#include <QtNumeric>

namespace {

/// A product beyond every number has no text.
QString Formatted(double value, int places)
{
    return qIsFinite(value) ? FormatByDigits(value, places) : QString();
}

/// The product takes all money of the lines and the fee.
void RecalcFromLines(const Program& program, GroupPieceText& bill)
{
    const DotType& places = program.gDot;
    const double fee = CellNumber(bill.TxtFee);
    const Currency lines = SumLineMoney(bill);
    bill.TxtTotalMoney = Formatted(fee + Val(lines.text()), places.Money_DotLen);

    const double amount = CellNumber(bill.TxtAmount);
    if (amount == 0)
        return;
    // The places of quantities, not of money: they decide the last digit of the unit cost.
    const QString whole = FormatByDigits(lines + Currency::FromDouble(fee), places.Amount_DotLen);
    bill.TxtCost = Formatted(CellNumber(whole) / amount, places.Price_DotLen);
}

} // namespace

void RecalcHeadTotals(const Program& program, GroupPieceText& bill)
{
    if (ModeOf(bill).assembles)
        RecalcFromLines(program, bill);
    else
        RecalcTotalOfCost(program, bill);
}

void RecalcTotalOfCost(const Program& program, GroupPieceText& bill)
{
    bill.TxtTotalMoney = Formatted(CellNumber(bill.TxtAmount) * CellNumber(bill.TxtCost), program.gDot.Money_DotLen);
}

void ApplyAutoMultiply(const Program& program, GroupPieceText& bill, bool multiply)
{
    const double pieces = CellNumber(bill.TxtAmount);
    LineGrid& grid = bill.MSH;
    if (pieces <= 0 || grid.rows() < 3)
        return;
    const LineColumns at(*bill.kind);
    for (int row = 1; row < grid.lastRow(); ++row) {
        const double old = CellFigure(grid, row, at.amount);
        grid.SetCell(row, at.amount, Formatted(multiply ? old * pieces : old / pieces, program.gDot.Amount_DotLen));
        const double money = CellFigure(grid, row, at.amount) * CellFigure(grid, row, at.cost);
        grid.SetCell(row, at.money, Formatted(money, program.gDot.Money_DotLen));
    }
    SumBillTotals(program, bill);
    RecalcFromLines(program, bill);
}

bool CheckCostAllocation(Program& program, const GroupPieceText& bill)
{
    const PieceMode& mode = ModeOf(bill);
    const double lines = CellNumber(bill.LabTotalMoney);
    const double total = CellNumber(bill.TxtTotalMoney);
    const double fee = CellNumber(bill.TxtFee);
    // The fee is part of what is made: the product here, its parts there.
    if (mode.assembles ? lines + fee == total : total + fee == lines)
        return true;
    Inform(program, mode.allocationWrong);
    return false;
}

void GroupPieceText::LinesChanged(const Program& program)
{
    RecalcHeadTotals(program, *this);
}
