#include "stock/unit_cost.h"

#include "books.h"

#include <gtest/gtest.h>

namespace {

class UnitCost : public testing::Test
{
protected:
    UnitCost() { InsertBaseData(test); }

    /// A bill of one line into 01, at 10 o'clock unless the row says more.
    void Bill(const char* head, BillRow row)
    {
        row.code = QString::number(++m_bills);
        if (!row.moment.day.isValid())
            row.moment = {row.day, 36000000};
        row.warehouse = row.warehouseArrival = "01";
        row.table = QString(head) + "Inf";
        InsertRow(test, row);
        row.table = head;
        row.ware = "none";
        InsertRow(test, row);
    }
    void Close(const QDate& day, const char* warehouse, double amount, double money, double price)
    {
        test.Insert("TabWarehouseTurn", {{"Num", 2},
                                         {"Datee", day},
                                         {"WareCode", "period"},
                                         {"WarehouseCode", warehouse},
                                         {"Amount", amount},
                                         {"Cost", money},
                                         {"AveragePrice", price},
                                         {"MoneyRate", 2.0}});
    }
    /// A line that brings in its own money on 02-08.
    CostQuestion Adding(const char* ware, double amount, double money, double price = 0) const
    {
        return {.moment = {Day(2, 8), 36000000},
                .wareCode = ware,
                .addsValue = true,
                .lineAmount = amount,
                .linePrice = price,
                .lineMoney = Currency::FromDouble(money)};
    }
    CostQuestion Taking(const char* ware) const { return {.moment = {Day(2, 8), 36000000}, .wareCode = ware}; }
    double Cost(const CostQuestion& question) { return GetUnitCost(test.program, question); }
    double Display(const CostQuestion& question) { return GetDisplayCost(test.program, question); }

    TestProgram test;

private:
    int m_bills = 0;
};

TEST_F(UnitCost, MethodDecides)
{
    EXPECT_EQ(Cost(Adding("moving", 3, 10)), 3.3333); // the first receipt costs its own money
    EXPECT_EQ(Cost(Adding("other", 3, 10)), 3.3333);
    EXPECT_EQ(Display(Adding("other", 3, 10)), 0); // shown, an unknown method averages the period
    EXPECT_EQ(Cost(Adding("fixed", 3, 10)), 7.125);
    EXPECT_EQ(Cost(Taking("fixed")), 0); // a line that takes stock asks for what is recorded
    EXPECT_EQ(Display(Taking("fixed")), 7.125);
    EXPECT_EQ(Cost(Adding("period", 3, 10)), 0); // the line itself is not stored yet
    EXPECT_EQ(Cost(Adding("service", 3, 10)), 0);
    EXPECT_EQ(Display(Adding("service", 3, 10)), 3.3333); // stock accounting or not
    EXPECT_EQ(Cost(Adding("unknown", 3, 10)), 0);
    EXPECT_EQ(Display(Adding("unknown", 3, 10)), 0);
}

TEST_F(UnitCost, MovingAverageTakesEveningBeforeDayAndLine)
{
    Bill("TabInBill", {.day = Day(2, 7), .ware = "moving", .UnionAmount = 10, .Moneyy_Discount = 100});
    Bill("TabOutBill", {.day = Day(2, 8), .ware = "moving", .UnionAmount = 9, .Cost = 10}); // going out moves nothing
    EXPECT_EQ(Cost(Adding("moving", 10, 140)), 12);
    Bill("TabInBill", {.day = Day(2, 8), .ware = "moving", .UnionAmount = 10, .Moneyy_Discount = 160});
    Bill("TabInCancleBill", {.day = Day(2, 8), .ware = "moving", .UnionAmount = 5, .Moneyy_Discount = 80});
    Bill("TabElseInBill",
         {.day = Day(2, 8), .ware = "moving", .inType = "盘盈", .UnionAmount = 5, .Moneyy_Discount = 40});
    Bill("TabElseInBill",
         {.day = Day(2, 8), .ware = "moving", .inType = "借入", .UnionAmount = 500, .Moneyy_Discount = 1});
    EXPECT_EQ(Cost(Adding("moving", 20, 100)), 8); // 320 by 40
    EXPECT_EQ(Cost(Adding("moving", 0, 20)), 12);  // a revaluation: 240 by 20
    EXPECT_EQ(Cost(Adding("moving", -20, 20, 4.56789)), 4.5679);
    EXPECT_EQ(Cost(Adding("moving", 20, -300)), -2);
    EXPECT_EQ(Display(Adding("moving", 20, -300)), 0); // never shown negative
}

TEST_F(UnitCost, MovingAverageOfOneAttribute)
{
    Bill("TabInBill", {.day = Day(2, 7),
                       .ware = "moving",
                       .dimensions = {.AttributeCode = "01"},
                       .UnionAmount = 10,
                       .Moneyy_Discount = 100});
    Bill("TabInBill", {.day = Day(2, 8),
                       .ware = "moving",
                       .dimensions = {.AttributeCode = "0101"},
                       .UnionAmount = 10,
                       .Moneyy_Discount = 300});
    CostQuestion question = Adding("moving", 10, 200);
    question.dimensions.AttributeCode = "01";
    EXPECT_EQ(Cost(question), 15);    // the attribute alone
    EXPECT_EQ(Display(question), 20); // with its children
    question.attributeExact = true;
    EXPECT_EQ(Display(question), 15);
    question.addsValue = false; // both flags with it: still the average, of stock and line
    question.useMoving = true;
    EXPECT_EQ(Display(question), 15);
    question.useMoving = false;
    EXPECT_EQ(Display(question), 0); // the newest recorded cost, which is stored as 0 here
}

TEST_F(UnitCost, LastRecordedCostIsTheNewestOfAllSources)
{
    // Each later bill takes over, but for what does not count.
    int second = 0;
    const auto record = [&](const char* head, BillRow row) {
        row.day = Day(2, 1);
        row.moment = {row.day, ++second * 1000};
        row.ware = "moving";
        Bill(head, row);
        return Cost(Taking("moving"));
    };
    test.Insert("TabWarehouseTurn", {{"Datee", Day(2, 1)}, {"WareCode", "moving"}, {"AveragePrice", 1.00005}});
    EXPECT_EQ(Cost(Taking("moving")), 1.0001);
    EXPECT_EQ(record("TabInBill", {.AveragePrice = 2}), 2); // the close of its day loses
    EXPECT_EQ(record("TabElseInBill", {.inType = "盘盈", .AveragePrice = 3}), 3);
    EXPECT_EQ(record("TabElseInBill", {.inType = "借入", .AveragePrice = 99}), 3);
    EXPECT_EQ(record("TabInCancleBill", {.AveragePrice = 4}), 4);
    EXPECT_EQ(record("TabChangePrice", {.AveragePrice = 99, .lastAveragePrice = 5}), 5);
    EXPECT_EQ(record("TabWarePiece", {.AveragePrice = 6}), 6);
    EXPECT_EQ(record("TabWarePiece", {.state = "作废", .AveragePrice = 99}), 6);
    for (const char* head : {"TabOutBill", "TabSamePriceMove", "TabDiffPriceMove", "TabCheckOver", "TabWareGroup"})
        EXPECT_EQ(record(head, {.AveragePrice = 99}), 6) << head;
    InsertRow(test, {.table = "TabWareGroup",
                     .code = "product",
                     .day = Day(2, 1),
                     .moment = {Day(2, 1), ++second * 1000},
                     .ware = "moving",
                     .AveragePrice = 7});
    EXPECT_EQ(Cost(Taking("moving")), 7);
    Bill("TabInBill", {.day = Day(2, 9), .ware = "moving", .AveragePrice = 99}); // tomorrow's
    EXPECT_EQ(Cost(Taking("moving")), 7);
    CostQuestion question = Taking("moving");
    question.auditedOnly = true; // none of the bills is, and a close needs no mark
    EXPECT_EQ(Cost(question), 1.0001);
}

TEST_F(UnitCost, PeriodAverageOfAnOpenPeriod)
{
    test.Insert("TabTurn", {{"Datee", Day(1, 31)}});
    Close(Day(1, 31), "01", 10, 100, 10);
    Close(Day(1, 31), "02", 10, 140, 14);
    Bill("TabInBill", {.day = Day(2, 1), .ware = "period", .rate = 2, .UnionAmount = 10, .Moneyy_Discount = 60});
    Bill("TabInBill", {.day = Day(2, 9), .ware = "period", .UnionAmount = 1000, .Moneyy_Discount = 60});  // later
    Bill("TabInBill", {.day = Day(1, 31), .ware = "period", .UnionAmount = 1000, .Moneyy_Discount = 60}); // closed
    Bill("TabInBill",
         {.day = Day(2, 1), .state = "作废", .ware = "period", .UnionAmount = 1000, .Moneyy_Discount = 60});
    EXPECT_EQ(Cost(Adding("period", 99, 99)), 10); // 300 by 30
    Bill("TabChangePrice", {.day = Day(2, 2), .ware = "period", .rate = 2, .Moneyy = 30, .MoneyBanlance = 999});
    EXPECT_EQ(Cost(Adding("period", 99, 99)), 11);
    Bill("TabWarePiece", {.day = Day(2, 2), .ware = "period", .rate = 2, .UnionAmount = 3, .Moneyy = 33});
    InsertRow(test, {.table = "TabWareGroup",
                     .code = "product",
                     .day = Day(2, 2),
                     .moment = {Day(2, 2), 1},
                     .ware = "period",
                     .rate = 2,
                     .UnionAmount = 7,
                     .SumMoney = 77});
    EXPECT_EQ(Cost(Adding("period", 99, 99)), 11);
    CostQuestion converted = Adding("period", 99, 99);
    converted.moneyName = kAllCurrencies;
    EXPECT_EQ(Cost(converted), 22);
    Bill("TabInCancleBill", {.day = Day(2, 3), .ware = "period", .UnionAmount = 60, .Moneyy_Discount = 230});
    EXPECT_EQ(Cost(Adding("period", 99, 99)), 10.5); // 210 by 20 less than nothing, and still a price
    Bill("TabInBill", {.day = Day(2, 3), .ware = "period", .UnionAmount = 20});
    EXPECT_EQ(Cost(Adding("period", 99, 99)), 0); // no stock, no average
}

TEST_F(UnitCost, PeriodAverageOfAClosedPeriodIsItsSnapshot)
{
    for (const QDate& day : {Day(1, 31), Day(2, 28)})
        test.Insert("TabTurn", {{"Datee", day}});
    Close(Day(1, 31), "01", 10, 100, 10.12344);
    Close(Day(1, 31), "02", 10, 140, 14);
    Bill("TabInBill", {.day = Day(2, 1), .ware = "period", .UnionAmount = 10, .Moneyy_Discount = 60});
    CostQuestion question = Adding("period", 99, 99);
    EXPECT_EQ(Cost(question), 24.1234); // the prices of both warehouses added up
    question.moneyName = kAllCurrencies;
    EXPECT_EQ(Display(question), 48.2469);
    question.moment = {Day(1, 30), 0};
    EXPECT_EQ(Cost(question), 0);
}

} // namespace
