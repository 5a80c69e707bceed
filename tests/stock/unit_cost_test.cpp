#include "stock/unit_cost.h"

#include "books.h"

#include <gtest/gtest.h>

namespace {

class UnitCost : public testing::Test
{
protected:
    UnitCost() { InsertBaseData(test); }

    /// A bill of one line into 01.
    void Bill(const char* head, BillRow line)
    {
        line.code = head + line.inType + DayText(line.day);
        line.moment = {line.day, 36000000};
        line.ware = "moving";
        line.warehouse = "01";
        InsertBill(test, head, line);
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
    Bill("TabInBill", {.day = Day(2, 7), .UnionAmount = 10, .Moneyy_Discount = 100});
    Bill("TabOutBill", {.day = Day(2, 8), .UnionAmount = 9, .Cost = 10}); // going out moves nothing
    EXPECT_EQ(Cost(Adding("moving", 10, 140)), 12);
    Bill("TabInBill", {.day = Day(2, 8), .UnionAmount = 10, .Moneyy_Discount = 160});
    Bill("TabInCancleBill", {.day = Day(2, 8), .UnionAmount = 5, .Moneyy_Discount = 80});
    Bill("TabElseInBill", {.day = Day(2, 8), .inType = "盘盈", .UnionAmount = 5, .Moneyy_Discount = 40});
    Bill("TabElseInBill", {.day = Day(2, 8), .inType = "借入", .UnionAmount = 500, .Moneyy_Discount = 1});
    EXPECT_EQ(Cost(Adding("moving", 20, 100)), 8); // 320 by 40
    EXPECT_EQ(Cost(Adding("moving", 0, 20)), 12);  // a revaluation: 240 by 20
    EXPECT_EQ(Cost(Adding("moving", -20, 20, 4.56789)), 4.5679);
    EXPECT_EQ(Cost(Adding("moving", 20, -300)), -2);
    EXPECT_EQ(Display(Adding("moving", 20, -300)), 0); // never shown negative
}

} // namespace
