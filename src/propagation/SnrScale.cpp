#include "propagation/SnrScale.h"

#include <array>
#include <cmath>
#include <limits>

namespace {

constexpr float kNoEnd = -std::numeric_limits<float>::infinity();

constexpr std::array kBands{
    SnrBand{70.0F, 0xFF80FF},   // light violet
    SnrBand{65.0F, 0xFF00FF},   // magenta
    SnrBand{60.0F, 0xC000C0},   // dark magenta
    SnrBand{55.0F, 0x800080},   // purple
    SnrBand{50.0F, 0xFF0000},   // blue
    SnrBand{45.0F, 0xC00000},   // medium blue
    SnrBand{40.0F, 0x800000},   // navy
    SnrBand{kNoEnd, 0x808080},  // grey
};

}  // namespace

float SnrShownGet(float fSnr)
{
    return fSnr >= kSnrLeast ? fSnr : kSnrLeast;  // not-a-number is not at least anything
}

std::span<const SnrBand> SnrBandsGet() { return kBands; }

std::uint32_t SnrGetColor(float fSnr)
{
    for (const SnrBand& band : kBands)
        if (fSnr >= band.fLowest)
            return band.nColor;
    return kBands.back().nColor;  // not-a-number is not at least anything
}

bool ColorTakesBlackText(std::uint32_t nColor)
{
    const auto LinearGet = [](std::uint32_t nChannel) {
        const double dValue = static_cast<double>(nChannel & 0xFF) / 255.0;
        return dValue <= 0.03928 ? dValue / 12.92 : std::pow((dValue + 0.055) / 1.055, 2.4);
    };
    const double dLuminance = 0.2126 * LinearGet(nColor) + 0.7152 * LinearGet(nColor >> 8)
                              + 0.0722 * LinearGet(nColor >> 16);
    // (L + 0.05) / 0.05 against black equals 1.05 / (L + 0.05) against white at this luminance.
    return dLuminance > std::sqrt(1.05 * 0.05) - 0.05;
}
