#include "stock/unit_cost.h"

#include "data/decimals.h"
#include "handover/open_query.h"
#include "stock/balance.h"
#include "stock/last_recorded_cost.h"
#include "stock/movements.h"
#include "stock/period_weighted_average.h"

namespace {

double FixedCost(Program& program, const QString& wareCode)
{
    const Sql sql = Sql("select AveragePrice from TabWare where Code=") + wareCode.trimmed() + " ";
    return OpenQuery(program, sql).Number("AveragePrice");
}

/// What came in at a value on the day of the question.
StockSum GetDayInflow(Program& program, const StockQuestion& question)
{
    const DayLimit days[] = {{"=", question.asOf.day}};
    return SumMovements(program, question, MovementSet::DayInflow, days);
}

/// The average of the stock of the evening before, the inflow of the day and the line itself.
double MovingAverage(Program& program, const CostQuestion& question)
{
    if (!question.addsValue && (!question.useMoving || !question.attributeExact))
        return LastRecordedCost(program, question);

    StockQuestion stock{.wareCode = question.wareCode,
                        .asOf = {question.moment.day.addDays(-1), question.moment.millisecondOfDay},
                        .dimensions = question.dimensions,
                        .attributeExact = question.attributeExact,
                        .moneyName = question.moneyName,
                        .auditedOnly = question.auditedOnly};
    const TogatherData prior = ComputeStockBalance(program, stock);
    stock.asOf = question.moment;
    const StockSum inflow = GetDayInflow(program, stock);

    const double total = inflow.amount + prior.StockAmount + question.lineAmount;
    if (total == 0)
        return question.linePrice;
    return (prior.StockMoney + inflow.money + question.lineMoney).toDouble() / total;
}

double RoundPrice(Program& program, double price)
{
    return RoundByDigits(price, GetDigitsByType(program, "单价型"));
}

/// The cost that a line of this costing method stores.
double LineCost(Program& program, const CostQuestion& question, const QString& costStyle)
{
    if (!question.addsValue)
        return LastRecordedCost(program, question);
    if (costStyle == "个别指定法")
        return FixedCost(program, question.wareCode);
    if (costStyle == "加权平均法")
        return PeriodWeightedAverage(program, question).cost;
    CostQuestion exact = question;
    exact.attributeExact = true;
    return MovingAverage(program, exact);
}

/// The suggested cost. A word that is no method falls back on the period here, and on the moving average when stored.
double SuggestedCost(Program& program, const CostQuestion& question, const QString& costStyle)
{
    if (costStyle == "移动加权平均法")
        return MovingAverage(program, question);
    if (costStyle == "个别指定法")
        return FixedCost(program, question.wareCode);
    return PeriodWeightedAverage(program, question).cost;
}

} // namespace

double GetUnitCost(Program& program, const CostQuestion& question)
{
    const Recordset ware =
        OpenQuery(program, Sql("select CostStyle,AmountQueryYN from TabWare where Code=") + question.wareCode);
    if (ware.isEmpty() || ware.Text("AmountQueryYN").trimmed() == "否")
        return 0;
    return RoundPrice(program, LineCost(program, question, ware.Text("CostStyle").trimmed()));
}

double GetDisplayCost(Program& program, const CostQuestion& question)
{
    const Recordset ware =
        OpenQuery(program, Sql("select CostStyle,AmountQueryYN from TabWare where Code=") + question.wareCode);
    if (ware.isEmpty())
        return 0;
    const double cost = SuggestedCost(program, question, ware.Text("CostStyle").trimmed());
    return cost < 0 ? 0 : RoundPrice(program, cost);
}
