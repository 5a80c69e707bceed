#include "bills/line_columns.h"

#include "handover/open_query.h"

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

void BuildGridColumns(Program& program, BillText& bill)
{
    const Recordset saved = OpenQuery(program, Sql("select * from TabPrintMSHSet where TabName=") +
                                                   (bill.LabBillName.trimmed() + "界面") + " order by ColOrder ");
    std::vector<LineGrid::Column> columns;
    for (const GridColumn& column : bill.kind->columns) {
        const int row = static_cast<int>(columns.size());
        if (row < saved.size())
            columns.push_back({saved.Text("ColElseName", row), static_cast<int>(saved.Integer("ColWidth", row)),
                               static_cast<int>(saved.Integer("ContentAlign", row))});
        else
            columns.push_back({column.caption, column.width});
    }
    bill.MSH.Reset(std::move(columns));

    const int money = ColumnIndex(*bill.kind, u"金额");
    bill.totalMoneyShown = money == 0 || bill.MSH.column(money).width > 0;
}
