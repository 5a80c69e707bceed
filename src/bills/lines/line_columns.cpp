#include "bills/lines/line_columns.h"

#include "dialogs/grid_format.h"

LineColumns::LineColumns(const BillKind& kind)
    : code(ColumnIndex(kind, u"商品编号")),
      name(ColumnIndex(kind, u"商品名称")),
      spec(ColumnIndex(kind, u"规格")),
      attribute(ColumnIndex(kind, u"属性")),
      unit(ColumnIndex(kind, u"单位")),
      amount(ColumnIndex(kind, u"数量")),
      price(ColumnIndex(kind, u"单价")),
      cost(ColumnIndex(kind, u"成本价")),
      money(ColumnIndex(kind, u"金额")),
      revaluation(ColumnIndex(kind, u"调价金额")),
      manufacturer(ColumnIndex(kind, u"生产厂商")),
      brand(ColumnIndex(kind, u"品牌")),
      batch(ColumnIndex(kind, u"批号")),
      madeOn(ColumnIndex(kind, u"生产日期")),
      validUntil(ColumnIndex(kind, u"有效日期")),
      onlyCode(ColumnIndex(kind, u"唯一码")),
      custom1(ColumnIndex(kind, u"自定义字段1")),
      custom2(ColumnIndex(kind, u"自定义字段2")),
      custom3(ColumnIndex(kind, u"自定义字段3")),
      remark(ColumnIndex(kind, u"备注"))
{}

namespace {

/// How columns are shown: as saved by the user under a key, otherwise by default.
std::vector<LineGrid::Column> SavedLayout(Program& program, const QString& layoutKey,
                                          const std::vector<GridColumn>& columns)
{
    const std::vector<ColumnFormat> saved = ReadGridFormat(program, layoutKey);
    std::vector<LineGrid::Column> laidOut;
    for (const GridColumn& column : columns) {
        LineGrid::Column shown{column.caption, column.width};
        shown.isFigure = column.isFigure;
        shown.isDefault = laidOut.size() >= saved.size();
        if (!shown.isDefault) {
            const ColumnFormat& format = saved[laidOut.size()];
            shown.caption = format.elseName;
            shown.width = format.width;
            shown.alignment = format.content.align;
        }
        laidOut.push_back(shown);
    }
    return laidOut;
}

} // namespace

void LayOutGrid(Program& program, LineGrid& grid, const QString& layoutKey, const std::vector<GridColumn>& columns)
{
    grid.Reset(SavedLayout(program, layoutKey, columns));
}

void LayOutGridAgain(Program& program, LineGrid& grid, const QString& layoutKey, const std::vector<GridColumn>& columns)
{
    int index = 0;
    for (const LineGrid::Column& column : SavedLayout(program, layoutKey, columns))
        grid.column(index++) = column;
}

QString BillText::LayoutKey() const
{
    return (kind->lines == LineShape::Pieces ? QString(kind->headTable) : LabBillName.trimmed()) + "界面";
}

void BuildGridColumns(Program& program, BillText& bill)
{
    LayOutGrid(program, bill.MSH, bill.LayoutKey(), bill.kind->columns);
    ColumnWidthsChanged(bill);
}

void LayOutColumnsAgain(Program& program, BillText& bill)
{
    LayOutGridAgain(program, bill.MSH, bill.LayoutKey(), bill.kind->columns);
    ColumnWidthsChanged(bill);
}

void ColumnWidthsChanged(BillText& bill)
{
    const int money = ColumnIndex(*bill.kind, u"金额");
    bill.totalMoneyShown = money == 0 || bill.MSH.column(money).width > 0;
}
