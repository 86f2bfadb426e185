#include "ui/common/Colors.h"

#include "propagation/SnrScale.h"

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
