#include "data/dimensions.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

TEST(Dimensions, NothingToLimitIsNoCondition)
{
    EXPECT_TRUE(BuildDimensionFilter("TabInBillInf", {}, true, false, "").isEmpty());
    EXPECT_TRUE(BuildDimensionFilter("", {"  ", "", " ", "", ""}, false, false, " 综合本位币 ").isEmpty());
    EXPECT_FALSE(Dimensions{.Brand = "  "}.any());
    EXPECT_TRUE(Dimensions{.PCode = "B1"}.any());
}

TEST(Dimensions, ConditionsStandInTheirOrder)
{
    const Dimensions all{"01", "大", "厂", "O'Neil", " B1"};
    EXPECT_EQ(BuildDimensionFilter("TabInBillInf", all, true, true, "美元").ProgramText(true),
              "  and  TabInBillInf.AttributeCode  like '01%'   and  TabInBillInf.WareSpec = '大' "
              "  and  TabInBillInf.Manufacturer = '厂'   and  TabInBillInf.Brand = 'O''Neil' "
              "  and  TabInBillInf.PCode = ' B1'   and  TabInBillInf.Auditing <> '' "
              "  and  TabInBillInf.MoneyName = '美元' ");
    EXPECT_EQ(BuildDimensionFilter("", {.AttributeCode = "01"}, false, true, "").ProgramText(true),
              "  and  AttributeCode = '01'   and  Auditing <> '' ");
    EXPECT_EQ(BuildDimensionFilter("TabWarehouseTurn", {.Brand = "甲"}, true, true, "美元").ProgramText(true),
              "  and  TabWarehouseTurn.Brand = '甲'   and  TabWarehouseTurn.MoneyName = '美元' ");
}
