#include <gtest/gtest.h>

#include "geo/SunLib.h"

namespace {

TEST(SunLib, SunStandsWhereTheAlmanacPutsIt)
{
    // Mid-month declinations by the almanac, degrees.
    constexpr double kDeclinations[] = {-21.2, -12.8, -2.3, 9.6,  18.8,  23.3,
                                        21.6,  14.1,  3.2,  -8.4, -18.4, -23.2};
    for (int nMonth = 1; nMonth <= 12; ++nMonth)
        EXPECT_NEAR(SunGetPosition(nMonth, 12).dLat, kDeclinations[nMonth - 1], 0.5) << nMonth;
    // By the almanac's equation of time the sun is 14.2 minutes late in mid-February and 15.4 early
    // in mid-November.
    EXPECT_NEAR(SunGetPosition(2, 12).dLon, 14.2 / 4, 0.5);
    EXPECT_NEAR(SunGetPosition(11, 12).dLon, -15.4 / 4, 0.5);
    EXPECT_NEAR(SunGetPosition(6, 18).dLon, -90, 0.5);
}

TEST(SunLib, MonthOutOfRangeIsNoCrash)
{
    EXPECT_EQ(SunGetPosition(13, 6).dLat, SunGetPosition(1, 6).dLat);
    EXPECT_EQ(SunGetPosition(0, 6).dLat, SunGetPosition(1, 6).dLat);
}

}  // namespace
