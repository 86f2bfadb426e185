/// The palette of the settings in all windows, and the key that toggles Night.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>
#include <QTimer>

#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"
#include "ui/common/MsgWindow.h"
#include "ui/common/NightColors.h"
#include "ui/common/PaletteShown.h"
#include "ui/details/frmDetails.h"
#include "ui/map/frmMap.h"
#include "ui/options/frmOptions.h"
#include "ui/support/MainRig.h"
#include "ui/support/UiEvents.h"

namespace {

class FrmMainNight : public testing::Test {
protected:
    ~FrmMainNight() override { PaletteShow(Palette::Standard); }
    static void NightPress(QWidget* pWidget)
    {
        QTest::keyClick(pWidget, Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        MainRig::EventsRun();
    }
    /// The colour at the rim of a cell.
    static QColor RimGet(GridControl& grd, int iRow, int iCol)
    {
        const QRect rct = grd.PlaceRect({iRow, iCol});
        return grd.grab().toImage().pixelColor(rct.left() + 2, rct.bottom() - 3);
    }
    MainRig m_rig;
};

TEST_F(FrmMainNight, TheKeySwitchesNightOnAndBackToThePaletteBefore)
{
    m_rig.ProfileAdd("[Colour Data]\nPalette=Safe\n");
    frmMain& frm = m_rig.Start();
    EXPECT_EQ(PaletteShown(), Palette::Safe);
    m_rig.m_engine.nStarts = 0;
    NightPress(frm.grdData);
    EXPECT_EQ(PaletteShown(), Palette::Night);
    EXPECT_EQ(frm.m_settings.m_ePalette, Palette::Night);
    NightPress(frm.txtLat0);
    EXPECT_EQ(PaletteShown(), Palette::Safe);
    EXPECT_EQ(frm.m_settings.m_ePalette, Palette::Safe);
    EXPECT_EQ(m_rig.m_engine.nStarts, 0) << "nothing is predicted for it";
}

TEST_F(FrmMainNight, TheKeyWorksInEveryWindowAndInABox)
{
    frmMain& frm = m_rig.Start();
    frm.mnuViewWorldMap->trigger();
    frm.mnuOptionsMap->trigger();
    NightPress(frm.m_pMap->pctMap);
    EXPECT_TRUE(PaletteNightIs());
    NightPress(frm.m_pOptions->txtMapOverlayMinSnr);
    EXPECT_FALSE(PaletteNightIs());
    MsgWindowInstall();
    bool bNight = false;
    QTimer::singleShot(0, [&bNight] {
        auto* pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(pBox, nullptr);
        NightPress(pBox);
        bNight = PaletteNightIs();
        QTest::keyClick(pBox, Qt::Key_Return);
    });
    MsgBox(MsgIcon::Info, "text");
    EXPECT_TRUE(bNight);
}

TEST_F(FrmMainNight, AProfileOfNightStartsInTheDarkAndTheKeyBringsTheStandard)
{
    m_rig.ProfileAdd("[Colour Data]\nPalette=Night\n");
    frmMain& frm = m_rig.Make();
    frm.show();
    EXPECT_TRUE(PaletteNightIs()) << "before anything is painted";
    ASSERT_TRUE(QTest::qWaitFor([&frm] { return frm.ActivatedIs(); }, 20000));
    NightPress(&frm);
    EXPECT_EQ(PaletteShown(), Palette::Standard);
}

TEST_F(FrmMainNight, ThePaletteIsKeptInTheProfile)
{
    frmMain& frm = m_rig.Start();
    NightPress(&frm);
    frm.close();
    m_rig.m_pFrm.reset();
    PaletteShow(Palette::Standard);
    m_rig.Start();
    EXPECT_TRUE(PaletteNightIs());
}

TEST_F(FrmMainNight, AChoiceInTheOptionsIsInForceAtOnceInAllWindows)
{
    m_rig.m_engine.fnSnr = [](int, int) { return 57.0; };
    frmMain& frm = m_rig.Start();
    CellMouse(*frm.grdData, {2, 5});
    ASSERT_TRUE(frm.m_pDetails);
    frm.mnuOptionsColour->trigger();
    ASSERT_TRUE(frm.m_pOptions);
    EXPECT_EQ(frm.m_pOptions->SSTab->currentIndex(), kTabColour);
    for (const Palette ePalette : {Palette::Safe, Palette::Night, Palette::Print}) {
        frm.m_pOptions->pagColour->cmbPalette->setCurrentIndex(static_cast<int>(ePalette));
        QTest::mouseClick(frm.m_pOptions->cmdApply, Qt::LeftButton);
        MainRig::EventsRun();
        const QColor clr = ColorFromBgr(SnrBandGet(57.0F, ePalette).nColor);
        EXPECT_EQ(PaletteShown(), ePalette);
        EXPECT_EQ(RimGet(*frm.grdData, 4, 7), clr) << static_cast<int>(ePalette);
        EXPECT_EQ(RimGet(*frm.m_pDetails->grdData, 4, 8), clr) << static_cast<int>(ePalette);
        EXPECT_EQ(frm.grdData->CellGet(4, 7).clrBack, ColorFromBgr(SnrGetColor(57.0F)))
            << "the cell itself keeps the standard colour";
    }
}

TEST_F(FrmMainNight, ACopiedTableHasThePalettesColoursAndInNightTheStandardOnes)
{
    m_rig.m_engine.fnSnr = [](int, int) { return 57.0; };
    frmMain& frm = m_rig.Start();
    const auto Copied = [&frm](Palette ePalette) {
        PaletteShow(ePalette);
        frm.mnuFileCopyTable->trigger();
        return QGuiApplication::clipboard()->mimeData()->html();
    };
    const QString sStandard = Copied(Palette::Standard);
    EXPECT_TRUE(sStandard.contains(QStringLiteral("background:#800080")));
    EXPECT_TRUE(Copied(Palette::Safe).contains(QStringLiteral("background:#938f77")));
    EXPECT_EQ(Copied(Palette::Night), sStandard);
}

TEST_F(FrmMainNight, TheMenuShowsWhetherItIsNight)
{
    frmMain& frm = m_rig.Start();
    for (const bool bNight : {true, false}) {
        frm.mnuOptionsNight->trigger();
        EXPECT_EQ(PaletteNightIs(), bNight);
        frm.mnuOptions->popup(QPoint(0, 0));
        EXPECT_EQ(frm.mnuOptionsNight->isChecked(), bNight);
        frm.mnuOptions->close();
    }
}

}  // namespace
