#include "bills/life/recall.h"

#include "bills/life/bill_content.h"
#include "bills/life/lifecycle.h"
#include "bills/lines/line_totals.h"
#include "data/decimals.h"
#include "data/lookups.h"
#include "handover/open_query.h"

#include <span>

namespace {

/// Columns of a line that are shown as they stand, those of a pattern first.
struct TextColumn
{
    int LineColumns::*at;
    const char* column;
};
constexpr TextColumn kTextColumns[] = {
    {&LineColumns::code, "WareCode"},
    {&LineColumns::name, "WareName"},
    {&LineColumns::spec, "WareSpec"},
    {&LineColumns::unit, "Unite"},
    {&LineColumns::remark, "Remark"},
    {&LineColumns::brand, "Brand"},
    {&LineColumns::manufacturer, "Manufacturer"},
    {&LineColumns::batch, "PCode"},
    {&LineColumns::madeOn, "SCDate"},
    {&LineColumns::validUntil, "YXDate"},
    {&LineColumns::onlyCode, "OnlyCode"},
    {&LineColumns::custom1, "Custom1"},
    {&LineColumns::custom2, "Custom2"},
    {&LineColumns::custom3, "Custom3"},
};

constexpr size_t kPatternColumns = 5;

void ShowKind(BillText& bill, const BillKind& kind)
{
    bill.kind = &kind;
    bill.LabBillName = kind.bill;
    bill.LabWarehouseNameS = kind.recalledWarehouse;
    bill.NavTableName = kind.headTable;
}

} // namespace

void ShowWarehouses(BillText& bill, const Recordset& head)
{
    const bool hasSource = bill.kind->hasSource;
    bill.TxtWarehouseCodeF = hasSource ? head.Text("WarehouseCodeF") : QString();
    bill.TxtWarehouseNameF = hasSource ? head.Text("WarehouseNameF") : QString();
    bill.TxtWarehouseCodeS = head.Text(hasSource ? "WarehouseCodeS" : "WarehouseCode");
    bill.TxtWarehouseNameS = head.Text(hasSource ? "WarehouseNameS" : "WarehouseName");
}

namespace {

/// A head without a day stands on the working date, and its day stays unknown.
void ShowHead(const Program& program, BillText& bill, const Recordset& head)
{
    const std::optional<QDate> day = head.Day("Datee");
    bill.DTPDate = day ? *day : WorkingDate(program);
    bill.TxtDate = day ? DayText(*day) : QString();
    bill.TxtBillCode = head.Text("Code");
    bill.DateTimee = head.MomentAt("DateTimee");
    ShowWarehouses(bill, head);
    bill.TxtOperator = head.Text("Operator");
    bill.TxtMemo = head.Text("Remark");
    bill.TxtExplain = head.Text("Explain");
    bill.TxtSaleMan = head.Text("SaleMan");
    bill.TxtMoneyName = head.Text("MoneyName");
    bill.TxtMoneyRate = head.Text("MoneyRate");
    bill.TxtAuditing = head.Text("Auditing");
}

void ShowFigures(Program& program, BillText& bill, const LineColumns& at, const Recordset& lines, int index)
{
    LineGrid& grid = bill.MSH;
    const DotType& places = program.gDot;
    const auto show = [&](int column, const Value& value, int digits) {
        grid.SetCell(index + 1, column, FormatByDigits(value, digits));
    };
    if (bill.kind->lines == LineShape::Revalued) {
        show(at.revaluation, lines.at(index, "Moneyy"), places.Money_DotLen);
        return;
    }
    show(at.amount, lines.at(index, "Amount"), places.Amount_DotLen);
    if (bill.kind->lines == LineShape::Pieces) {
        show(at.cost, lines.at(index, "Price"), places.Price_DotLen);
        show(at.money, lines.at(index, "Moneyy"), places.Money_DotLen);
        return;
    }
    show(at.cost, lines.at(index, "AveragePrice"), places.Price_DotLen);
    if (bill.kind->lines == LineShape::Priced) {
        show(at.price, lines.at(index, "Price"), places.Price_DotLen);
        show(at.money, lines.at(index, "Moneyy"), places.Money_DotLen);
    } else {
        const bool isKnown = !lines.IsNull("Amount", index) && !lines.IsNull("AveragePrice", index);
        const double money = lines.Number("Amount", index) * lines.Number("AveragePrice", index);
        show(at.money, isKnown ? Value(money) : Value(), places.Money_DotLen);
    }
}

void ShowState(BillText& bill, const QString& state)
{
    bill.LabAuditing = bill.TxtAuditing.trimmed().isEmpty() ? "未审核" : "已审核";
    bill.LabState = state == u"正常" ? InForceLabel(*bill.kind) : "作废";
}

} // namespace

QString InForceLabel(const BillKind& kind)
{
    return kind.lines == LineShape::Pieces ? "正常" : "";
}

void ShowLines(Program& program, BillText& bill, const Recordset& lines, LineDetail detail)
{
    const LineColumns at(*bill.kind);
    LineGrid& grid = bill.MSH;
    const bool isWhole = detail == LineDetail::All;
    const std::span<const TextColumn> texts(kTextColumns, isWhole ? std::size(kTextColumns) : kPatternColumns);
    for (int index = 0; index < lines.size(); ++index) {
        for (const TextColumn& text : texts)
            grid.SetCell(index + 1, at.*text.at, lines.Text(text.column, index));
        if (isWhole)
            grid.SetCell(index + 1, at.attribute, AttributeCell(program, lines.Text("AttributeCode", index)));
        ShowFigures(program, bill, at, lines, index);
        grid.AddRow();
    }
    SumBillTotals(program, bill);
}

bool FillBill(Program& program, BillText& bill, const QString& tableName, const QString& billCode)
{
    const BillKind* const kind = KindOfHeadTable(tableName);
    if (!kind || !bill.TakesKind(*kind)) {
        program.prompt.Inform("本窗口不能打开 " + tableName + " 中的单据！");
        return false;
    }
    const Undertaking recall(program);
    // All is asked for before anything on the screen gives way to it.
    const Recordset head = OpenQuery(program, Sql("select * from ") + Name(tableName) + " where Code=" + billCode);
    if (head.isEmpty()) {
        if (head)
            program.prompt.Inform("没有原单！");
        return false;
    }
    const Recordset lines = OpenQuery(program, Sql("select * from ") + Name(tableName + "Inf") +
                                                   " where BillCode=" + billCode + " order by Num");
    if (!lines)
        return false;
    bill.BillSavedFlag = true;
    ShowKind(bill, *kind);
    BuildGridColumns(program, bill);
    ShowHead(program, bill, head);
    bill.ShowOwn(program, head);
    bill.LabTotalAmount.clear();
    bill.LabTotalMoney.clear();
    if (!lines.isEmpty() || kind->lines == LineShape::Pieces)
        ShowLines(program, bill, lines, LineDetail::All);
    ShowState(bill, head.Text("State").trimmed());
    RefreshWindowState(program, bill);
    if (recall.failed()) // an attribute is not known whole: saved again it would be lost
        SetWindowEnabled(bill, false);
    MarkUnchanged(bill);
    return true;
}
