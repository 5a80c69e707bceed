#include "asking/explain.h"

#include "asking/stock_bills.h"
#include "data/decimals.h"
#include "handover/open_query.h"
#include "stock/last_recorded_cost.h"
#include "stock/movements.h"
#include "stock/period_weighted_average.h"
#include "stock/unit_cost.h"

namespace {

/// Figures as the account set shows them.
struct Figures
{
    Program& program;

    QString Amount(double amount) const { return FormatByType(program, amount, "数值型"); }
    QString Money(Currency money) const { return FormatByType(program, money, "金额型"); }
    QString Price(double price) const { return FormatByType(program, price, "单价型"); }
    QString Stock(const StockSum& stock) const { return Amount(stock.amount) + "，金额 " + Money(stock.money); }
    /// (money + money) ÷ (amount + amount) = cost
    QString Division(const StockSum& before, const StockSum& inflow, double cost) const
    {
        return QString("(%1 + %2) ÷ (%3 + %4) = %5")
            .arg(Money(before.money), Money(inflow.money), Amount(before.amount), Amount(inflow.amount), Price(cost));
    }
};

/// The cost as the moving average makes it of the day that the cost was recorded on.
QStringList MovingAverageOf(Program& program, const CostQuestion& question, double cost)
{
    const Figures figures{program};
    const QDate& day = question.moment.day;
    StockQuestion stock{.wareCode = question.wareCode,
                        .asOf = {day.addDays(-1), 0},
                        .dimensions = question.dimensions,
                        .attributeExact = true,
                        .moneyName = question.moneyName,
                        .auditedOnly = question.auditedOnly};
    const TogatherData prior = ComputeStockBalance(program, stock);
    const StockSum before{prior.StockAmount, prior.StockMoney};
    const DayLimit days[] = {{"=", day}};
    const StockSum inflow = SumMovements(program, stock, MovementSet::DayInflow, days);
    return {QString("移动加权：%1 各仓库结存 %2").arg(DayText(stock.asOf.day), figures.Stock(before)),
            QString("          %1 入库     %2").arg(DayText(day), figures.Stock(inflow)),
            "          " + figures.Division(before, inflow, cost)};
}

QStringList PeriodAverageOf(Program& program, const CostQuestion& question, double cost)
{
    const Figures figures{program};
    const PeriodAverage average = PeriodWeightedAverage(program, question);
    if (average.closed)
        return {QString("加权平均：期间已结转，取 %1 结存各行单价之和 %2")
                    .arg(DayText(average.after), figures.Price(cost))};
    return {QString("加权平均：%1 结存         %2").arg(DayText(average.after), figures.Stock(average.opening)),
            QString("          其后至 %1 入库 %2").arg(DayText(question.moment.day), figures.Stock(average.inflow)),
            "          " + figures.Division(average.opening, average.inflow, cost)};
}

QString WhyUnlike(const QString& table)
{
    const QString later = "记录之后又有补录或改动";
    return table == "TabWareGroup" ? "组装单保存时合计金额只计到千分位逗号之前，或" + later : later;
}

/// How the costing method makes the cost of a day, and whether that is what was recorded.
QStringList MethodOf(Program& program, CostQuestion question, const QString& costStyle, const RecordedCost& recorded)
{
    question.moment = recorded.moment;
    question.addsValue = true;
    const double cost = GetUnitCost(program, question);
    QStringList sentences;
    if (costStyle == "个别指定法")
        sentences << "个别指定：商品资料中的单价 " + Figures{program}.Price(cost);
    else if (costStyle == "加权平均法")
        sentences = PeriodAverageOf(program, question, cost);
    else
        sentences = MovingAverageOf(program, question, cost);
    if (cost != RoundByDigits(recorded.cost, GetDigitsByType(program, "单价型")))
        sentences << "          与记录的成本不同：" + WhyUnlike(recorded.table);
    return sentences;
}

QString PlaceOf(const RecordedCost& recorded)
{
    if (recorded.table != "TabWarehouseTurn")
        return QString("%1 %2，%3").arg(BillOfTable(recorded.table), recorded.code, MomentText(recorded.moment));
    return recorded.moment.day == kNoDate ? QString("期初库存") : DayText(recorded.moment.day) + " 期末结存";
}

} // namespace

QStringList ExplainUnitCost(Program& program, const StockQuestion& question)
{
    const Recordset ware =
        OpenQuery(program, Sql("select CostStyle,AmountQueryYN from TabWare where Code=") + question.wareCode);
    const QString costStyle = ware.Text("CostStyle").trimmed();
    const CostQuestion cost{.moment = question.asOf,
                            .wareCode = question.wareCode,
                            .dimensions = question.dimensions,
                            .moneyName = question.moneyName,
                            .auditedOnly = question.auditedOnly};
    const double unitCost = GetUnitCost(program, cost);
    QStringList sentences = {"计价方法：" + (costStyle.isEmpty() ? QString("未设置，按移动加权平均法") : costStyle),
                             "单位成本：" + Figures{program}.Price(unitCost)};
    if (ware.Text("AmountQueryYN").trimmed() == "否")
        return sentences << "取自：    不核算库存的商品没有成本";
    const std::optional<RecordedCost> recorded = FindLastRecordedCost(program, cost);
    if (!recorded)
        return sentences << "取自：    该日之前没有记录过成本";
    sentences << "取自：    " + PlaceOf(*recorded);
    if (recorded->table != "TabWarehouseTurn")
        sentences << MethodOf(program, cost, costStyle, *recorded);
    return sentences;
}
