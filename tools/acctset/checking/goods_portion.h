#pragma once

// Goods in portions: one statement answers for some hundreds of them, and their rows fit into memory.

#include "checking/row_reader.h"
#include "data/dimensions.h"
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

/// What rows of one good are told apart by.
struct Variant
{
    Dimensions dimensions;
    QString moneyName;
};

struct MovementRow
{
    QString wareCode;
    QString warehouse;
    QString headTable;
    QString code; // of the bill
    int num = 0;  // 0 where the head moves the good
    std::optional<QDate> day;
    double amount = 0; // with the sign that it moves stock with
    double money = 0;
};

/// A row of the opening or of a close.
struct SnapshotRow
{
    QString wareCode;
    QString warehouse;
    bool inPlace = false; // in a warehouse that there is
    bool opening = false; // of the books
    QDate day;
    double amount = 0;
    double money = 0;
    double unitCost = 0;
    Variant variant;
};

/// What the stock of a portion is made of.
struct StockRows
{
    std::vector<MovementRow> movements; // by good and day
    std::vector<SnapshotRow> snapshots; // likewise
};

/// The next six columns: the dimensions, then the currency.
Variant VariantOf(RowReader& reader);
StockRows ReadStockRows(Program& program, const GoodsRange& range, bool auditedOnly);
