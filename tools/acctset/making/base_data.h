#pragma once

// Master data and settings of made-up account sets.

#include "making/trade.h"

struct Partner
{
    QString code;
    QString name;
    double discount = 1;
};

/// What no account set works without: decimal places, switches, the base currency and the name of the company.
void WriteSettings(NewAccountSet& accountSet, const QString& company);
/// Settings, trees, people, partners, currencies, accounts and rights.
void WriteBase(NewAccountSet& accountSet, const std::vector<TreeRow>& warehouses);
/// The goods and their classes.
void WriteGoods(NewAccountSet& accountSet, const std::vector<Good>& goods);

/// The tree of warehouses of the demonstration.
const std::vector<TreeRow>& DemoWarehouses();
/// What has no children: only these stand on bills.
std::vector<Warehouse> LeavesOf(const std::vector<TreeRow>& tree);
std::vector<Partner> DemoCustomers();
/// The maker of a good.
Partner SupplierOf(const Good& good);
/// The attributes below a root.
std::vector<TreeRow> DemoAttributes(const QString& root);
