#include "stock/last_recorded_cost.h"

#include "handover/open_query.h"
#include "stock/statement.h"

#include <span>

namespace {

using Columns = std::span<const char* const>;

struct CostSource
{
    const char* rank; // of two sources of one moment the lower one counts
    const char* table;
    const char* otherTables; // with the comma in front
    const char* price;
    const char* moment;
    const char* code;
    const char* conditions;
    // Rows of one moment stand in the order of this, then of these columns and of the price downwards.
    const char* firstTie;
    Columns ties;
};

constexpr const char* kBillTies[] = {"Datee", "State"};
constexpr const char* kCloseTies[] = {"Num", "WarehouseCode", "Amount", "Cost", "MoneyRate"};
/// All rows of a close share a moment: the good's own row goes before those of an attribute, a batch and so on.
constexpr const char* kWholeGoodFirst =
    ",case when coalesce(AttributeCode,'')='' and coalesce(WareSpec,'')='' and coalesce(Manufacturer,'')='' "
    "and coalesce(Brand,'')='' and coalesce(PCode,'')='' then 0 else 1 end";

// A snapshot has no moment: its day is midnight, so it loses to every bill of that day.
constexpr CostSource kCostSources[] = {
    {"1", "TabInBillInf", "", "AveragePrice", "DateTimee", "BillCode", " and TabInBillInf.State<>'作废'  ", "",
     kBillTies},
    {"2", "TabElseInBillInf", ",TabElseInBill ,TabOutInType  ", "AveragePrice", "DateTimee", "BillCode",
     " and TabElseInBillInf.State<>'作废'   and  TabElseInBillInf.BillCode=TabElseInBill.Code "
     " and TabOutInType.CalCostYN='是'  and TabOutInType.Name=TabElseInBill.InType ",
     "", kBillTies},
    {"3", "TabInCancleBillInf", "", "AveragePrice", "DateTimee", "BillCode", " and TabInCancleBillInf.State<>'作废'  ",
     "", kBillTies},
    {"4", "TabChangePriceInf", "", "lastAveragePrice", "DateTimee", "BillCode",
     " and TabChangePriceInf.State<>'作废'  ", "", kBillTies},
    {"5", "TabWareGroup", "", "AveragePrice", "DateTimee", "Code", " and TabWareGroup.State<>'作废'  ", "", kBillTies},
    {"6", "TabWarePieceInf", "", "AveragePrice", "DateTimee", "BillCode", " and TabWarePieceInf.State<>'作废'  ", "",
     kBillTies},
    {"7", "TabWarehouseTurn", "", "AveragePrice", "Datee", "WarehouseCode", "", kWholeGoodFirst, kCloseTies},
};

/// What the question reads of the newest row. Where it stands is left out where only the cost is wanted: no index
/// holds that.
enum class Answer
{
    Cost,
    CostAndPlace,
};

/// The newest row of one source.
void AppendNewestCost(Sql& sql, const CostSource& source, const CostQuestion& question, Answer answer)
{
    Append(sql, " select top 1  ", source.table, ".", source.price, " as AveragePrice  , ", source.table, ".",
           source.moment, " as DateTimee ,", source.rank, " as SourceRank ");
    if (answer == Answer::CostAndPlace)
        Append(sql, ",'", source.table, "' as SourceTable,", source.table, ".", source.code, " as BillCode");
    Append(sql, " from ", source.table, source.otherTables, " where ", source.table, ".WareCode=", question.wareCode,
           source.conditions, " and ", source.table, ".Datee<=", question.moment.day,
           BuildDimensionFilter(source.table, question.dimensions, false, question.auditedOnly, question.moneyName),
           " order by DateTimee desc ", source.firstTie);
    for (const char* column : source.ties)
        Append(sql, ",", source.table, ".", column, " desc");
    sql += ",AveragePrice desc ";
}

Recordset NewestCost(Program& program, const CostQuestion& question, Answer answer)
{
    Sql sql(answer == Answer::Cost ? " select top 1  AveragePrice as AveragePrice  from ( "
                                   : " select top 1  * from ( ");
    AppendUnion(sql, kCostSources, [&](const CostSource& source) { AppendNewestCost(sql, source, question, answer); });
    sql += " ) tmpUnionTab order by DateTimee desc ,SourceRank ";
    return OpenQuery(program, sql);
}

} // namespace

double LastRecordedCost(Program& program, const CostQuestion& question)
{
    return NewestCost(program, question, Answer::Cost).Number("AveragePrice");
}

std::optional<RecordedCost> FindLastRecordedCost(Program& program, const CostQuestion& question)
{
    const Recordset newest = NewestCost(program, question, Answer::CostAndPlace);
    if (newest.isEmpty())
        return std::nullopt;
    return RecordedCost{newest.Number("AveragePrice"), newest.Text("SourceTable"), newest.Text("BillCode"),
                        newest.MomentAt("DateTimee").value_or(Moment{kNoDate})};
}
