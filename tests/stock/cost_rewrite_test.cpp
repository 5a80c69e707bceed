#include "stock/cost_rewrite.h"

#include "books.h"

#include <gtest/gtest.h>

namespace {

struct CostTable
{
    const char* table;
    const char* rewritten;
};

const CostTable kCostTables[] = {
    {"TabOutBillInf", "Cost AveragePrice"},
    {"TabElseOutBillInf", "Cost AveragePrice"},
    {"TabOutCancleBillInf", "Cost AveragePrice"},
    {"TabSamePriceMoveInf", "AveragePrice"},
    {"TabDiffPriceMoveInf", ""},
    {"TabChangePriceInf", "lastAveragePrice"},
    {"TabCheckLoseInf", "AveragePrice"},
    {"TabCheckOverInf", "AveragePrice"},
    {"TabInBillInf", "AveragePrice"},
    {"TabElseInBillInf", "AveragePrice"},
    {"TabInCancleBillInf", "AveragePrice"},
    {"TabWareGroup", "AveragePrice"},
    {"TabWareGroupInf", "AveragePrice"},
    {"TabWarePiece", "AveragePrice"},
    {"TabWarePieceInf", "AveragePrice"},
};

class CostRewrite : public testing::TestWithParam<const char*>
{
protected:
    CostRewrite() : test(GetParam()) { InsertBaseData(test); }

    void Line(const QString& table, const QString& code, const QDate& day, double price, const QString& ware = "moving",
              const QString& state = "正常")
    {
        InsertRow(test, {.table = table,
                         .code = code,
                         .day = day,
                         .moment = {day, 36000000},
                         .state = state,
                         .auditing = "张三",
                         .ware = ware,
                         .moneyName = "人民币",
                         .UnionAmount = 1,
                         .Moneyy = 1,
                         .MoneyBanlance = price,
                         .Cost = price,
                         .AveragePrice = price,
                         .lastAveragePrice = price});
    }
    /// A purchase that stores this cost.
    void Buy(const QString& code, const QDate& day, double price)
    {
        Line("TabInBill", code, day, 0);
        Line("TabInBillInf", code, day, price);
    }
    /// Sales on these days, at a cost of 1.
    void SellOn(std::initializer_list<int> februaryDays)
    {
        for (const int day : februaryDays)
            Line("TabOutBillInf", QString::number(day), Day(2, day), 1);
    }
    void Rewrite(int februaryDay, const QString& moneyName = {}, bool auditedOnly = false)
    {
        RewriteCostOverBills(test.program, "moving", "01", Day(2, februaryDay), moneyName, auditedOnly);
        EXPECT_TRUE(test.prompt.boxes.empty());
    }
    double CostOf(const char* table, const char* column, const QString& code)
    {
        const char* const key = QString(table).endsWith("Inf") ? "BillCode" : "Code";
        return test.Run(Sql("select * from ") + Name(table) + " where " + Name(key) + "=" + code).Number(column);
    }
    std::vector<double> SaleCosts(std::initializer_list<int> februaryDays)
    {
        std::vector<double> costs;
        for (const int day : februaryDays)
            costs.push_back(CostOf("TabOutBillInf", "Cost", QString::number(day)));
        return costs;
    }

    TestProgram test;
};

using Costs = std::vector<double>;

TEST_P(CostRewrite, WithoutInflowOneSpanFromTheCloseToTheDayBefore)
{
    test.Insert("TabTurn", {{"Datee", Day(2, 1)}});
    test.Insert("TabWarehouseTurn", {{"Datee", Day(2, 1)}, {"WareCode", "moving"}, {"AveragePrice", 5.5}});
    SellOn({1, 2, 7, 8, 9});
    Rewrite(8);
    EXPECT_EQ(SaleCosts({1, 2, 7, 8, 9}), (Costs{1, 5.5, 5.5, 1, 1}));
}

TEST_P(CostRewrite, SpansLieBetweenTheInflowDays)
{
    test.Insert("TabTurn", {{"Datee", Day(2, 1)}});
    test.Insert("TabWarehouseTurn", {{"Datee", Day(2, 1)}, {"WareCode", "moving"}, {"AveragePrice", 5}});
    Buy("in4", Day(2, 4), 6);
    Buy("in5", Day(2, 5), 7);
    Line("TabInBill", "void", Day(2, 7), 0, "", "作废");
    Line("TabInBillInf", "void", Day(2, 7), 6.5);
    Buy("in12", Day(2, 12), 99);
    SellOn({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    Rewrite(10);
    // The day after the close and the days of inflow keep their costs, and so does the day of the bill.
    EXPECT_EQ(SaleCosts({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}), (Costs{1, 1, 5, 1, 1, 7, 7, 7, 7, 1, 1, 1}));
    EXPECT_EQ(CostOf("TabInBillInf", "AveragePrice", "in4"), 6);
    EXPECT_EQ(CostOf("TabInBillInf", "AveragePrice", "void"), 7); // no inflow, so it takes the cost of its span
}

TEST_P(CostRewrite, WritesTheCostColumnsOfAllTablesAndNoOther)
{
    Buy("in4", Day(2, 4), 6);
    for (const CostTable& entry : kCostTables) {
        // An inflow bill in the span without a head in force is no inflow.
        Line(entry.table, "mine", Day(2, 6), 1, "moving", QString(entry.table).endsWith("Inf") ? "正常" : "作废");
        Line(entry.table, "other", Day(2, 6), 1, "fixed");
    }
    Rewrite(8);
    for (const CostTable& entry : kCostTables) {
        for (const char* column : {"Cost", "AveragePrice", "lastAveragePrice", "MoneyBanlance"}) {
            const std::vector<SchemaColumn>& columns = FindTable(entry.table)->columns;
            const bool exists = std::ranges::any_of(columns, [&](const SchemaColumn& c) { return c.name == column; });
            if (!exists)
                continue;
            const bool rewritten = QString(entry.rewritten).split(" ").contains(column);
            EXPECT_EQ(CostOf(entry.table, column, "mine"), rewritten ? 6 : 1) << entry.table << " " << column;
            EXPECT_EQ(CostOf(entry.table, column, "other"), 1) << entry.table << " " << column;
        }
    }
}

TEST_P(CostRewrite, OtherMethodsStay)
{
    for (const char* ware : {"period", "fixed", "other", "unknown"}) {
        Line("TabInBill", QString("in") + ware, Day(2, 4), 0, ware);
        Line("TabInBillInf", QString("in") + ware, Day(2, 4), 6, ware);
        Line("TabOutBillInf", ware, Day(2, 6), 1, ware);
        RewriteCostOverBills(test.program, ware, "01", Day(2, 8), {}, false);
        EXPECT_EQ(CostOf("TabOutBillInf", "Cost", ware), 1) << ware;
    }
}

TEST_P(CostRewrite, KeepsToCurrencyAndAuditMark)
{
    Buy("in4", Day(2, 4), 6);
    SellOn({6, 7});
    test.Run(Sql("update TabOutBillInf set MoneyName='美元' where BillCode='6'"));
    Rewrite(8, "人民币");
    EXPECT_EQ(SaleCosts({6, 7}), (Costs{1, 6}));
    test.Run(Sql("update TabOutBillInf set Auditing='',Cost=1 where BillCode='7'"));
    Rewrite(8, kAllCurrencies, true);
    EXPECT_EQ(SaleCosts({6, 7}), (Costs{6, 1}));
}

INSTANTIATE_TEST_SUITE_P(Dialects, CostRewrite, testing::Values("Access", "Access2"),
                         [](const auto& dialect) { return std::string(dialect.param); });

} // namespace
