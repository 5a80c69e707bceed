#include "explain.h"

#include "data/decimals.h"
#include "stock/movements.h"
#include "stock_bills.h"

namespace {

/// Sums as the engine sums: what is added up is rounded as a whole, not line by line.
class RunningTotals
{
public:
    RunningTotals(Program& program, const StockSum& opening)
        : m_opening(opening),
          m_amountDigits(GetDigitsByType(program, "数值型")),
          m_moneyDigits(GetDigitsByType(program, "金额型"))
    {}

    void Add(double amount, double money)
    {
        m_amount += amount;
        m_money += money;
    }
    double amount() const { return RoundByDigits(double(m_amount) + m_opening.amount, m_amountDigits); }
    Currency money() const
    {
        const Currency exact = Currency::FromDouble(double(m_money)) + m_opening.money;
        return Currency::FromDouble(RoundByDigits(exact.toDouble(), m_moneyDigits));
    }

private:
    StockSum m_opening;
    int m_amountDigits;
    int m_moneyDigits;
    // A longer mantissa than a line has: thousands of lines leave no trace in the last place.
    long double m_amount = 0;
    long double m_money = 0;
};

ExplainedLine LineOf(const Recordset& rows, int row)
{
    ExplainedLine line;
    line.day = rows.Day("Datee", row).value_or(kNoDate);
    line.moment = rows.MomentAt("DateTimee", row).value_or(Moment{line.day});
    line.bill = BillOfTable(rows.Text("HeadTable", row));
    line.code = rows.Text("BillCode", row);
    line.warehouse = rows.Text("WarehouseCode", row);
    line.amount = rows.Number("Amount", row);
    line.money = rows.Number("Cost", row);
    return line;
}

Recordset LinesSince(Program& program, const StockQuestion& question, const QDate& from)
{
    // The snapshot of a close holds all of its day.
    if (from == question.asOf.day)
        return {};
    const DayLimit days[] = {{">", from}, {"<=", question.asOf.day}};
    return ListMovements(program, question, WareCondition(question), days);
}

} // namespace

StockAccount ExplainStock(Program& program, const StockQuestion& question)
{
    StockAccount account;
    account.opening = OpeningOf(program, question);
    RunningTotals totals(program, account.opening.stock);
    const Recordset rows = LinesSince(program, question, account.opening.from);
    for (int row = 0; row < rows.size(); ++row) {
        ExplainedLine line = LineOf(rows, row);
        totals.Add(line.amount, line.money);
        line.totalAmount = totals.amount();
        line.totalMoney = totals.money();
        account.lines.push_back(line);
    }
    account.amount = totals.amount();
    account.money = totals.money();
    return account;
}
