#include "costed_lines.h"

#include "handover/open_query.h"
#include "stock/statement.h"

namespace {

struct CostedTable
{
    const char* table;
    const char* cost;
    const char* otherCost; // the same as `cost` where there is one column
    const char* amount;    // what a recording line brings in; null for a line that takes the newest cost
    const char* money;
    const char* otherTables = ""; // with the comma in front
    const char* conditions = "";
};

constexpr const char* kNone = nullptr;

// The priced transfer keeps the cost that it was saved with, so it is no part of this.
constexpr CostedTable kCostedTables[] = {
    {"TabInBillInf", "AveragePrice", "AveragePrice", "UnionAmount", "Moneyy_Discount"},
    {"TabInCancleBillInf", "AveragePrice", "AveragePrice", "-UnionAmount", "-Moneyy_Discount"},
    {"TabElseInBillInf", "AveragePrice", "AveragePrice", "UnionAmount", "Moneyy_Discount",
     ",TabElseInBill,TabOutInType",
     " and L.BillCode=TabElseInBill.Code and TabOutInType.CalCostYN='是'"
     " and TabOutInType.Name=TabElseInBill.InType"},
    {"TabChangePriceInf", "lastAveragePrice", "lastAveragePrice", "0", "MoneyBanlance"},
    {"TabWareGroup", "AveragePrice", "AveragePrice", "UnionAmount", "SumMoney"},
    {"TabWarePieceInf", "AveragePrice", "AveragePrice", "UnionAmount", "Moneyy"},
    {"TabOutBillInf", "Cost", "AveragePrice", kNone, kNone},
    {"TabOutCancleBillInf", "Cost", "AveragePrice", kNone, kNone},
    {"TabElseOutBillInf", "Cost", "AveragePrice", kNone, kNone},
    {"TabSamePriceMoveInf", "AveragePrice", "AveragePrice", kNone, kNone},
    {"TabCheckLoseInf", "AveragePrice", "AveragePrice", kNone, kNone},
    {"TabCheckOverInf", "AveragePrice", "AveragePrice", kNone, kNone},
    {"TabWareGroupInf", "AveragePrice", "AveragePrice", kNone, kNone},
    {"TabWarePiece", "AveragePrice", "AveragePrice", kNone, kNone},
};

/// "-Moneyy" stands for the column with the other sign.
void AppendColumn(Sql& sql, const char* column, const char* as)
{
    if (!column || *column == '0')
        sql += "0";
    else if (*column == '-')
        Append(sql, "-L.", column + 1);
    else
        Append(sql, "L.", column);
    Append(sql, " as ", as, ",");
}

void AppendLines(Sql& sql, const CostedTable& source, const GoodsRange& range, const QDate& after)
{
    const bool isHead = !QByteArrayView(source.table).endsWith("Inf");
    Append(sql, "select '", source.table, "' as LineTable,", isHead ? "L.Code" : "L.BillCode", " as BillCode,",
           isHead ? "0" : "L.Num", " as Num,", source.amount ? "1" : "0", " as Records,");
    AppendColumn(sql, source.cost, "UnitCost");
    AppendColumn(sql, source.otherCost, "OtherCost");
    AppendColumn(sql, source.amount, "Amount");
    AppendColumn(sql, source.money, "Moneyy");
    Append(sql,
           "L.WareCode as WareCode,TabWare.CostStyle as CostStyle,L.Datee as Datee,L.DateTimee as DateTimee,"
           "L.AttributeCode as AttributeCode,L.WareSpec as WareSpec,L.Manufacturer as Manufacturer,L.Brand as Brand,"
           "L.PCode as PCode,L.Auditing as Auditing,L.MoneyName as MoneyName from ",
           source.table, " L,TabWare", source.otherTables, " where L.WareCode=TabWare.Code and L.Datee>", after,
           " and L.State<>'作废'", source.conditions, WithinRange(range));
}

CostedLine LineOf(const Recordset& rows, int row)
{
    CostedLine line;
    line.table = rows.Text("LineTable", row);
    line.code = rows.Text("BillCode", row);
    line.num = int(rows.Integer("Num", row));
    line.day = rows.Day("Datee", row).value_or(kNoDate);
    line.moment = rows.MomentAt("DateTimee", row).value_or(Moment{line.day});
    line.dimensions = {rows.Text("AttributeCode", row), rows.Text("WareSpec", row), rows.Text("Manufacturer", row),
                       rows.Text("Brand", row), rows.Text("PCode", row)};
    line.auditing = rows.Text("Auditing", row);
    line.moneyName = rows.Text("MoneyName", row);
    line.records = rows.Integer("Records", row) != 0;
    line.cost = rows.Number("UnitCost", row);
    line.otherCost = rows.Number("OtherCost", row);
    line.amount = rows.Number("Amount", row);
    line.money = rows.Money("Moneyy", row);
    return line;
}

} // namespace

std::vector<CostedGood> CostedGoods(Program& program, const GoodsRange& range, const QDate& after)
{
    Sql sql("select * from (");
    AppendUnion(sql, kCostedTables, [&](const CostedTable& source) { AppendLines(sql, source, range, after); });
    sql += ") tmpTab order by WareCode,DateTimee,BillCode,Num";
    const Recordset rows = OpenQuery(program, sql);
    std::vector<CostedGood> goods;
    for (int row = 0; row < rows.size(); ++row) {
        const QString code = rows.Text("WareCode", row);
        if (goods.empty() || goods.back().code.compare(code, Qt::CaseInsensitive) != 0)
            goods.push_back({code, rows.Text("CostStyle", row).trimmed(), {}});
        goods.back().lines.push_back(LineOf(rows, row));
    }
    return goods;
}
