// The tab Colours: the palette and the preview of its bands.
#include "propagation/SnrScale.h"
#include "ui/common/BandPaint.h"
#include "ui/common/Colors.h"
#include "ui/common/PaletteShown.h"
#include "ui/options/FrmOptionsFixture.h"

namespace {

class FrmOptionsColour : public FrmOptions {
protected:
    ~FrmOptionsColour() override { PaletteShow(Palette::Standard); }
    ColourPage& Page() { return *Open(kTabColour).pagColour; }
};

TEST_F(FrmOptionsColour, ShowsThePaletteInForceWithTheFocusInIt)
{
    m_host.m_settings.m_ePalette = Palette::Print;
    const ColourPage& page = Page();
    EXPECT_EQ(page.PaletteGet(), Palette::Print);
    EXPECT_EQ(page.cmbPalette->currentText(), QStringLiteral("Print"));
    EXPECT_TRUE(page.cmbPalette->hasFocus());
    EXPECT_EQ(page.cmbPalette->count(), static_cast<int>(kPaletteCount));
}

TEST_F(FrmOptionsColour, ThePreviewHasTheEightBandsOfTheChoiceWithTheirNumbers)
{
    const ColourPage& page = Page();
    ASSERT_EQ(page.m_apBand.size(), 8U);
    for (int iPalette = 0; iPalette < 4; ++iPalette) {
        Choose(page.cmbPalette, iPalette);
        const auto ePalette = static_cast<Palette>(iPalette);
        EXPECT_EQ(page.PaletteGet(), ePalette);
        for (std::size_t i = 0; i < 8; ++i) {
            EXPECT_EQ(page.m_apBand[i]->text().toStdString(), SnrBandCaption(i));
            EXPECT_EQ(QColor(page.m_apBand[i]->grab().toImage().pixel(1, 1)),
                      ColorFromBgr(SnrBandsGet(ePalette)[i].nColor));
        }
        EXPECT_TRUE(page.lblPaletteAbout->text().startsWith(page.cmbPalette->currentText()));
        EXPECT_EQ(page.cmbPalette->accessibleDescription(), page.lblPaletteAbout->text());
    }
    EXPECT_EQ(PaletteShown(), Palette::Standard) << "not before Apply";
}

TEST_F(FrmOptionsColour, AChoiceIsASettingAfterApplyAndNoneAfterCancel)
{
    Choose(Page().cmbPalette, 1);
    Press(m_pForm->cmdApply);
    EXPECT_EQ(m_host.m_atUpdate.m_ePalette, Palette::Safe);
    Choose(m_pForm->pagColour->cmbPalette, 3);
    Press(m_pForm->cmdCancel);
    EXPECT_TRUE(GoneIs());
    EXPECT_EQ(m_host.m_settings.m_ePalette, Palette::Safe);
    EXPECT_EQ(UpdatesGet(), 1);
}

TEST_F(FrmOptionsColour, FollowsNightThatIsSwitchedElsewhereAndKeepsWhatWasTyped)
{
    const ColourPage& page = Page();
    m_pForm->TabShow(kTabMap);
    Type(m_pForm->txtMapOverlayMinSnr, QStringLiteral("33"));
    m_host.m_settings.m_ePalette = Palette::Night;
    PaletteShow(Palette::Night);
    EXPECT_EQ(page.PaletteGet(), Palette::Night);
    EXPECT_EQ(m_pForm->txtMapOverlayMinSnr->text(), QStringLiteral("33"));
}

}  // namespace
