#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "propagation/SnrScale.h"

namespace {

struct ColorCase {
    float fLowest;
    std::uint32_t nColor;
    std::uint32_t nColorBelow;
};

TEST(SnrGetColor, EachBandBeginsExactlyAtItsThreshold)
{
    constexpr ColorCase kCases[] = {
        {70.0F, 0xFF80FF, 0xFF00FF}, {65.0F, 0xFF00FF, 0xC000C0}, {60.0F, 0xC000C0, 0x800080},
        {55.0F, 0x800080, 0xFF0000}, {50.0F, 0xFF0000, 0xC00000}, {45.0F, 0xC00000, 0x800000},
        {40.0F, 0x800000, 0x808080},
    };
    for (const ColorCase& c : kCases) {
        EXPECT_EQ(SnrGetColor(c.fLowest), c.nColor) << c.fLowest;
        EXPECT_EQ(SnrGetColor(std::nextafter(c.fLowest, 0.0F)), c.nColorBelow) << c.fLowest;
    }
}

TEST(SnrGetColor, AboveTheTopIsLightVioletAndBelowTheScaleGrey)
{
    EXPECT_EQ(SnrGetColor(std::numeric_limits<float>::infinity()), 0xFF80FFU);
    EXPECT_EQ(SnrGetColor(39.9F), 0x808080U);
    EXPECT_EQ(SnrGetColor(-999.0F), 0x808080U);
    EXPECT_EQ(SnrGetColor(-std::numeric_limits<float>::infinity()), 0x808080U);
}

TEST(SnrGetColor, NotANumberIsGrey)
{
    EXPECT_EQ(SnrGetColor(std::numeric_limits<float>::quiet_NaN()), 0x808080U);
}

TEST(SnrShownGet, IsNeverBelowTheFloorAndAlwaysANumber)
{
    EXPECT_EQ(SnrShownGet(-98.9F), -98.9F);
    EXPECT_EQ(SnrShownGet(-99.0F), -99.0F);
    EXPECT_EQ(SnrShownGet(-150.0F), -99.0F);
    EXPECT_EQ(SnrShownGet(std::numeric_limits<float>::quiet_NaN()), -99.0F);
}

TEST(ColorTakesBlackText, WhereBlackHasTheGreaterContrast)
{
    // Contrast ratios against black and white: grey 5.3 and 3.9, magenta 6.7 and 3.1, dark magenta
    // 4.0 and 5.2, blue 2.4 and 8.6.
    EXPECT_TRUE(ColorTakesBlackText(0x808080));
    EXPECT_TRUE(ColorTakesBlackText(0xFF80FF));
    EXPECT_TRUE(ColorTakesBlackText(0xFF00FF));
    EXPECT_FALSE(ColorTakesBlackText(0xC000C0));
    EXPECT_FALSE(ColorTakesBlackText(0x800080));
    EXPECT_FALSE(ColorTakesBlackText(0xFF0000));
    EXPECT_TRUE(ColorTakesBlackText(0x00FFFF));  // yellow: red stands in the low byte
    EXPECT_FALSE(ColorTakesBlackText(0x0000C0));
}

}  // namespace
