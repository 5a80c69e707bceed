// Questions to the stock and cost engine, and its rewrite.

#include "commands.h"

#include "asking/stock_question.h"
#include "data/decimals.h"
#include "handover/open_query.h"
#include "stock/cost_rewrite.h"
#include "stock/unit_cost.h"

int StockCommand(const QStringList& arguments)
{
    return AskForStock("stock", "Prints amount, money and unit cost of a good on stock as one JSON object.", arguments,
                       [](OpenedAccountSet&, const StockQuestion&, const TogatherData& stock) {
                           PrintJson({{"amount", stock.ShownAmount},
                                      {"money", stock.ShownMoney.text()},
                                      {"unitCost", stock.UnitCost}});
                       });
}

int CostCommand(const QStringList& arguments)
{
    const CommandLine line("cost", "Prints the unit cost of a good as one JSON object.", {"FILE"},
                           With({{"ware", "code of the good", "CODE"},
                                 {"moment", "the moment that counts; now without it", "MOMENT"},
                                 {"adds", "the line brings value into stock", ""},
                                 {"amount", "what the line adds, in base units", "NUMBER"},
                                 {"price", "the cost where the stock after the line is nothing", "NUMBER"},
                                 {"money", "the money that the line adds", "NUMBER"},
                                 {"display", "the suggested cost instead of the one that a bill stores", ""},
                                 {"moving", "with --display: the moving average also without --adds", ""}},
                                DimensionOptions()),
                           arguments);
    if (line.helpShown())
        return kDone;
    CostQuestion question;
    question.wareCode = line.Needed("ware");
    question.addsValue = line.IsSet("adds");
    question.lineAmount = line.Number("amount", 0);
    question.linePrice = line.Number("price", 0);
    question.lineMoney = Currency::FromDouble(line.Number("money", 0));
    question.dimensions = DimensionsOf(line);
    question.moneyName = line.Text("currency");
    question.useMoving = line.IsSet("moving");
    question.attributeExact = line.IsSet("exact");

    OpenedAccountSet set(line.Word(0));
    question.moment = AsOf(line, "moment", set);
    CheckGood(set.program, question.wareCode);
    question.auditedOnly = IsAuditedBillCounted(set.program);
    const double cost =
        line.IsSet("display") ? GetDisplayCost(set.program, question) : GetUnitCost(set.program, question);
    set.RefuseOnErrors();
    PrintJson({{"cost", cost}});
    return kDone;
}

int RewriteCommand(const QStringList& arguments)
{
    const CommandLine line("rewrite", "Rewrites the costs of a good on the bills behind the last close.", {"FILE"},
                           {{"ware", "code of the good", "CODE"},
                            {"warehouse", "code of the warehouse", "CODE"},
                            {"date", "the day up to which costs are rewritten", "DATE"},
                            {"currency", "only bills in this currency", "NAME"}},
                           arguments);
    if (line.helpShown())
        return kDone;
    const QString wareCode = line.Needed("ware");
    const QString warehouse = line.Needed("warehouse");
    line.Needed("date");
    const QDate day = line.MomentAt("date", {}).day;

    OpenedAccountSet set(line.Word(0));
    CheckGood(set.program, wareCode);
    const bool auditedOnly = IsAuditedBillCounted(set.program);
    SaveUnit unit(set.program);
    set.RefuseOnErrors();
    RewriteCostOverBills(set.program, wareCode, warehouse, day, line.Text("currency"), auditedOnly);
    unit.Commit();
    set.RefuseOnErrors();
    return kDone;
}
