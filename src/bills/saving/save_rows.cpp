#include "bills/saving/save_rows.h"

#include "bills/life/stored_head.h"
#include "data/decimals.h"
#include "data/lookups.h"

Save::Save(Program& p, const BillText& b)
    : program(p),
      bill(b),
      at(*b.kind),
      auditedOnly(IsAuditedBillCounted(p)),
      moneyName(CostCurrency(p, b)),
      moments(p.clock, b.DTPDate, b.MSH.lastRow())
{}

void Append(Row& row, const Row& more)
{
    row.insert(row.end(), more.begin(), more.end());
}

CostQuestion LineCostQuestion(const Save& save, int row, const Moment& moment)
{
    CostQuestion question;
    question.moment = moment;
    question.wareCode = save.Cell(row, save.at.code);
    question.dimensions = RowDimensions(save.bill.MSH, save.at, row);
    question.moneyName = save.moneyName;
    question.auditedOnly = save.auditedOnly;
    return question;
}

namespace {

/// The columns between the unit and the moment, which differ by what a line carries.
Row LineMiddle(const Save& save, int row, const LineFigures& figures)
{
    const LineColumns& at = save.at;
    const QString remark = save.Cell(row, at.remark);
    const QString state = "正常";
    const Currency difference = Currency::FromDouble(figures.difference);
    switch (save.bill.kind->lines) {
    case LineShape::Priced:
        return {save.Figure(row, at.amount),
                save.Figure(row, at.price),
                save.Figure(row, at.money),
                remark,
                figures.cost,
                difference,
                state};
    case LineShape::Revalued:
        return {0.0, 0.0, figures.difference, remark, figures.cost, difference, state, figures.lastCost};
    case LineShape::Pieces:
        return {save.Figure(row, at.amount),
                save.Figure(row, at.cost),
                save.Figure(row, at.money),
                remark,
                state,
                figures.cost};
    default:
        return {save.Figure(row, at.amount), remark, figures.cost, state};
    }
}

/// Whether a bill of this code is there. Unset where the database did not answer.
std::optional<bool> IsStored(Program& program, const BillText& bill)
{
    const Recordset head = OpenQuery(program, Sql("select Code from  ") + Name(bill.kind->headTable) +
                                                  "  where Code=" + bill.TxtBillCode.trimmed());
    if (!head)
        return {};
    return !head.isEmpty();
}

} // namespace

Row LineRow(const Save& save, int row, const Moment& moment, const LineFigures& figures)
{
    const BillText& bill = save.bill;
    const LineColumns& at = save.at;
    const QString attribute = save.Cell(row, at.attribute);
    Row values = {qint64(row), bill.DTPDate, bill.TxtBillCode.trimmed()};
    for (const int column : {at.code, at.name, at.spec, at.unit})
        values.emplace_back(save.Cell(row, column));
    Append(values, LineMiddle(save, row, figures));
    Append(values, {moment, figures.stockIn, bill.TxtMoneyName.trimmed(), CellNumber(bill.TxtMoneyRate),
                    PathHead(attribute), PathTail(attribute), figures.unionAmount});
    for (const int column : {at.manufacturer, at.brand, at.batch, at.madeOn, at.validUntil, at.onlyCode})
        values.emplace_back(save.Cell(row, column));
    values.emplace_back(bill.TxtAuditing.trimmed());
    for (const int column : {at.custom1, at.custom2, at.custom3})
        values.emplace_back(save.Cell(row, column));
    return values;
}

Outcome CommitBill(SaveUnit& unit, const Save& save)
{
    const BillText& bill = save.bill;
    const std::optional<bool> stored = unit.Commit([&]() -> std::optional<bool> {
        const Recordset head = StoredHead(save.program, bill);
        const std::optional<Moment> moment = head.MomentAt("DateTimee");
        return head ? std::optional(moment && IsSameMoment(*moment, save.headMoment)) : std::nullopt;
    });
    if (stored)
        return *stored ? Outcome::Stored : Outcome::NotStored;
    const QString code = bill.TxtBillCode.trimmed();
    save.program.prompt.Inform("与数据库的连接在保存时中断，不能确定单据 " + code + " 是否已经保存！" + "\r\n" +
                               "请在连接恢复后查找编号为 " + code + "、录单日期为 " + DayText(bill.DTPDate) +
                               " 的单据：已存在则不要再次保存，不存在再重新保存。");
    return Outcome::Unknown;
}

Posting PostingOf(Outcome outcome, const BillText& bill)
{
    Posting posting = {outcome == Outcome::Stored, outcome == Outcome::Declined, outcome == Outcome::Unknown};
    if (posting.stored || posting.unknown)
        posting.code = bill.TxtBillCode.trimmed();
    return posting;
}

bool DeleteReplaced(Program& program, const BillText& bill)
{
    if (!MayChange(program, bill, "修改"))
        return false;
    const QString code = bill.TxtBillCode.trimmed();
    OpenQuery(program, Sql("delete from  ") + Name(bill.kind->headTable) + "   where Code=" + code);
    OpenQuery(program, Sql("delete from ") + Name(bill.kind->lineTable) + "  where BillCode=" + code);
    const Sql deleteAmounts = Sql("delete from  TabWarehouseAmountChange  where BillCode=") + code + " ";
    if (bill.kind->lines == LineShape::Pieces) { // of whatever warehouse
        OpenQuery(program, deleteAmounts);
        return true;
    }
    QStringList warehouses = {bill.TxtWarehouseCodeS.trimmed()};
    if (bill.kind->hasSource)
        warehouses << bill.TxtWarehouseCodeF.trimmed();
    for (const QString& warehouse : warehouses)
        OpenQuery(program, deleteAmounts + " and WarehouseCode=" + warehouse + " ");
    return true;
}

std::optional<Outcome> FindHindrance(Program& program, const BillText& bill)
{
    const std::optional<bool> isTaken = IsStored(program, bill);
    if (isTaken.value_or(false))
        return Outcome::CodeTaken;
    const auto deleteStrayLines =
        Sql("delete from ") + Name(bill.kind->lineTable) + "  where BillCode=" + bill.TxtBillCode.trimmed();
    if (isTaken && OpenQuery(program, deleteStrayLines))
        return {};
    return Outcome::NotStored;
}

std::optional<bool> AskRewrite(Program& program, const BillText& bill)
{
    const bool rewrite = IsStored(program, bill).value_or(false) && bill.BillSavedFlag;
    if (!rewrite || Ask(program, "如果确定修改则按是，否则按否退出重新执行保存！"))
        return rewrite;
    Inform(program, "修改单据失败！");
    return {};
}
