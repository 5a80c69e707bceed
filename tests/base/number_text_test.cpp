#include "base/number_text.h"
#include "printing.h"

#include <QStringList>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {
/// The texts of figures as an operation shows them, side by side.
template <typename Show>
QString Texts(const Show& show, std::initializer_list<double> values)
{
    QStringList texts;
    for (const double value : values)
        texts << show(value);
    return texts.join('|');
}

QString Formatted(int places, bool grouping, std::initializer_list<double> values)
{
    return Texts([=](double value) { return FormatFixed(value, places, grouping); }, values);
}
} // namespace

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
    EXPECT_EQ(Texts(NumberText, {0.1, 1234.5, 1e-07, 100000, -2500000, 0, -0.0, 0.0001, 1e22, 1.0 / 3}),
              QString("0.1|1234.5|1e-07|100000|-2500000|0|0|0.0001|1e+22|0.3333333333333333"));
    for (const double value : {0.1 + 0.2, 1e300, -5e-324, 999999999999999.9, 123456789012.3456, 1e-4 / 3})
        EXPECT_EQ(Val(NumberText(value)), value);
}

TEST(NumberText, FormatsHalfAwayFromZeroOnFifteenDigits)
{
    EXPECT_EQ(Formatted(0, false, {2.5, -2.5}), QString("3|-3"));
    EXPECT_EQ(Formatted(0, true, {0.5, 0.49, -999.5, 100, 1000, 1e15}),
              QString("1|0|-1,000|100|1,000|1,000,000,000,000,000"));
    EXPECT_EQ(Formatted(1, true, {0.05, 1.115 * 100}), QString("0.1|111.5"));
    EXPECT_EQ(Formatted(2, false, {1.005, -1.005, -0.0, 1234.5}), QString("1.01|-1.01|0.00|1234.50"));
    EXPECT_EQ(Formatted(2, true, {0.005, 0.0049, -0.004, 1234.5, 999999.995, NAN, INFINITY}),
              QString("0.01|0.00|0.00|1,234.50|1,000,000.00|0.00|0.00"));
    EXPECT_EQ(Formatted(4, true, {123456789, 0.1 + 0.2, 1e-20}), QString("123,456,789.0000|0.3000|0.0000"));
    EXPECT_EQ(Formatted(6, false, {12.3456}) + Formatted(-5, false, {7}), QString("12.3456007"));
    EXPECT_EQ(FormatFixed(1e300, 2, true).size(), 301 + 100 + 3);
    EXPECT_EQ(FormatFixed(5e-324, 32767, false).size(), 2 + 99);
}

TEST(NumberText, PlainTextHasNoZeroBeforeThePoint)
{
    EXPECT_EQ(Texts(PlainNumberText, {0.5, -0.5, 12, 0, -0.0, 0.1 + 0.2, -1234.25, 0.00001, 1200000, 1e16}),
              QString(" .5|-.5| 12| 0| 0| .3|-1234.25| .00001| 1200000| 10000000000000000"));
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
