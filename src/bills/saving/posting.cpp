#include "bills/saving/posting.h"

#include "bills/life/audit.h"
#include "bills/saving/save_rows.h"
#include "data/decimals.h"
#include "data/lookups.h"
#include "stock/cost_rewrite.h"

namespace {

using HeadRow = Row (*)(const Save& save, const Moment& moment);

/// What the set prices of all lines differ from their costs by, as the grid shows them.
Currency BillPriceDifference(const Save& save)
{
    Currency sum;
    if (save.bill.kind->lines != LineShape::Priced)
        return sum;
    for (int row = 1; row < save.bill.MSH.lastRow(); ++row)
        sum += Currency::FromDouble((save.Figure(row, save.at.cost) - save.Figure(row, save.at.price)) *
                                    save.Figure(row, save.at.amount));
    return sum;
}

/// The columns that every head ends with, from Report on.
Row HeadEnd(const BillText& bill, const Moment& moment)
{
    return {QString(),
            moment,
            bill.TxtSaleMan.trimmed(),
            bill.TxtMoneyName.trimmed(),
            CellNumber(bill.TxtMoneyRate),
            bill.TxtAuditing.trimmed()};
}

/// The columns that every head has in its middle, from its writer to its state.
Row HeadMiddle(const Save& save)
{
    const BillText& bill = save.bill;
    return {save.program.parameters.UserName,
            bill.TxtWarehouseCodeS.trimmed(),
            bill.TxtWarehouseNameS.trimmed(),
            bill.TxtMemo.trimmed(),
            bill.TxtExplain.trimmed(),
            bill.kind->operation,
            QString("正常")};
}

Row TransferHead(const Save& save, const Moment& moment)
{
    const BillText& bill = save.bill;
    Row row = {bill.TxtBillCode.trimmed(), bill.DTPDate, bill.TxtWarehouseCodeF.trimmed(),
               bill.TxtWarehouseNameF.trimmed()};
    Append(row, HeadMiddle(save));
    row.emplace_back(CellNumber(bill.LabTotalMoney));
    if (bill.kind->lines == LineShape::Priced)
        row.emplace_back(BillPriceDifference(save));
    Append(row, HeadEnd(bill, moment));
    return row;
}

/// A count bill keeps no value in its head.
Row StockHead(const Save& save, const Moment& moment)
{
    const BillText& bill = save.bill;
    Row row = {bill.TxtBillCode.trimmed(), bill.DTPDate};
    Append(row, HeadMiddle(save));
    if (bill.kind->lines == LineShape::Revalued)
        row.emplace_back(CellNumber(bill.LabTotalMoney));
    row.emplace_back(BillPriceDifference(save));
    Append(row, HeadEnd(bill, moment));
    return row;
}

LineFigures FiguresOf(const Save& save, int row, const Moment& moment)
{
    CostQuestion question = LineCostQuestion(save, row, moment);
    LineFigures figures;
    figures.cost = GetUnitCost(save.program, question);
    if (save.bill.kind->lines == LineShape::Revalued) {
        figures.difference = save.Figure(row, save.at.revaluation);
        question.addsValue = true;
        question.lineMoney = Currency::FromDouble(figures.difference);
        figures.lastCost = GetUnitCost(save.program, question);
        return figures;
    }
    const double amount = save.Figure(row, save.at.amount);
    const float ratio = GetUnitRatio(save.program, question.wareCode, save.Cell(row, save.at.unit));
    figures.unionAmount = amount * static_cast<double>(ratio);
    if (save.bill.kind->lines == LineShape::Priced) {
        const double price = save.Figure(row, save.at.price);
        if (figures.cost == 0)
            figures.cost = price;
        figures.difference = (price - figures.cost) * amount;
    }
    return figures;
}

bool WriteLine(Save& save, int row)
{
    const Moment moment = save.moments.Next();
    const LineFigures figures = FiguresOf(save, row, moment);
    if (!Currency::IsMoney(figures.difference))
        return false;
    const BillText& bill = save.bill;
    OpenQuery(save.program, InsertInto(Name(bill.kind->lineTable), LineRow(save, row, moment, figures)));
    if (bill.kind->lines == LineShape::Revalued && save.rewritesCosts())
        RewriteCostOverBills(save.program, save.Cell(row, save.at.code), bill.TxtWarehouseCodeS.trimmed(), bill.DTPDate,
                             save.moneyName, save.auditedOnly);
    return true;
}

/// One unit of the store: leaving it early takes everything back.
Outcome WriteBill(Save& save, HeadRow head, bool rewrite)
{
    Program& program = save.program;
    const BillText& bill = save.bill;
    SaveUnit unit(program);
    if (!unit.isOpen())
        return Outcome::NotStored;
    if (rewrite && !DeleteReplaced(program, bill))
        return Outcome::NotStored;
    save.headMoment = save.moments.Next();
    if (const std::optional<Outcome> hindrance = FindHindrance(program, bill))
        return *hindrance;
    OpenQuery(program, InsertInto(Name(bill.kind->headTable), head(save, save.headMoment)));
    for (int row = 1; row < bill.MSH.lastRow(); ++row) {
        if (!WriteLine(save, row))
            return Outcome::NoMoney;
    }
    return CommitBill(unit, save);
}

Outcome AskAndWrite(Program& program, BillText& bill, HeadRow head)
{
    const std::optional<bool> rewrite = AskRewrite(program, bill);
    if (!rewrite)
        return Outcome::Declined;
    Save save(program, bill);
    const Outcome outcome = WriteBill(save, head, *rewrite);
    if (outcome == Outcome::Stored)
        bill.DateTimee = save.headMoment;
    return outcome;
}

Posting SaveBill(Program& program, BillText& bill, HeadRow head)
{
    const Outcome outcome = AskAndWrite(program, bill, head);
    if (outcome == Outcome::CodeTaken)
        Inform(program, "单编号重复，请重新执行保存！");
    if (outcome == Outcome::NoMoney)
        Inform(program, "单价与成本价的差额超出系统所能保存的范围，请修改后再保存！");
    return PostingOf(outcome, bill);
}

} // namespace

void ShowAsSaved(Program& program, BillText& bill)
{
    bill.TxtOperator = program.parameters.UserName;
    if (bill.ChAutoAuditing)
        AuditSaved(program, bill);
    bill.LabAuditing = bill.TxtAuditing.isEmpty() ? "未审核" : "已审核";
    bill.LabState.clear();
    bill.BillSavedFlag = true;
    // The second audit says that the bill is audited already: that is what the user knows from every auto-audited save.
    if (bill.ChAutoAuditing)
        AuditSaved(program, bill);
    bill.SetEnabled(Command::Print, true);
    program.prompt.Inform("保存成功！");
}

Posting SaveTransferBill(Program& program, BillText& bill)
{
    return SaveBill(program, bill, TransferHead);
}

Posting SaveStockBill(Program& program, BillText& bill)
{
    return SaveBill(program, bill, StockHead);
}
