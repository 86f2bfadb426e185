#include "ui/options/ColourPage.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "propagation/SnrScale.h"
#include "ui/common/BandPaint.h"

namespace {

constexpr int kRowsOfPreview = 2;  // in line heights

QString AboutGet(Palette ePalette)
{
    switch (ePalette) {
        case Palette::Safe:
            return ColourPage::tr(
                "Safe: the better, the lighter; colour-blind eyes can tell the steps apart too.");
        case Palette::Night:
            return ColourPage::tr(
                "Night: red on black in every window, so that eyes stay used to the dark. Files "
                "and "
                "prints keep the standard colours.");
        case Palette::Print:
            return ColourPage::tr(
                "Print: white below 40 dB, even steps of grey above, for printers without "
                "colours.");
        default:
            return ColourPage::tr("Standard: violet and blue, grey below 40 dB.");
    }
}

}  // namespace

ColourPage::ColourPage(QWidget* pParent)
    : QWidget(pParent), cmbPalette(new QComboBox(this)), lblPaletteAbout(new QLabel(this))
{
    cmbPalette->setObjectName(QStringLiteral("cmbPalette"));
    lblPaletteAbout->setObjectName(QStringLiteral("lblPaletteAbout"));
    // In the order of the enum Palette.
    cmbPalette->addItems({tr("Standard"), tr("Safe"), tr("Night"), tr("Print")});
    cmbPalette->setToolTip(tr("Colours of the signal-to-noise ratio\nCtrl+Shift+N switches Night"));
    cmbPalette->setAccessibleName(tr("Palette: colours of the signal-to-noise ratio"));
    auto* pColumn = new QVBoxLayout(this);
    auto* pFrame = new QGroupBox(tr("Colours of the SNR"));
    auto* pInside = new QVBoxLayout(pFrame);
    auto* pRow = new QHBoxLayout;
    auto* pCaption = new QLabel(tr("Pa&lette"));
    pCaption->setBuddy(cmbPalette);
    pRow->addWidget(pCaption);
    pRow->addWidget(cmbPalette);
    pRow->addStretch();
    pInside->addLayout(pRow);
    pInside->addWidget(PreviewMake());
    lblPaletteAbout->setWordWrap(true);
    pInside->addWidget(lblPaletteAbout);
    auto* pKey =
        new QLabel(tr("Ctrl+Shift+N switches Night on and off in every window of the program."));
    pKey->setObjectName(QStringLiteral("lblPaletteKey"));
    pKey->setWordWrap(true);
    pInside->addWidget(pKey);
    pColumn->addWidget(pFrame);
    pColumn->addStretch();
    connect(cmbPalette, &QComboBox::currentIndexChanged, this, &ColourPage::cmbPaletteClick);
    cmbPaletteClick();
}

Palette ColourPage::PaletteGet() const
{
    return static_cast<Palette>(std::max(0, cmbPalette->currentIndex()));
}

/// Each band with a sample number.
QWidget* ColourPage::PreviewMake()
{
    auto* pPreview = new QWidget;
    pPreview->setAccessibleName(tr("Preview of the eight bands"));
    auto* pRow = new QHBoxLayout(pPreview);
    pRow->setContentsMargins(0, 0, 0, 0);
    pRow->setSpacing(0);
    for (std::size_t i = 0; i < SnrBandsGet().size(); ++i) {
        auto* pBand = new BandLabel(i, QString::fromStdString(SnrBandCaption(i)), PaletteGet());
        pBand->setMinimumHeight(kRowsOfPreview * fontMetrics().lineSpacing());
        m_apBand.push_back(pBand);
        pRow->insertWidget(0, pBand);
    }
    pRow->addStretch();
    return pPreview;
}

void ColourPage::cmbPaletteClick()
{
    const Palette ePalette = PaletteGet();
    for (BandLabel* pBand : m_apBand) pBand->PaletteSet(ePalette);
    lblPaletteAbout->setText(AboutGet(ePalette));
    cmbPalette->setAccessibleDescription(lblPaletteAbout->text());
}
