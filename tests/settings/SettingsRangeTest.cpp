#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "settings/SettingsRange.h"

namespace {

TEST(SettingsRange, HoldsItsEndsAndNothingBeyond)
{
    for (const NumberRange& range : {kRangeReliability, kRangeNoise, kRangeTakeoff, kRangeSunSpot,
                                     kRangeFrequency, kRangeLatitude, kRangeLongitude}) {
        EXPECT_TRUE(range.Holds(range.dLeast));
        EXPECT_TRUE(range.Holds(range.dMost));
        EXPECT_FALSE(range.Holds(std::nextafter(range.dLeast, -1e9)));
        EXPECT_FALSE(range.Holds(std::nextafter(range.dMost, 1e9)));
        EXPECT_FALSE(range.Holds(std::numeric_limits<double>::quiet_NaN()));
    }
}

TEST(SettingsRange, EveryLayerFactorTakesItsEndInSinglePrecision)
{
    EXPECT_TRUE(kRangeLayer.Holds(9.99F));
    EXPECT_EQ(RangeFaultText(0.7F, kRangeReliability), "0.7 is outside 1 to 99");
    EXPECT_EQ(RangeFaultText(95.25, kRangeLatitude), "95.25 is outside -90 to 90");
}

}  // namespace
