#pragma once

// The lines that store a unit cost of a good, as they are compared with the engine: those that record a new cost and
// those that take the newest one.

#include "check_goods.h"
#include "data/dimensions.h"
#include "database/recordset.h"

struct CostedLine
{
    QString table;
    QString code;
    int num = 0; // 0 for a head
    QDate day;
    Moment moment;
    Dimensions dimensions;
    QString auditing;
    QString moneyName;
    bool records = false; // brings value in and records a new cost
    double cost = 0;
    double otherCost = 0; // the second column of the cost, where a line has two
    double amount = 0;    // of a line that records: what it brings in
    Currency money;
};

struct CostedGood
{
    QString code;
    QString costStyle;
    std::vector<CostedLine> lines; // in the order of their moments
};

/// The goods of a range with their lines in force behind a day; goods without such lines are left out.
std::vector<CostedGood> CostedGoods(Program& program, const GoodsRange& range, const QDate& after);
