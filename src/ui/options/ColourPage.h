/// @file ColourPage.h
/// The tab Colours of the options: the palette of the SNR, with a preview of its bands. The choice
/// is read and written with the other settings; Ctrl+Shift+N may change it meanwhile.
///
/// Units:   dB in 1 Hz.
/// Tests:   tests/ui/options/FrmOptionsColourTest.cpp
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QWidget>
#include <vector>

#include "settings/Palette.h"

class BandLabel;

class ColourPage final : public QWidget {
    Q_OBJECT
public:
    explicit ColourPage(QWidget* pParent);
    /// The palette chosen on the tab.
    [[nodiscard]] Palette PaletteGet() const;

    QComboBox* cmbPalette;
    QLabel* lblPaletteAbout;
    std::vector<BandLabel*> m_apBand;  ///< the preview, best band first

private:
    QWidget* PreviewMake();
    void cmbPaletteClick();
};
