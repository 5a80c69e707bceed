#pragma once

// What a unit cost is asked for.

#include "base/currency.h"
#include "base/dates.h"
#include "data/dimensions.h"

struct CostQuestion
{
    Moment moment{};
    QString wareCode{};
    bool addsValue = false; // the line brings value into stock at its own money
    double lineAmount = 0;  // base units; 0 for a revaluation
    double linePrice = 0;   // where the stock after the line is nothing
    Currency lineMoney{};
    Dimensions dimensions{};
    QString moneyName{}; // a currency, kAllCurrencies or empty
    bool auditedOnly = false;
    // The two below are looked at by GetDisplayCost alone.
    bool useMoving = false;
    bool attributeExact = false;
};
