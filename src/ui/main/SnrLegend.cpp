#include "ui/main/SnrLegend.h"

#include <QHBoxLayout>
#include <QLabel>
#include <array>

#include "propagation/SnrColor.h"
#include "ui/common/GridControl.h"

namespace {

/// Lower bounds of the coloured bands, dB; below the first one is grey.
constexpr std::array kBounds = {40, 45, 50, 55, 60, 65, 70};

QLabel* BandMake(const QString& sText, float fSnr)
{
    auto* pBand = new QLabel(sText);
    const QColor clrBand = ColorFromBgr(SnrGetColor(fSnr));
    QPalette palette = pBand->palette();
    palette.setColor(QPalette::Window, clrBand);
    palette.setColor(QPalette::WindowText, TextColorOn(clrBand));
    pBand->setPalette(palette);
    pBand->setAutoFillBackground(true);
    pBand->setAlignment(Qt::AlignCenter);
    pBand->setMinimumWidth(pBand->fontMetrics().horizontalAdvance(QStringLiteral("--< 40--")));
    return pBand;
}

}  // namespace

SnrLegend::SnrLegend(QWidget* pParent) : QWidget(pParent)
{
    auto* pRow = new QHBoxLayout(this);
    pRow->setContentsMargins(0, 0, 0, 0);
    pRow->setSpacing(0);
    auto* pTitle = new QLabel(tr("SNR (dB)"));
    pTitle->setContentsMargins(0, 0, pTitle->fontMetrics().averageCharWidth(), 0);
    pRow->addWidget(pTitle);
    pRow->addWidget(BandMake(QStringLiteral("< 40"), 0.0F));
    for (const int nBound : kBounds) {
        const QString sAbove = nBound == kBounds.back() ? QStringLiteral("+") : QString();
        pRow->addWidget(BandMake(QString::number(nBound) + sAbove, static_cast<float>(nBound)));
    }
    pRow->addStretch();
}
