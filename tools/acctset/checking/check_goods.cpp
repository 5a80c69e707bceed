#include "checking/check_goods.h"

#include "data/decimals.h"
#include "handover/open_query.h"

#include <cstdio>
#include <unistd.h>

namespace {

std::vector<QDate> Closes(Program& program)
{
    const Recordset rows = OpenQuery(program, Sql("select distinct Datee from TabTurn order by Datee"));
    std::vector<QDate> closes;
    closes.reserve(static_cast<size_t>(rows.size()));
    for (int row = 0; row < rows.size(); ++row)
        closes.push_back(rows.Day("Datee", row).value_or(kNoDate));
    return closes;
}

/// Where somebody watches: one line that the next one, or a finding, writes over.
void TellProgress(int done, qsizetype portions)
{
    if (isatty(STDERR_FILENO) == 0)
        return;
    if (done == portions)
        std::fprintf(stderr, "%40s\r", "");
    else
        std::fprintf(stderr, "%d of %d portions of goods\r", done, int(portions));
}

} // namespace

void CheckGoods(Program& program, bool byCurrency, const Report& report)
{
    const GoodsRules rules{.auditedOnly = IsAuditedBillCounted(program),
                           .byCurrency = byCurrency,
                           .closes = Closes(program),
                           .amountDigits = GetDigitsByType(program, "数值型"),
                           .moneyDigits = GetDigitsByType(program, "金额型"),
                           .priceDigits = GetDigitsByType(program, "单价型")};
    std::vector<Finding> costs;
    const Report keep = [&](const Finding& finding) { costs.push_back(finding); };
    const std::vector<GoodsRange> ranges = GoodsInPortions(program);
    int done = 0;
    for (const GoodsRange& range : ranges) {
        const StockRows rows = ReadStockRows(program, range, rules.auditedOnly);
        CheckStock(rules, rows, report);
        CheckCosts(program, rules, range, rows, keep);
        TellProgress(++done, std::ssize(ranges));
    }
    std::ranges::for_each(costs, report);
}
