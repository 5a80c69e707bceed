#pragma once

// Runs acctset as a user does, and reads what it made row by row.

#include "database/sqlite_store.h"

#include <QTemporaryDir>
#include <map>
#include <tuple>

struct Outcome
{
    int exitCode = -1;
    QString out;
    QString error;
};

Outcome RunAcctset(const QStringList& arguments);

/// The demonstration account set, made once for all tests; nobody writes into it.
const QString& DemoFile();
/// A copy of it for a test that writes.
QString OwnDemo(const QTemporaryDir& folder);

/// A good as it lies somewhere: code, warehouse, attribute, batch.
using Place = std::tuple<QString, QString, QString, QString>;

struct Heap
{
    double amount = 0;
    double money = 0;

    Heap& operator+=(const Heap& other)
    {
        amount += other.amount;
        money += other.money;
        return *this;
    }
};

/// A line as it moves stock, in the order of its moment.
struct Movement
{
    QString moment;
    QString day;
    Place place;
    Heap change;
};

/// Every movement of an account set, added up apart from the stock engine.
std::vector<Movement> MovementsOf(Store& store);
/// Rows of the stock snapshots: of the opening, or of a close.
std::map<Place, Heap> OpeningOf(Store& store);
std::map<Place, Heap> SnapshotOf(Store& store, const QString& day);
