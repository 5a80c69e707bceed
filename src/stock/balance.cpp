#include "stock/balance.h"

#include "data/decimals.h"
#include "handover/open_query.h"
#include "stock/closing.h"
#include "stock/movements.h"

namespace {

/// The snapshot of a close, or the opening of the books without one.
StockSum OpeningStock(Program& program, const StockQuestion& question, const std::optional<QDate>& closing)
{
    Sql sql("select  sum(TabWarehouseTurn.Amount) as  Amountt ,  ");
    AppendMoneySum(sql, "", "TabWarehouseTurn", "Cost", question.moneyName);
    sql += " as Costt from TabWarehouseTurn,TabWarehouseType,TabWare   where TabWarehouseTurn.WareCode<>'' "
           "  and TabWarehouseType.Code=TabWarehouseTurn.WarehouseCode  and TabWare.Code=TabWarehouseTurn.WareCode ";
    if (!closing)
        sql += " and TabWarehouseTurn.Num=1 ";
    sql += WareCondition(question);
    if (closing)
        sql += Sql(" and TabWarehouseTurn.Datee=") + *closing + " ";
    sql += DimensionCondition(question, "TabWarehouseTurn");
    const Recordset opening = OpenQuery(program, sql);
    return {opening.Number("Amountt"), opening.Money("Costt")};
}

StockSum MovementsSince(Program& program, const StockQuestion& question, const QDate& fromDate)
{
    // On the day of the close itself the range is empty: the snapshot holds all of that day.
    const bool isClosingDay = fromDate == question.asOf.day;
    const Value toDate = question.includeTime ? Value(question.asOf) : Value(question.asOf.day);
    const DayLimit days[] = {{">", fromDate}, {isClosingDay ? "<" : "<=", toDate}};
    return SumMovements(program, question, MovementSet::All, days);
}

} // namespace

StockOpening OpeningOf(Program& program, const StockQuestion& question)
{
    // No snapshot serves a question by dimension: it walks all bills from the opening of the books.
    const std::optional<QDate> closing =
        question.dimensions.any() ? std::nullopt : LastClosing(program, question.asOf.day);
    return {closing, closing.value_or(kNoDate), OpeningStock(program, question, closing)};
}

TogatherData ComputeStockBalance(Program& program, const StockQuestion& question)
{
    const auto [closing, from, opening] = OpeningOf(program, question);
    const StockSum bills = MovementsSince(program, question, from);

    TogatherData result;
    result.StockAmount = RoundByDigits(bills.amount + opening.amount, GetDigitsByType(program, "数值型"));
    result.LastStockCost = RoundByDigits((bills.money + opening.money).toDouble(), GetDigitsByType(program, "金额型"));
    result.StockMoney = Currency::FromDouble(result.LastStockCost);
    if (result.StockAmount != 0)
        result.UnitCost = RoundByDigits(result.LastStockCost / result.StockAmount, GetDigitsByType(program, "单价型"));
    return result;
}

TogatherData GetStockBalance(Program& program, const StockQuestion& question)
{
    StockQuestion wholeDay = question;
    wholeDay.includeTime = false;
    TogatherData result = ComputeStockBalance(program, wholeDay);
    // The worker's figures have the account set's places already.
    result.ShownAmount = result.StockAmount;
    result.ShownMoney = result.StockMoney;
    return result;
}
