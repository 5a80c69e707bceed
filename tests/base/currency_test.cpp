#include "base/currency.h"
#include "printing.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

TEST(Currency, RoundsHalfAwayFromZeroAtFourPlaces)
{
    const struct
    {
        double value;
        qint64 units;
    } cases[] = {
        {0, 0},
        {1, 10000},
        {0.00005, 1},
        {-0.00005, -1},
        {0.00004999, 0},
        {1.00005, 10001},
        {2.67495, 26750},
        {0.1 + 0.2, 3000},
        {1e-300, 0},
        {12345678901.2345, 123456789012345},
        {-922337203685477.0, -9223372036854770000},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Currency::FromDouble(c.value).units(), c.units) << c.value;
}

TEST(Currency, KnowsItsRange)
{
    constexpr qint64 kMost = std::numeric_limits<qint64>::max();
    for (const double value : {922337203685478.0, 1e15, 1e300, double(INFINITY)}) {
        EXPECT_FALSE(Currency::IsMoney(value)) << value;
        EXPECT_EQ(Currency::FromDouble(value).units(), kMost);
        EXPECT_EQ(Currency::FromDouble(-value).units(), -kMost);
    }
    EXPECT_FALSE(Currency::IsMoney(NAN));
    EXPECT_EQ(Currency::FromDouble(NAN), Currency());
    EXPECT_TRUE(Currency::IsMoney(-922337203685477.0));
    EXPECT_EQ(Currency::FromUnits(kMost) + Currency::FromUnits(1), Currency::FromUnits(kMost));
    EXPECT_EQ(-Currency::FromUnits(kMost) - Currency::FromUnits(5), Currency::FromUnits(-kMost));
}

TEST(Currency, ShowsPlainDecimals)
{
    for (const auto& [units, text] : {std::pair<qint64, const char*>{0, "0"},
                                      {125000, "12.5"},
                                      {-1, "-0.0001"},
                                      {-10000, "-1"},
                                      {1000100, "100.01"},
                                      {9223372036854775807, "922337203685477.5807"}})
        EXPECT_EQ(Currency::FromUnits(units).text(), QString(text));
}
