#include "asking/explain.h"

#include "asking/running_totals.h"
#include "asking/stock_bills.h"
#include "stock/movements.h"

namespace {

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
    RunningTotals totals(account.opening.stock, GetDigitsByType(program, "数值型"), GetDigitsByType(program, "金额型"));
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
