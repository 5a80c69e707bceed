#pragma once

// Unit cost of a good at a moment, by its costing method. The cost belongs to the good, whatever the warehouse.

#include "handover/program.h"
#include "stock/cost_question.h"

/// The cost that a bill stores on its line, rounded to the price places. 0 for an unknown good and for one without
/// stock accounting.
double GetUnitCost(Program& program, const CostQuestion& question);
/// The cost that is suggested, and written back by the rewrite. Never negative; 0 for an unknown good.
double GetDisplayCost(Program& program, const CostQuestion& question);
