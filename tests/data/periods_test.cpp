#include "data/periods.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

TEST(Periods, ADayIsClosedByTheLastClosing)
{
    TestProgram test;
    const QDate today(2023, 2, 8);
    EXPECT_FALSE(IsDayClosed(test.program, today, true));
    test.Insert("TabTurnDay", {{"Datee", today.addDays(-1)}});
    EXPECT_TRUE(IsDayClosed(test.program, today.addDays(-1), false));
    EXPECT_FALSE(IsDayClosed(test.program, today, true));
    EXPECT_TRUE(test.prompt.TakeTexts().isEmpty());
    test.Insert("TabTurn", {{"Datee", today.addDays(1)}});
    EXPECT_TRUE(IsDayClosed(test.program, today, true));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList{"今天已结转，禁止当前操作！"});
}

TEST(Periods, AnUnansweredQuestionProtects)
{
    TestProgram test;
    test.Run(Sql("drop table TabTurn"));
    EXPECT_TRUE(IsDayClosed(test.program, QDate(2023, 2, 8), true));
    EXPECT_TRUE(HasWarehouseClosing(test.program));
    for (const auto& box : test.prompt.boxes)
        EXPECT_EQ(box.kind, "error");
    EXPECT_EQ(test.prompt.boxes.size(), 2U);
}

TEST(Periods, OnlyARealClosingGuardsTheOpeningStock)
{
    TestProgram test;
    test.Insert("TabTurn", {{"Datee", kNoDate}});
    EXPECT_FALSE(HasWarehouseClosing(test.program));
    test.Insert("TabTurn", {{"Datee", QDate(2022, 12, 31)}});
    EXPECT_TRUE(HasWarehouseClosing(test.program));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList{"已经作过仓库期末结转，不允许再修改期初库存数！"});
}

TEST(Periods, WithoutRowsPeriodsAreCalendarMonths)
{
    TestProgram test;
    EXPECT_EQ(GetPeriodStartDate(test.program, 2023, 3), QDate(2023, 3, 1));
    EXPECT_EQ(GetPeriodEndDate(test.program, 2023, 3), QDate(2023, 3, 31));
    EXPECT_EQ(GetPeriodStartDate(test.program, 2023, 1), QDate(2023, 1, 1));
    EXPECT_EQ(GetPeriodMonth(test.program, QDate(2023, 3, 26)), "3");
    EXPECT_EQ(GetPeriodEndDay(test.program, "2", "2024"), "29");
    EXPECT_EQ(GetPeriodEndDay(test.program, "0", " "), "31");
    EXPECT_EQ(GetPeriodEndDay(test.program, "13", ""), "31");
    EXPECT_EQ(GetMonthEndDay(test.program, "2", ""), "28");
    EXPECT_EQ(GetMonthEndDay(test.program, "0", "2023"), "");
    EXPECT_EQ(GetPeriodMonth(test.program, {}) + GetPeriodYear(test.program, {}), "");
}

TEST(Periods, AMonthCanCloseOnADayOfItsOwn)
{
    TestProgram test;
    test.Insert("TabAccountAreaSet", {{"DateeM", 3}, {"DateeD", 25}});
    test.Insert("TabAccountAreaSet", {{"DateeM", 12}, {"DateeD", 25}});
    EXPECT_EQ(GetPeriodEndDay(test.program, "3", "2023"), "25");
    EXPECT_EQ(GetPeriodStartDate(test.program, 2023, 4), QDate(2023, 3, 26));
    EXPECT_EQ(GetPeriodMonth(test.program, QDate(2023, 3, 25)), "3");
    EXPECT_EQ(GetPeriodMonth(test.program, QDate(2023, 3, 26)), "4");
    EXPECT_EQ(GetPeriodMonth(test.program, QDate(2023, 12, 28)), "1");
    EXPECT_EQ(GetPeriodYear(test.program, QDate(2023, 12, 28)), "2024");

    // A January without a row of its own does not look at December's, one with a row does.
    EXPECT_EQ(GetPeriodStartDate(test.program, 2024, 1), QDate(2024, 1, 1));
    test.Insert("TabAccountAreaSet", {{"DateeM", 1}, {"DateeD", 20}});
    EXPECT_EQ(GetPeriodStartDate(test.program, 2024, 1), QDate(2023, 12, 26));
    EXPECT_EQ(GetPeriodMonth(test.program, QDate(2024, 1, 21)), "2");
}

TEST(Periods, ADayThatTheMonthLacksIsNoDate)
{
    TestProgram test;
    test.Insert("TabAccountAreaSet", {{"DateeM", 4}, {"DateeD", 31}});
    EXPECT_FALSE(GetPeriodEndDate(test.program, 2023, 4).isValid());
    EXPECT_FALSE(GetPeriodStartDate(test.program, 2023, 5).isValid());
    EXPECT_EQ(GetPeriodMonth(test.program, QDate(2023, 4, 8)), "");
    EXPECT_EQ(GetPeriodYear(test.program, QDate(2023, 5, 8)), "");
}
