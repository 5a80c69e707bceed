#include "data/decimals.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

TEST(Decimals, PlacesComeFromTheAccountSet)
{
    TestProgram test;
    LoadDecimalPlaces(test.program);
    EXPECT_EQ(test.program.gDot.Price_DotLen, -3);
    EXPECT_EQ(test.program.gDot.Money_DotLen, -3);

    for (const auto& [kind, places] : {std::pair("单价型", 4), {"数值型", -2}, {"货币型", 2}})
        test.Insert("TabDotSet", {{"Name", kind}, {"Num", places}});
    LoadDecimalPlaces(test.program);
    EXPECT_EQ(test.program.gDot.Price_DotLen, 4);
    EXPECT_EQ(test.program.gDot.Amount_DotLen, -2);
    EXPECT_EQ(test.program.gDot.Money_DotLen, 2);
}

TEST(Decimals, AMissingAccountSetIsSaidOnce)
{
    if (!TestServer().isEmpty())
        GTEST_SKIP() << "a missing file";
    TestProgram test;
    QFile::remove(test.databasePath());
    LoadDecimalPlaces(test.program);
    EXPECT_EQ(test.prompt.TakeTexts().size(), 1);
    EXPECT_EQ(test.program.gDot.Price_DotLen, -3);
}

TEST(Decimals, FormatByDigits)
{
    const std::tuple<Value, int, const char*> cases[] = {
        {QString("1。5"), 2, "1.50"},
        {1234.5, 2, "1,234.50"},
        {1234.5, -1, "1,234.50"},
        {1234.5, -3, "1234.50"},
        {-1234.5, 0, "-1,235"},
        {1.005, 2, "1.01"},
        {0.5, -2, " .5"},
        {qint64(7), 0, "7"},
        {Currency::FromUnits(12345), 4, "1.2345"},
        {QString("12abc"), 1, "12.0"},
        {QString("abc"), 2, "0.00"},
        {QString("1,234"), 2, "1.00"},
        {QString(""), 2, ""},
        {{}, 2, ""},
    };
    for (const auto& [value, digits, shown] : cases)
        EXPECT_EQ(FormatByDigits(value, digits), shown) << shown;
    EXPECT_EQ(RoundByDigits(2.5, 0), 3);
    EXPECT_EQ(RoundByDigits(1.239, -3), 1.24);
    EXPECT_EQ(RoundByDigits(1.23456, -2), 1.23456);
    EXPECT_EQ(RoundByDigits(0.1 + 0.7, -2), 0.8) << "what is shown and read back";
}

TEST(Decimals, FormatByType)
{
    const std::tuple<const char*, Value, const char*> unset[] = {
        {"日期型", QDate(2023, 2, 8), "2023-02-08"},
        {" 日期型 ", QString("2023-2-8 10:00"), "2023-02-08"},
        {"日期型", QString("明天"), "明天"},
        {"数值型", 1234.567891, "1234.5679"},
        {"数值型", 1234.5, " 1234.5"},
        {"单价型", 0.00000012, "0.0000"},
        {"货币型", QString("1。255"), "1.26"},
        {"金额型", 1.23456, " 1.23456"}, // without a row it is no kind
        {"文本型", QString("abc"), " 0"},
        {"数值型", {}, ""},
    };
    TestProgram test;
    for (const auto& [type, value, shown] : unset)
        EXPECT_EQ(FormatByType(test.program, value, type), shown) << type;

    test.Insert("TabDotSet", {{"Name", "金额型"}, {"Num", 1}});
    EXPECT_EQ(FormatByType(test.program, 1234.56, "货币型"), "1,234.6");
    EXPECT_EQ(FormatByType(test.program, 1234.56, "金额型"), "1,234.6");
}

TEST(Decimals, GetDigitsByType)
{
    TestProgram test;
    const std::pair<const char*, int> unset[] = {
        {"数值型", 4}, {"单价型", 4}, {" 金额型", 2}, {"货币型", 2}, {"别的", 4}};
    for (const auto& [kind, places] : unset)
        EXPECT_EQ(GetDigitsByType(test.program, kind), places) << kind;
    test.Insert("TabDotSet", {{"Name", "数值型"}, {"Num", 3}});
    test.Insert("TabDotSet", {{"Name", "金额型"}, {"Num", -3}});
    EXPECT_EQ(GetDigitsByType(test.program, "别的"), 3);
    EXPECT_EQ(GetDigitsByType(test.program, "金额型"), -3);
    EXPECT_EQ(GetDigitsByType(test.program, "货币型"), 2);
}

TEST(Decimals, OnlyTheAuditSwitchAtOneCounts)
{
    TestProgram test;
    EXPECT_FALSE(IsAuditedBillCounted(test.program));
    test.Insert("TabSysSetNew", {{"Name", "审核单据参与核算"}, {"IsAllow", 1}});
    EXPECT_TRUE(IsAuditedBillCounted(test.program));
    test.Run(Sql("update TabSysSetNew set IsAllow=2"));
    EXPECT_FALSE(IsAuditedBillCounted(test.program));
}
