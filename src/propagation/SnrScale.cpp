#include "propagation/SnrScale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "system/NumberLib.h"

namespace {

constexpr float kNoEnd = -std::numeric_limits<float>::infinity();
constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kWhite = 0xFFFFFF;

/// A step with its colour in each palette, 0xRRGGBB as in colour tables.
struct BandRow {
    float fLowest;
    std::array<std::uint32_t, kPaletteCount> anRgb;
};

constexpr std::array kRows{
    //              Standard  Safe      Night     Print
    BandRow{70.0F, {0xFF80FF, 0xFFF3A0, 0xFF1800, 0x404040}},   // Standard: light violet
    BandRow{65.0F, {0xFF00FF, 0xE6D04C, 0xD51400, 0x5C5C5C}},   // magenta
    BandRow{60.0F, {0xC000C0, 0xBDAF6A, 0xAC0000, 0x777777}},   // dark magenta
    BandRow{55.0F, {0x800080, 0x938F77, 0x850000, 0x939393}},   // purple
    BandRow{50.0F, {0x0000FF, 0x6C6E72, 0x600000, 0xAFAFAF}},   // blue
    BandRow{45.0F, {0x0000C0, 0x45536F, 0x400000, 0xCACACA}},   // medium blue
    BandRow{40.0F, {0x000080, 0x1F3B6E, 0x240000, 0xE6E6E6}},   // navy
    BandRow{kNoEnd, {0x808080, 0x00224E, 0x000000, 0xFFFFFF}},  // grey
};

/// The reds of Night are too close to each other and to black for a number to be readable on them.
constexpr std::uint32_t kNightText = 0xFF1800;  // 0xRRGGBB

using Scale = std::array<SnrBand, kRows.size()>;

constexpr std::uint32_t BgrFromRgb(std::uint32_t nRgb)
{
    return (nRgb & 0xFF00) | ((nRgb & 0xFF) << 16) | ((nRgb >> 16) & 0xFF);
}

SnrBand BandMake(const BandRow& row, std::size_t iPalette)
{
    const std::uint32_t nColor = BgrFromRgb(row.anRgb.at(iPalette));
    if (static_cast<Palette>(iPalette) == Palette::Night)
        return {row.fLowest, nColor, BgrFromRgb(kNightText), kBlack};
    return {row.fLowest, nColor, ColorTakesBlackText(nColor) ? kBlack : kWhite, nColor};
}

std::array<Scale, kPaletteCount> ScalesMake()
{
    std::array<Scale, kPaletteCount> aScale{};
    for (std::size_t iPalette = 0; iPalette < kPaletteCount; ++iPalette)
        for (std::size_t i = 0; i < kRows.size(); ++i)
            aScale.at(iPalette).at(i) = BandMake(kRows.at(i), iPalette);
    return aScale;
}

double Luminance(std::uint32_t nColor)
{
    const auto LinearGet = [](std::uint32_t nChannel) {
        const double dValue = static_cast<double>(nChannel & 0xFF) / 255.0;
        return dValue <= 0.03928 ? dValue / 12.92 : std::pow((dValue + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * LinearGet(nColor) + 0.7152 * LinearGet(nColor >> 8)
           + 0.0722 * LinearGet(nColor >> 16);
}

std::string ColorChannels(std::uint32_t nColor)
{
    return std::to_string(nColor & 0xFF) + ";" + std::to_string((nColor >> 8) & 0xFF) + ";"
           + std::to_string((nColor >> 16) & 0xFF);
}

}  // namespace

float SnrShownGet(float fSnr)
{
    return fSnr >= kSnrLeast ? fSnr : kSnrLeast;  // false for not-a-number
}

bool SnrIs(float fSnr) { return SnrShownGet(fSnr) > kSnrLeast; }

std::span<const SnrBand> SnrBandsGet(Palette ePalette)
{
    static const std::array<Scale, kPaletteCount> kScales = ScalesMake();
    return kScales.at(static_cast<std::size_t>(ePalette));
}

const SnrBand& SnrBandGet(float fSnr, Palette ePalette)
{
    const std::span<const SnrBand> aBand = SnrBandsGet(ePalette);
    for (const SnrBand& band : aBand)
        if (fSnr >= band.fLowest)
            return band;
    return aBand.back();  // also for not-a-number
}

const SnrBand& SnrBandOfCell(float fSnr, Palette ePalette)
{
    return SnrBandGet(std::round(fSnr), ePalette);  // half away from zero, as the pattern "0"
}

const SnrBand& SnrBandOfTable(float fSnr, float fPower, Palette ePalette)
{
    return fPower > 0.0F ? SnrBandOfCell(fSnr, ePalette) : SnrBandGet(fSnr, ePalette);
}

const SnrBand* SnrBandOfColor(std::uint32_t nColor, Palette ePalette)
{
    const std::span<const SnrBand> aStandard = SnrBandsGet();
    const auto it = std::find_if(aStandard.begin(), aStandard.end(),
                                 [nColor](const SnrBand& band) { return band.nColor == nColor; });
    return it == aStandard.end() ? nullptr : &SnrBandsGet(ePalette)[it - aStandard.begin()];
}

std::uint32_t SnrGetColor(float fSnr) { return SnrBandGet(fSnr).nColor; }

std::string SnrBandCaption(std::size_t iBand)
{
    const std::size_t iLast = kRows.size() - 1;
    if (iBand == iLast)
        return "< " + NumberToText(kRows.at(iLast - 1).fLowest);
    return NumberToText(kRows.at(iBand).fLowest) + (iBand == 0 ? "+" : "");
}

std::string SnrBandTerminal(const SnrBand& band)
{
    // Black and white as the terminal's own colours: these are legible on any 24-bit background.
    const std::string sText = band.nText == kBlack   ? "30"
                              : band.nText == kWhite ? "97"
                                                     : "38;2;" + ColorChannels(band.nText);
    return "\x1b[" + sText + ";48;2;" + ColorChannels(band.nGround) + "m";
}

double ColorContrast(std::uint32_t nColor1, std::uint32_t nColor2)
{
    const auto [dLeast, dMost] = std::minmax({Luminance(nColor1), Luminance(nColor2)});
    return (dMost + 0.05) / (dLeast + 0.05);
}

bool ColorTakesBlackText(std::uint32_t nColor)
{
    return ColorContrast(nColor, kBlack) > ColorContrast(nColor, kWhite);
}
