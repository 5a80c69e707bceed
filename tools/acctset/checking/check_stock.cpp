#include "checking/check_goods.h"

#include "data/decimals.h"

#include <map>

namespace {

/// What happens to the stock of a good in one warehouse on one day.
struct DayOfStock
{
    double moved = 0;
    bool closed = false; // the snapshot is the stock, whatever has moved
    double snapshot = 0;
};

struct Shelf
{
    double opening = 0;
    std::map<QDate, DayOfStock> days;
};

/// By good and warehouse.
using Shelves = std::map<std::pair<QString, QString>, Shelf>;

struct Shortfall
{
    QDate since;
    double lowest = 0;
    QDate lowestOn;
};

void AddMovements(Shelves& shelves, const std::vector<MovementRow>& rows)
{
    for (const MovementRow& row : rows) {
        Shelf& shelf = shelves[{row.wareCode, row.warehouse}];
        if (row.day)
            shelf.days[*row.day].moved += row.amount;
    }
}

void AddSnapshots(Shelves& shelves, const std::vector<SnapshotRow>& rows)
{
    for (const SnapshotRow& row : rows) {
        if (!row.inPlace)
            continue;
        Shelf& shelf = shelves[{row.wareCode, row.warehouse}];
        if (row.opening)
            shelf.opening += row.amount;
        shelf.days[row.day].snapshot += row.amount;
    }
}

/// What a close does not know of has no stock on its day.
void MarkCloses(Shelf& shelf, const std::vector<QDate>& closes)
{
    for (const QDate& close : closes)
        shelf.days[close].closed = true;
}

void ReportShortfall(const std::pair<QString, QString>& place, const Shortfall& shortfall, const QDate& until,
                     const Report& report)
{
    const QString end = until.isValid() ? "until " + DayText(until) : QString("to this day");
    report({"stock", "商品", place.first,
            QString("warehouse %1 below zero since %2 %3, lowest %4 on %5")
                .arg(place.second, DayText(shortfall.since), end, NumberText(shortfall.lowest),
                     DayText(shortfall.lowestOn))});
}

/// The evenings of one good in one warehouse.
void WalkShelf(const std::pair<QString, QString>& place, const Shelf& shelf, int digits, const Report& report)
{
    double stock = shelf.opening;
    std::optional<Shortfall> shortfall;
    for (const auto& [day, change] : shelf.days) {
        stock = change.closed ? change.snapshot : stock + change.moved;
        const double shown = RoundByDigits(stock, digits);
        if (shown < 0) {
            if (!shortfall)
                shortfall = {day, shown, day};
            else if (shown < shortfall->lowest)
                shortfall = {shortfall->since, shown, day};
        } else if (shortfall) {
            ReportShortfall(place, *shortfall, day, report);
            shortfall.reset();
        }
    }
    if (shortfall)
        ReportShortfall(place, *shortfall, {}, report);
}

} // namespace

void CheckStock(const GoodsRules& rules, const StockRows& rows, const Report& report)
{
    Shelves shelves;
    AddMovements(shelves, rows.movements);
    AddSnapshots(shelves, rows.snapshots);
    for (auto& [place, shelf] : shelves) {
        MarkCloses(shelf, rules.closes);
        WalkShelf(place, shelf, rules.amountDigits, report);
    }
}
