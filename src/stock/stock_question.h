#pragma once

// What stock is asked for, and what is summed to answer it.

#include "base/currency.h"
#include "base/dates.h"
#include "data/dimensions.h"

struct StockQuestion
{
    QString warehouse{}; // code of one warehouse, empty for all
    QString wareCode{};
    Moment asOf{};            // lines up to and including this day, or this moment with includeTime
    bool includeTime = false; // only ComputeStockBalance looks at it
    Dimensions dimensions{};
    bool attributeExact = false; // false: child attributes count as well
    QString moneyName{};         // a currency, kAllCurrencies or empty
    bool auditedOnly = false;    // only audited bills count
};

struct StockSum
{
    double amount = 0;
    Currency money;
};
