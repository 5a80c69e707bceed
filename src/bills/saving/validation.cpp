#include "bills/saving/validation.h"

#include "bills/lines/entry_limits.h"
#include "bills/lines/line_totals.h"
#include "bills/lines/only_code.h"
#include "data/decimals.h"
#include "data/lookups.h"
#include "data/numbering.h"
#include "data/periods.h"
#include "data/rights.h"
#include "data/typed_code.h"
#include "handover/open_query.h"
#include "stock/balance.h"

#include <cmath>

namespace {

/// What a line is short of its stock by, at least: less is the noise of floating point.
constexpr double kStockTolerance = 5e-8;

const QString kLineBreak = QStringLiteral("\r\n");

QString RowWord(int row)
{
    return "第 " + QString::number(row) + " 行";
}

/// A refusal that puts the cursor on the cell at fault.
bool RefuseCell(Program& program, BillText& bill, int row, int column, const QString& text)
{
    bill.MSH.currentRow = row;
    bill.MSH.currentColumn = column;
    return Refuse(program, text);
}

} // namespace

bool Refuse(Program& program, const QString& text)
{
    Inform(program, text);
    return false;
}

bool CheckMayEdit(Program& program, const BillText& bill)
{
    return CheckOperateRight(program, program.parameters.UserName, bill.kind->rights, Action::Edit) &&
           !IsDayClosed(program, bill.DTPDate, true);
}

bool CheckWarehouse(Program& program, QString& code, QString& name, const QString& word)
{
    if (name.trimmed().isEmpty())
        return Refuse(program, word + "不能为空！");
    const bool byCode = !code.isEmpty();
    const auto leaf =
        CheckLastLevel(program, byCode ? code : name, "TabWarehouseType", byCode ? KeyKind::Code : KeyKind::Name);
    if (!leaf)
        return Refuse(program, word + "名称不正确（原因：名称不存在或不是处于最末级），请重新选择！");
    name = leaf->Name;
    code = leaf->Code;
    return true;
}

bool CheckCurrency(Program& program, const BillText& bill)
{
    if (!program.parameters.IsLotMoney)
        return true;
    const auto refuse = [&program](const QString& text) {
        program.prompt.InformOrCancel(text);
        return false;
    };
    if (bill.TxtMoneyName.trimmed().isEmpty())
        return refuse("请选择币种！");
    return CellNumber(bill.TxtMoneyRate) != 0 || refuse("汇率不能为0，如果是本位币，则汇率填写1");
}

namespace {

bool CheckQuantity(Program& program, const BillText& bill, const LineColumns& at, int row)
{
    const QString code = bill.MSH.Cell(row, at.code).trimmed();
    if (at.amount == 0 || code.isEmpty() || CellFigure(bill.MSH, row, at.amount) != 0)
        return true;
    return Refuse(program,
                  RowWord(row) + " 商品编号为  " + code + "   的商品对应数量为0，请录入数量或删除掉该行之后再保存！");
}

/// The good must exist; its stored code and name go to the row.
bool CheckGood(Program& program, BillText& bill, const LineColumns& at, int row)
{
    LineGrid& grid = bill.MSH;
    const QString code = grid.Cell(row, at.code).trimmed();
    if (code.isEmpty() && grid.Cell(row, at.name).trimmed().isEmpty())
        return true;
    const Recordset good = OpenQuery(program, Sql("select Code,Name from TabWare  where ") + CodeIs("Code", code));
    if (good.isEmpty())
        return RefuseCell(program, bill, row, at.code,
                          RowWord(row) + "商品编号为 " + code +
                              "  的商品信息在商品信息表在不存，请先从商品信息录入界面录入好商品信息后再开单！"
                              "或者双击商品编号列所在行选择商品信息。");
    grid.SetCell(row, at.code, good.Text("Code"));
    grid.SetCell(row, at.name, good.Text("Name"));
    return true;
}

/// What no good bears counts in the totals and in no account.
bool CheckBlank(Program& program, BillText& bill, const LineColumns& at, int row)
{
    const LineGrid& grid = bill.MSH;
    if (!grid.Cell(row, at.code).trimmed().isEmpty() || !grid.Cell(row, at.name).trimmed().isEmpty())
        return true;
    for (const int column : {at.amount, at.money, at.revaluation}) {
        if (CellFigure(grid, row, column) != 0)
            return RefuseCell(program, bill, row, at.code,
                              RowWord(row) + " 录入了" + grid.Cell(0, column) +
                                  "但没有商品，请选择商品或清空该行之后再保存！");
    }
    return true;
}

bool CheckDay(Program& program, BillText& bill, int column, const QString& word, int row)
{
    const QString text = bill.MSH.Cell(row, column).trimmed();
    if (text.isEmpty() || ParseDay(text))
        return true;
    return RefuseCell(program, bill, row, column,
                      RowWord(row) + " " + word + " 输入格式不正确！" + kLineBreak +
                          "请输入完整的日期格式（YYYY-MM-DD）后再保存！");
}

/// A piece must be there, for a bill of whatever direction.
QString PieceIsThere(Program& program, const BillText&, const OnlyCodeQuestion& question)
{
    if (!HasComeIn(program, question))
        return "输入的  唯一码  在系统中不存在，不能输入系统中不存在的唯一码！" + kLineBreak +
               "请修改保证其在系统中存在后再保存！";
    if (HasGoneOut(program, question))
        return "输入的  唯一码  在系统中曾经已出库，不允许该 唯一码 再次操作！" + kLineBreak + "请修改后再保存！";
    return {};
}

bool CheckOnlyCode(Program& program, BillText& bill, const LineColumns& at, int row, OnlyCodeTest test)
{
    const QString onlyCode = bill.MSH.Cell(row, at.onlyCode).trimmed();
    if (onlyCode.isEmpty())
        return true;
    const QString wrong =
        test(program, bill,
             {onlyCode, bill.MSH.Cell(row, at.code).trimmed(), bill.TxtBillCode.trimmed(), bill.kind->lineTable});
    return wrong.isEmpty() || RefuseCell(program, bill, row, at.onlyCode, RowWord(row) + wrong);
}

/// Figures that money cannot hold would be stored as something else; so would sums that pass its range on their way.
bool CheckMoneyRange(Program& program, BillText& bill, const LineColumns& at)
{
    const LineGrid& grid = bill.MSH;
    const int moneyColumn = at.money != 0 ? at.money : at.revaluation;
    double total = 0;
    double difference = 0;
    for (int row = 1; row <= grid.lastRow(); ++row) {
        const double cell = CellFigure(grid, row, moneyColumn);
        const double money = RowMoney(grid, at, row);
        const double value = CellFigure(grid, row, at.amount) * CellFigure(grid, row, at.cost);
        for (const double figure : {cell, money, value, value - money}) {
            if (!Currency::IsMoney(figure))
                return RefuseCell(program, bill, row, moneyColumn,
                                  RowWord(row) + " " + (at.money != 0 ? "金额" : "调价金额") +
                                      " 超出系统所能保存的范围，请修改后再保存！");
        }
        total += cell;
        difference += value - money;
        if (!Currency::IsMoney(total) || !Currency::IsMoney(difference))
            return Refuse(program, "合计金额超出系统所能保存的范围，请修改后再保存！");
    }
    return true;
}

} // namespace

bool IsStockTestOn(Program& program)
{
    const Recordset settings = OpenQuery(program, Sql("select * from TabSysSet "));
    if (!settings) // what the database does not answer is tested
        return true;
    return !settings.isEmpty() && settings.Integer("IsZero") != 1;
}

namespace {

bool CheckStock(Program& program, const BillText& bill)
{
    if (!bill.kind->stockTested || !IsStockTestOn(program))
        return true;
    const LineColumns at(*bill.kind);
    const bool auditedOnly = IsAuditedBillCounted(program);
    for (int row = 1; row <= bill.MSH.lastRow(); ++row) {
        const QString code = bill.MSH.Cell(row, at.code).trimmed();
        const double quantity = CellFigure(bill.MSH, row, at.amount);
        const OwnRows own = {bill.kind->lineTable, "BillCode"};
        if (!code.isEmpty() && CheckStockEnough(program, bill, code, quantity, auditedOnly, own))
            return Refuse(program, "请检查列表中第  " + QString::number(row) + " 行！");
    }
    return true;
}

} // namespace

bool NumberBill(Program& program, BillText& bill)
{
    if (!bill.BillSavedFlag) {
        const QString& prefix = bill.kind->prefix;
        bill.TxtDate = DayText(bill.DTPDate);
        bill.TxtBillCode = NextBillCode(program, prefix, bill.kind->headTable);
        if (bill.TxtBillCode.trimmed().left(3) != prefix)
            return Refuse(program, "单据编号前三位必须为 " + prefix + " ！");
    }
    return !bill.TxtBillCode.trimmed().isEmpty() || Refuse(program, "单据编号不能为空！");
}

bool CheckBillLines(Program& program, BillText& bill)
{
    return CheckBillLines(program, bill, PieceIsThere);
}

bool CheckBillLines(Program& program, BillText& bill, OnlyCodeTest test)
{
    const LineColumns at(*bill.kind);
    for (int row = 1; row <= bill.MSH.lastRow(); ++row) {
        if (!CheckQuantity(program, bill, at, row) || !CheckGood(program, bill, at, row) ||
            !CheckBlank(program, bill, at, row) || !CheckDay(program, bill, at.madeOn, "生产日期", row) ||
            !CheckDay(program, bill, at.validUntil, "有效日期", row) || !CheckOnlyCode(program, bill, at, row, test))
            return false;
    }
    return CheckLimits(program, bill) && CheckMoneyRange(program, bill, at);
}

bool CheckStockEnough(Program& program, const BillText& bill, const QString& code, double quantity, bool auditedOnly,
                      const OwnRows& own)
{
    if (code.isEmpty()) {
        Inform(program, "不能确定商品编号！");
        return true;
    }
    StockQuestion question;
    question.warehouse = bill.TxtWarehouseCodeF.trimmed();
    question.wareCode = code;
    question.asOf = {bill.DTPDate, 0};
    question.auditedOnly = auditedOnly;
    double stock = GetStockBalance(program, question).ShownAmount;

    const Recordset saved = OpenQuery(program, Sql("select sum(Amount) as sumAmount  from  ") + Name(own.table) +
                                                   "  Where WareCode=" + code + " and " + own.billColumn + "=" +
                                                   bill.TxtBillCode.trimmed() + " ");
    stock -= saved.Number("sumAmount");
    if (quantity - stock <= kStockTolerance)
        return false;

    const auto figure = [](double value) { return QString::number(value, 'g', 15); };
    Inform(program, "库存数量不足！截至 " + DayText(bill.DTPDate) + " 时，" + bill.TxtWarehouseNameF.trimmed() +
                        " 中库存量为" + figure(stock) + "，因此最多只能开出 " + figure(std::fmax(stock, 0)) +
                        "，请调整！");
    return true;
}

bool CheckBill(Program& program, BillText& bill)
{
    const BillKind& kind = *bill.kind;
    if (!CheckMayEdit(program, bill))
        return false;
    if (kind.hasSource &&
        !CheckWarehouse(program, bill.TxtWarehouseCodeF, bill.TxtWarehouseNameF, kind.sourceWarehouse))
        return false;
    if (!CheckWarehouse(program, bill.TxtWarehouseCodeS, bill.TxtWarehouseNameS, kind.warehouse))
        return false;
    return CheckCurrency(program, bill) && CheckBillLines(program, bill) && CheckStock(program, bill) &&
           NumberBill(program, bill);
}
