#pragma once

// The fifteen sources of stock movements: which rows of which bills move a good, with which sign and at what money.
// The balance sums all of them, the moving average the inflow of one day.

#include "handover/program.h"
#include "stock/stock_question.h"

#include <span>

enum class MovementSet
{
    All,
    DayInflow, // what brings value into stock
};

/// One limit on the day of a line: "Datee", the comparison and the day or moment.
struct DayLimit
{
    const char* comparison;
    Value limit;
};

/// Amount and money that the movements within the day limits add to stock; no rows add nothing. The day of the
/// question takes no part.
StockSum SumMovements(Program& program, const StockQuestion& question, MovementSet set, std::span<const DayLimit> days);

/// The lines that the sum of all movements adds up, by good and day and on a day by their moments. Columns HeadTable
/// (of its bill), BillCode, Num (0 where the head moves the good), Datee, DateTimee, WareCode, WarehouseCode, and
/// Amount and Cost with the sign that they move stock with; Cost is the money, unrounded.
/// @param wareCondition  of which goods: WareCondition, or one of the caller's on TabWare
Recordset ListMovements(Program& program, const StockQuestion& question, const Sql& wareCondition,
                        std::span<const DayLimit> days);

/// Condition on the good, and on the warehouse where one is asked for.
Sql WareCondition(const StockQuestion& question);
/// Condition on dimensions, audit mark and currency for the table that carries them.
Sql DimensionCondition(const StockQuestion& question, const char* table);
/// Adds the sum of a money column, at the rates of its rows where all currencies are asked for.
void AppendMoneySum(Sql& sql, const char* sign, const char* table, const char* column, const QString& moneyName);
