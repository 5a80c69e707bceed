#include "base/currency.h"
#include "printing.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

TEST(Currency, RoundsHalfAwayFromZeroAtFourPlaces)
{
    std::vector<qint64> units;
    for (const double value : {0.0, 1.0, 0.00005, -0.00005, 0.00004999, 1.00005, 2.67495, 0.1 + 0.2, 1e-300,
                               12345678901.2345, -922337203685477.0})
        units.push_back(Currency::FromDouble(value).units());
    EXPECT_EQ(units,
              (std::vector<qint64>{0, 10000, 1, -1, 0, 10001, 26750, 3000, 0, 123456789012345, -9223372036854770000}));
}

TEST(Currency, KnowsItsRange)
{
    constexpr qint64 kMost = std::numeric_limits<qint64>::max();
    for (const double value : {922337203685478.0, 1e15, 1e300, double(INFINITY)}) {
        EXPECT_EQ(Currency::FromDouble(value).units(), kMost);
        EXPECT_EQ(Currency::FromDouble(-value).units(), -kMost);
    }
    for (const double value : {1e11, 922337203685477.0, double(INFINITY), double(NAN)})
        EXPECT_FALSE(Currency::IsMoney(-value)) << value;
    EXPECT_EQ(Currency::FromDouble(NAN), Currency());
    EXPECT_TRUE(Currency::IsMoney(-99999999999.9999));
    EXPECT_EQ(Currency::FromDouble(-99999999999.9999).text(), "-99999999999.9999") << "held to the last place";
    EXPECT_EQ(Currency::FromUnits(kMost) + Currency::FromUnits(1), Currency::FromUnits(kMost));
    EXPECT_EQ(-Currency::FromUnits(kMost) - Currency::FromUnits(5), Currency::FromUnits(-kMost));
}

TEST(Currency, ShowsPlainDecimals)
{
    const std::pair<qint64, const char*> cases[] = {
        {0, "0"},       {125000, "12.5"},    {-1, "-0.0001"},
        {-10000, "-1"}, {1000100, "100.01"}, {9223372036854775807, "922337203685477.5807"}};
    for (const auto& [units, text] : cases)
        EXPECT_EQ(Currency::FromUnits(units).text(), QString(text));
}
