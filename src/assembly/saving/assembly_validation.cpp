#include "assembly/saving/assembly_validation.h"

#include "assembly/allocation.h"
#include "assembly/piece_head.h"
#include "bills/lines/line_totals.h"
#include "bills/lines/only_code.h"
#include "bills/saving/validation.h"
#include "data/decimals.h"
#include "handover/open_query.h"

namespace {

const QString kLineBreak = QStringLiteral("\r\n");
const QString kProvided = QStringLiteral("附属信息中");

const QString kNotThere = "输入的  唯一码  在系统中不存在，不能输入系统中不存在的唯一码！" + kLineBreak +
                          "请修改保证其在系统中存在后再保存！";
const QString kLeftBefore = "输入的  唯一码  在系统中曾经出过库，不允许同一 唯一码 重复出库！" + kLineBreak +
                            "请修改保证其在系统中存在并未出过库后再保存！";
const QString kThereAlready =
    "输入的  唯一码  在系统中已经存在，不能重复输入唯一码！" + kLineBreak + "请修改保证其在系统中的唯一性后再保存！";

/// A piece that this bill brings in must be new.
/// @return what is wrong, empty for nothing
QString NewPiece(Program& program, OnlyCodeQuestion question, const char* ownTable)
{
    question.ownTable = ownTable;
    return IsAnywhere(program, question) ? kThereAlready : QString();
}

/// A piece that this bill takes out must be there.
QString PieceInStock(Program& program, OnlyCodeQuestion question, const char* ownInflow, const char* ownOutflow)
{
    question.ownTable = ownInflow;
    if (!HasComeIn(program, question))
        return kNotThere;
    question.ownTable = ownOutflow;
    return HasGoneOut(program, question) ? kLeftBefore : QString();
}

/// The goods of an assembly leave stock, those of a disassembly are new.
QString LineOnlyCode(Program& program, const BillText& bill, const OnlyCodeQuestion& question)
{
    if (ModeOf(bill).assembles)
        return PieceInStock(program, question, "TabWareGroup", "TabWareGroupInf");
    return NewPiece(program, question, "TabWarePieceInf");
}

/// The product of an assembly is new, that of a disassembly leaves stock.
bool CheckProductOnlyCode(Program& program, const GroupPieceText& bill)
{
    OnlyCodeQuestion question = {bill.TxtOnlyCode.trimmed(), bill.TxtWareCode.trimmed(), bill.TxtBillCode.trimmed(),
                                 bill.kind->headTable};
    question.onHead = true;
    if (question.onlyCode.isEmpty() || question.wareCode.isEmpty())
        return true;
    const QString wrong = ModeOf(bill).assembles ? NewPiece(program, question, "TabWareGroup")
                                                 : PieceInStock(program, question, "TabWarePieceInf", "TabWarePiece");
    return wrong.isEmpty() || Refuse(program, kProvided + wrong);
}

bool CheckProvidedDay(Program& program, const QString& text, const QString& word)
{
    if (text.trimmed().isEmpty() || ParseDay(text.trimmed()))
        return true;
    return Refuse(program, kProvided + "输入的 " + word + " 输入格式不正确！" + kLineBreak +
                               "请输入完整的日期格式（YYYY-MM-DD）后再保存！");
}

/// Name and code must be of one good: the one whose code came with the name, or the only one of a name that was typed.
bool CheckProduct(Program& program, GroupPieceText& bill)
{
    ChooseTypedProduct(program, bill);
    const QString code = bill.TxtWareCode.trimmed();
    const Recordset good = OpenQuery(program, Sql("select Code,Name from TabWare where Code=") + code + " ");
    if (!good)
        return false;
    if (code.isEmpty() || good.isEmpty())
        return Refuse(program, "商品名称不存在，请重新选择！");
    bill.TxtWareCode = good.Text("Code");
    bill.TxtWareName = good.Text("Name");
    return true;
}

/// Figures that money cannot hold would be stored as something else.
bool CheckHeadMoney(Program& program, const GroupPieceText& bill)
{
    const double total = CellNumber(bill.TxtTotalMoney);
    const double fee = CellNumber(bill.TxtFee);
    // A total beyond every number has no text.
    const bool isMoney = !bill.TxtTotalMoney.isEmpty() && Currency::IsMoney(total) && Currency::IsMoney(fee) &&
                         Currency::IsMoney(total + fee);
    return isMoney || Refuse(program, "合计金额超出系统所能保存的范围，请修改后再保存！");
}

/// The product leaves its warehouse, as do the goods of an assembly.
bool CheckStock(Program& program, const GroupPieceText& bill)
{
    if (!IsStockTestOn(program))
        return true;
    const bool auditedOnly = IsAuditedBillCounted(program);
    if (!ModeOf(bill).assembles) {
        const OwnRows own = {"TabWarePiece", "Code"};
        const bool isShort =
            CheckStockEnough(program, bill, bill.TxtWareCode.trimmed(), Val(bill.TxtAmount), auditedOnly, own);
        return !isShort || Refuse(program, "请检查拆卸数量！");
    }
    const LineColumns at(*bill.kind);
    const OwnRows own = {"TabWareGroupInf", "BillCode"};
    for (int row = 1; row <= bill.MSH.lastRow(); ++row) {
        const QString code = bill.MSH.Cell(row, at.code).trimmed();
        // The column of units it is, which says 0: only stock below zero is refused.
        const double quantity = CellFigure(bill.MSH, row, at.unit);
        if (!code.isEmpty() && CheckStockEnough(program, bill, code, quantity, auditedOnly, own))
            return Refuse(program, "请检查列表中第  " + QString::number(row) + " 行！");
    }
    return true;
}

bool CheckZeroCost(Program& program, const GroupPieceText& bill)
{
    return !bill.TxtCost.trimmed().isEmpty() || Ask(program, "允许零成本吗？");
}

} // namespace

bool CheckPieceHead(Program& program, GroupPieceText& bill)
{
    if (!CheckWarehouse(program, bill.TxtWarehouseCodeF, bill.TxtWarehouseNameF, bill.kind->sourceWarehouse) ||
        !CheckWarehouse(program, bill.TxtWarehouseCodeS, bill.TxtWarehouseNameS, bill.kind->warehouse))
        return false;
    const PieceMode& mode = ModeOf(bill);
    if (bill.TxtWareName.trimmed().isEmpty())
        return Refuse(program, mode.LabWareName + "不能为空！");
    if (CellNumber(bill.TxtAmount) == 0)
        return Refuse(program, mode.LabAmount + "不能为空！");
    return CheckProduct(program, bill);
}

bool CheckBillLines(Program& program, GroupPieceText& bill)
{
    return CheckProvidedDay(program, bill.TxtSCDate, "生产日期") &&
           CheckProvidedDay(program, bill.TxtYXDate, "有效日期") && CheckProductOnlyCode(program, bill) &&
           CheckBillLines(program, bill, LineOnlyCode);
}

bool CheckBill(Program& program, GroupPieceText& bill)
{
    if (!CheckMayEdit(program, bill) || !CheckPieceHead(program, bill) || !CheckCurrency(program, bill) ||
        !CheckBillLines(program, bill))
        return false;
    RecalcHeadTotals(program, bill);
    return CheckHeadMoney(program, bill) && CheckStock(program, bill) && CheckZeroCost(program, bill) &&
           CheckCostAllocation(program, bill) && NumberBill(program, bill);
}
