#include "bills/lines/line_totals.h"

#include "data/decimals.h"
#include "data/lookups.h"
#include "handover/undertaking.h"
#include "stock/unit_cost.h"

#include <QtNumeric>

namespace {

void SetRowMoney(const Program& program, BillText& bill, const LineColumns& at, int row, double factor)
{
    if (at.money == 0)
        return;
    const double money = factor * RowMoney(bill.MSH, at, row);
    // An assembly keeps the places of its prices in the money of its lines.
    const bool isPiece = bill.kind->lines == LineShape::Pieces;
    const int places = isPiece ? program.gDot.Price_DotLen : program.gDot.Money_DotLen;
    // A product beyond every number has no text; the check before a save names the row.
    bill.MSH.SetCell(row, at.money, qIsFinite(money) ? FormatByDigits(money, places) : QString());
}

} // namespace

double CellFigure(const LineGrid& grid, int row, int column)
{
    return column == 0 ? 0 : CellNumber(grid.Cell(row, column));
}

double RowMoney(const LineGrid& grid, const LineColumns& at, int row)
{
    if (at.revaluation != 0)
        return CellFigure(grid, row, at.revaluation);
    return CellFigure(grid, row, at.amount) * CellFigure(grid, row, at.price != 0 ? at.price : at.cost);
}

QString CostCurrency(const Program& program, const BillText& bill)
{
    return program.parameters.IsLotMoney ? bill.TxtMoneyName.trimmed() : QString();
}

Dimensions RowDimensions(const LineGrid& grid, const LineColumns& at, int row)
{
    const auto cell = [&grid, row](int column) { return grid.Cell(row, column).trimmed(); };
    return {PathHead(cell(at.attribute)), cell(at.spec), cell(at.manufacturer), cell(at.brand), cell(at.batch)};
}

std::optional<double> FetchRowCost(Program& program, const BillText& bill, const QString& code,
                                   const Dimensions& dimensions)
{
    const Undertaking asking(program);
    CostQuestion question;
    question.moment = {bill.DTPDate, program.clock.Now().millisecondOfDay};
    question.wareCode = code;
    question.dimensions = dimensions;
    question.moneyName = CostCurrency(program, bill);
    question.auditedOnly = IsAuditedBillCounted(program);
    const double cost = GetUnitCost(program, question);
    return asking.failed() ? std::nullopt : std::optional(cost);
}

void RecalcRowAmount(const Program& program, BillText& bill, int row)
{
    SetRowMoney(program, bill, LineColumns(*bill.kind), row, bill.MoneyFactor(row));
}

void RecalcAllAmounts(const Program& program, BillText& bill)
{
    const LineColumns at(*bill.kind);
    for (int row = 1; row <= bill.MSH.lastRow(); ++row) {
        if (!bill.MSH.Cell(row, at.code).isEmpty())
            SetRowMoney(program, bill, at, row, 1);
    }
    SumBillTotals(program, bill);
    bill.LinesChanged(program);
}

Currency SumLineMoney(BillText& bill)
{
    const LineColumns at(*bill.kind);
    LineGrid& grid = bill.MSH;
    Currency money;
    for (int row = 1; row <= grid.lastRow(); ++row)
        money += Currency::FromDouble(CellFigure(grid, row, at.money != 0 ? at.money : at.revaluation));
    if (!grid.Cell(grid.lastRow(), at.code).isEmpty())
        grid.AddRow();
    grid.SetCell(grid.lastRow(), 0, {});
    return money;
}

void SumBillTotals(const Program& program, BillText& bill)
{
    const LineColumns at(*bill.kind);
    LineGrid& grid = bill.MSH;
    double amount = 0;
    for (int row = 1; row <= grid.lastRow(); ++row)
        amount += CellFigure(grid, row, at.amount);
    grid.column(at.code).alignment = 1;
    bill.LabTotalMoney = FormatByDigits(SumLineMoney(bill), program.gDot.Money_DotLen);
    bill.LabTotalAmount = FormatByDigits(amount, program.gDot.Amount_DotLen);
}
