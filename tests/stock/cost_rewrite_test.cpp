#include "stock/cost_rewrite.h"

#include "books.h"

#include <gtest/gtest.h>

namespace {

class CostRewrite : public testing::TestWithParam<const char*>
{
protected:
    CostRewrite() : test(GetParam()) { InsertBaseData(test); }

    void Close(const QDate& day, double price)
    {
        test.Insert("TabTurn", {{"Datee", day}});
        test.Insert("TabWarehouseTurn", {{"Datee", day}, {"WareCode", "moving"}, {"AveragePrice", price}});
    }
    void Line(const QString& table, const QString& code, const QDate& day, double price, const QString& ware = "moving")
    {
        InsertRow(test, {.table = table,
                         .code = code,
                         .day = day,
                         .moment = {day, 36000000},
                         .ware = ware,
                         .UnionAmount = 1,
                         .MoneyBanlance = price,
                         .Cost = price,
                         .AveragePrice = price,
                         .lastAveragePrice = price});
    }
    /// A purchase that stores this cost.
    void Buy(const QString& code, const QDate& day, double price, const QString& ware = "moving")
    {
        Line("TabInBill", code, day, 0);
        Line("TabInBillInf", code, day, price, ware);
    }
    /// Sales on these days, at a cost of 1.
    void SellOn(std::initializer_list<int> februaryDays)
    {
        for (const int day : februaryDays)
            Line("TabOutBillInf", QString::number(day), Day(2, day), 1);
    }
    void Rewrite(int februaryDay, const QString& ware = "moving")
    {
        RewriteCostOverBills(test.program, ware, "01", Day(2, februaryDay), {}, false);
        EXPECT_TRUE(test.prompt.boxes.empty());
    }
    std::vector<double> SaleCosts()
    {
        const Recordset rows = test.Run(Sql("select Cost from TabOutBillInf order by Datee"));
        std::vector<double> costs;
        for (int row = 0; row < rows.size(); ++row)
            costs.push_back(rows.Number("Cost", row));
        return costs;
    }

    TestProgram test;
};

using Costs = std::vector<double>;

TEST_P(CostRewrite, WithoutInflowOneSpanFromTheCloseToTheDayBefore)
{
    Close(Day(2, 1), 5.5);
    SellOn({1, 2, 7, 8, 9});
    Rewrite(8);
    EXPECT_EQ(SaleCosts(), (Costs{1, 5.5, 5.5, 1, 1}));
}

TEST_P(CostRewrite, SpansLieBetweenTheInflowDays)
{
    Close(Day(2, 1), 5);
    Buy("in4", Day(2, 4), 6);
    Buy("in5", Day(2, 5), 7);
    Buy("void", Day(2, 7), 6.5);
    test.Run(Sql("update TabInBill set State='作废' where Code='void'"));
    Buy("in12", Day(2, 12), 99);
    SellOn({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    Rewrite(10);
    // The day after the close and the days of inflow keep their costs, and so does the day of the bill.
    EXPECT_EQ(SaleCosts(), (Costs{1, 1, 5, 1, 1, 7, 7, 7, 7, 1, 1, 1}));
}

TEST_P(CostRewrite, WritesTheCostColumnsOfAllTablesAndNoOther)
{
    Buy("in4", Day(2, 4), 6);
    // Lines without a head in force and a voided product are no inflow.
    const QStringList sold = {"TabOutBillInf", "TabElseOutBillInf", "TabOutCancleBillInf"};
    const QStringList others = {"TabSamePriceMoveInf", "TabDiffPriceMoveInf", "TabChangePriceInf",  "TabCheckLoseInf",
                                "TabCheckOverInf",     "TabInBillInf",        "TabElseInBillInf",   "TabWareGroup",
                                "TabWareGroupInf",     "TabWarePiece",        "TabInCancleBillInf", "TabWarePieceInf"};
    for (const QString& table : sold + others)
        for (const char* ware : {"moving", "fixed"})
            Line(table, ware, Day(2, 6), 1, ware);
    for (const char* head : {"TabWareGroup", "TabWarePiece"})
        test.Run(Sql("update ") + head + " set State='作废'");
    Rewrite(8);
    for (const QString& table : sold + others) {
        const bool isRevaluation = table == "TabChangePriceInf";
        const std::pair<const char*, bool> columns[] = {
            {"Cost", sold.contains(table)},
            {"AveragePrice", !isRevaluation && table != "TabDiffPriceMoveInf"},
            {"lastAveragePrice", isRevaluation},
            {"MoneyBanlance", false},
        };
        const Recordset rows =
            test.Run(Sql("select * from ") + Name(table) + " where Datee=" + Day(2, 6) + " order by WareCode desc");
        for (const auto& [column, isRewritten] : columns)
            if (HasColumn(table, column)) {
                EXPECT_EQ(rows.Number(column), isRewritten ? 6 : 1) << table.toStdString() << " " << column;
                EXPECT_EQ(rows.Number(column, 1), 1) << table.toStdString() << " " << column;
            }
    }
}

TEST_P(CostRewrite, OtherMethodsStay)
{
    for (const char* ware : {"period", "fixed", "other", "unknown"}) {
        Buy(QString("in") + ware, Day(2, 4), 6, ware);
        Line("TabOutBillInf", ware, Day(2, 6), 1, ware);
        Rewrite(8, ware);
    }
    EXPECT_EQ(SaleCosts(), (Costs{1, 1, 1, 1}));
}

INSTANTIATE_TEST_SUITE_P(Dialects, CostRewrite, testing::Values("Access", "Access2"),
                         [](const auto& dialect) { return std::string(dialect.param); });

} // namespace
