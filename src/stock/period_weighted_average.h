#pragma once

// The average cost of a good over one period, from the last close on.

#include "stock/unit_cost.h"

/// Unrounded, since the caller rounds every method alike. Of a period that is closed, what its snapshot holds; of an
/// open one never negative. 0 where there is neither stock nor inflow.
double PeriodWeightedAverage(Program& program, const CostQuestion& question);
