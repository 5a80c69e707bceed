#pragma once

// What many users have left in an account set, looked at apart from the rules that wrote it.

#include "database/store.h"

#include <QStringList>
#include <map>

/// The heads that were stored, each with its mark: "TABLE CODE" to "SEED.SAVE.LINES".
struct Bills
{
    QStringList faults; // bills that are not whole, lines without a head, codes and vouchers that are there twice
    std::map<QString, QString> marks;
};
Bills LookAtBills(Store& store);

/// Amount of a good in a warehouse, added up row by row: opening, transfers, counts, assemblies.
std::map<std::pair<QString, QString>, double> AmountsOf(Store& store);
