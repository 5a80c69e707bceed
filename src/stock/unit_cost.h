#pragma once

// Unit cost of a good at a moment, by its costing method. The cost belongs to the good, whatever the warehouse.

#include "data/dimensions.h"
#include "handover/program.h"

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

/// The cost that a bill stores on its line, rounded to the price places. 0 for an unknown good and for one without
/// stock accounting.
double GetUnitCost(Program& program, const CostQuestion& question);
/// The cost that is suggested, and written back by the rewrite. Never negative; 0 for an unknown good.
double GetDisplayCost(Program& program, const CostQuestion& question);
