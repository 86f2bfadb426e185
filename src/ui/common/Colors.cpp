#include "ui/common/Colors.h"

#include <array>
#include <cmath>

#include "propagation/SnrScale.h"

namespace {

QColor Between(const QColor& clrA, const QColor& clrB, double dShareB)
{
    const auto Part = [dShareB](int nA, int nB) {
        return static_cast<int>(std::lround(nA + (nB - nA) * dShareB));
    };
    return {Part(clrA.red(), clrB.red()), Part(clrA.green(), clrB.green()),
            Part(clrA.blue(), clrB.blue())};
}

}  // namespace

QColor ColorFromBgr(std::uint32_t nBgr)
{
    return {static_cast<int>(nBgr & 0xFFU), static_cast<int>((nBgr >> 8U) & 0xFFU),
            static_cast<int>((nBgr >> 16U) & 0xFFU)};
}

std::uint32_t ColorToBgr(const QColor& clr)
{
    return static_cast<std::uint32_t>(clr.red() | (clr.green() << 8) | (clr.blue() << 16));
}

QColor TextColorOn(const QColor& clrBack)
{
    return ColorTakesBlackText(ColorToBgr(clrBack)) ? QColor(Qt::black) : QColor(Qt::white);
}

QColor ShareColor(double dShare)
{
    struct Stop {
        double dShare;
        QColor clr;
    };
    static const std::array<Stop, 4> kStops{{{0.0, QColor(0xEC, 0xEC, 0xEC)},
                                             {0.2, QColor(0xF8, 0xE9, 0xA4)},
                                             {0.6, QColor(0x9F, 0xCB, 0x62)},
                                             {1.0, QColor(0x14, 0x6B, 0x3A)}}};
    for (std::size_t i = 1; i < kStops.size(); ++i)
        if (dShare <= kStops.at(i).dShare)
            return Between(kStops.at(i - 1).clr, kStops.at(i).clr,
                           (dShare - kStops.at(i - 1).dShare)
                               / (kStops.at(i).dShare - kStops.at(i - 1).dShare));
    return kStops.back().clr;
}
