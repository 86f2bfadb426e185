#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "geo/BearingLib.h"

namespace {

struct BearingCase {
    const char* sName;
    double dLat1, dLon1, dLat2, dLon2, dExpected;
};
std::ostream& operator<<(std::ostream& stm, const BearingCase& c) { return stm << c.sName; }

class BearingLib : public testing::TestWithParam<BearingCase> {};

TEST_P(BearingLib, MatchesReference)
{
    const BearingCase& c = GetParam();
    EXPECT_NEAR(BearingGet(c.dLat1, c.dLon1, c.dLat2, c.dLon2), c.dExpected, 0.05);
}

// The last two are the azimuths that an engine prints for the same circuit.
INSTANTIATE_TEST_SUITE_P(Directions, BearingLib,
                         testing::Values(BearingCase{"north", 0, 0, 10, 0, 0},
                                         BearingCase{"south", 10, 5, -10, 5, 180},
                                         BearingCase{"east_on_the_equator", 0, 0, 0, 10, 90},
                                         BearingCase{"west_on_the_equator", 0, 0, 0, -10, 270},
                                         BearingCase{"across_the_date_line", 0, 175, 0, -175, 90},
                                         BearingCase{"from_the_pole", 90, 0, 0, 0, 180},
                                         BearingCase{"same_point", 38, -122, 38, -122, 0},
                                         BearingCase{"circuit", 38, -122, 24, -110, 140.40},
                                         BearingCase{"circuit_back", 24, -110, 38, -122, 326.65}));

// A hair west of north: 360 itself would be printed, which no compass shows.
TEST(BearingGet, ABearingThatRoundsTo360Is0)
{
    EXPECT_EQ(BearingGet(0, 0, 10, -1e-15), 0.0);
    EXPECT_NEAR(BearingGet(0, 0, 10, -1e-6), 360.0, 1e-5);
}

TEST(BearingLibNan, NotANumberStaysOne)
{
    EXPECT_TRUE(std::isnan(BearingGet(std::numeric_limits<double>::quiet_NaN(), 0, 1, 1)));
}

}  // namespace
