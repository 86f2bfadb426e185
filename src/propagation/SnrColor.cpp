#include "propagation/SnrColor.h"

#include <cmath>

namespace {

struct Band {
    float fLowest;  // dB
    std::uint32_t nColor;
};

constexpr Band kBands[] = {
    {70.0F, 0xFF80FF},  // light violet
    {65.0F, 0xFF00FF},  // magenta
    {60.0F, 0xC000C0},  // dark magenta
    {55.0F, 0x800080},  // purple
    {50.0F, 0xFF0000},  // blue
    {45.0F, 0xC00000},  // medium blue
    {40.0F, 0x800000},  // navy
};
constexpr std::uint32_t kGrey = 0x808080;

}  // namespace

float SnrShownGet(float fSnr)
{
    return fSnr >= kSnrLeast ? fSnr : kSnrLeast;  // not-a-number is not at least anything
}

std::uint32_t SnrGetColor(float fSnr)
{
    for (const Band& band : kBands)
        if (fSnr >= band.fLowest)
            return band.nColor;
    return kGrey;
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
