#pragma once

// An account set filled at random, from a fixed seed: bills of all tables with voided and unaudited rows, several
// warehouses, currencies and dimensions, closes with their snapshots. The same rows stay in memory for the oracle.

#include "books.h"
#include "data/decimals.h"

#include <random>

inline constexpr const char* kBillTables[] = {
    "TabInBill",        "TabInBill",      "TabInCancleBill",  "TabElseInBill",    "TabOutBill",
    "TabOutCancleBill", "TabElseOutBill", "TabSamePriceMove", "TabDiffPriceMove", "TabChangePrice",
    "TabCheckLose",     "TabCheckOver",   "TabWareGroup",     "TabWarePiece"};
inline constexpr const char* kAnyWare[] = {"moving", "moving", "moving", "period",
                                           "period", "fixed",  "other",  "service"};
inline constexpr const char* kAnyWarehouse[] = {"01", "01", "02", "gone"}; // the last one is no warehouse any more

struct RandomBooks
{
    explicit RandomBooks(unsigned seed) : random(seed)
    {
        for (int bill = 0; bill < 220; ++bill)
            AddBill(OneOf(kBillTables));
        AddSnapshots(kNoDate, 1);
        for (const QDate& day : {Day(1, 20), Day(2, 10)}) {
            closes.push_back(day);
            AddSnapshots(day, 2);
        }
    }

    void WriteTo(TestProgram& test) const
    {
        SaveUnit unit(test.program);
        InsertBaseData(test);
        for (const BillRow* row : AllRows())
            InsertRow(test, *row);
        for (const QDate& day : closes)
            test.Insert("TabTurn", {{"Datee", day}});
        for (const BillRow& row : snapshots)
            InsertRow(test, row);
        ASSERT_TRUE(unit.Commit());
    }

    int Below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
    bool OneIn(int count) { return Below(count) == 0; }
    template <size_t Count>
    QString OneOf(const char* const (&words)[Count])
    {
        return words[Below(Count)];
    }
    QDate AnyDay() { return Day(1, 1).addDays(Below(70)); }
    Dimensions AnyDimensions()
    {
        return {OneOf({"", "", "01", "0101", "02"}), OneOf({"", "L", "XL"}), OneOf({"", "甲厂"}), OneOf({"", "O'Neil"}),
                OneOf({"", "P1", "P2"})};
    }

    /// Mostly none, else one or two of them.
    Dimensions AskedDimensions()
    {
        if (!OneIn(3))
            return {};
        Dimensions asked;
        (OneIn(2) ? asked.AttributeCode : asked.WareSpec) = OneIn(2) ? "01" : "L";
        if (OneIn(3))
            asked.Brand = "O'Neil";
        if (OneIn(3))
            asked.Manufacturer = "甲厂";
        if (OneIn(3))
            asked.PCode = "P1";
        return asked;
    }

    std::vector<const BillRow*> AllRows() const
    {
        std::vector<const BillRow*> rows;
        for (const auto* part : {&heads, &lines})
            for (const BillRow& row : *part)
                rows.push_back(&row);
        return rows;
    }

    std::mt19937 random; // its numbers are the same everywhere, those of the distributions are not
    std::vector<BillRow> heads;
    std::vector<BillRow> lines;
    std::vector<BillRow> snapshots;
    std::vector<QDate> closes;

private:
    /// Whole amounts and cents, so that no sum depends on its order.
    void FillValues(BillRow& row)
    {
        row.ware = OneOf(kAnyWare);
        row.state = OneIn(8) ? "作废" : "正常";
        row.auditing = OneIn(3) ? "" : "张三";
        row.moneyName = OneOf({"人民币", "人民币", "美元"});
        row.rate = row.moneyName == "美元" ? 7 : 1;
        row.dimensions = AnyDimensions();
        row.UnionAmount = 1 + Below(20);
        for (double* value :
             {&row.Moneyy_Discount, &row.Moneyy, &row.SumMoney, &row.Cost, &row.AveragePrice, &row.lastAveragePrice})
            *value = Below(20000) / 100.0;
        row.MoneyBanlance = (Below(2000) - 1000) / 100.0;
    }

    void AddBill(const QString& table)
    {
        const int second = 1 + static_cast<int>(heads.size() * 37 % 1000) * 80; // no two bills at one moment
        BillRow head{.table = table, .code = QString("B%1").arg(heads.size()), .day = AnyDay()};
        head.moment = {head.day, second * 1000};
        FillValues(head);
        head.warehouse = OneOf(kAnyWarehouse);
        head.warehouseArrival = OneOf(kAnyWarehouse);
        head.inType = OneOf({"盘盈", "借入", "没有"});
        for (int num = 1; num <= 1 + Below(3); ++num) {
            BillRow line{.table = table + "Inf", .head = static_cast<int>(heads.size()), .code = head.code, .num = num};
            line.day = OneIn(20) ? head.day.addDays(1) : head.day; // the line's own day counts, where it differs
            line.moment = {line.day, second * 1000 + num * 4};
            FillValues(line);
            lines.push_back(line);
        }
        heads.push_back(head);
    }

    void AddSnapshots(const QDate& day, int num)
    {
        for (const char* ware : {"moving", "period", "fixed"}) {
            for (int row = 0; row < 4; ++row) {
                const double rate = OneIn(3) ? 7 : 1;
                snapshots.push_back({.table = "TabWarehouseTurn",
                                     .num = num,
                                     .day = day,
                                     .auditing = "a close needs no mark",
                                     .ware = ware,
                                     .dimensions = OneIn(3) ? Dimensions() : AnyDimensions(),
                                     .moneyName = rate == 7 ? "美元" : "人民币",
                                     .rate = rate,
                                     .warehouse = OneOf(kAnyWarehouse),
                                     .UnionAmount = 1.0 + Below(50),
                                     .Cost = Below(100000) / 100.0,
                                     .AveragePrice = Below(20000) / 100.0});
            }
        }
    }
};
