#pragma once

// Stock on hand, computed on demand from one opening point and every bill line after it.

#include "handover/program.h"
#include "stock/stock_question.h"

#include <optional>

/// What the engine answers. Amounts are in base units, money in the asked currency, all rounded to the account set's
/// places.
struct TogatherData
{
    double UnitCost = 0;      // money by amount, 0 where the amount is 0
    double ShownAmount = 0;   // GetStockBalance
    Currency ShownMoney;      // GetStockBalance
    double StockAmount = 0;   // ComputeStockBalance
    Currency StockMoney;      // ComputeStockBalance
    double LastStockCost = 0; // StockMoney before it became money
};

/// What a balance starts from. Movements count from the day after `from` on.
struct StockOpening
{
    std::optional<QDate> closing; // whose snapshot it is; unset for the opening of the books
    QDate from;
    StockSum stock; // unrounded
};

/// Stock of one good up to and including a day.
TogatherData GetStockBalance(Program& program, const StockQuestion& question);
/// Its worker, which the moving average asks for the evening before.
TogatherData ComputeStockBalance(Program& program, const StockQuestion& question);
/// Where that question begins.
StockOpening OpeningOf(Program& program, const StockQuestion& question);
