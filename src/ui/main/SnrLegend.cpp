#include "ui/main/SnrLegend.h"

#include <QHBoxLayout>
#include <QLabel>

#include "propagation/SnrScale.h"
#include "ui/common/BandPaint.h"

SnrLegend::SnrLegend(QWidget* pParent) : QWidget(pParent)
{
    auto* pRow = new QHBoxLayout(this);
    pRow->setContentsMargins(0, 0, 0, 0);
    pRow->setSpacing(0);
    auto* pTitle = new QLabel(tr("SNR (dB in 1 Hz)"));
    pTitle->setContentsMargins(0, 0, pTitle->fontMetrics().averageCharWidth(), 0);
    pRow->addWidget(pTitle);
    for (std::size_t i = SnrBandsGet().size(); i-- > 0;)
        pRow->addWidget(new BandLabel(i, QString::fromStdString(SnrBandCaption(i))));
    pRow->addStretch();
}
