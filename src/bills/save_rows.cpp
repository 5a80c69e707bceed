#include "bills/save_rows.h"

#include "data/decimals.h"
#include "data/lookups.h"
#include "data/periods.h"

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

bool MayReplace(Program& program, const BillText& bill)
{
    const Recordset head = OpenQuery(program, Sql("select Datee,State,Auditing from ") + Name(bill.kind->headTable) +
                                                  " where Code=" + bill.TxtBillCode.trimmed());
    if (!head || head.isEmpty()) // a bill that is gone is stored afresh
        return static_cast<bool>(head);
    const auto refuse = [&program](const QString& text) {
        Inform(program, text);
        return false;
    };
    if (head.Text("State").trimmed() == u"作废")
        return refuse("该单据已被其他用户作废，禁止修改！");
    if (!head.Text("Auditing").trimmed().isEmpty() && bill.TxtAuditing.trimmed().isEmpty())
        return refuse("该单据已被其他用户审核，禁止修改！");
    const std::optional<QDate> day = head.Day("Datee");
    return !day || !IsDayClosed(program, *day, false) || refuse("今天已结转，禁止当前操作！");
}

Room RoomFor(Program& program, const BillText& bill)
{
    const std::optional<bool> isTaken = IsStored(program, bill);
    if (isTaken.value_or(false))
        return Room::Taken;
    const auto deleteStrayLines =
        Sql("delete from ") + Name(bill.kind->lineTable) + "  where BillCode=" + bill.TxtBillCode.trimmed();
    return isTaken && OpenQuery(program, deleteStrayLines) ? Room::Free : Room::Unknown;
}

std::optional<bool> AskRewrite(Program& program, const BillText& bill)
{
    const bool rewrite = IsStored(program, bill).value_or(false) && bill.BillSavedFlag;
    if (!rewrite || program.prompt.Ask("如果确定修改则按是，否则按否退出重新执行保存！"))
        return rewrite;
    program.prompt.Inform("修改单据失败！");
    return {};
}
