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
    /// One purchase into 01 with the fields that matter.
    void Buy(const QString& code, const QDate& day, double amount, double money, BillRow line = {})
    {
        line.code = code;
        line.day = day;
        line.ware = "moving";
        line.moment = {day, 36000000};
        BillRow head = line;
        head.table = "TabInBill";
        head.warehouse = "01";
        InsertRow(test, head);
        line.table = "TabInBillInf";
        line.UnionAmount = amount;
        line.Moneyy_Discount = money;
        InsertRow(test, line);
    }
    void Snapshot(const QDate& day, int num, double amount, double money, const char* attribute = "")
    {
        test.Insert("TabWarehouseTurn", {{"Num", num},
                                         {"Datee", day},
                                         {"WareCode", "moving"},
                                         {"WarehouseCode", "01"},
                                         {"Amount", amount},
                                         {"Cost", money},
                                         {"MoneyRate", 2.0},
                                         {"MoneyName", "人民币"},
                                         {"AttributeCode", attribute}});
    }

    TestProgram test;
};

TEST_F(Balance, EverySourceMovesItsWarehouse)
{
    const struct
    {
        const char* head;
        const char* line;
        double amount01, money01, amount02, money02;
    } cases[] = {
        {"TabInBill", "TabInBillInf", 3, 30, 0, 0},
        {"TabInCancleBill", "TabInCancleBillInf", -3, -30, 0, 0},
        {"TabElseInBill", "TabElseInBillInf", 3, 30, 0, 0},
        {"TabOutBill", "TabOutBillInf", -3, -33, 0, 0},
        {"TabOutCancleBill", "TabOutCancleBillInf", 3, 33, 0, 0},
        {"TabElseOutBill", "TabElseOutBillInf", -3, -33, 0, 0},
        {"TabSamePriceMove", "TabSamePriceMoveInf", -3, -36, 3, 36},
        {"TabDiffPriceMove", "TabDiffPriceMoveInf", 0, 0, 0, 0},
        {"TabChangePrice", "TabChangePriceInf", 0, 7, 0, 0},
        {"TabCheckLose", "TabCheckLoseInf", -3, -36, 0, 0},
        {"TabCheckOver", "TabCheckOverInf", 3, 36, 0, 0},
        {"TabWareGroup", "TabWareGroupInf", -3, -39, 0, 0},
        {"TabWareGroup", nullptr, 0, 0, 3, 42},
        {"TabWarePiece", "TabWarePieceInf", 0, 0, 3, 39},
        {"TabWarePiece", nullptr, -3, -42, 0, 0},
    };
    for (const auto& entry : cases) {
        SCOPED_TRACE(entry.line ? entry.line : entry.head);
        const BillRow values{.table = entry.head,
                             .code = "B1",
                             .day = Day(2, 8),
                             .moment = {Day(2, 8), 1},
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
        BillRow head = values;
        head.ware = entry.line ? "other" : "moving";
        InsertRow(test, head);
        if (entry.line) {
            BillRow line = values;
            line.table = entry.line;
            line.ware = "moving";
            InsertRow(test, line);
        }
        ExpectStock(Ask(Day(2, 8), "01"), entry.amount01, entry.money01);
        ExpectStock(Ask(Day(2, 8), "02"), entry.amount02, entry.money02);
        ExpectStock(Ask(Day(2, 7)), 0, 0);
        StockQuestion converted = Ask(Day(2, 8));
        converted.moneyName = kAllCurrencies;
        ExpectStock(converted, entry.amount01 + entry.amount02, 2 * (entry.money01 + entry.money02));
        for (const char* table : {entry.head, entry.line})
            if (table)
                test.Run(Sql("delete from ") + Name(table));
    }
}

TEST_F(Balance, VoidedRowsDoNotCount)
{
    // Of the siblings' bills the head decides, of this module's own the line.
    const struct
    {
        const char* head;
        const char* line;
        QString headState, lineState;
        double amount;
    } cases[] = {
        {"TabInBill", "TabInBillInf", "作废", "正常", 0},
        {"TabInBill", "TabInBillInf", "正常", "作废", 3},
        {"TabCheckOver", "TabCheckOverInf", "正常", "作废", 0},
        {"TabCheckOver", "TabCheckOverInf", "作废", "正常", 3},
    };
    for (const auto& entry : cases) {
        BillRow row{.table = entry.head, .code = "B1", .day = Day(2, 8), .moment = {Day(2, 8), 1}, .warehouse = "01"};
        row.state = entry.headState;
        InsertRow(test, row);
        row.table = entry.line;
        row.state = entry.lineState;
        row.ware = "moving";
        row.UnionAmount = 3;
        InsertRow(test, row);
        ExpectStock(Ask(Day(2, 8)), entry.amount, 0);
        test.Run(Sql("delete from ") + Name(entry.head));
        test.Run(Sql("delete from ") + Name(entry.line));
    }
}

TEST_F(Balance, StartsFromTheLastClose)
{
    Snapshot(Day(1, 1), 1, 100, 1000);
    Buy("B1", Day(1, 15), 10, 110);
    ExpectStock(Ask(Day(1, 31)), 110, 1110);

    test.Insert("TabTurn", {{"Datee", Day(1, 31)}});
    Snapshot(Day(1, 31), 2, 50, 501);
    Buy("B2", Day(1, 31), 1, 1);
    Buy("B3", Day(2, 1), 2, 23);
    ExpectStock(Ask(Day(1, 31)), 50, 501); // the snapshot holds all of its day
    ExpectStock(Ask(Day(2, 1)), 52, 524);
    ExpectStock(Ask(Day(1, 30)), 110, 1110);
}

TEST_F(Balance, DimensionsWalkFromTheOpening)
{
    Snapshot(Day(1, 1), 1, 5, 50, "01");
    test.Insert("TabTurn", {{"Datee", Day(1, 31)}});
    Snapshot(Day(1, 31), 2, 999, 999, "01");
    Buy("B1", Day(1, 15), 10, 110,
        {.dimensions = {.AttributeCode = "0102", .WareSpec = "L", .Manufacturer = "M", .Brand = "B", .PCode = "P"}});
    Buy("B2", Day(1, 15), 100, 1100, {.dimensions = {.AttributeCode = "02"}});

    StockQuestion question = Ask(Day(2, 8));
    question.dimensions = {.AttributeCode = "01"};
    ExpectStock(question, 15, 160);
    question.attributeExact = true;
    ExpectStock(question, 5, 50);
    for (const Dimensions& one : {Dimensions{.WareSpec = "L"}, Dimensions{.Manufacturer = "M"},
                                  Dimensions{.Brand = "B"}, Dimensions{.PCode = "P"}}) {
        question.dimensions = one;
        ExpectStock(question, 10, 110);
    }
    question.dimensions = {.WareSpec = " "}; // blanks limit nothing
    ExpectStock(question, 999, 999);
}

TEST_F(Balance, CurrenciesAndAuditMarks)
{
    Snapshot(Day(1, 1), 1, 5, 50);
    Buy("B1", Day(2, 1), 10, 110, {.auditing = "张三", .moneyName = "人民币", .rate = 1});
    Buy("B2", Day(2, 1), 20, 30, {.moneyName = "美元", .rate = 7});

    const struct
    {
        const char* moneyName;
        bool auditedOnly;
        double amount, money;
    } cases[] = {{"", false, 35, 190},           {"人民币", false, 15, 160},    {"美元", false, 20, 30},
                 {"综合本位币", false, 35, 420}, {"综合本位币", true, 15, 210}, {"", true, 15, 160}};
    for (const auto& entry : cases) {
        StockQuestion question = Ask(Day(2, 8));
        question.moneyName = entry.moneyName;
        question.auditedOnly = entry.auditedOnly;
        ExpectStock(question, entry.amount, entry.money);
    }
}

TEST_F(Balance, RoundsToThePlacesOfTheAccountSet)
{
    test.Insert("TabDotSet", {{"Name", "单价型"}, {"Num", 3}});
    test.Insert("TabDotSet", {{"Name", "数值型"}, {"Num", 1}});
    test.Insert("TabDotSet", {{"Name", "金额型"}, {"Num", 0}});
    Buy("B1", Day(2, 1), 3.25, 10.5);
    const TogatherData stock = GetStockBalance(test.program, Ask(Day(2, 8)));
    EXPECT_EQ(stock.ShownAmount, 3.3);
    EXPECT_EQ(stock.ShownMoney.text(), "11");
    EXPECT_EQ(stock.UnitCost, 3.333); // 11 by 3.3
    Buy("B2", Day(2, 1), -3.25, -9);
    EXPECT_EQ(GetStockBalance(test.program, Ask(Day(2, 8))).UnitCost, 0);
    ExpectStock(Ask(Day(2, 8)), 0, 2); // money may be left where no amount is
}

} // namespace
