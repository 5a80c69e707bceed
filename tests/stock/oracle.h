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

    Stock Balance(const StockQuestion& q) const
    {
        const QDate close = q.dimensions.any() ? QDate() : LastClose(q.asOf.day);
        const auto place = [&](const QString& warehouse) {
            return (warehouse == "01" || warehouse == "02") && (q.warehouse.isEmpty() || q.warehouse == warehouse);
        };
        Sum sum;
        for (const BillRow& row : m_books.snapshots)
            if (Counts(q, row, q.attributeExact) && place(row.warehouse) &&
                (close.isValid() ? row.day == close : row.num == 1))
                sum.Add(row.UnionAmount, row.Cost * Factor(q, row));
        for (const BillRow* row : m_books.AllRows()) {
            const bool inTime = row->day > (close.isValid() ? close : QDate(1900, 1, 1)) && row->day <= q.asOf.day;
            if (!inTime || !Counts(q, *row, q.attributeExact))
                continue;
            for (const Effect& effect : EffectsOf(*row))
                if (place(effect.warehouse))
                    sum.Add(effect.amount, effect.money * Factor(q, *row));
        }
        Stock stock{RoundToPlaces(sum.amount, 4), RoundToPlaces(sum.money(), 2), 0};
        if (stock.amount != 0)
            stock.unitCost = RoundToPlaces(stock.money / stock.amount, 4);
        return stock;
    }

    double UnitCost(const CostQuestion& q) const
    {
        if (q.wareCode == "unknown" || q.wareCode == "service")
            return 0;
        const double cost = !q.addsValue             ? LastRecorded(q)
                            : q.wareCode == "fixed"  ? 7.125
                            : q.wareCode == "period" ? Period(q)
                                                     : Moving(q, true);
        return RoundToPlaces(cost, 4);
    }

    double DisplayCost(const CostQuestion& q) const
    {
        if (q.wareCode == "unknown")
            return 0;
        const double cost = q.wareCode == "fixed"                               ? 7.125
                            : q.wareCode == "moving" || q.wareCode == "service" ? Moving(q, q.attributeExact)
                                                                                : Period(q);
        return cost < 0 ? 0 : RoundToPlaces(cost, 4);
    }

    /// Changes the rows in memory as the engine changes those of the account set.
    void Rewrite(const QString& ware, const QDate& endDay, const QString& moneyName, bool auditedOnly)
    {
        if (ware != "moving" && ware != "service")
            return;
        CostQuestion q{.wareCode = ware, .moneyName = moneyName, .auditedOnly = auditedOnly, .useMoving = true};
        const QDate close = LastClose(QDate(9999, 1, 1));
        std::set<QDate> days;
        for (const BillRow* row : m_books.AllRows())
            if (IsInflowRow(*row) && Counts(q, *row, true) && HeadOf(*row).state != "作废" && row->day > close &&
                row->day <= endDay)
                days.insert(row->day);
        QDate from = close.addDays(1);
        q.moment = {days.empty() ? close : from, 0};
        QDate first = days.empty() ? from : from.addDays(1);
        days.insert(endDay);
        for (const QDate& day : days) {
            Write(q, first, day);
            q.moment = {day, 0};
            first = day.addDays(1);
        }
    }

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
        double money() const { return static_cast<double>(units) / 10000; }
    };

    const BillRow& HeadOf(const BillRow& row) const
    {
        return row.head < 0 ? row : m_books.heads[static_cast<size_t>(row.head)];
    }

    std::vector<Effect> EffectsOf(const BillRow& row) const
    {
        const BillRow& head = HeadOf(row);
        const QString& t = row.table;
        // Of the siblings' bills the head decides, of this module's own the line.
        if ((t.startsWith("TabIn") || t.startsWith("TabOut") || t.startsWith("TabElse") ? head : row).state != "正常")
            return {};
        const double n = row.UnionAmount;
        const QString& warehouse = head.warehouse;
        const Effect in = {warehouse, n, row.Moneyy_Discount};
        const Effect sold = {warehouse, -n, -n * row.Cost};
        const Effect gone = {warehouse, -n, -n * row.AveragePrice};
        const std::pair<const char*, std::vector<Effect>> effects[] = {
            {"TabInBillInf", {in}},
            {"TabElseInBillInf", {in}},
            {"TabInCancleBillInf", {{warehouse, -n, -row.Moneyy_Discount}}},
            {"TabOutBillInf", {sold}},
            {"TabElseOutBillInf", {sold}},
            {"TabOutCancleBillInf", {{warehouse, n, n * row.Cost}}},
            {"TabSamePriceMoveInf", {gone, {head.warehouseArrival, n, n * row.AveragePrice}}},
            {"TabChangePriceInf", {{warehouse, 0, row.MoneyBanlance}}},
            {"TabCheckLoseInf", {gone}},
            {"TabCheckOverInf", {{warehouse, n, n * row.AveragePrice}}},
            {"TabWareGroupInf", {{warehouse, -n, -row.Moneyy}}},
            {"TabWareGroup", {{row.warehouseArrival, n, row.SumMoney}}},
            {"TabWarePieceInf", {{head.warehouseArrival, n, row.Moneyy}}},
            {"TabWarePiece", {{row.warehouse, -n, -row.SumMoney}}},
        };
        const auto found = std::ranges::find_if(effects, [&](const auto& effect) { return t == effect.first; });
        return found == std::end(effects) ? std::vector<Effect>() : found->second;
    }

    /// Rows of the kinds that bring value in, whether in force or not.
    bool IsInflowRow(const BillRow& row) const
    {
        static const QStringList tables = {"TabInBillInf",      "TabInCancleBillInf", "TabElseInBillInf",
                                           "TabChangePriceInf", "TabWareGroup",       "TabWarePieceInf"};
        return tables.contains(row.table) && (row.table != "TabElseInBillInf" || HeadOf(row).inType == "盘盈");
    }

    /// Whether a row is one of those that the question is about.
    template <typename Question>
    static bool Counts(const Question& q, const BillRow& row, bool exact)
    {
        const auto same = [](const QString& asked, const QString& has) { return asked.isEmpty() || asked == has; };
        const Dimensions& asked = q.dimensions;
        const Dimensions& has = row.dimensions;
        return row.ware == q.wareCode && !(q.auditedOnly && row.auditing.isEmpty()) &&
               (q.moneyName == "综合本位币" || same(q.moneyName, row.moneyName)) &&
               (exact ? same(asked.AttributeCode, has.AttributeCode)
                      : has.AttributeCode.startsWith(asked.AttributeCode)) &&
               same(asked.WareSpec, has.WareSpec) && same(asked.Manufacturer, has.Manufacturer) &&
               same(asked.Brand, has.Brand) && same(asked.PCode, has.PCode);
    }
    template <typename Question>
    static double Factor(const Question& q, const BillRow& row)
    {
        return q.moneyName == "综合本位币" ? row.rate : 1;
    }

    QDate LastClose(const QDate& day) const
    {
        QDate last;
        for (const QDate& close : m_books.closes)
            if (close <= day && (!last.isValid() || close > last))
                last = close;
        return last;
    }

    /// All rows of a close share a moment.
    static auto RankInClose(const BillRow& row)
    {
        return std::tuple(row.day, !row.dimensions.any(), row.num, row.warehouse, row.UnionAmount, row.Cost, row.rate,
                          row.AveragePrice);
    }

    double LastRecorded(const CostQuestion& q) const
    {
        std::optional<Moment> newest;
        double cost = 0;
        const auto take = [&](const Moment& moment, double price) {
            if (!newest || *newest < moment) {
                newest = moment;
                cost = price;
            }
        };
        for (const BillRow* row : m_books.AllRows())
            if (IsInflowRow(*row) && Counts(q, *row, true) && row->state != "作废" && row->day <= q.moment.day)
                take(row->moment, row->table == "TabChangePriceInf" ? row->lastAveragePrice : row->AveragePrice);
        const BillRow* snapshot = nullptr;
        for (const BillRow& row : m_books.snapshots)
            if (Counts(q, row, true) && row.day <= q.moment.day &&
                (!snapshot || RankInClose(*snapshot) < RankInClose(row)))
                snapshot = &row;
        if (snapshot)
            take({snapshot->day, 0}, snapshot->AveragePrice);
        return cost;
    }

    double Moving(const CostQuestion& q, bool exact) const
    {
        if (!q.addsValue && !(q.useMoving && exact))
            return LastRecorded(q);
        const Stock before = Balance({.wareCode = q.wareCode,
                                      .asOf = {q.moment.day.addDays(-1), 0},
                                      .dimensions = q.dimensions,
                                      .attributeExact = exact,
                                      .moneyName = q.moneyName,
                                      .auditedOnly = q.auditedOnly});
        Sum sum;
        sum.Add(before.amount + q.lineAmount, before.money + q.lineMoney.toDouble());
        for (const BillRow* row : m_books.AllRows())
            if (IsInflowRow(*row) && Counts(q, *row, exact) && row->day == q.moment.day)
                for (const Effect& effect : EffectsOf(*row))
                    if (effect.warehouse != "gone")
                        sum.Add(effect.amount, effect.money * Factor(q, *row));
        return sum.amount == 0 ? q.linePrice : sum.money() / sum.amount;
    }

    double Period(CostQuestion q) const
    {
        q.dimensions = {}; // the average is the good's own
        const QDate& day = q.moment.day;
        const QDate close = LastClose(day).isValid() ? LastClose(day) : QDate(1900, 1, 1);
        Sum sum;
        double prices = 0;
        for (const BillRow& row : m_books.snapshots)
            if (Counts(q, row, true) && row.day == close) {
                sum.Add(row.UnionAmount, row.Cost * Factor(q, row));
                prices += row.AveragePrice * Factor(q, row);
            }
        if (std::ranges::any_of(m_books.closes, [&](const QDate& closed) { return closed >= day; }))
            return prices;
        for (const BillRow* row : m_books.AllRows()) {
            const BillRow& head = HeadOf(*row);
            if (!IsInflowRow(*row) || !Counts(q, *row, true) || head.state == "作废" || head.day <= close ||
                head.day > day)
                continue;
            const double sign = row->table == "TabInCancleBillInf" ? -1 : 1;
            const double amount = row->table == "TabChangePriceInf" ? 0 : row->UnionAmount;
            const double money = row->table == "TabWareGroup" ? row->SumMoney
                                 : row->table == "TabChangePriceInf" || row->table == "TabWarePieceInf"
                                     ? row->Moneyy
                                     : row->Moneyy_Discount;
            sum.Add(sign * amount, sign * money * Factor(q, *row));
        }
        return sum.amount == 0 ? 0 : std::abs(sum.money() / sum.amount);
    }

    /// The cost of the question's moment to the rows from one day up to another.
    void Write(const CostQuestion& q, const QDate& first, const QDate& end)
    {
        const double cost = DisplayCost(q);
        for (auto* part : {&m_books.heads, &m_books.lines})
            for (BillRow& row : *part) {
                if (!Counts(q, row, true) || row.day < first || row.day >= end ||
                    row.table.startsWith("TabDiffPriceMove"))
                    continue;
                if (row.table == "TabChangePriceInf") {
                    row.lastAveragePrice = cost;
                    continue;
                }
                row.AveragePrice = cost;
                if (row.table.contains("Out"))
                    row.Cost = cost;
            }
    }

    RandomBooks& m_books;
};
