#include "output/grid_export.h"

#include "support/memory_workbook.h"
#include "support/test_program.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

struct GridExport : testing::Test
{
    MemorySpreadsheet office;
    std::vector<QStringList> HandedOver() { return office.handedOver.back().book.front().Texts(); }
};

TEST_F(GridExport, WhatIsHiddenLeavesNoGap)
{
    const GridTable grid{
        {300, 0, 1500, 900},
        {255, 0, 255, 255},
        {{"", "hidden", "编号", "数量"}, {"1", "x", "gone", "1"}, {"2", "x", "001", "=1+1"}, {"", "", "", ""}}};
    EXPECT_EQ(TextsInSight(grid), std::vector<QStringList>({{"", "编号", "数量"}, {"2", "001", "=1+1"}, {"", "", ""}}));
    EXPECT_TRUE(TextsInSight({}).empty());
}

TEST_F(GridExport, TheWorkbookHoldsTextsOnly)
{
    OpenNewWorkbook(office, {{"编号", "数量"}, {"001", "=1+1"}, {"", "1,234.50"}}, "数据导出");
    ASSERT_EQ(office.handedOver.size(), 1U);
    const auto& handed = office.handedOver.front();
    EXPECT_EQ(handed.caption, "数据导出");
    EXPECT_TRUE(handed.isNew) << "a copy without a name";
    EXPECT_TRUE(handed.path.endsWith(".xlsx")) << "the older format ends at 65,536 rows";
    EXPECT_FALSE(QFile::exists(handed.path)) << "nothing is left behind";
    EXPECT_EQ(HandedOver(), std::vector<QStringList>({{"编号", "数量"}, {"001", "=1+1"}, {"", "1,234.50"}}));
    for (const auto& row : handed.book.front().rows)
        for (const SheetCell& cell : row)
            EXPECT_TRUE(std::holds_alternative<QString>(cell));
}

TEST_F(GridExport, ManyRowsAreTold)
{
    std::vector<std::pair<int, int>> told;
    OpenNewWorkbook(office, std::vector<QStringList>(1200, {"a"}), "c",
                    [&told](int done, int total) { told.emplace_back(done, total); });
    EXPECT_EQ(told, (std::vector<std::pair<int, int>>{{500, 1200}, {1000, 1200}, {1200, 1200}}));
    EXPECT_EQ(HandedOver().size(), 1200U);
}

TEST_F(GridExport, AnEmptyGridIsAnEmptySheet)
{
    OpenNewWorkbook(office, {}, "c");
    OpenNewWorkbook(office, {{}, {}}, "c");
    EXPECT_EQ(office.handedOver.size(), 2U);
    EXPECT_TRUE(HandedOver().empty());
}

TEST_F(GridExport, AFailureHandsNothingOver)
{
    for (const char* operation : {"Create", "Write", "SaveAs"}) {
        office.failures = {{operation, {SpreadsheetError::Kind::CannotSave, operation}}};
        EXPECT_THROW(OpenNewWorkbook(office, {{"a"}}, "c"), SpreadsheetError) << operation;
        EXPECT_TRUE(office.handedOver.empty());
    }
}

} // namespace
