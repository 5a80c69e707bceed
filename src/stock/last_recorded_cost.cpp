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
    const char* conditions;
};

// A snapshot has no moment: its day is midnight, so it loses to every bill of that day.
constexpr CostSource kCostSources[] = {
    {"TabInBillInf", "", "AveragePrice", "DateTimee", " and TabInBillInf.State<>'作废'  "},
    {"TabElseInBillInf", ",TabElseInBill ,TabOutInType  ", "AveragePrice", "DateTimee",
     " and TabElseInBillInf.State<>'作废'   and  TabElseInBillInf.BillCode=TabElseInBill.Code "
     " and TabOutInType.CalCostYN='是'  and TabOutInType.Name=TabElseInBill.InType "},
    {"TabInCancleBillInf", "", "AveragePrice", "DateTimee", " and TabInCancleBillInf.State<>'作废'  "},
    {"TabChangePriceInf", "", "lastAveragePrice", "DateTimee", " and TabChangePriceInf.State<>'作废'  "},
    {"TabWareGroup", "", "AveragePrice", "DateTimee", " and TabWareGroup.State<>'作废'  "},
    {"TabWarePieceInf", "", "AveragePrice", "DateTimee", " and TabWarePieceInf.State<>'作废'  "},
    {"TabWarehouseTurn", "", "AveragePrice", "Datee", ""},
};

/// The newest row of one source.
void AppendNewestCost(Sql& sql, const CostSource& source, const CostQuestion& question)
{
    Append(sql, " select top 1  ", source.table, ".", source.price, " as AveragePrice  , ", source.table, ".",
           source.moment, " as DateTimee  from ", source.table, source.otherTables, " where ", source.table,
           ".WareCode=", question.wareCode, source.conditions, " and ", source.table, ".Datee<=", question.moment.day,
           BuildDimensionFilter(source.table, question.dimensions, false, question.auditedOnly, question.moneyName),
           " order by DateTimee desc ");
}

} // namespace

double LastRecordedCost(Program& program, const CostQuestion& question)
{
    Sql sql(" select top 1  AveragePrice as AveragePrice  from ( ");
    AppendUnion(sql, kCostSources, [&](const CostSource& source) { AppendNewestCost(sql, source, question); });
    sql += " ) tmpUnionTab order by DateTimee desc ";
    return OpenQuery(program, sql).Number("AveragePrice");
}
