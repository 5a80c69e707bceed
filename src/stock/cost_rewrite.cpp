#include "stock/cost_rewrite.h"

#include "handover/open_query.h"
#include "stock/closing.h"
#include "stock/statement.h"
#include "stock/unit_cost.h"

namespace {

/// One kind of rows that bring value in: table of the good and its day, the other tables and what joins them.
struct InflowSource
{
    const char* table;
    const char* otherTables; // with the comma in front
    const char* conditions;
};

constexpr InflowSource kInflowSources[] = {
    {"TabInBillInf", ",TabInBill,TabWare", " and TabInBillInf.BillCode=TabInBill.Code  and TabInBill.State<>'作废' "},
    {"TabInCancleBillInf", ",TabInCancleBill,TabWare",
     " and TabInCancleBillInf.BillCode=TabInCancleBill.Code  and TabInCancleBill.State<>'作废' "},
    {"TabElseInBillInf", ",TabWare,TabOutInType,TabElseInBill",
     " and TabElseInBillInf.BillCode=TabElseInBill.Code  and TabElseInBill.State<>'作废' "
     " and TabOutInType.CalCostYN='是'  and TabOutInType.Name=TabElseInBill.InType "},
    {"TabChangePriceInf", ",TabChangePrice,TabWare",
     " and TabChangePriceInf.BillCode=TabChangePrice.Code  and TabChangePrice.State<>'作废' "},
    {"TabWareGroup", ",TabWare", " and TabWareGroup.State<>'作废' "},
    {"TabWarePieceInf", ",TabWarePiece,TabWare",
     " and TabWarePieceInf.BillCode=TabWarePiece.Code  and TabWarePiece.State<>'作废' "},
};

/// The columns of a table that hold the current unit cost. What a bill wrote as its own price or money is no such
/// column: neither MoneyBanlance nor any column of TabDiffPriceMoveInf is rewritten.
struct CostColumns
{
    const char* table;
    const char* first;
    const char* second = nullptr;
};

constexpr CostColumns kCostColumns[] = {
    {"TabOutBillInf", "Cost", "AveragePrice"},
    {"TabElseOutBillInf", "Cost", "AveragePrice"},
    {"TabOutCancleBillInf", "Cost", "AveragePrice"},
    {"TabSamePriceMoveInf", "AveragePrice"},
    {"TabChangePriceInf", "lastAveragePrice"},
    {"TabCheckLoseInf", "AveragePrice"},
    {"TabCheckOverInf", "AveragePrice"},
    {"TabInBillInf", "AveragePrice"},
    {"TabElseInBillInf", "AveragePrice"},
    {"TabInCancleBillInf", "AveragePrice"},
    {"TabWareGroup", "AveragePrice"},
    {"TabWareGroupInf", "AveragePrice"},
    {"TabWarePiece", "AveragePrice"},
    {"TabWarePieceInf", "AveragePrice"},
};

struct Rewrite
{
    QString wareCode;
    QString moneyName;
    bool auditedOnly;
};

/// Days between which no value came in. The last day is never part of it.
struct Span
{
    QDate from;
    QDate to;
    bool fromExclusive = true;

    bool holdsNoDay() const { return (fromExclusive ? from.addDays(1) : from) >= to; }
};

Sql Filter(const Rewrite& rewrite, const char* table)
{
    return BuildDimensionFilter(table, {}, false, rewrite.auditedOnly, rewrite.moneyName);
}

void AppendInflowDays(Sql& sql, const InflowSource& source, const Rewrite& rewrite, const QDate& after,
                      const QDate& until)
{
    Append(sql, "select distinct ", source.table, ".Datee as Datee from ", source.table, source.otherTables, " where ",
           source.table, ".WareCode=", rewrite.wareCode, " and ", source.table,
           ".WareCode=TabWare.Code  and TabWare.CostStyle='移动加权平均法'  and ", source.table, ".Datee>", after,
           " and ", source.table, ".Datee<=", until, source.conditions, Filter(rewrite, source.table));
}

std::vector<QDate> InflowDays(Program& program, const Rewrite& rewrite, const QDate& after, const QDate& until)
{
    Sql sql("select distinct Datee from ( ");
    AppendUnion(sql, kInflowSources,
                [&](const InflowSource& source) { AppendInflowDays(sql, source, rewrite, after, until); });
    sql += " ) tmpTab  order by tmpTab.Datee asc ";
    const Recordset rows = OpenQuery(program, sql);
    std::vector<QDate> days;
    for (int row = 0; row < rows.size(); ++row) {
        if (const std::optional<QDate> day = rows.Day("Datee", row))
            days.push_back(*day);
    }
    return days;
}

void AppendSetList(Sql& sql, const CostColumns& columns, double unitCost)
{
    Append(sql, columns.table, ".", columns.first, "=", unitCost);
    if (columns.second)
        Append(sql, ",", columns.table, ".", columns.second, "=", unitCost);
}

void AppendSpan(Sql& sql, const char* table, const Span& span)
{
    Append(sql, "  where ", table, span.fromExclusive ? ".Datee>" : ".Datee>=", span.from, "  and ", table, ".Datee<",
           span.to);
}

/// The two databases name the joined table in different places.
Sql CostUpdate(const CostColumns& columns, const Rewrite& rewrite, const Span& span, double unitCost, bool isAccess)
{
    Sql sql(" update ");
    Append(sql, columns.table, isAccess ? " ,TabWare set " : "  set ");
    AppendSetList(sql, columns, unitCost);
    if (!isAccess)
        Append(sql, "  from ", columns.table, ",TabWare ");
    AppendSpan(sql, columns.table, span);
    Append(sql, "  and  ", columns.table, ".WareCode=", rewrite.wareCode, "  and ", columns.table,
           ".WareCode=TabWare.Code  and (TabWare.CostStyle='移动加权平均法') ", Filter(rewrite, columns.table));
    return sql;
}

void ApplyCostToBillLines(Program& program, const Rewrite& rewrite, const Span& span, double unitCost)
{
    for (const CostColumns& columns : kCostColumns)
        OpenQuery(program, CostUpdate(columns, rewrite, span, unitCost, program.parameters.IsAccess));
}

/// The newest cost stored up to a day. Asked without dimensions: one cost goes to all lines of the good.
double CostOnDay(Program& program, const Rewrite& rewrite, const QDate& day)
{
    return GetDisplayCost(program, {.moment = {day, 0},
                                    .wareCode = rewrite.wareCode,
                                    .moneyName = rewrite.moneyName,
                                    .auditedOnly = rewrite.auditedOnly,
                                    .useMoving = true});
}

/// The spans between the inflow days. Lines of an inflow day keep the cost they were saved with.
std::vector<Span> SpansBetween(const std::vector<QDate>& inflowDays, const QDate& lastClose, const QDate& endDate)
{
    QDate from = lastClose.addDays(1);
    if (inflowDays.empty())
        return {{from, endDate, false}};
    std::vector<Span> spans;
    for (const QDate& day : inflowDays) {
        spans.push_back({from, day});
        from = day;
    }
    spans.push_back({from, endDate});
    return spans;
}

} // namespace

void RewriteCostOverBills(Program& program, const QString& wareCode, const QString& /*warehouseCode*/,
                          const QDate& billDate, const QString& moneyName, bool auditedOnly)
{
    const Undertaking undertaking(program); // what the database did not answer is no cost
    const Recordset ware =
        OpenQuery(program, Sql("select CostStyle from TabWare where Code =") + wareCode.trimmed() + " ");
    if (ware.Text("CostStyle").trimmed() != "移动加权平均法")
        return;

    const Rewrite rewrite{wareCode.trimmed(), moneyName, auditedOnly};
    const QDate lastClose = NewestClosing(program).value_or(kNoDate);
    const std::vector<QDate> inflowDays = InflowDays(program, rewrite, lastClose, billDate);
    for (const Span& span : SpansBetween(inflowDays, lastClose, billDate)) {
        if (span.holdsNoDay())
            continue;
        const QDate costDay = inflowDays.empty() ? lastClose : span.from;
        ApplyCostToBillLines(program, rewrite, span, CostOnDay(program, rewrite, costDay));
    }
}
