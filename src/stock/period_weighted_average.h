#pragma once

// The average cost of a good over one period, from the last close on.

#include "handover/program.h"
#include "stock/cost_question.h"
#include "stock/stock_question.h"

/// The average with what it was made of.
struct PeriodAverage
{
    QDate after;         // the close before the period
    bool closed = false; // the cost is what the snapshot of that close holds
    StockSum opening;    // of an open period
    StockSum inflow;
    double cost = 0; // unrounded, since the caller rounds every method alike; never negative in an open period
};

/// 0 where there is neither stock nor inflow.
PeriodAverage PeriodWeightedAverage(Program& program, const CostQuestion& question);
