#include "bills/lines/line_entry.h"

#include "bills/lines/entry_limits.h"
#include "bills/lines/line_totals.h"
#include "data/decimals.h"
#include "data/lookups.h"
#include "data/typed_code.h"
#include "handover/open_query.h"

namespace {

constexpr int kCodeColumn = 1;
constexpr int kNameColumn = 2;

Sql GoodByCode(const QString& code)
{
    return Sql("select * from TabWare where ") + CodeIs("Code", code);
}

Sql GoodByName(const QString& text)
{
    return Sql("select * from TabWare where Name=") + text + " or ZJF=" + text + " ";
}

/// What a line of the good costs: on an assembly, a line such as the current row with this 规格.
std::optional<double> ProposedCost(Program& program, const BillText& bill, const QString& code, const QString& spec)
{
    Dimensions dimensions;
    if (bill.kind->lines == LineShape::Pieces) {
        dimensions = RowDimensions(bill.MSH, LineColumns(*bill.kind), bill.MSH.currentRow);
        dimensions.WareSpec = spec.trimmed();
    }
    return FetchRowCost(program, bill, code, dimensions);
}

enum class Written
{
    Done,
    NoGood,  // the query of a goods column found none
    Unknown, // the database did not answer, which has been shown; the row is as it was
};

/// Writes a row of TabWare to the current row, with a quantity of one at the good's cost.
Written WriteGood(Program& program, BillText& bill, const Recordset& good)
{
    const LineColumns at(*bill.kind);
    LineGrid& grid = bill.MSH;
    const int row = grid.currentRow;
    const bool isRevalued = bill.kind->lines == LineShape::Revalued;
    const std::optional<double> cost =
        isRevalued ? 0 : ProposedCost(program, bill, good.Text("Code"), good.Text("Spec"));
    if (!cost)
        return Written::Unknown;
    grid.SetCell(row, at.code, good.Text("Code"));
    grid.SetCell(row, at.name, good.Text("Name"));
    grid.SetCell(row, at.spec, good.Text("Spec"));
    grid.SetCell(row, at.unit, good.Text("Unite"));
    if (isRevalued) {
        grid.currentColumn = at.revaluation;
        return Written::Done;
    }
    grid.SetCell(row, at.amount, FormatByDigits(qint64(1), program.gDot.Amount_DotLen));
    grid.SetCell(row, at.cost, FormatByDigits(*cost, program.gDot.Price_DotLen));
    return Written::Done;
}

/// The figures that a commit formats; every other column keeps what was typed into it.
void CommitText(const Program& program, LineGrid& grid, const QString& caption, const QString& text)
{
    const auto set = [&grid](const QString& cell) { grid.SetCell(grid.currentRow, grid.currentColumn, cell); };
    const auto figure = [&text] { return text.trimmed().remove(','); };
    if (caption == u"数量")
        set(FormatByDigits(figure(), program.gDot.Amount_DotLen));
    else if (caption == u"单价")
        set(FormatByDigits(figure(), program.gDot.Price_DotLen));
    else if (caption == u"备注")
        set(text);
}

void RecalcRow(Program& program, BillText& bill, int row)
{
    RecalcRowAmount(program, bill, row);
    SumBillTotals(program, bill);
    bill.LinesChanged(program);
}

/// Writes the current cell, of a goods column the whole good.
Written WriteCell(Program& program, BillText& bill, const QString& text, const Sql& query)
{
    LineGrid& grid = bill.MSH;
    const QString caption = grid.column(grid.currentColumn).caption;
    if (caption != u"商品编号" && caption != u"商品名称") {
        CommitText(program, grid, caption, text);
        return Written::Done;
    }
    if (query.isEmpty())
        return Written::NoGood;
    const Recordset good = OpenQuery(program, query);
    if (good.isEmpty())
        return good ? Written::NoGood : Written::Unknown;
    return WriteGood(program, bill, good);
}

Written CommitCell(Program& program, BillText& bill, const QString& text, const Sql& query)
{
    const int row = bill.MSH.currentRow;
    const Written written = WriteCell(program, bill, text, query);
    if (written != Written::Unknown)
        RecalcRow(program, bill, row);
    return written;
}

/// What Enter asks for in a goods column; empty elsewhere and without a text.
Sql GoodEntered(const BillText& bill, const QString& text)
{
    if (text.trimmed().isEmpty()) // a good without mnemonic is not meant
        return {};
    switch (bill.MSH.currentColumn) {
    case kCodeColumn:
        return GoodByCode(text);
    case kNameColumn:
        return GoodByName(text);
    default:
        return {};
    }
}

bool IsLine(const LineGrid& grid, Prompt& prompt)
{
    const bool isLine = grid.currentRow > 0 && grid.currentRow < grid.lastRow();
    if (!isLine)
        prompt.Inform("请选择正确的位置！");
    return isLine;
}

QString CodeOfCurrentRow(const BillText& bill)
{
    return bill.MSH.Cell(bill.MSH.currentRow, kCodeColumn).trimmed();
}

} // namespace

CellEditor EditorOfCell(const BillText& bill)
{
    const LineGrid& grid = bill.MSH;
    if (grid.currentRow == 0 || grid.currentColumn == 0 || !bill.entryEnabled)
        return CellEditor::None;
    const LineColumns at(*bill.kind);
    const bool costIsTyped = bill.kind->lines == LineShape::Pieces;
    if (grid.currentColumn == at.money || (grid.currentColumn == at.cost && !costIsTyped))
        return CellEditor::None;
    if (grid.currentColumn == at.unit)
        return CellEditor::Unit;
    return grid.currentColumn == at.attribute ? CellEditor::Attribute : CellEditor::Text;
}

QString EditorText(const BillText& bill)
{
    const LineColumns at(*bill.kind);
    const QString& cell = bill.MSH.Cell(bill.MSH.currentRow, bill.MSH.currentColumn);
    for (const int figure : {at.amount, at.cost, at.price, at.revaluation}) {
        if (figure != 0 && figure == bill.MSH.currentColumn)
            return CleanNumberText(cell);
    }
    return cell;
}

bool IsGoodsColumn(const BillText& bill)
{
    return bill.MSH.currentColumn == kCodeColumn || bill.MSH.currentColumn == kNameColumn;
}

bool TypeInCell(Program& program, BillText& bill, const QString& text)
{
    LineGrid& grid = bill.MSH;
    if (grid.currentColumn == 0)
        return true;
    if (!PutInCell(program, bill, text))
        return false;
    if (!IsGoodsColumn(bill)) {
        Txt2ToMSH(program, bill, text, {});
        return true;
    }
    const int last = grid.lastRow();
    if (grid.currentRow == last || !grid.Cell(last, kCodeColumn).isEmpty() || !grid.Cell(last, kNameColumn).isEmpty())
        grid.AddRow();
    return true;
}

bool HoldsGood(Program& program, const BillText& bill)
{
    const QString code = CodeOfCurrentRow(bill);
    const Recordset good = code.isEmpty() ? Recordset() : GoodForLine(program, code);
    return !good.isEmpty() && good.Text("Name").trimmed() == bill.MSH.Cell(bill.MSH.currentRow, kNameColumn).trimmed();
}

Sql DropListQuery(const QString& text)
{
    const QString anywhere = "%" + text + "%";
    return Sql("select Code as 商品编号  ,Name as 商品名称  ,Spec as 规格  ,Unite as 单位  ,ZJF as 助记符  from "
               "TabWare "
               " where Code like ") +
           (text + "%") + " or  Name like " + anywhere + "  or  Spec like " + anywhere + "  or  ZJF like " + anywhere +
           "  order by TypeCode,Code ";
}

EnterOutcome EnterCell(Program& program, BillText& bill, const QString& text)
{
    if (!WarehousePrecheck(program, bill))
        return {true, {}};
    return {false, Txt2ToMSH(program, bill, text, GoodEntered(bill, text))};
}

Entered WriteEntered(Program& program, BillText& bill, const QString& text)
{
    LineGrid& grid = bill.MSH;
    const QString before = grid.Cell(grid.currentRow, grid.currentColumn);
    grid.SetCell(grid.currentRow, grid.currentColumn, text);
    if (const auto fault = FaultOfRow(program, *bill.kind, grid, grid.currentRow, bill.MoneyFactor(grid.currentRow))) {
        grid.SetCell(grid.currentRow, grid.currentColumn, before);
        return {true, fault->text};
    }
    return {WriteCell(program, bill, text, GoodEntered(bill, text)) == Written::Done, {}};
}

std::optional<PickerNeeded> GoodsPicker(Program& program, const BillText& bill, const QString& text)
{
    if (!IsGoodsColumn(bill) || !WarehousePrecheck(program, bill))
        return {};
    Sql query("select TabWare.Code,TabWare.Name,TabWare.Spec,TabWare.Unite,TabWare.ZJF  from TabWare ");
    const QString begins = text + "%";
    if (!text.isEmpty() && bill.MSH.currentColumn == kCodeColumn)
        query += Sql("  where TabWare.Code like ") + begins + "  ";
    else if (!text.isEmpty())
        query += Sql("  where (TabWare.Name like ") + begins + "    or TabWare.ZJF like " + begins + " ) ";
    return PickerNeeded{"TabWare", "选择商品", query + " order by TabWare.code ", text};
}

void ChooseGood(Program& program, BillText& bill, const QString& code)
{
    CommitCell(program, bill, {}, GoodByCode(code));
}

std::optional<PickerNeeded> Txt2ToMSH(Program& program, BillText& bill, const QString& text, const Sql& query)
{
    if (CommitCell(program, bill, text, query) != Written::NoGood)
        return {};
    auto picker = GoodsPicker(program, bill, text);
    if (picker && !text.isEmpty())
        picker->note = "没有编号、名称或助记符为“" + text + "”的商品，请选择。";
    return picker;
}

void ChooseUnit(Program& program, BillText& bill, const QString& unit)
{
    LineGrid& grid = bill.MSH;
    const LineColumns at(*bill.kind);
    const QString code = CodeOfCurrentRow(bill);
    if (bill.kind->lines != LineShape::Pieces || code.isEmpty()) {
        grid.SetCell(grid.currentRow, grid.currentColumn, unit);
        return;
    }
    const std::optional<double> cost = ProposedCost(program, bill, code, grid.Cell(grid.currentRow, at.spec));
    if (!cost)
        return;
    grid.SetCell(grid.currentRow, grid.currentColumn, unit);
    grid.SetCell(grid.currentRow, at.cost, FormatByDigits(*cost, program.gDot.Price_DotLen));
    RecalcRow(program, bill, grid.currentRow);
}

QStringList LoadUnitChoices(Program& program, const BillText& bill)
{
    if (bill.MSH.column(bill.MSH.currentColumn).caption != u"单位")
        return {};
    const Recordset good =
        OpenQuery(program, Sql("select Unite ,SecondUnite  from  TabWare  where Code=") + CodeOfCurrentRow(bill) + " ");
    QStringList units = {good.Text("Unite"), good.Text("SecondUnite")};
    units.removeAll(QString());
    return units;
}

std::optional<PickerNeeded> AttributeStep(Program& program, BillText& bill)
{
    const QString code = CodeOfCurrentRow(bill);
    if (code.isEmpty())
        return {};
    const Recordset good = OpenQuery(program, Sql("select AttributeCode   from  TabWare  where Code=") + code + " ");
    if (!good)
        return {};
    const QString group = good.Text("AttributeCode").trimmed();
    if (!group.isEmpty())
        return PickerNeeded{"TabAttribute", "选择属性", Sql(" where Code like ") + (group + "%") + " "};

    LineGrid& grid = bill.MSH;
    if (!grid.Cell(grid.currentRow, grid.currentColumn).isEmpty() &&
        program.prompt.Ask("本行对应商品信息中未设置对应属性类别，本单据中该行对应属性值是否取消？"))
        grid.SetCell(grid.currentRow, grid.currentColumn, {});
    return {};
}

void ChooseAttribute(Program& program, BillText& bill, const QString& code)
{
    bill.MSH.SetCell(bill.MSH.currentRow, bill.MSH.currentColumn, AttributeCell(program, code));
}

bool WarehousePrecheck(Program& program, const BillText& bill)
{
    return bill.MayEnterGoods(program);
}

bool BillText::MayEnterGoods(Program& program) const
{
    const auto refuse = [&program](const QString& text) {
        program.prompt.Inform(text);
        return false;
    };
    if (kind->hasSource && TxtWarehouseNameF.trimmed().isEmpty())
        return refuse("请先选择" + kind->sourceWarehouse + "名称！");
    if (TxtWarehouseNameS.trimmed().isEmpty())
        return refuse("请先选择" + kind->warehouse + "名称！");
    if (kind->hasSource && TxtWarehouseCodeF.trimmed() == TxtWarehouseCodeS.trimmed())
        return refuse("禁止收货仓库名称与发货仓库名称相同！");
    return true;
}

void InsertGridRow(Program& program, BillText& bill)
{
    LineGrid& grid = bill.MSH;
    if (!IsLine(grid, program.prompt))
        return;
    grid.InsertRow(grid.currentRow);
    for (int row = grid.currentRow; row <= grid.lastRow(); ++row)
        grid.SetCell(row, 0, {});
}

void DeleteGridRow(Program& program, BillText& bill)
{
    LineGrid& grid = bill.MSH;
    if (!IsLine(grid, program.prompt))
        return;
    if (!program.prompt.Ask("确定删除第" + QString::number(grid.currentRow) + "行吗？（删除掉将不可恢复）"))
        return;
    grid.RemoveRow(grid.currentRow);
    SumBillTotals(program, bill);
    bill.LinesChanged(program);
}

Recordset GoodForLine(Program& program, const QString& code)
{
    return OpenQuery(program, Sql("select Code ,Name,Spec,Unite from TabWare where ") + CodeIs("Code", code));
}

std::optional<double> PosInPrice(Program& program, const BillText& bill, const QString& code)
{
    const bool hasWarehouse = !bill.TxtWarehouseCodeF.isEmpty() || !bill.TxtWarehouseCodeS.isEmpty();
    const bool hasCost = bill.kind->lines == LineShape::Counted || bill.kind->lines == LineShape::Pieces;
    if (!hasWarehouse || !hasCost)
        return {};
    return FetchRowCost(program, bill, code);
}

bool PosInBill(Program& program, BillText& bill, const QString& code, double quantity, double price)
{
    const Undertaking scanning(program); // a good of unknown cost is no line
    const bool isPiece = bill.kind->lines == LineShape::Pieces;
    const Recordset good = GoodForLine(program, code);
    if (good.isEmpty() || scanning.failed())
        return static_cast<bool>(good);
    const LineColumns at(*bill.kind);
    const LineGrid before = bill.MSH;
    LineGrid& grid = bill.MSH;
    const int row = grid.lastRow();
    grid.SetCell(row, at.code, good.Text("Code"));
    grid.SetCell(row, at.name, good.Text("Name"));
    grid.SetCell(row, at.spec, good.Text("Spec"));
    grid.SetCell(row, at.unit, good.Text("Unite"));
    // A revaluation has no quantity: the number lands in the unnamed column.
    grid.SetCell(row, at.amount, FormatByDigits(quantity, program.gDot.Amount_DotLen));
    if (at.price != 0)
        grid.SetCell(row, at.price, FormatByDigits(price, program.gDot.Price_DotLen));
    if (at.cost != 0) {
        const double cost = isPiece && price != 0 ? price : FetchRowCost(program, bill, code).value_or(0);
        grid.SetCell(row, at.cost, FormatByDigits(cost, program.gDot.Price_DotLen));
    }
    const auto fault = FaultOfRow(program, *bill.kind, grid, row);
    if (fault || scanning.failed()) {
        bill.MSH = before;
        if (fault && !scanning.failed())
            program.prompt.Inform(fault->InRow());
        return false;
    }
    grid.AddRow();
    RecalcAllAmounts(program, bill);
    return true;
}
