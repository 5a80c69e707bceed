#pragma once

// The bills of all programs of the suite that stock and cost know of, with their tables.

#include "database/sql.h"

#include <QString>
#include <vector>

struct BillTables
{
    QString bill; // 采购入库单
    QString headTable;
    Name head;
    Name line;
};

const std::vector<BillTables>& StockBills();
/// Name of the bill that a head table or its line table belongs to; empty for another table.
QString BillOfTable(const QString& table);
