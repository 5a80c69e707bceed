#include "data/schema.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

namespace {
/// Position of a column as the positional inserts count it, from 1.
int PositionOf(const char* table, const char* column)
{
    const SchemaTable* const schema = FindTable(table);
    for (size_t index = 0; schema && index < schema->columns.size(); ++index)
        if (schema->columns[index].name == QString(column))
            return static_cast<int>(index) + 1;
    return 0;
}
} // namespace

TEST(Schema, ColumnsStandWhereThePositionalInsertsPutThem)
{
    const std::tuple<const char*, const char*, int, size_t> places[] = {
        {"TabSamePriceMove", "Report", 13, 18},      {"TabDiffPriceMove", "MoneyBanlance", 13, 19},
        {"TabDiffPriceMove", "Auditing", 19, 19},    {"TabChangePrice", "MoneyBanlance", 11, 17},
        {"TabCheckLose", "Report", 11, 16},          {"TabCheckOver", "SaleMan", 13, 16},
        {"TabWareGroup", "StockInAmount", 20, 37},   {"TabWareGroup", "OnlyCode", 32, 37},
        {"TabWarePiece", "WareSpec", 34, 37},        {"TabWarePiece", "Custom3", 37, 37},
        {"TabSamePriceMoveInf", "State", 11, 28},    {"TabDiffPriceMoveInf", "MoneyBanlance", 13, 31},
        {"TabDiffPriceMoveInf", "State", 14, 31},    {"TabChangePriceInf", "lastAveragePrice", 15, 32},
        {"TabCheckOverInf", "DateTimee", 12, 28},    {"TabWareGroupInf", "State", 12, 30},
        {"TabWarePieceInf", "AveragePrice", 13, 30}, {"TabWarePieceInf", "OnlyCode", 26, 30},
        {"TabWarrant", "JXCBillCode", 14, 25},       {"TabWarrant", "IsLoss", 25, 25},
        {"TabWarrantInf", "Debtor", 10, 27},         {"TabWarrantInf", "ZDYHS", 25, 27},
        {"TabPrintMSHSet", "ContentAlign", 12, 18},
    };
    for (const auto& [table, column, position, columns] : places) {
        EXPECT_EQ(PositionOf(table, column), position) << table << "." << column;
        EXPECT_EQ(FindTable(table)->columns.size(), columns) << table;
    }
    EXPECT_EQ(FindTable("TabNothing"), nullptr);
}

TEST(Schema, EveryTableTakesARow)
{
    TestProgram test;
    for (const SchemaTable& table : Schema()) {
        test.Insert(table.name.toUtf8(), {});
        EXPECT_EQ(test.Run(Sql("select * from ") + Name(table.name)).columns().size(), table.columns.size());
    }
}

TEST(Schema, AFormThatWouldNotCompareIsRefused)
{
    if (!TestServer().isEmpty())
        GTEST_SKIP() << "only a file keeps dates as texts";
    const auto accepts = [](TestProgram& test, const char* column, const Value& value) {
        const Recordset rs = OpenQuery(test.program, Sql("update TabWareGroup set ") + column + "=" + Sql() + value);
        test.prompt.TakeTexts();
        return static_cast<bool>(rs);
    };
    TestProgram test;
    test.Insert("TabWareGroup", {{"Code", "ZZD1"}});
    const std::tuple<const char*, QString, bool> cases[] = {
        {"Datee", "2023-02-08", true},
        {"Datee", "2023-2-8|2023-02-08 09:30:00|", false},
        {"DateTimee", "2023-02-08|2023-02-08 09:30:00|2023-02-08 09:30:00.004|2023-02-08 00:00:00.004", true},
        {"DateTimee", "2023-02-08 00:00:00|2023-02-08 09:30:00.000|2023-02-08 9:30", false},
        {"Cost", "12.5", true},
        {"Cost", "|x", false},
        {"SCDate", "明年", true},
        {"Code", QString(50, u'字'), true},
        {"Code", QString(51, u'字'), false},
        {"WareName", QString(256, u'字'), false},
        {"Custom3", QString(5000, u'字'), true},
    };
    for (const auto& [column, texts, accepted] : cases)
        for (const QString& text : texts.split('|'))
            EXPECT_EQ(accepts(test, column, text), accepted) << column << " " << text.toStdString();
    EXPECT_TRUE(accepts(test, "Cost", {}));
}

TEST(Schema, CodesCompareWithoutRegardToCaseAndArePrimaryKeys)
{
    TestProgram test;
    test.Insert("TabWare", {{"Code", "Ab1"}});
    EXPECT_EQ(test.Run(Sql("select * from TabWare where Code=") + QString("aB1")).size(), 1);
    EXPECT_FALSE(OpenQuery(test.program, Sql("insert into TabWare select * from TabWare")));
}

TEST(Schema, ACodeIsFoundByItsStartThroughTheKey)
{
    if (!TestServer().isEmpty())
        GTEST_SKIP() << "the plan of a file";
    TestProgram test;
    const Recordset plan =
        test.Run(Sql("explain query plan select max(Code) as Codee from TabSamePriceMove where Code like ") +
                 QString("TDD2023%"));
    EXPECT_TRUE(plan.Text("detail").startsWith("SEARCH")) << plan.Text("detail").toStdString();
}
