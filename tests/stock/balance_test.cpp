#include "stock/balance.h"

#include "books.h"

#include <gtest/gtest.h>

namespace {

class Balance : public testing::Test
{
protected:
    Balance() { InsertBaseData(test); }

    StockQuestion Ask(const QDate& day, const QString& warehouse = {}) const
    {
        return {.warehouse = warehouse, .wareCode = "moving", .asOf = {day, 0}};
    }
    void ExpectStock(const StockQuestion& question, double amount, double money)
    {
        const TogatherData stock = GetStockBalance(test.program, question);
        EXPECT_EQ(stock.ShownAmount, amount);
        EXPECT_EQ(stock.ShownMoney.toDouble(), money);
        EXPECT_TRUE(test.prompt.boxes.empty());
    }
    void Buy(const QString& code, double amount, double money)
    {
        InsertBill(test, "TabInBill",
                   {.code = code,
                    .day = Day(2, 1),
                    .ware = "moving",
                    .warehouse = "01",
                    .UnionAmount = amount,
                    .Moneyy_Discount = money});
    }

    TestProgram test;
};

TEST_F(Balance, EverySourceMovesItsWarehouse)
{
    const struct
    {
        QString table;
        double amount01, money01, amount02, money02;
    } cases[] = {
        {"TabInBillInf", 3, 30, 0, 0},        {"TabInCancleBillInf", -3, -30, 0, 0},
        {"TabElseInBillInf", 3, 30, 0, 0},    {"TabOutBillInf", -3, -33, 0, 0},
        {"TabOutCancleBillInf", 3, 33, 0, 0}, {"TabElseOutBillInf", -3, -33, 0, 0},
        {"TabDiffPriceMoveInf", 0, 0, 0, 0},  {"TabSamePriceMoveInf", -3, -36, 3, 36},
        {"TabChangePriceInf", 0, 7, 0, 0},    {"TabCheckLoseInf", -3, -36, 0, 0},
        {"TabCheckOverInf", 3, 36, 0, 0},     {"TabWareGroupInf", -3, -39, 0, 0},
        {"TabWareGroup", 0, 0, 3, 42},        {"TabWarePieceInf", 0, 0, 3, 39},
        {"TabWarePiece", -3, -42, 0, 0},
    };
    for (const auto& entry : cases) {
        SCOPED_TRACE(entry.table.toStdString());
        const BillRow row{.table = entry.table,
                          .code = "B1",
                          .day = Day(2, 8),
                          .moment = {Day(2, 8), 1},
                          .ware = "moving",
                          .rate = 2,
                          .warehouse = "01",
                          .warehouseArrival = "02",
                          .UnionAmount = 3,
                          .Moneyy_Discount = 30,
                          .Moneyy = 39,
                          .SumMoney = 42,
                          .MoneyBanlance = 7,
                          .Cost = 11,
                          .AveragePrice = 12,
                          .lastAveragePrice = 1000};
        const QString head = entry.table.section("Inf", 0, 0);
        if (head == entry.table)
            InsertRow(test, row);
        else
            InsertBill(test, head, row);
        ExpectStock(Ask(Day(2, 8), "01"), entry.amount01, entry.money01);
        ExpectStock(Ask(Day(2, 8), "02"), entry.amount02, entry.money02);
        ExpectStock(Ask(Day(2, 7)), 0, 0);
        StockQuestion converted = Ask(Day(2, 8));
        converted.moneyName = kAllCurrencies;
        ExpectStock(converted, entry.amount01 + entry.amount02, 2 * (entry.money01 + entry.money02));
        for (const QString& table : {entry.table, head})
            test.Run(Sql("delete from ") + Name(table));
    }
}

TEST_F(Balance, RoundsToThePlacesOfTheAccountSet)
{
    for (const auto& [kind, places] : {std::pair("单价型", 3), {"数值型", 1}, {"金额型", 0}})
        test.Insert("TabDotSet", {{"Name", kind}, {"Num", places}});
    Buy("B1", 3.25, 10.5);
    const TogatherData stock = GetStockBalance(test.program, Ask(Day(2, 8)));
    EXPECT_EQ(stock.ShownAmount, 3.3);
    EXPECT_EQ(stock.ShownMoney.text(), "11");
    EXPECT_EQ(stock.UnitCost, 3.333); // 11 by 3.3
    Buy("B2", -3.25, -9);
    EXPECT_EQ(GetStockBalance(test.program, Ask(Day(2, 8))).UnitCost, 0);
    ExpectStock(Ask(Day(2, 8)), 0, 2); // money may be left where no amount is
}

} // namespace
