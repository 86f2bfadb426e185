#include "ui/common/PaletteShown.h"

#include <QApplication>
#include <QWidget>
#include <utility>

#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"
#include "ui/common/NightColors.h"
#include "ui/common/NightStyle.h"

namespace {

Palette& InForce()
{
    static Palette s_ePalette = Palette::Standard;
    return s_ePalette;
}

int& ForPaper()
{
    static int s_nForPaper = 0;
    return s_nForPaper;
}

const SnrBand* BandGet(const QColor& clr, Palette ePalette)
{
    return clr.isValid() && clr.alpha() == 255 ? SnrBandOfColor(ColorToBgr(clr), ePalette)
                                               : nullptr;
}

}  // namespace

Palette PaletteShown() { return PaletteForPaper::Exists() ? PaletteOnPaper() : InForce(); }

Palette PaletteOnPaper() { return InForce() == Palette::Night ? Palette::Standard : InForce(); }

bool PaletteNightIs() { return PaletteShown() == Palette::Night; }

void PaletteShow(Palette ePalette)
{
    if (std::exchange(InForce(), ePalette) == ePalette)
        return;
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr) {
        NightSet(ePalette == Palette::Night);
        for (QWidget* pWidget : QApplication::allWidgets()) pWidget->update();
    }
    Q_EMIT PaletteSignal::Get().Changed();
}

PaletteSignal& PaletteSignal::Get()
{
    static PaletteSignal s_signal;
    return s_signal;
}

PaletteForPaper::PaletteForPaper() { ++ForPaper(); }

PaletteForPaper::~PaletteForPaper() { --ForPaper(); }

bool PaletteForPaper::Exists() { return ForPaper() > 0; }

CellColors CellColorsGet(const QColor& clrBack, const QColor& clrText, Palette ePalette)
{
    if (ePalette == Palette::Standard)
        return {clrBack, clrText, clrBack};
    if (const SnrBand* pBand = BandGet(clrBack, ePalette))
        return {ColorFromBgr(pBand->nColor), ColorFromBgr(pBand->nText),
                ColorFromBgr(pBand->nGround)};
    if (ePalette == Palette::Night)
        return {QColor(NightNegative(clrBack.rgb())), QColor(kNightInk), Qt::black};
    return {clrBack, clrText, clrBack};
}

QColor ColorInPalette(const QColor& clr, Palette ePalette)
{
    const SnrBand* pBand = BandGet(clr, ePalette);
    return pBand != nullptr ? ColorFromBgr(pBand->nColor) : clr;
}
