#include "stock/period_weighted_average.h"

#include "handover/open_query.h"
#include "stock/closing.h"
#include "stock/movements.h"
#include "stock/statement.h"

#include <cmath>

namespace {

/// One kind of inflow. The head limits it to the period; the line is null where the head itself carries the good.
struct PeriodSource
{
    const char* head;
    const char* line;
    const char* sign; // null: value without an amount
    const char* money;
    bool byKindOfEntry = false; // only the kinds that take part in costing
};

constexpr PeriodSource kPeriodSources[] = {
    {"TabInBill", "TabInBillInf", "", "Moneyy_Discount"},
    {"TabElseInBill", "TabElseInBillInf", "", "Moneyy_Discount", true},
    {"TabInCancleBill", "TabInCancleBillInf", "-", "Moneyy_Discount"},
    {"TabChangePrice", "TabChangePriceInf", nullptr, "Moneyy"},
    {"TabWareGroup", nullptr, "", "SumMoney"},
    {"TabWarePiece", "TabWarePieceInf", "", "Moneyy"},
};

struct Period
{
    QDate after; // the close before it
    QDate until;
};

/// No dimensions: the average is the good's own.
Sql Filter(const CostQuestion& question, const char* table)
{
    return BuildDimensionFilter(table, {}, false, question.auditedOnly, question.moneyName);
}

void AppendHeadInPeriod(Sql& sql, const char* head, const Period& period)
{
    Append(sql, " where ", head, ".Datee>", period.after, " and  ", head, ".Datee<=", period.until, "  and ", head,
           ".State<>'作废'");
}

/// The line table, joined to the heads of the period.
void AppendLinesInPeriod(Sql& sql, const PeriodSource& source, const Period& period)
{
    Append(sql, source.line, " , (select ", source.head, ".Code as Code");
    if (source.byKindOfEntry)
        Append(sql, ",", source.head, ".InType as InType");
    Append(sql, " from ", source.head);
    AppendHeadInPeriod(sql, source.head, period);
    sql += ") tmpTab ";
    if (source.byKindOfEntry)
        sql += ", TabOutInType ";
    Append(sql, " where ", source.line, ".BillCode=tmpTab.Code ");
    if (source.byKindOfEntry)
        sql += " and TabOutInType.CalCostYN='是'  and TabOutInType.Name=tmpTab.InType ";
}

void AppendPeriodSource(Sql& sql, const PeriodSource& source, const CostQuestion& question, const Period& period)
{
    const char* const table = source.line ? source.line : source.head;
    sql += "select ";
    if (source.sign)
        Append(sql, "sum(", source.sign, table, ".UnionAmount) as Amountt ,  ");
    else
        sql += "0 as Amountt ,  ";
    AppendMoneySum(sql, source.sign ? source.sign : "", table, source.money, question.moneyName);
    sql += " as Moneyyy  from ";
    if (source.line) {
        AppendLinesInPeriod(sql, source, period);
    } else {
        sql += source.head;
        AppendHeadInPeriod(sql, source.head, period);
    }
    Append(sql, "  and  ", table, ".WareCode=", question.wareCode, " ", Filter(question, table));
}

StockSum PeriodInflow(Program& program, const CostQuestion& question, const Period& period)
{
    Sql sql(" select sum(Amountt) as Amountt ,  Sum(Moneyyy) as Moneyyy  from ( ");
    AppendUnion(sql, kPeriodSources,
                [&](const PeriodSource& source) { AppendPeriodSource(sql, source, question, period); });
    sql += " ) tmpUnionTab ";
    const Recordset inflow = OpenQuery(program, sql);
    return {inflow.Number("Amountt"), inflow.Money("Moneyyy")};
}

/// The rows of one close's snapshot, whatever their warehouse.
void AppendSnapshotRows(Sql& sql, const CostQuestion& question, const QDate& closing)
{
    Append(sql, " from TabWarehouseTurn   where  WareCode=", question.wareCode, "  and Datee=", closing, " ",
           Filter(question, "TabWarehouseTurn"));
}

/// The prices of all rows added up: of one row a price, of several warehouses their sum.
double SnapshotPrice(Program& program, const CostQuestion& question, const QDate& closing)
{
    Sql sql("select   ");
    AppendMoneySum(sql, "", "TabWarehouseTurn", "AveragePrice", question.moneyName);
    sql += " as AveragePrice  ";
    AppendSnapshotRows(sql, question, closing);
    return OpenQuery(program, sql).Number("AveragePrice");
}

StockSum SnapshotStock(Program& program, const CostQuestion& question, const QDate& closing)
{
    Sql sql("select  sum(TabWarehouseTurn.Amount) as Amountt  ,");
    AppendMoneySum(sql, "", "TabWarehouseTurn", "Cost", question.moneyName);
    sql += " as Costt ";
    AppendSnapshotRows(sql, question, closing);
    const Recordset snapshot = OpenQuery(program, sql);
    return {snapshot.Number("Amountt"), snapshot.Money("Costt")};
}

} // namespace

PeriodAverage PeriodWeightedAverage(Program& program, const CostQuestion& question)
{
    const QDate& day = question.moment.day;
    const std::optional<QDate> newest = NewestClosing(program);
    PeriodAverage average;
    average.after = LastClosing(program, day).value_or(kNoDate);
    average.closed = newest && *newest >= day;
    if (average.closed) {
        average.cost = SnapshotPrice(program, question, average.after);
        return average;
    }
    average.opening = SnapshotStock(program, question, average.after);
    average.inflow = PeriodInflow(program, question, {average.after, day});
    // The siblings carry the inflow in single precision; the stored costs must agree with theirs.
    const double amount = static_cast<float>(average.inflow.amount) + average.opening.amount;
    // A stock that went negative must not give a negative price.
    if (amount != 0)
        average.cost = std::abs((average.opening.money + average.inflow.money).toDouble() / amount);
    return average;
}
