#include "asking/stock_question.h"

#include "data/decimals.h"
#include "handover/open_query.h"

const Options& DimensionOptions()
{
    static const Options options = {
        {"currency", "a currency, or 综合本位币 for all at their rates", "NAME"},
        {"attribute", "attribute code; its children count as well", "CODE"},
        {"exact", "only the attribute itself", ""},
        {"spec", "specification", "TEXT"},
        {"manufacturer", "manufacturer", "TEXT"},
        {"brand", "brand", "TEXT"},
        {"batch", "batch number", "TEXT"},
    };
    return options;
}

Options With(Options options, const Options& more)
{
    options.insert(options.end(), more.begin(), more.end());
    return options;
}

Dimensions DimensionsOf(const CommandLine& line)
{
    return {line.Text("attribute"), line.Text("spec"), line.Text("manufacturer"), line.Text("brand"),
            line.Text("batch")};
}

Moment AsOf(const CommandLine& line, const char* option, const OpenedAccountSet& set)
{
    const QDate today = *ParseDay(set.program.parameters.OperateDate);
    return line.MomentAt(option, Moment{today, kMillisecondsPerDay - 1000});
}

void CheckGood(Program& program, const QString& wareCode)
{
    const Recordset found = OpenQuery(program, Sql("select Code from TabWare where Code=") + wareCode);
    if (found && found.isEmpty())
        throw Refusal{QString("there is no good \"%1\"").arg(wareCode)};
}

int AskForStock(const QString& command, const QString& help, const QStringList& arguments, const StockAnswer& answer)
{
    const CommandLine line(command, help, {"FILE"},
                           With({{"ware", "code of the good", "CODE"},
                                 {"warehouse", "code of one warehouse; all without it", "CODE"},
                                 {"date", "the last day that counts; today without it", "DATE"}},
                                DimensionOptions()),
                           arguments);
    if (line.helpShown())
        return kDone;
    StockQuestion question{.warehouse = line.Text("warehouse"),
                           .wareCode = line.Needed("ware"),
                           .dimensions = DimensionsOf(line),
                           .attributeExact = line.IsSet("exact"),
                           .moneyName = line.Text("currency")};
    OpenedAccountSet set(line.Word(0));
    question.asOf = AsOf(line, "date", set);
    CheckGood(set.program, question.wareCode);
    question.auditedOnly = IsAuditedBillCounted(set.program);
    const TogatherData stock = GetStockBalance(set.program, question);
    set.RefuseOnErrors();
    answer(set, question, stock);
    set.RefuseOnErrors();
    return kDone;
}
