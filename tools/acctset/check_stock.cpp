#include "check.h"

#include "check_goods.h"
#include "data/decimals.h"
#include "handover/open_query.h"
#include "stock/movements.h"

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

void AddMovements(Program& program, Shelves& shelves, const StockQuestion& question, const GoodsRange& range)
{
    const DayLimit days[] = {{">", kNoDate}};
    const Recordset rows = ListMovements(program, question, WithinRange(range), days);
    for (int row = 0; row < rows.size(); ++row) {
        Shelf& shelf = shelves[{rows.Text("WareCode", row), rows.Text("WarehouseCode", row)}];
        if (const std::optional<QDate> day = rows.Day("Datee", row))
            shelf.days[*day].moved += rows.Number("Amount", row);
    }
}

void AddSnapshots(Program& program, Shelves& shelves, const GoodsRange& range)
{
    const Recordset rows = OpenQuery(
        program,
        Sql("select TabWarehouseTurn.WareCode as WareCode,TabWarehouseTurn.WarehouseCode as WarehouseCode,"
            "TabWarehouseTurn.Num as Num,TabWarehouseTurn.Datee as Datee,sum(TabWarehouseTurn.Amount) as Amount"
            " from TabWarehouseTurn,TabWarehouseType,TabWare"
            " where TabWarehouseType.Code=TabWarehouseTurn.WarehouseCode"
            " and TabWare.Code=TabWarehouseTurn.WareCode ") +
            WithinRange(range) +
            " group by TabWarehouseTurn.WareCode,TabWarehouseTurn.WarehouseCode,TabWarehouseTurn.Num,"
            "TabWarehouseTurn.Datee");
    for (int row = 0; row < rows.size(); ++row) {
        Shelf& shelf = shelves[{rows.Text("WareCode", row), rows.Text("WarehouseCode", row)}];
        if (rows.Integer("Num", row) == 1)
            shelf.opening += rows.Number("Amount", row);
        shelf.days[rows.Day("Datee", row).value_or(kNoDate)].snapshot += rows.Number("Amount", row);
    }
}

/// What a close does not know of has no stock on its day.
void MarkCloses(Shelf& shelf, const std::vector<QDate>& closes)
{
    for (const QDate& close : closes)
        shelf.days[close].closed = true;
}

std::vector<QDate> Closes(Program& program)
{
    const Recordset rows = OpenQuery(program, Sql("select distinct Datee from TabTurn order by Datee"));
    std::vector<QDate> closes;
    closes.reserve(static_cast<size_t>(rows.size()));
    for (int row = 0; row < rows.size(); ++row)
        closes.push_back(rows.Day("Datee", row).value_or(kNoDate));
    return closes;
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

void CheckStock(Program& program, const Report& report)
{
    const StockQuestion question{.auditedOnly = IsAuditedBillCounted(program)};
    const std::vector<QDate> closes = Closes(program);
    const int digits = GetDigitsByType(program, "数值型");
    for (const GoodsRange& range : GoodsInPortions(program)) {
        Shelves shelves;
        AddMovements(program, shelves, question, range);
        AddSnapshots(program, shelves, range);
        for (auto& [place, shelf] : shelves) {
            MarkCloses(shelf, closes);
            WalkShelf(place, shelf, digits, report);
        }
    }
}
