#include "assembly/saving/assembly_posting.h"

#include "assembly/allocation.h"
#include "assembly/voucher/voucher.h"
#include "bills/life/audit.h"
#include "bills/life/recall.h"
#include "bills/saving/save_rows.h"
#include "data/decimals.h"
#include "data/lookups.h"
#include "stock/cost_rewrite.h"

namespace {

double ProductUnionAmount(Program& program, const GroupPieceText& bill)
{
    const float ratio = GetUnitRatio(program, bill.TxtWareCode.trimmed(), bill.TxtUnite.trimmed());
    return CellNumber(bill.TxtAmount) * static_cast<double>(ratio);
}

double UnitMoney(double money, double unionAmount)
{
    return unionAmount != 0 ? money / unionAmount : 0;
}

double ProductCost(const Save& save, const GroupPieceText& bill, const Moment& moment, double unionAmount)
{
    // Read as it stands: a grouped total counts up to its first separator here, and here alone.
    const double total = Val(bill.TxtTotalMoney);
    CostQuestion question;
    question.moment = moment;
    question.wareCode = bill.TxtWareCode.trimmed();
    question.addsValue = ModeOf(bill).assembles;
    question.lineAmount = unionAmount;
    question.linePrice = UnitMoney(total, unionAmount);
    question.lineMoney = Currency::FromDouble(total);
    question.dimensions = {PathHead(bill.TxtWareAttribute), bill.TxtWareSpec.trimmed(), bill.TxtManufacturer.trimmed(),
                           bill.TxtBrand.trimmed(), bill.TxtPCode.trimmed()};
    question.moneyName = save.moneyName;
    question.auditedOnly = save.auditedOnly;
    return GetUnitCost(save.program, question);
}

/// The head row up to the product's cost, and behind it.
Row HeadStart(const Save& save, const GroupPieceText& bill)
{
    return {bill.TxtBillCode.trimmed(),
            bill.DTPDate,
            bill.TxtWarehouseCodeF.trimmed(),
            bill.TxtWarehouseNameF.trimmed(),
            bill.TxtWareCode.trimmed(),
            bill.TxtWareName.trimmed(),
            save.program.parameters.UserName.trimmed(),
            CellNumber(bill.TxtCost),
            CellNumber(bill.TxtAmount),
            bill.TxtWarehouseCodeS.trimmed(),
            bill.TxtWarehouseNameS.trimmed(),
            bill.TxtUnite.trimmed(),
            CellNumber(bill.TxtTotalMoney),
            bill.kind->operation,
            QString("正常"),
            QString(),
            CellNumber(bill.TxtFee)};
}

Row HeadEnd(const GroupPieceText& bill, double unionAmount)
{
    Row row = {bill.TxtSaleMan.trimmed(),       bill.TxtMoneyName.trimmed(),     CellNumber(bill.TxtMoneyRate),
               PathHead(bill.TxtWareAttribute), PathTail(bill.TxtWareAttribute), unionAmount};
    for (const QString* text :
         {&bill.TxtManufacturer, &bill.TxtBrand, &bill.TxtPCode, &bill.TxtSCDate, &bill.TxtYXDate, &bill.TxtOnlyCode,
          &bill.TxtAuditing, &bill.TxtWareSpec, &bill.TxtCustom1, &bill.TxtCustom2, &bill.TxtCustom3})
        row.emplace_back(text->trimmed());
    return row;
}

Row HeadRow(const Save& save, const GroupPieceText& bill, const Moment& moment)
{
    const double unionAmount = ProductUnionAmount(save.program, bill);
    const double stockIn = ModeOf(bill).assembles ? CellNumber(bill.TxtAmount) : 0;
    Row row = HeadStart(save, bill);
    Append(row, {ProductCost(save, bill, moment, unionAmount), moment, stockIn});
    Append(row, HeadEnd(bill, unionAmount));
    return row;
}

LineFigures FiguresOf(const Save& save, int row, const Moment& moment)
{
    CostQuestion question = LineCostQuestion(save, row, moment);
    const double money = save.Figure(row, save.at.money);
    const double amount = save.Figure(row, save.at.amount);
    const float ratio = GetUnitRatio(save.program, question.wareCode, save.Cell(row, save.at.unit));
    LineFigures figures;
    figures.unionAmount = amount * static_cast<double>(ratio);
    figures.stockIn = ModeOf(save.bill).assembles ? 0 : amount;
    question.addsValue = !ModeOf(save.bill).assembles;
    question.lineAmount = figures.unionAmount;
    question.linePrice = UnitMoney(money, figures.unionAmount);
    question.lineMoney = Currency::FromDouble(money);
    figures.cost = GetUnitCost(save.program, question);
    return figures;
}

/// What comes in changes the costs of whatever is dated after it.
void RewriteCosts(const Save& save, const QString& wareCode)
{
    if (save.rewritesCosts())
        RewriteCostOverBills(save.program, wareCode, save.bill.TxtWarehouseCodeS.trimmed(), save.bill.DTPDate,
                             save.moneyName, save.auditedOnly);
}

void WriteLine(Save& save, int row)
{
    const Moment moment = save.moments.Next();
    const LineFigures figures = FiguresOf(save, row, moment);
    OpenQuery(save.program, InsertInto(Name(save.bill.kind->lineTable), LineRow(save, row, moment, figures)));
}

void SaveAssemblyBill(Save& save, GroupPieceText& bill, const Row& head)
{
    OpenQuery(save.program, InsertInto(Name(bill.kind->headTable), head));
    RewriteCosts(save, bill.TxtWareCode.trimmed());
    bill.TxtOperator = save.program.parameters.UserName;
    for (int row = 1; row < bill.MSH.lastRow(); ++row)
        WriteLine(save, row);
}

void SavePieceBill(Save& save, GroupPieceText& bill, const Row& head)
{
    OpenQuery(save.program, InsertInto(Name(bill.kind->headTable), head));
    bill.TxtOperator = save.program.parameters.UserName;
    for (int row = 1; row < bill.MSH.lastRow(); ++row) {
        WriteLine(save, row);
        RewriteCosts(save, save.Cell(row, save.at.code));
    }
}

void ShowPieceAsSaved(Program& program, GroupPieceText& bill)
{
    if (bill.ChAutoAuditing)
        AuditSaved(program, bill);
    bill.LabAuditing = bill.TxtAuditing.isEmpty() ? "未审核" : "已审核";
    bill.LabState = InForceLabel(*bill.kind);
    bill.BillSavedFlag = true;
    bill.SetEnabled(Command::Print, true);
    bill.SetEnabled(Command::SwitchMode, false);
    bill.SetEnabled(Command::Pattern, false);
}

void WriteVoucher(Program& program, const GroupPieceText& bill, bool wantWarrant)
{
    const QString code = bill.TxtBillCode.trimmed();
    if (wantWarrant)
        WriteBillWarrant(program, bill, code);
    else
        DeleteBillWarrant(program, code);
}

/// One unit of the store: leaving it early takes everything back.
Outcome WriteBill(Program& program, GroupPieceText& bill, bool rewrite, bool wantWarrant)
{
    Save save(program, bill);
    SaveUnit unit(program);
    if (!unit.isOpen())
        return Outcome::NotStored;
    if (rewrite && !DeleteReplaced(program, bill))
        return Outcome::NotStored;
    save.headMoment = save.moments.Next();
    const Row head = HeadRow(save, bill, save.headMoment);
    if (const std::optional<Outcome> hindrance = FindHindrance(program, bill))
        return *hindrance;
    if (ModeOf(bill).assembles)
        SaveAssemblyBill(save, bill, head);
    else
        SavePieceBill(save, bill, head);
    bill.DateTimee = save.headMoment;
    ShowPieceAsSaved(program, bill);
    WriteVoucher(program, bill, wantWarrant);
    return CommitBill(unit, save);
}

/// The voucher follows the save even where that wrote nothing.
bool WriteVoucherAlone(Program& program, const GroupPieceText& bill, bool wantWarrant)
{
    SaveUnit unit(program);
    if (!unit.isOpen())
        return false;
    WriteVoucher(program, bill, wantWarrant);
    return unit.Commit();
}

} // namespace

PieceSave PostGroupPiece(Program& program, GroupPieceText& bill, bool wantWarrant)
{
    if (ModeOf(bill).assembles)
        RecalcHeadTotals(program, bill);
    const std::optional<bool> rewrite = AskRewrite(program, bill);
    const GroupPieceText before = bill;
    const Outcome outcome = rewrite ? WriteBill(program, bill, *rewrite, wantWarrant) : Outcome::Declined;
    const Posting posting = PostingOf(outcome, bill);
    if (posting.stored)
        return {posting, true};
    bill = before;
    if (outcome == Outcome::CodeTaken)
        Inform(program, ModeOf(bill).codeTaken);
    const bool hasVoucher = outcome == Outcome::CodeTaken || outcome == Outcome::Declined;
    return {posting, hasVoucher && WriteVoucherAlone(program, bill, wantWarrant)};
}
