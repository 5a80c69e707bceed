#pragma once

// The checks of goods, which go portion by portion over the same rows.

#include "checking/check.h"
#include "checking/goods_portion.h"

/// What the account set says once for all goods.
struct GoodsRules
{
    bool auditedOnly = false;
    bool byCurrency = false;   // each line's cost is that of its own currency
    std::vector<QDate> closes; // in their order
    int amountDigits = 0;
    int moneyDigits = 0;
    int priceDigits = 0;

    QDate lastClose() const { return closes.empty() ? kNoDate : closes.back(); }
};

void CheckStock(const GoodsRules& rules, const StockRows& rows, const Report& report);
void CheckCosts(Program& program, const GoodsRules& rules, const GoodsRange& range, const StockRows& rows,
                const Report& report);
