#include "data/lookups.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

namespace {
void InsertTree(TestProgram& test, const char* table)
{
    for (const auto& [code, name, parent] : {std::tuple("01", "原材料", "0"),
                                             {"0101", "钢材", "01"},
                                             {"010101", "螺纹钢", "0101"},
                                             {"02", "孤儿", "99"},
                                             {"03", "环", "03"}})
        test.Insert(table, {{"Code", code}, {"Name", name}, {"ParentCode", parent}});
}
} // namespace

TEST(Lookups, OnlyALeafMayStandOnABill)
{
    TestProgram test;
    InsertTree(test, "TabWarehouseType");
    const auto leaf = CheckLastLevel(test.program, " 螺纹钢 ", "TabWarehouseType", KeyKind::Name);
    ASSERT_TRUE(leaf);
    EXPECT_EQ(leaf->Code, "010101");
    EXPECT_EQ(CheckLastLevel(test.program, "010101", "TabWarehouseType", KeyKind::Code)->Name, "螺纹钢");
    EXPECT_FALSE(CheckLastLevel(test.program, "0101", "TabWarehouseType", KeyKind::Code));
    EXPECT_FALSE(CheckLastLevel(test.program, "无", "TabWarehouseType", KeyKind::Name));
    EXPECT_FALSE(CheckLastLevel(test.program, "", "TabNothing", KeyKind::Name));
    EXPECT_TRUE(test.prompt.TakeTexts().isEmpty());
}

TEST(Lookups, PathsRunFromTheRoot)
{
    TestProgram test;
    InsertTree(test, "TabAttribute");
    EXPECT_EQ(GetTreePathText(test.program, "TabAttribute", "010101"), "原材料>钢材>螺纹钢");
    EXPECT_EQ(GetTreePathText(test.program, "TabAttribute", "01"), "原材料");
    EXPECT_EQ(GetTreePathText(test.program, "TabAttribute", "02"), "孤儿");
    EXPECT_EQ(GetTreePathText(test.program, "TabAttribute", "77"), "77");
    EXPECT_EQ(GetTreePathText(test.program, "TabAttribute", " "), " ");
    EXPECT_TRUE(GetTreePathText(test.program, "TabAttribute", "03").startsWith("环>环"));
    EXPECT_EQ(AttributeCell(test.program, "0101"), "0101>原材料>钢材");
    EXPECT_EQ(AttributeCell(test.program, " "), "");
    EXPECT_EQ(PathHead(" 0101>原材料>钢材"), "0101");
    EXPECT_EQ(PathTail("0101>原材料>钢材 "), "钢材");
    EXPECT_EQ(PathHead("钢材") + PathTail("钢材"), "");
}

TEST(Lookups, AccountSubjects)
{
    TestProgram test;
    InsertTree(test, "TabAccountantType");
    test.Run(Sql("update TabAccountantType set BMHS=1 where Code='0101'"));
    EXPECT_EQ(GetAccountPathName(test.program, "0101", false), "原材料>钢材");
    EXPECT_EQ(GetAccountPathName(test.program, "0101", true), "0101>原材料>钢材");
    EXPECT_EQ(GetAccountPathName(test.program, "77", true), "");
    EXPECT_EQ(GetAccountName(test.program, "0101"), "钢材");
    EXPECT_EQ(GetAccountCheckValue(test.program, " 部门核算 ", "0101", " 一部 "), "一部");
    EXPECT_EQ(GetAccountCheckValue(test.program, "个人核算", "0101", "张"), "");
    EXPECT_EQ(GetAccountCheckValue(test.program, "部门核算", "77", "一部"), "");
    EXPECT_EQ(GetAccountCheckValue(test.program, "自定义核算", "0101", "甲"), "");
    EXPECT_EQ(SumQueryAmount(test.program, Sql("select sum(Rate) as sumJE from TabMoneyType")), Currency());
    EXPECT_EQ(SumQueryAmount(test.program, Sql()), Currency());
}

TEST(Lookups, CurrencyAndTemplates)
{
    TestProgram test;
    EXPECT_EQ(GetBaseCurrencyName(test.program), "");
    EXPECT_EQ(GetBaseCurrencyRate(test.program), 0);
    test.Insert("TabMoneyType", {{"Name", "美元"}, {"Rate", 6.8}, {"IsBWB", "否"}});
    test.Insert("TabMoneyType", {{"Name", "人民币"}, {"Rate", 1}, {"IsBWB", "是"}});
    EXPECT_EQ(GetBaseCurrencyName(test.program), "人民币");
    EXPECT_EQ(GetBaseCurrencyRate(test.program), 1);
    EXPECT_EQ(SumQueryAmount(test.program, Sql("select sum(Rate) as sumJE from TabMoneyType")),
              Currency::FromUnits(78000));

    test.Insert("TabExcelTable", {{"TabName", "乙"}, {"TabType", "同价调拨单"}, {"OrderBy", 1}});
    test.Insert("TabExcelTable", {{"TabName", "丙"}, {"TabType", "同价调拨单"}, {"OrderBy", 2}});
    test.Insert("TabExcelTable", {{"TabName", "甲"}, {"TabType", "盘点报损单"}, {"OrderBy", 0}});
    EXPECT_EQ(TemplateNames(test.program, "同价调拨单"), QStringList({"乙", "丙"}));
}

TEST(Lookups, UnitRatioIsSinglePrecision)
{
    TestProgram test;
    test.Insert("TabWare", {{"Code", "A"}, {"Unite", "箱"}, {"SecondUnite", "瓶 "}, {"UniteRelation", 12}});
    test.Insert("TabWare", {{"Code", "B"}, {"Unite", "箱"}, {"SecondUnite", "瓶"}});
    EXPECT_EQ(GetUnitRatio(test.program, "A", "瓶"), 1.0f / 12);
    EXPECT_EQ(GetUnitRatio(test.program, "A", "箱"), 1.0f);
    EXPECT_EQ(GetUnitRatio(test.program, "B", "瓶"), 1.0f);
    EXPECT_EQ(GetUnitRatio(test.program, "C", "瓶"), 1.0f);
}

TEST(Lookups, TitlesAreFoundInFortyColumns)
{
    QStringList titles(41);
    titles[2] = titles[5] = " 数量　";
    titles[39] = "备注";
    titles[40] = "属性";
    const std::pair<const char*, int> columns[] = {{"数量 ", 3}, {"备注", 40}, {"属性", 41}, {"单价", 41}, {" ", 41}};
    for (const auto& [caption, column] : columns)
        EXPECT_EQ(FindExcelColumn(titles, caption), column) << caption;
    EXPECT_EQ(FindExcelColumn({}, "备注"), kNoExcelColumn);
}
