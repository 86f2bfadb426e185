#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "propagation/SnrScale.h"
#include "system/NumberLib.h"

namespace {

struct ColorCase {
    float fLowest;
    std::uint32_t nColor;
    std::uint32_t nColorBelow;
};

TEST(SnrBandOfCell, IsThatOfTheNumberThatACellShows)
{
    for (float fSnr = -120.0F; fSnr <= 120.0F; fSnr += 0.125F) {
        const auto resShown = NumberFromTextSingle(NumberFormat(fSnr, "0"));
        ASSERT_TRUE(resShown);
        for (const Palette ePalette : {Palette::Standard, Palette::Night})
            EXPECT_EQ(SnrBandOfCell(fSnr, ePalette), SnrBandGet(resShown.ValueGet(), ePalette))
                << fSnr;
    }
    EXPECT_EQ(SnrBandOfCell(49.5F).fLowest, 50.0F);
    EXPECT_EQ(SnrBandOfCell(std::nextafter(49.5F, 0.0F)).fLowest, 45.0F);
    EXPECT_EQ(SnrBandOfCell(std::numeric_limits<float>::quiet_NaN()), SnrBandsGet().back());
}

TEST(SnrIs, IsTrueAboveTheLeastThatATableShows)
{
    EXPECT_TRUE(SnrIs(-98.75F));
    for (const float fSnr : {-99.0F, -120.0F, -999.0F, std::numeric_limits<float>::quiet_NaN()})
        EXPECT_FALSE(SnrIs(fSnr)) << fSnr;
}

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
    EXPECT_TRUE(ColorTakesBlackText(0x00FFFF));  // yellow: red is the low byte
    EXPECT_FALSE(ColorTakesBlackText(0x0000C0));
}

constexpr Palette kPalettes[] = {Palette::Standard, Palette::Safe, Palette::Night, Palette::Print};

std::vector<std::uint32_t> RgbOf(Palette ePalette)
{
    std::vector<std::uint32_t> anRgb;
    for (const SnrBand& band : SnrBandsGet(ePalette))
        anRgb.push_back((band.nColor & 0xFF) << 16 | (band.nColor & 0xFF00) | band.nColor >> 16);
    return anRgb;
}

TEST(SnrBands, HaveTheColoursOfTheirPaletteFromTheBestDown)
{
    using Row = std::vector<std::uint32_t>;
    EXPECT_EQ(RgbOf(Palette::Standard), (Row{0xFF80FF, 0xFF00FF, 0xC000C0, 0x800080, 0x0000FF,
                                             0x0000C0, 0x000080, 0x808080}));
    EXPECT_EQ(RgbOf(Palette::Safe), (Row{0xFFF3A0, 0xE6D04C, 0xBDAF6A, 0x938F77, 0x6C6E72, 0x45536F,
                                         0x1F3B6E, 0x00224E}));
    EXPECT_EQ(RgbOf(Palette::Night), (Row{0xFF1800, 0xD51400, 0xAC0000, 0x850000, 0x600000,
                                          0x400000, 0x240000, 0x000000}));
    EXPECT_EQ(RgbOf(Palette::Print), (Row{0x404040, 0x5C5C5C, 0x777777, 0x939393, 0xAFAFAF,
                                          0xCACACA, 0xE6E6E6, 0xFFFFFF}));
}

TEST(SnrBands, AreTheStandardOnesUnlessAnotherPaletteIsAskedFor)
{
    EXPECT_EQ(SnrBandsGet().data(), SnrBandsGet(Palette::Standard).data());
    for (const SnrBand& band : SnrBandsGet()) EXPECT_EQ(SnrGetColor(band.fLowest), band.nColor);
}

TEST(SnrBands, BeginAtTheSameBoundsInEveryPalette)
{
    for (const Palette ePalette : kPalettes) {
        const auto aBand = SnrBandsGet(ePalette);
        ASSERT_EQ(aBand.size(), 8U);
        for (std::size_t i = 0; i < 7; ++i)
            EXPECT_EQ(aBand[i].fLowest, 70.0F - 5.0F * static_cast<float>(i));
        EXPECT_EQ(&SnrBandGet(40.0F, ePalette), &aBand[6]);
        EXPECT_EQ(&SnrBandGet(39.9F, ePalette), &aBand[7]);
        EXPECT_EQ(&SnrBandGet(std::numeric_limits<float>::quiet_NaN(), ePalette), &aBand[7]);
    }
}

TEST(SnrBands, EveryNumberReadsOnWhatItIsPaintedOn)
{
    for (const Palette ePalette : kPalettes)
        for (const SnrBand& band : SnrBandsGet(ePalette))
            EXPECT_GE(ColorContrast(band.nText, band.nGround), 4.5)
                << static_cast<int>(ePalette) << " from " << band.fLowest;
}

TEST(SnrBands, NumbersOfNightStandOnABlackPlateAndThoseOfTheOthersOnTheirColour)
{
    for (const Palette ePalette : kPalettes)
        for (const SnrBand& band : SnrBandsGet(ePalette))
            EXPECT_EQ(band.nGround, ePalette == Palette::Night ? 0U : band.nColor);
    EXPECT_EQ(SnrBandGet(50.0F, Palette::Night).nText, 0x0018FFU);
}

TEST(SnrBandOfColor, IsThatOfThePaletteInTheStandardColoursPlace)
{
    for (const Palette ePalette : kPalettes)
        for (std::size_t i = 0; i < 8; ++i)
            EXPECT_EQ(SnrBandOfColor(SnrBandsGet()[i].nColor, ePalette), &SnrBandsGet(ePalette)[i]);
    EXPECT_EQ(SnrBandOfColor(0xFFFFFF, Palette::Safe), nullptr);
    EXPECT_EQ(SnrBandOfColor(0x808081, Palette::Safe), nullptr);
}

TEST(ColorContrast, IsTheGuidelinesRatio)
{
    EXPECT_NEAR(ColorContrast(0x000000, 0xFFFFFF), 21.0, 1e-9);
    EXPECT_NEAR(ColorContrast(0xFFFFFF, 0x000000), 21.0, 1e-9);
    EXPECT_NEAR(ColorContrast(0x123456, 0x123456), 1.0, 1e-9);
    EXPECT_NEAR(ColorContrast(0x777777, 0xFFFFFF), 4.48, 0.005);
}

TEST(SnrBandCaption, TellsTheBoundsOfTheLegend)
{
    std::string sAll;
    for (std::size_t i = 0; i < 8; ++i) sAll += SnrBandCaption(i) + "|";
    EXPECT_EQ(sAll, "70+|65|60|55|50|45|40|< 40|");
}

TEST(SnrBandTerminal, HasTextAndGroundOfTheStep)
{
    EXPECT_EQ(SnrBandTerminal(SnrBandGet(66.0F)), "\x1b[30;48;2;255;0;255m");
    EXPECT_EQ(SnrBandTerminal(SnrBandGet(51.0F)), "\x1b[97;48;2;0;0;255m");
    EXPECT_EQ(SnrBandTerminal(SnrBandGet(51.0F, Palette::Night)), "\x1b[38;2;255;24;0;48;2;0;0;0m");
}

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

Triple Times(const Matrix& m, const Triple& v)
{
    Triple out{};
    for (std::size_t i = 0; i < 3; ++i) out[i] = m[i][0] * v[0] + m[i][1] * v[1] + m[i][2] * v[2];
    return out;
}

Triple LinearFromBgr(std::uint32_t nColor)
{
    Triple lin{};
    for (std::size_t i = 0; i < 3; ++i) {
        const double dValue = static_cast<double>((nColor >> (8 * i)) & 0xFF) / 255.0;
        lin[i] = dValue <= 0.04045 ? dValue / 12.92 : std::pow((dValue + 0.055) / 1.055, 2.4);
    }
    return lin;
}

/// CIE 1976 L*a*b* of linear sRGB (IEC 61966-2-1), white D65.
Triple LabFromLinear(const Triple& lin)
{
    constexpr Matrix kXyz{{{0.4124564, 0.3575761, 0.1804375},
                           {0.2126729, 0.7151522, 0.0721750},
                           {0.0193339, 0.1191920, 0.9503041}}};
    constexpr Triple kWhite{0.95047, 1.0, 1.08883};
    const Triple xyz = Times(kXyz, lin);
    Triple f{};
    for (std::size_t i = 0; i < 3; ++i) {
        const double t = xyz[i] / kWhite[i];
        f[i] = t > 216.0 / 24389.0 ? std::cbrt(t) : (24389.0 / 27.0 * t + 16.0) / 116.0;
    }
    return {116.0 * f[1] - 16.0, 500.0 * (f[0] - f[1]), 200.0 * (f[1] - f[2])};
}

struct Eyes {
    const char* sName;
    Matrix m;
};

/// Machado, Oliveira, Fernandes 2009, table 1, severity 1.0.
constexpr Eyes kEyes[] = {
    {"normal", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}},
    {"protan",
     {{{0.152286, 1.052583, -0.204868},
       {0.114503, 0.786281, 0.099216},
       {-0.003882, -0.048116, 1.051998}}}},
    {"deutan",
     {{{0.367322, 0.860646, -0.227968},
       {0.280085, 0.672501, 0.047413},
       {-0.011820, 0.042940, 0.968881}}}},
    {"tritan",
     {{{1.255528, -0.076749, -0.178779},
       {-0.078411, 0.930809, 0.147602},
       {0.004733, 0.691367, 0.303900}}}},
};

Triple LabSeen(std::uint32_t nColor, const Eyes& eyes)
{
    Triple lin = Times(eyes.m, LinearFromBgr(nColor));
    for (double& d : lin) d = std::clamp(d, 0.0, 1.0);
    return LabFromLinear(lin);
}

TEST(SafePalette, KeepsAnyTwoBandsApartForEveryKindOfEyes)
{
    const auto aBand = SnrBandsGet(Palette::Safe);
    for (const Eyes& eyes : kEyes)
        for (std::size_t i = 0; i < aBand.size(); ++i)
            for (std::size_t j = i + 1; j < aBand.size(); ++j) {
                const Triple lab1 = LabSeen(aBand[i].nColor, eyes);
                const Triple lab2 = LabSeen(aBand[j].nColor, eyes);
                EXPECT_GE(std::hypot(lab1[0] - lab2[0], lab1[1] - lab2[1], lab1[2] - lab2[2]), 11.0)
                    << eyes.sName << ", steps " << i << " and " << j;
            }
}

TEST(SafePalette, RisesInLightness)
{
    const auto aBand = SnrBandsGet(Palette::Safe);
    for (std::size_t i = 1; i < aBand.size(); ++i)
        EXPECT_GT(LabFromLinear(LinearFromBgr(aBand[i - 1].nColor))[0],
                  LabFromLinear(LinearFromBgr(aBand[i].nColor))[0]);
}

TEST(SafePalette, IsMeasuredInTheUnitsOfCie1976)
{
    const Triple labRed = LabSeen(0x0000FF, kEyes[0]);  // red is the low byte
    EXPECT_NEAR(labRed[0], 53.24, 0.01);
    EXPECT_NEAR(labRed[1], 80.09, 0.01);
    EXPECT_NEAR(labRed[2], 67.20, 0.01);
    EXPECT_LT(LabSeen(0x0000FF, kEyes[1])[0], 45.0) << "red is dark for protan eyes";
}

}  // namespace
