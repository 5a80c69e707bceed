#pragma once

// The engine's answers found without a database: a plain walk over the rows in memory, one rule after the other.

#include "random_books.h"
#include "stock/balance.h"
#include "stock/unit_cost.h"

#include <set>

class Oracle
{
public:
    explicit Oracle(RandomBooks& books) : m_books(books) {}

    struct Stock
    {
        double amount = 0;
        double money = 0;
        double unitCost = 0;
    };

    Stock Balance(const StockQuestion& question) const;
    double UnitCost(const CostQuestion& question) const;
    double DisplayCost(const CostQuestion& question) const;
    /// Changes the rows in memory as the engine changes those of the account set.
    void Rewrite(const QString& ware, const QDate& endDay, const QString& moneyName, bool auditedOnly);

private:
    /// What a row does to the stock of one warehouse.
    struct Effect
    {
        QString warehouse;
        double amount;
        double money;
    };
    /// Money is added up in ten-thousandths, which the rows hold exactly.
    struct Sum
    {
        double amount = 0;
        qint64 units = 0;
        void Add(double addedAmount, double addedMoney)
        {
            amount += addedAmount;
            units += std::llround(addedMoney * 10000);
        }
    };

    std::vector<const BillRow*> AllRows() const;
    const BillRow& HeadOf(const BillRow& row) const
    {
        return row.head < 0 ? row : m_books.heads[static_cast<size_t>(row.head)];
    }
    std::vector<Effect> EffectsOf(const BillRow& row) const;
    bool IsCostedKind(const BillRow& row) const { return HeadOf(row).inType == "盘盈"; }
    bool IsInflowRow(const BillRow& row) const;
    static bool Fits(const Dimensions& asked, const Dimensions& has, bool exact);
    static double Factor(const QString& moneyName, double rate) { return moneyName == "综合本位币" ? rate : 1; }
    static bool FitsMoney(const QString& asked, const QString& has)
    {
        return asked.isEmpty() || asked == "综合本位币" || asked == has;
    }
    QDate LastClose(const QDate& day) const;
    double LastRecorded(const CostQuestion& question) const;
    double Moving(const CostQuestion& question, bool exact) const;
    double Period(const CostQuestion& question) const;

    RandomBooks& m_books;
};

inline std::vector<const BillRow*> Oracle::AllRows() const
{
    std::vector<const BillRow*> rows;
    for (const auto* part : {&m_books.heads, &m_books.lines})
        for (const BillRow& row : *part)
            rows.push_back(&row);
    return rows;
}

inline std::vector<Oracle::Effect> Oracle::EffectsOf(const BillRow& row) const
{
    const BillRow& head = HeadOf(row);
    const bool headStands = head.state == "正常";
    const bool stands = row.state == "正常";
    const double n = row.UnionAmount;
    const QString& t = row.table;
    if (t == "TabInBillInf" || t == "TabElseInBillInf")
        return headStands ? std::vector<Effect>{{head.warehouse, n, row.Moneyy_Discount}} : std::vector<Effect>{};
    if (t == "TabInCancleBillInf" && headStands)
        return {{head.warehouse, -n, -row.Moneyy_Discount}};
    if ((t == "TabOutBillInf" || t == "TabElseOutBillInf") && headStands)
        return {{head.warehouse, -n, -n * row.Cost}};
    if (t == "TabOutCancleBillInf" && headStands)
        return {{head.warehouse, n, n * row.Cost}};
    if (!stands)
        return {};
    if (t == "TabSamePriceMoveInf")
        return {{head.warehouse, -n, -n * row.AveragePrice}, {head.warehouseArrival, n, n * row.AveragePrice}};
    if (t == "TabChangePriceInf")
        return {{head.warehouse, 0, row.MoneyBanlance}};
    if (t == "TabCheckLoseInf")
        return {{head.warehouse, -n, -n * row.AveragePrice}};
    if (t == "TabCheckOverInf")
        return {{head.warehouse, n, n * row.AveragePrice}};
    if (t == "TabWareGroupInf")
        return {{head.warehouse, -n, -row.Moneyy}};
    if (t == "TabWareGroup")
        return {{row.warehouseArrival, n, row.SumMoney}};
    if (t == "TabWarePieceInf")
        return {{head.warehouseArrival, n, row.Moneyy}};
    if (t == "TabWarePiece")
        return {{row.warehouse, -n, -row.SumMoney}};
    return {};
}

/// Rows of the kinds that bring value in, whether in force or not.
inline bool Oracle::IsInflowRow(const BillRow& row) const
{
    static const QStringList tables = {"TabInBillInf",      "TabInCancleBillInf", "TabElseInBillInf",
                                       "TabChangePriceInf", "TabWareGroup",       "TabWarePieceInf"};
    return tables.contains(row.table) && (row.table != "TabElseInBillInf" || IsCostedKind(row));
}

inline bool Oracle::Fits(const Dimensions& asked, const Dimensions& has, bool exact)
{
    const auto same = [](const QString& a, const QString& b) { return a.isEmpty() || a == b; };
    const bool attribute =
        exact ? same(asked.AttributeCode, has.AttributeCode) : has.AttributeCode.startsWith(asked.AttributeCode);
    return attribute && same(asked.WareSpec, has.WareSpec) && same(asked.Manufacturer, has.Manufacturer) &&
           same(asked.Brand, has.Brand) && same(asked.PCode, has.PCode);
}

inline QDate Oracle::LastClose(const QDate& day) const
{
    QDate last;
    for (const QDate& close : m_books.closes)
        if (close <= day && (!last.isValid() || close > last))
            last = close;
    return last;
}

inline Oracle::Stock Oracle::Balance(const StockQuestion& q) const
{
    const bool byDimension = q.dimensions.any();
    const QDate close = byDimension ? QDate() : LastClose(q.asOf.day);
    const auto place = [&](const QString& warehouse) {
        return (warehouse == "01" || warehouse == "02") && (q.warehouse.isEmpty() || q.warehouse == warehouse);
    };
    Sum sum;
    for (const SnapshotRow& row : m_books.snapshots)
        if (row.ware == q.wareCode && place(row.warehouse) && (close.isValid() ? row.day == close : row.num == 1) &&
            Fits(q.dimensions, row.dimensions, q.attributeExact) && FitsMoney(q.moneyName, row.moneyName))
            sum.Add(row.amount, row.cost * Factor(q.moneyName, row.rate));
    for (const BillRow* row : AllRows()) {
        const bool inTime = row->day > (close.isValid() ? close : QDate(1900, 1, 1)) && row->day <= q.asOf.day;
        if (row->ware != q.wareCode || !inTime || (q.auditedOnly && row->auditing.isEmpty()) ||
            !Fits(q.dimensions, row->dimensions, q.attributeExact) || !FitsMoney(q.moneyName, row->moneyName))
            continue;
        for (const Effect& effect : EffectsOf(*row))
            if (place(effect.warehouse))
                sum.Add(effect.amount, effect.money * Factor(q.moneyName, row->rate));
    }
    Stock stock{RoundToPlaces(sum.amount, 4), RoundToPlaces(static_cast<double>(sum.units) / 10000, 2), 0};
    if (stock.amount != 0)
        stock.unitCost = RoundToPlaces(stock.money / stock.amount, 4);
    return stock;
}

inline double Oracle::LastRecorded(const CostQuestion& q) const
{
    std::optional<Moment> newest;
    double cost = 0;
    const auto take = [&](const Moment& moment, double price) {
        if (!newest || *newest < moment) {
            newest = moment;
            cost = price;
        }
    };
    for (const BillRow* row : AllRows())
        if (IsInflowRow(*row) && row->ware == q.wareCode && row->state != "作废" && row->day <= q.moment.day &&
            Fits(q.dimensions, row->dimensions, true) && FitsMoney(q.moneyName, row->moneyName) &&
            !(q.auditedOnly && row->auditing.isEmpty()))
            take(row->moment, row->table == "TabChangePriceInf" ? row->lastAveragePrice : row->AveragePrice);
    for (const SnapshotRow& row : m_books.snapshots)
        if (row.ware == q.wareCode && row.day <= q.moment.day && Fits(q.dimensions, row.dimensions, true) &&
            FitsMoney(q.moneyName, row.moneyName))
            take({row.day, 0}, row.price);
    return cost;
}

inline double Oracle::Moving(const CostQuestion& q, bool exact) const
{
    if (!q.addsValue && !(q.useMoving && exact))
        return LastRecorded(q);
    StockQuestion stock{.wareCode = q.wareCode,
                        .asOf = {q.moment.day.addDays(-1), 0},
                        .dimensions = q.dimensions,
                        .attributeExact = exact,
                        .moneyName = q.moneyName,
                        .auditedOnly = q.auditedOnly};
    const Stock before = Balance(stock);
    Sum day;
    for (const BillRow* row : AllRows())
        if (IsInflowRow(*row) && row->ware == q.wareCode && row->day == q.moment.day &&
            Fits(q.dimensions, row->dimensions, exact) && FitsMoney(q.moneyName, row->moneyName) &&
            !(q.auditedOnly && row->auditing.isEmpty()))
            for (const Effect& effect : EffectsOf(*row))
                if (effect.warehouse != "gone")
                    day.Add(effect.amount, effect.money * Factor(q.moneyName, row->rate));
    const double total = before.amount + day.amount + q.lineAmount;
    const qint64 units = std::llround(before.money * 10000) + day.units + q.lineMoney.units();
    return total == 0 ? q.linePrice : static_cast<double>(units) / 10000 / total;
}

inline double Oracle::Period(const CostQuestion& q) const
{
    const QDate close = LastClose(q.moment.day).isValid() ? LastClose(q.moment.day) : QDate(1900, 1, 1);
    const bool closed = !m_books.closes.empty() && *std::ranges::max_element(m_books.closes) >= q.moment.day;
    Sum opening;
    double prices = 0;
    for (const SnapshotRow& row : m_books.snapshots)
        if (row.ware == q.wareCode && row.day == close && FitsMoney(q.moneyName, row.moneyName)) {
            opening.Add(row.amount, row.cost * Factor(q.moneyName, row.rate));
            prices += row.price * Factor(q.moneyName, row.rate);
        }
    if (closed)
        return prices;
    Sum inflow;
    for (const BillRow* row : AllRows()) {
        const BillRow& head = HeadOf(*row);
        if (!IsInflowRow(*row) || row->ware != q.wareCode || head.state == "作废" || head.day <= close ||
            head.day > q.moment.day || !FitsMoney(q.moneyName, row->moneyName) ||
            (q.auditedOnly && row->auditing.isEmpty()))
            continue;
        const double sign = row->table == "TabInCancleBillInf" ? -1 : 1;
        const double amount = row->table == "TabChangePriceInf" ? 0 : row->UnionAmount;
        const double money = row->table == "TabWareGroup" ? row->SumMoney
                             : row->table == "TabChangePriceInf" || row->table == "TabWarePieceInf"
                                 ? row->Moneyy
                                 : row->Moneyy_Discount;
        inflow.Add(sign * amount, sign * money * Factor(q.moneyName, row->rate));
    }
    const double amount = inflow.amount + opening.amount;
    return amount == 0 ? 0 : std::abs(static_cast<double>(opening.units + inflow.units) / 10000 / amount);
}

inline double Oracle::UnitCost(const CostQuestion& q) const
{
    if (q.wareCode == "unknown" || q.wareCode == "service")
        return 0;
    const double cost = !q.addsValue             ? LastRecorded(q)
                        : q.wareCode == "fixed"  ? 7.125
                        : q.wareCode == "period" ? Period(q)
                                                 : Moving(q, true);
    return RoundToPlaces(cost, 4);
}

inline double Oracle::DisplayCost(const CostQuestion& q) const
{
    if (q.wareCode == "unknown")
        return 0;
    const double cost = q.wareCode == "fixed"                               ? 7.125
                        : q.wareCode == "moving" || q.wareCode == "service" ? Moving(q, q.attributeExact)
                                                                            : Period(q);
    return cost < 0 ? 0 : RoundToPlaces(cost, 4);
}

inline void Oracle::Rewrite(const QString& ware, const QDate& endDay, const QString& moneyName, bool auditedOnly)
{
    if (ware != "moving" && ware != "service")
        return;
    const QDate close = LastClose(QDate(9999, 1, 1));
    const auto counts = [&](const BillRow& row) {
        return row.ware == ware && FitsMoney(moneyName, row.moneyName) && !(auditedOnly && row.auditing.isEmpty());
    };
    std::set<QDate> days;
    for (const BillRow* row : AllRows())
        if (IsInflowRow(*row) && counts(*row) && HeadOf(*row).state != "作废" && row->day > close && row->day <= endDay)
            days.insert(row->day);
    const auto write = [&](const QDate& costDay, const QDate& first, const QDate& end) {
        const double cost = DisplayCost({.moment = {costDay, 0},
                                         .wareCode = ware,
                                         .moneyName = moneyName,
                                         .auditedOnly = auditedOnly,
                                         .useMoving = true});
        for (auto* part : {&m_books.heads, &m_books.lines})
            for (BillRow& row : *part) {
                if (!counts(row) || row.day < first || row.day >= end || row.table.startsWith("TabDiffPriceMove"))
                    continue;
                if (row.table == "TabChangePriceInf") {
                    row.lastAveragePrice = cost;
                    continue;
                }
                row.AveragePrice = cost;
                if (row.table.contains("Out"))
                    row.Cost = cost;
            }
    };
    if (days.empty())
        return write(close, close.addDays(1), endDay);
    QDate from = close.addDays(1);
    for (const QDate& day : days) {
        write(from, from.addDays(1), day);
        from = day;
    }
    write(from, from.addDays(1), endDay);
}
