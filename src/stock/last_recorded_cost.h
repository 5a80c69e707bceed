#pragma once

// The newest unit cost that any bill or close has stored for a good.

#include "stock/unit_cost.h"

/// Unrounded; 0 where nothing is stored up to the day of the question.
double LastRecordedCost(Program& program, const CostQuestion& question);
