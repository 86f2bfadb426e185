#include "ui/common/Colors.h"

#include "propagation/SnrScale.h"

QColor ColorFromBgr(std::uint32_t nBgr)
{
    return {static_cast<int>(nBgr & 0xFFU), static_cast<int>((nBgr >> 8U) & 0xFFU),
            static_cast<int>((nBgr >> 16U) & 0xFFU)};
}

QColor TextColorOn(const QColor& clrBack)
{
    const auto nBgr =
        static_cast<std::uint32_t>(clrBack.red() | (clrBack.green() << 8) | (clrBack.blue() << 16));
    return ColorTakesBlackText(nBgr) ? QColor(Qt::black) : QColor(Qt::white);
}
