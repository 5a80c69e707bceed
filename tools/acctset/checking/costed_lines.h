#pragma once

// Goods with all that their unit costs come from: the lines that store a cost, those that record a new one and those
// that take the newest one; what moves their stock; and what the closes know of them.

#include "checking/goods_portion.h"

#include <span>

struct CostedLine
{
    QString table;
    QString code;
    int num = 0; // 0 for a head
    QDate day;
    std::optional<Moment> ownMoment;
    Variant variant;
    QString auditing;
    bool records = false; // brings value in, and records a new cost while it is in force
    bool inForce = false;
    double cost = 0;
    double otherCost = 0; // the second column of the cost, where a line has two
    double amount = 0;    // of a line that records: what it brings in
    Currency money;

    Moment moment() const { return ownMoment.value_or(Moment{day}); }
};

/// A movement of stock by one of the good's lines.
struct StockMove
{
    const MovementRow* row = nullptr;
    const CostedLine* line = nullptr;
};

struct CostedGood
{
    QString code;
    QString costStyle;
    double fixedCost = 0;
    std::vector<CostedLine> lines{}; // in the order of their moments
    std::vector<StockMove> moves{};  // in the order of their days
    std::span<const SnapshotRow> snapshots{};
    /// False where rows contradict each other, so that only the database can tell what a question finds.
    bool isClear = true;
};

/// The goods of a range that have lines. They point into the rows of their stock.
std::vector<CostedGood> CostedGoods(Program& program, const GoodsRange& range, const StockRows& stock);
