#include "ui/main/SnrLegend.h"

#include <QHBoxLayout>
#include <QLabel>

#include "propagation/SnrScale.h"
#include "ui/common/GridControl.h"

namespace {

QLabel* BandMake(std::size_t iBand)
{
    const SnrBand& band = SnrBandsGet()[iBand];
    auto* pBand = new QLabel(QString::fromStdString(SnrBandCaption(iBand)));
    QPalette palette = pBand->palette();
    palette.setColor(QPalette::Window, ColorFromBgr(band.nColor));
    palette.setColor(QPalette::WindowText, ColorFromBgr(band.nText));
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
    auto* pTitle = new QLabel(tr("SNR (dB in 1 Hz)"));
    pTitle->setContentsMargins(0, 0, pTitle->fontMetrics().averageCharWidth(), 0);
    pRow->addWidget(pTitle);
    for (std::size_t i = SnrBandsGet().size(); i-- > 0;) pRow->addWidget(BandMake(i));
    pRow->addStretch();
}
