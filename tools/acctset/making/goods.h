#pragma once

// Goods of a wholesaler for stationery, tools, household and food: names, specifications, units, mnemonics and
// barcodes that look like real ones, in a class tree of three levels.

#include "making/catalogue.h"

#include <vector>

struct Good
{
    QString code;
    QString name;
    QString spec;
    QString unit;
    QString secondUnit;
    double relation = 0; // second units in one unit
    QString mnemonic;
    QString barcode;
    QString classCode;
    QString manufacturer;
    QString brand;
    CostMethod method = CostMethod::Moving;
    Trait trait = Trait::Plain;
    double cost = 0; // what a supplier asks for one unit
    QString moneyName = "人民币";
    double moneyRate = 1;
};

/// One stock of a good: the good itself, or one of its attributes or batches.
struct StockLot
{
    const Good* good = nullptr;
    int item = -1; // in the cost walk
    QString attributeCode = {};
    QString attributeName = {};
    QString batch = {};
    QString madeOn = {};
    QString bestBefore = {};
};

/// The goods as they stand in the catalogue, some 300.
std::vector<Good> CatalogueGoods();
/// Any number of goods, the catalogue's families in ever new brands and models.
std::vector<Good> ManyGoods(int count);

/// Parent in a tree whose codes grow by two digits a level; "0" at the top.
QString ParentOf(const QString& code);
/// Thirteen digits, the last one their check digit.
QString BarcodeOf(qint64 twelveDigits);
QString AttributeRoot(Trait trait);
