#include "dialogs/grid_format.h"

#include "base/number_text.h"
#include "data/decimals.h"
#include "data/rights.h"
#include "handover/open_query.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kTwipsPerMillimetreShown = 56.7;
constexpr double kTwipsPerMillimetreTyped = 56.6928;
constexpr double kWidestColumn = 2000 * kTwipsPerMillimetreTyped;

void AddCellFormat(std::vector<Value>& values, const CellFormat& format)
{
    const QString size = NumberText(std::round(static_cast<double>(format.fontSize) * 100) / 100);
    for (const Value& value : std::initializer_list<Value>{
             qint64(format.align), format.fontName, size, YesNoFlagText(format.fontBold),
             YesNoFlagText(format.fontItalic), YesNoFlagText(format.fontUnderline), qint64(format.foreColor)})
        values.push_back(value);
}

Sql InsertColumn(const QString& layoutKey, int position, const ColumnFormat& column, const CellFormat& content)
{
    std::vector<Value> values = {layoutKey, qint64(position), qint64(column.width), column.elseName};
    AddCellFormat(values, column.head);
    AddCellFormat(values, content);
    return InsertInto(Name("TabPrintMSHSet"), values);
}

Sql DeleteLayout(const QString& layoutKey)
{
    return Sql("delete from TabPrintMSHSet where TabName=") + layoutKey;
}

/// All columns or none: a layout is read by position, a gap would shift the columns behind it.
bool ReplaceLayout(Program& program, const QString& layoutKey, const GridFormat& format)
{
    SaveUnit unit(program);
    if (!unit.isOpen() || !OpenQuery(program, DeleteLayout(layoutKey)))
        return false;
    int position = 0;
    for (const ColumnFormat& column : format.columns) {
        const CellFormat& content = format.rows > 1 ? column.content : column.head;
        if (!OpenQuery(program, InsertColumn(layoutKey, position++, column, content)))
            return false;
    }
    return unit.Commit();
}

} // namespace

QString MillimetresText(int twips)
{
    return NumberText(std::round(twips / kTwipsPerMillimetreShown * 100) / 100);
}

int TwipsOf(const QString& millimetres)
{
    return static_cast<int>(std::round(std::clamp(Val(millimetres) * kTwipsPerMillimetreTyped, 0.0, kWidestColumn)));
}

int AlignmentOf(int stored)
{
    if (stored < 0 || stored > 8)
        return 9;
    return stored / 3 * 3 + 1;
}

QString LayoutKeyOf(const QString& billName)
{
    return billName.trimmed() + "界面";
}

bool MayFormatGrids(Program& program)
{
    return CheckOperateRight(program, program.parameters.UserName, "界面列表格式设置", Action::Edit);
}

std::vector<ColumnFormat> ReadGridFormat(Program& program, const QString& layoutKey)
{
    const Recordset rs =
        OpenQuery(program, Sql("select * from TabPrintMSHSet where TabName=") + layoutKey + " order by ColOrder ");
    std::vector<ColumnFormat> columns;
    for (int row = 0; row < rs.size(); ++row) {
        ColumnFormat column{rs.Text("ColElseName", row), static_cast<int>(rs.Integer("ColWidth", row)), {}, {}};
        column.content.align = AlignmentOf(static_cast<int>(rs.Integer("ContentAlign", row)));
        columns.push_back(column);
    }
    return columns;
}

bool SaveGridFormat(Program& program, const QString& layoutKey, const GridFormat& format)
{
    if (layoutKey.isEmpty()) {
        program.prompt.Inform("被设置的界面名称不能确定，保存失败！请退出后重新设置。");
        return false;
    }
    if (!ReplaceLayout(program, layoutKey, format))
        return false;
    program.prompt.Inform("保存成功！");
    return true;
}

bool DeleteGridFormat(Program& program, const QString& layoutKey)
{
    if (!MayFormatGrids(program) || !program.prompt.Ask("删除当前界面格式设置吗？"))
        return false;
    if (!OpenQuery(program, DeleteLayout(layoutKey)))
        return false;
    program.prompt.Inform("删除成功！");
    return true;
}
