#include "bills/line_totals.h"

#include "data/decimals.h"
#include "stock/unit_cost.h"

#include <QtNumeric>

namespace {

void SetRowMoney(const Program& program, LineGrid& grid, const LineColumns& at, int row)
{
    if (at.money == 0)
        return;
    const double money = RowMoney(grid, at, row);
    // A product beyond every number has no text; the check before a save names the row.
    grid.SetCell(row, at.money, qIsFinite(money) ? FormatByDigits(money, program.gDot.Money_DotLen) : QString());
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

double FetchRowCost(Program& program, const BillText& bill, const QString& code)
{
    CostQuestion question;
    question.moment = {bill.DTPDate, program.clock.Now().millisecondOfDay};
    question.wareCode = code;
    question.moneyName = CostCurrency(program, bill);
    question.auditedOnly = IsAuditedBillCounted(program);
    return GetUnitCost(program, question);
}

void RecalcRowAmount(const Program& program, BillText& bill, int row)
{
    SetRowMoney(program, bill.MSH, LineColumns(*bill.kind), row);
}

void RecalcAllAmounts(const Program& program, BillText& bill)
{
    const LineColumns at(*bill.kind);
    for (int row = 1; row <= bill.MSH.lastRow(); ++row) {
        if (!bill.MSH.Cell(row, at.code).isEmpty())
            SetRowMoney(program, bill.MSH, at, row);
    }
    SumBillTotals(program, bill);
}

void SumBillTotals(const Program& program, BillText& bill)
{
    const LineColumns at(*bill.kind);
    LineGrid& grid = bill.MSH;
    Currency money;
    double amount = 0;
    for (int row = 1; row <= grid.lastRow(); ++row) {
        money += Currency::FromDouble(CellFigure(grid, row, at.money != 0 ? at.money : at.revaluation));
        amount += CellFigure(grid, row, at.amount);
    }

    grid.column(at.code).alignment = 1;
    if (!grid.Cell(grid.lastRow(), at.code).isEmpty())
        grid.AddRow();
    grid.SetCell(grid.lastRow(), 0, {});
    bill.LabTotalMoney = FormatByDigits(money, program.gDot.Money_DotLen);
    bill.LabTotalAmount = FormatByDigits(amount, program.gDot.Amount_DotLen);
}
