#include "checking/goods_portion.h"

#include "handover/open_query.h"
#include "stock/movements.h"

#include <algorithm>

namespace {

constexpr int kPortion = 500;

std::vector<MovementRow> ReadMovements(Program& program, const GoodsRange& range, bool auditedOnly)
{
    const DayLimit days[] = {{">", kNoDate}};
    const Recordset rows = ListMovements(program, {.auditedOnly = auditedOnly}, WithinRange(range), days);
    RowReader reader(rows, {"WareCode", "WarehouseCode", "HeadTable", "BillCode", "Num", "Datee", "Amount", "Cost"});
    std::vector<MovementRow> movements;
    while (reader.Next()) {
        MovementRow& row = movements.emplace_back();
        row.wareCode = reader.Text();
        row.warehouse = reader.Text();
        row.headTable = reader.Text();
        row.code = reader.Text();
        row.num = reader.Integer();
        row.day = reader.Day();
        row.amount = reader.Number();
        row.money = reader.Number();
    }
    return movements;
}

std::vector<SnapshotRow> ReadSnapshots(Program& program, const GoodsRange& range)
{
    const Recordset rows =
        OpenQuery(program, Sql("select T.WareCode as WareCode,T.WarehouseCode as WarehouseCode,(select count(*) from "
                               "TabWarehouseType where TabWarehouseType.Code=T.WarehouseCode) as InPlace,T.Num as Num,"
                               "T.Datee as Datee,T.Amount as Amount,T.Cost as Cost,T.AveragePrice as AveragePrice,"
                               "T.AttributeCode as AttributeCode,T.WareSpec as WareSpec,T.Manufacturer as Manufacturer,"
                               "T.Brand as Brand,T.PCode as PCode,T.MoneyName as MoneyName"
                               " from TabWarehouseTurn T,TabWare where TabWare.Code=T.WareCode ") +
                               WithinRange(range) + " order by T.WareCode,T.Datee");
    RowReader reader(rows);
    std::vector<SnapshotRow> snapshots;
    while (reader.Next()) {
        SnapshotRow& row = snapshots.emplace_back();
        row.wareCode = reader.Text();
        row.warehouse = reader.Text();
        row.inPlace = reader.Integer() != 0;
        row.opening = reader.Integer() == 1;
        row.day = reader.Day().value_or(kNoDate);
        row.amount = reader.Number();
        row.money = reader.Number();
        row.unitCost = reader.Number();
        row.variant = VariantOf(reader);
    }
    return snapshots;
}

} // namespace

std::vector<GoodsRange> GoodsInPortions(Program& program)
{
    const Recordset goods = OpenQuery(program, Sql("select Code from TabWare order by Code"));
    std::vector<GoodsRange> ranges;
    for (int row = 0; row < goods.size(); row += kPortion)
        ranges.push_back({goods.Text("Code", row), goods.Text("Code", std::min(row + kPortion, goods.size()) - 1)});
    return ranges;
}

Sql WithinRange(const GoodsRange& range)
{
    return Sql(" and TabWare.Code>=") + range.first + " and TabWare.Code<=" + range.last +
           " and coalesce(TabWare.AmountQueryYN,'')<>'否' ";
}

Variant VariantOf(RowReader& reader)
{
    Variant variant;
    for (QString* text :
         {&variant.dimensions.AttributeCode, &variant.dimensions.WareSpec, &variant.dimensions.Manufacturer,
          &variant.dimensions.Brand, &variant.dimensions.PCode, &variant.moneyName})
        *text = reader.Text();
    return variant;
}

StockRows ReadStockRows(Program& program, const GoodsRange& range, bool auditedOnly)
{
    return {ReadMovements(program, range, auditedOnly), ReadSnapshots(program, range)};
}
