#pragma once

// What many users have left in an account set, looked at apart from the rules that wrote it.

#include "handover/program.h"

#include <QStringList>
#include <map>

/// The heads that were stored, each with its mark: "TABLE CODE" to "SEED.SAVE.LINES".
struct Bills
{
    QStringList faults; // bills that are not whole, assemblies without their voucher, what "acctset check" finds
    std::map<QString, QString> marks;
};
Bills LookAtBills(Program& program);

/// Amount of a good in a warehouse, added up row by row.
std::map<std::pair<QString, QString>, double> AmountsOf(Store& store);
