#pragma once

// Goods in portions: one statement answers for some hundreds of them, and their lines fit into memory.

#include "database/sql.h"
#include "handover/program.h"

#include <vector>

/// Goods from one code to another, in the order of the database.
struct GoodsRange
{
    QString first;
    QString last;
};

/// All goods that stock is kept of.
std::vector<GoodsRange> GoodsInPortions(Program& program);
/// Condition on TabWare.
Sql WithinRange(const GoodsRange& range);
