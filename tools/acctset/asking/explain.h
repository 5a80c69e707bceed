#pragma once

// How a figure of the stock engine came about, so that a bookkeeper can follow it: where the balance starts from, the
// lines one by one, and the rule that gave the unit cost.

#include "stock/balance.h"

#include <vector>

struct ExplainedLine
{
    Moment moment;
    QDate day;
    QString bill;
    QString code;
    QString warehouse;
    double amount = 0; // with the sign that it moves stock with
    double money = 0;
    double totalAmount = 0; // after the line, at the account set's places
    Currency totalMoney;
};

struct StockAccount
{
    StockOpening opening;
    std::vector<ExplainedLine> lines; // in the order of their moments
    double amount = 0;                // what the last line leaves; the opening without lines
    Currency money;
};

StockAccount ExplainStock(Program& program, const StockQuestion& question);
/// The unit cost that a bill of that day takes for the good, as sentences: the cost, where it stands, and how the
/// costing method makes it.
QStringList ExplainUnitCost(Program& program, const StockQuestion& question);
