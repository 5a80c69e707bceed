#include "assembly/life/assembly_recall.h"

#include "bills/life/recall.h"
#include "bills/lines/line_columns.h"
#include "data/decimals.h"
#include "dialogs/grid_format.h"
#include "handover/launcher.h"
#include "handover/open_query.h"

namespace {

/// Columns of the list behind 序号, in order.
struct ListColumn
{
    const char* caption;
    const char* column;
    int width; // twips
    bool isFigure = false;
};
constexpr ListColumn kListColumns[] = {
    {"单据编号", "Code", 2000},           {"录单日期", "Datee", 1300},    {"发货仓库", "WarehouseNameF", 1500},
    {"收货仓库", "WarehouseNameS", 1500}, {"商品编号", "WareCode", 1500}, {"商品名称", "WareName", 2000},
    {"经办人", "Operator", 1200},         {"数量", "Amount", 1000, true}, {"单据类型", "BillType", 1200},
};
constexpr int kCodeColumn = 1;

const char* const kSelect = "Code,Datee,WarehouseNameF,WarehouseNameS,WareCode,WareName,Operator,Amount,BillType ";
const char* const kClosingOrder = " order by Datee Desc   ";

bool Refuse(Program& program, const QString& text)
{
    program.prompt.Inform(text);
    return false;
}

std::vector<GridColumn> ColumnsOfList()
{
    std::vector<GridColumn> columns = {{"序号", 600}};
    for (const ListColumn& column : kListColumns)
        columns.push_back({column.caption, column.width, column.isFigure});
    return columns;
}

void FillList(Program& program, AssemblyList& list, const Sql& query)
{
    LayOutGrid(program, list.MSH, LayoutKeyOf(list.kind->bill), ColumnsOfList());
    const Recordset bills = OpenQuery(program, query);
    for (int index = 0; index < bills.size(); ++index) {
        const int row = index + 1;
        list.MSH.SetCell(row, 0, QString::number(row));
        int position = 0;
        for (const ListColumn& column : kListColumns)
            list.MSH.SetCell(row, ++position, bills.Text(column.column, index));
        list.MSH.SetCell(row, kCodeColumn + 1, FormatByType(program, bills.at(index, "Datee"), "日期型"));
        list.MSH.AddRow();
    }
}

/// Each part of the filter but the first begins with "and".
Sql ConditionOf(const AssemblyFilter& filter)
{
    Sql condition;
    const auto add = [&condition](const char* words, const Value& value) {
        if (!condition.isEmpty())
            condition += "  and  ";
        condition += Sql(words) + value + " ";
    };
    if (!filter.billCode.trimmed().isEmpty())
        add("  Code=", filter.billCode.trimmed());
    if (const auto from = ParseDay(filter.from))
        add("  Datee>=", *from);
    if (const auto to = ParseDay(filter.to))
        add("  Datee<=", *to);
    return condition;
}

bool IsDayOrEmpty(const QString& text)
{
    return text.trimmed().isEmpty() || ParseDay(text);
}

} // namespace

void TaoYongFillBill(Program& program, GroupPieceText& bill, const QString& tableName, const QString& billCode)
{
    const Recordset head = OpenQuery(program, Sql("select * from ") + Name(tableName) + " where Code=" + billCode);
    if (head.isEmpty()) {
        if (head)
            program.prompt.Inform("没有原单，套用调入失败！");
        return;
    }
    const Recordset lines = OpenQuery(program, Sql("select * from ") + Name(tableName + "Inf") +
                                                   " where BillCode=" + billCode + " order by Num");
    if (!lines)
        return;
    BuildGridColumns(program, bill);
    ShowLines(program, bill, lines, LineDetail::Pattern);
    ShowWarehouses(bill, head);
    bill.ShowProduct(program, head);
    bill.TxtOperator = head.Text("Operator");
}

QString PatternTitle(const GroupPieceText& bill)
{
    return "输入" + bill.kind->bill + "编号";
}

bool RecallByCode(Program& program, GroupPieceText& bill, const QString& billCode)
{
    if (billCode.trimmed().isEmpty())
        return Refuse(program, "请输入组装或拆卸单编号！");
    TaoYongFillBill(program, bill, bill.kind->headTable, billCode.trimmed());
    return true;
}

bool RecallLatest(Program& program, GroupPieceText& bill, const QString& wareCode, const QString& wareName)
{
    if (wareCode.trimmed().isEmpty() && wareName.trimmed().isEmpty())
        return Refuse(program, "请输入组装或拆卸产品名称或编号！");
    const Name table(bill.kind->headTable);
    const Recordset latest = OpenQuery(
        program, Sql("select Code from ") + table + "  where  Datee=( select max(Datee) as maxDatee from " + table +
                     "  where WareCode=" + wareCode.trimmed() + " or WareName=" + wareName.trimmed() + " ) ");
    if (!latest)
        return false;
    if (latest.isEmpty())
        return Refuse(program, "输入的组装拆卸产品不存在组装拆卸历史记录！");
    TaoYongFillBill(program, bill, bill.kind->headTable, latest.Text("Code"));
    return true;
}

AssemblyList OpenAssemblyList(Program& program, const GroupPieceText& bill, const QString& wareCode)
{
    AssemblyList list = {bill.kind, wareCode.trimmed(), {}};
    FillList(program, list,
             Sql("select top 100 ") + kSelect + " from " + Name(list.kind->headTable) +
                 " where WareCode=" + list.wareCode + " " + kClosingOrder);
    return list;
}

bool FilterAssemblyList(Program& program, AssemblyList& list, const AssemblyFilter& filter)
{
    if (!IsDayOrEmpty(filter.from))
        return Refuse(program, "单据日期从不是日期型格式(YYYY-MMM-DD),请修改！");
    if (!IsDayOrEmpty(filter.to))
        return Refuse(program, "单据日期至不是日期型格式(YYYY-MMM-DD),请修改！");
    Sql query = Sql("select ") + kSelect + " from   " + Name(list.kind->headTable) + "  where ";
    const Sql condition = ConditionOf(filter);
    if (!condition.isEmpty())
        query += condition + " and";
    FillList(program, list, query + " WareCode=" + list.wareCode + " " + kClosingOrder);
    if (list.MSH.lastRow() == 1)
        program.prompt.Inform("没有满足条件的数据！");
    return true;
}

void LayOutListAgain(Program& program, AssemblyList& list)
{
    LayOutGridAgain(program, list.MSH, LayoutKeyOf(list.kind->bill), ColumnsOfList());
}

QString CodeInList(const AssemblyList& list, int row)
{
    const bool isRow = row > 0 && row < list.MSH.lastRow();
    return isRow ? list.MSH.Cell(row, kCodeColumn).trimmed() : QString();
}

bool OpenOriginal(Program& program, const AssemblyList& list, int row)
{
    const QString code = CodeInList(list, row);
    if (code.isEmpty())
        return false;
    const QString word = list.kind->operation + "原单查看";
    return LaunchFunction(program, word, {word, list.kind->operation, list.kind->headTable, code});
}
