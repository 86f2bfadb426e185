#include "ui/main/SnrLegend.h"

#include <QHBoxLayout>
#include <QLabel>

#include "propagation/SnrScale.h"
#include "ui/common/GridControl.h"

namespace {

QLabel* BandMake(const QString& sText, const SnrBand& band)
{
    auto* pBand = new QLabel(sText);
    const QColor clrBand = ColorFromBgr(band.nColor);
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
    const std::span<const SnrBand> aBands = SnrBandsGet();
    const auto BoundGet = [](const SnrBand& band) { return QString::number(band.fLowest); };
    pRow->addWidget(
        BandMake(QStringLiteral("< ") + BoundGet(aBands[aBands.size() - 2]), aBands.back()));
    for (std::size_t i = aBands.size() - 1; i-- > 0;) {
        const QString sAbove = i == 0 ? QStringLiteral("+") : QString();
        pRow->addWidget(BandMake(BoundGet(aBands[i]) + sAbove, aBands[i]));
    }
    pRow->addStretch();
}
