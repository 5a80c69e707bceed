#include "stock/last_recorded_cost.h"

#include "handover/open_query.h"
#include "stock/statement.h"

namespace {

struct CostSource
{
    const char* table;
    const char* otherTables; // with the comma in front
    const char* price;
    const char* moment;
    const char* code;
    const char* conditions;
};

// A snapshot has no moment: its day is midnight, so it loses to every bill of that day.
constexpr CostSource kCostSources[] = {
    {"TabInBillInf", "", "AveragePrice", "DateTimee", "BillCode", " and TabInBillInf.State<>'作废'  "},
    {"TabElseInBillInf", ",TabElseInBill ,TabOutInType  ", "AveragePrice", "DateTimee", "BillCode",
     " and TabElseInBillInf.State<>'作废'   and  TabElseInBillInf.BillCode=TabElseInBill.Code "
     " and TabOutInType.CalCostYN='是'  and TabOutInType.Name=TabElseInBill.InType "},
    {"TabInCancleBillInf", "", "AveragePrice", "DateTimee", "BillCode", " and TabInCancleBillInf.State<>'作废'  "},
    {"TabChangePriceInf", "", "lastAveragePrice", "DateTimee", "BillCode", " and TabChangePriceInf.State<>'作废'  "},
    {"TabWareGroup", "", "AveragePrice", "DateTimee", "Code", " and TabWareGroup.State<>'作废'  "},
    {"TabWarePieceInf", "", "AveragePrice", "DateTimee", "BillCode", " and TabWarePieceInf.State<>'作废'  "},
    {"TabWarehouseTurn", "", "AveragePrice", "Datee", "WarehouseCode", ""},
};

/// What the question reads of the newest row. Where it stands is left out where only the cost is wanted: no index
/// holds that.
enum class Columns
{
    Cost,
    CostAndPlace,
};

/// The newest row of one source.
void AppendNewestCost(Sql& sql, const CostSource& source, const CostQuestion& question, Columns columns)
{
    Append(sql, " select top 1  ", source.table, ".", source.price, " as AveragePrice  , ", source.table, ".",
           source.moment, " as DateTimee ");
    if (columns == Columns::CostAndPlace)
        Append(sql, ",'", source.table, "' as SourceTable,", source.table, ".", source.code, " as BillCode");
    Append(sql, " from ", source.table, source.otherTables, " where ", source.table, ".WareCode=", question.wareCode,
           source.conditions, " and ", source.table, ".Datee<=", question.moment.day,
           BuildDimensionFilter(source.table, question.dimensions, false, question.auditedOnly, question.moneyName),
           " order by DateTimee desc ");
}

Recordset NewestCost(Program& program, const CostQuestion& question, Columns columns)
{
    Sql sql(columns == Columns::Cost ? " select top 1  AveragePrice as AveragePrice  from ( "
                                     : " select top 1  * from ( ");
    AppendUnion(sql, kCostSources, [&](const CostSource& source) { AppendNewestCost(sql, source, question, columns); });
    sql += " ) tmpUnionTab order by DateTimee desc ";
    return OpenQuery(program, sql);
}

} // namespace

double LastRecordedCost(Program& program, const CostQuestion& question)
{
    return NewestCost(program, question, Columns::Cost).Number("AveragePrice");
}

std::optional<RecordedCost> FindLastRecordedCost(Program& program, const CostQuestion& question)
{
    const Recordset newest = NewestCost(program, question, Columns::CostAndPlace);
    if (newest.isEmpty())
        return std::nullopt;
    return RecordedCost{newest.Number("AveragePrice"), newest.Text("SourceTable"), newest.Text("BillCode"),
                        newest.MomentAt("DateTimee").value_or(Moment{kNoDate})};
}
