// acctset explain: a figure of the stock engine, followed line by line.

#include "asking/explain.h"

#include "asking/stock_question.h"
#include "asking/text_table.h"
#include "data/decimals.h"
#include "handover/open_query.h"

#include <map>

namespace {

using enum TextTable::Align;

std::map<QString, QString> WarehouseNames(Program& program)
{
    const Recordset rows = OpenQuery(program, Sql("select Code,Name from TabWarehouseType"));
    std::map<QString, QString> names;
    for (int row = 0; row < rows.size(); ++row)
        names[rows.Text("Code", row)] = rows.Text("Name", row);
    return names;
}

/// What is asked for, in one line.
QString Subject(Program& program, const StockQuestion& question, std::map<QString, QString>& warehouses)
{
    const Recordset ware =
        OpenQuery(program, Sql("select Code,Name,Spec,Unite from TabWare where Code=") + question.wareCode);
    QStringList parts = {QString("商品 %1 %2").arg(ware.Text("Code"), ware.Text("Name"))};
    const Dimensions& dimensions = question.dimensions;
    const std::pair<const char*, QString> named[] = {
        {"规格", ware.Text("Spec")},
        {"单位", ware.Text("Unite")},
        {"仓库", (question.warehouse + ' ' + warehouses[question.warehouse]).trimmed()},
        {"币种", question.moneyName},
        {"属性", dimensions.AttributeCode},
        {"限规格", dimensions.WareSpec},
        {"生产厂商", dimensions.Manufacturer},
        {"品牌", dimensions.Brand},
        {"批号", dimensions.PCode},
        {"截至", DayText(question.asOf.day)},
    };
    for (const auto& [caption, text] : named) {
        if (!text.isEmpty())
            parts << QString("%1 %2").arg(caption, text);
    }
    return parts.join("  ");
}

QString OpeningWord(const StockOpening& opening)
{
    return opening.closing ? "期末结存" : "期初库存";
}

/// In and out stand apart; a revaluation is neither.
QString Positive(Program& program, double amount)
{
    return amount > 0 ? FormatByType(program, amount, "数值型") : QString();
}

TextTable TableOf(Program& program, const StockAccount& account, std::map<QString, QString>& warehouses)
{
    TextTable table({{"日期"},
                     {"时间"},
                     {"单据"},
                     {"编号"},
                     {"仓库"},
                     {"入库数量", Right},
                     {"出库数量", Right},
                     {"金额", Right},
                     {"结存数量", Right},
                     {"结存金额", Right}});
    const StockSum& opening = account.opening.stock;
    table.AddRow({account.opening.closing ? DayText(*account.opening.closing) : QString(), "",
                  OpeningWord(account.opening), "", "", "", "", "", FormatByType(program, opening.amount, "数值型"),
                  FormatByType(program, opening.money, "金额型")});
    for (const ExplainedLine& line : account.lines)
        table.AddRow({DayText(line.day), MomentText(line.moment).section(' ', 1), line.bill, line.code,
                      warehouses[line.warehouse], Positive(program, line.amount), Positive(program, -line.amount),
                      FormatByType(program, line.money, "金额型"), FormatByType(program, line.totalAmount, "数值型"),
                      FormatByType(program, line.totalMoney, "金额型")});
    return table;
}

/// The lines must end where the engine does; otherwise they explain nothing.
void RefuseOtherFigure(const StockAccount& account, const TogatherData& stock)
{
    if (account.amount != stock.ShownAmount || account.money != stock.ShownMoney)
        throw Refusal{QString("the lines add up to %1 and %2, the engine says %3 and %4")
                          .arg(NumberText(account.amount), account.money.text(), NumberText(stock.ShownAmount),
                               stock.ShownMoney.text())};
}

void PrintExplanation(Program& program, const StockQuestion& question, const TogatherData& stock,
                      const StockAccount& account)
{
    std::map<QString, QString> warehouses = WarehouseNames(program);
    PrintLine(Subject(program, question, warehouses));
    PrintLine("");
    for (const QString& line : TableOf(program, account, warehouses).Lines())
        PrintLine(line);
    PrintLine("");
    PrintLine(QString("库存：    %1，金额 %2，单价 %3")
                  .arg(FormatByType(program, stock.ShownAmount, "数值型"),
                       FormatByType(program, stock.ShownMoney, "金额型"),
                       FormatByType(program, stock.UnitCost, "单价型")));
    for (const QString& sentence : ExplainUnitCost(program, question))
        PrintLine(sentence);
}

} // namespace

int ExplainCommand(const QStringList& arguments)
{
    return AskForStock("explain",
                       "Tells how stock and unit cost of a good came about: the last close or the opening, every line "
                       "since with its running totals, and where the unit cost stands and what made it.",
                       arguments, [](OpenedAccountSet& set, const StockQuestion& question, const TogatherData& stock) {
                           const StockAccount account = ExplainStock(set.program, question);
                           set.RefuseOnErrors();
                           RefuseOtherFigure(account, stock);
                           PrintExplanation(set.program, question, stock, account);
                       });
}
