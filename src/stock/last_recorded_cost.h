#pragma once

// The newest unit cost that any bill or close has stored for a good.

#include "handover/program.h"
#include "stock/cost_question.h"

#include <optional>

/// The row that a recorded cost stands in.
struct RecordedCost
{
    double cost = 0; // unrounded
    QString table;   // line table, TabWareGroup, or TabWarehouseTurn for a close or the opening
    QString code;    // of the bill, or the warehouse's of a close
    Moment moment;
};

/// Unrounded; 0 where nothing is stored up to the day of the question.
double LastRecordedCost(Program& program, const CostQuestion& question);
/// Where that cost stands.
std::optional<RecordedCost> FindLastRecordedCost(Program& program, const CostQuestion& question);
