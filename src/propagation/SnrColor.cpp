#include "propagation/SnrColor.h"

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

std::uint32_t SnrGetColor(float fSnr)
{
    for (const Band& band : kBands)
        if (fSnr >= band.fLowest)
            return band.nColor;
    return kGrey;
}
