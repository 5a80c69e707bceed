#include "base/number_text.h"
#include "printing.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

TEST(NumberText, ValReadsTheLongestLeadingNumber)
{
    constexpr double kLargest = std::numeric_limits<double>::max();
    for (const QString text : {"", "abc", "+-3", "--3", ".", "inf", "nan", "-inf", "0x1F", "１２", "1e-999", "-0"})
        EXPECT_EQ(Val(text), 0) << text.toStdString();
    for (const QString text : {"12abc", "  12 ", "+12", "12.", "12.0.3", "12,345", "12e", "12e+", "12-1", "12箱"})
        EXPECT_EQ(Val(text), 12) << text.toStdString();
    EXPECT_EQ(Val(u"-.5"), -0.5);
    EXPECT_EQ(Val(u"1e-05"), 1e-05);
    EXPECT_EQ(Val(u"2E3x"), 2000);
    EXPECT_EQ(Val(u"-1e999"), -kLargest);
    EXPECT_EQ(Val(QString(100000, '9')), kLargest);
    EXPECT_FALSE(std::signbit(Val(u"-0")));
}

TEST(NumberText, ShortestTextReadsBackAsTheSameNumber)
{
    for (const auto& [value, text] : {std::pair{0.1, "0.1"},
                                      {1234.5, "1234.5"},
                                      {1e-07, "1e-07"},
                                      {100000.0, "100000"},
                                      {-2500000.0, "-2500000"},
                                      {0.0, "0"},
                                      {-0.0, "0"},
                                      {0.0001, "0.0001"},
                                      {1e22, "1e+22"},
                                      {1.0 / 3, "0.3333333333333333"}})
        EXPECT_EQ(NumberText(value), QString(text));
    for (const double value : {0.1 + 0.2, 1e300, -5e-324, 999999999999999.9, 123456789012.3456, 1e-4 / 3})
        EXPECT_EQ(Val(NumberText(value)), value);
}

TEST(NumberText, FormatsHalfAwayFromZeroOnFifteenDigits)
{
    const struct
    {
        double value;
        int places;
        bool grouping;
        QString text;
    } cases[] = {
        {1.005, 2, false, "1.01"},
        {-1.005, 2, false, "-1.01"},
        {2.5, 0, false, "3"},
        {-2.5, 0, false, "-3"},
        {0.5, 0, true, "1"},
        {0.49, 0, true, "0"},
        {0.05, 1, true, "0.1"},
        {0.005, 2, true, "0.01"},
        {0.0049, 2, true, "0.00"},
        {-0.004, 2, true, "0.00"},
        {-0.0, 2, false, "0.00"},
        {1234.5, 2, false, "1234.50"},
        {1234.5, 2, true, "1,234.50"},
        {999999.995, 2, true, "1,000,000.00"},
        {-999.5, 0, true, "-1,000"},
        {100, 0, true, "100"},
        {1000, 0, true, "1,000"},
        {123456789, 4, true, "123,456,789.0000"},
        {0.1 + 0.2, 4, false, "0.3000"},
        {1.115 * 100, 1, false, "111.5"},
        {1e-20, 4, false, "0.0000"},
        {12.3456, 6, false, "12.345600"},
        {7, -5, false, "7"},
        {1e15, 0, true, "1,000,000,000,000,000"},
        {std::numeric_limits<double>::quiet_NaN(), 2, true, "0.00"},
        {std::numeric_limits<double>::infinity(), 2, true, "0.00"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FormatFixed(c.value, c.places, c.grouping), c.text) << c.value << " at " << c.places;
    EXPECT_EQ(FormatFixed(1e300, 2, true).size(), 301 + 100 + 3);
    EXPECT_EQ(FormatFixed(5e-324, 32767, false).size(), 2 + 99);
}

TEST(NumberText, PlainTextHasNoZeroBeforeThePoint)
{
    for (const auto& [value, text] : {std::pair{0.5, " .5"},
                                      {-0.5, "-.5"},
                                      {12.0, " 12"},
                                      {0.0, " 0"},
                                      {-0.0, " 0"},
                                      {0.1 + 0.2, " .3"},
                                      {-1234.25, "-1234.25"},
                                      {0.00001, " .00001"},
                                      {1200000.0, " 1200000"},
                                      {1e16, " 10000000000000000"}})
        EXPECT_EQ(PlainNumberText(value), QString(text));
}

TEST(NumberText, RoundsAsItFormats)
{
    EXPECT_EQ(RoundToPlaces(1.005, 2), 1.01);
    EXPECT_EQ(RoundToPlaces(-2.5, 0), -3);
    EXPECT_EQ(RoundToPlaces(0.0004, 2), 0);
    EXPECT_FALSE(std::signbit(RoundToPlaces(-0.0004, 2)));
    EXPECT_EQ(RoundToPlaces(1e300, 4), 1e300);
    EXPECT_EQ(RoundToPlaces(std::numeric_limits<double>::max(), 4), std::numeric_limits<double>::max());
    for (double value = -12.3456; value < 12; value += 0.01357)
        EXPECT_EQ(RoundToPlaces(value, 3), Val(FormatFixed(value, 3, false))) << value;
}

TEST(NumberText, ReadsWhatACellShows)
{
    EXPECT_EQ(CleanNumberText("1,234.50"), QString("1234.50"));
    EXPECT_EQ(CleanNumberText("￥1,2,3。"), QString("123"));
    EXPECT_EQ(CellNumber("￥1,234,567.891"), 1234567.891);
    EXPECT_EQ(CellNumber(""), 0);
}
