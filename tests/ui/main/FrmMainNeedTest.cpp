/// Needs: the chooser in the status line and the marks in the table.
#include <gtest/gtest.h>

#include <QMenu>
#include <QTest>

#include "ui/details/frmDetails.h"
#include "ui/common/NeedChooser.h"
#include "ui/options/frmOptions.h"
#include "ui/support/MainRig.h"

namespace {

NeedChooser& Chooser(const frmMain& frm) { return *frm.findChild<NeedChooser*>(); }

/// Chooses the menu entry that begins with this text.
void Take(const frmMain& frm, const QString& sBegin)
{
    QMenu* pMenu = Chooser(frm).menu();
    Q_EMIT pMenu->aboutToShow();
    for (QAction* pEntry : pMenu->actions()) {
        if (pEntry->text().startsWith(sBegin)) {
            pEntry->trigger();
            return;
        }
    }
    ADD_FAILURE() << sBegin.toStdString();
}

int MarksCount(const frmMain& frm)
{
    int nMarks = 0;
    for (int iRow = 1; iRow < frm.grdData->RowsGet(); ++iRow)
        for (int iHour = 1; iHour <= 24; ++iHour)
            nMarks += frm.grdData->CellGet(iRow, iHour).bMet ? 1 : 0;
    return nMarks;
}

TEST(FrmMainNeed, NothingIsChosenAtFirstAndNoCellMarked)
{
    MainRig rig;
    rig.m_engine.fnSnr = [](int, int) { return 90.0; };
    const frmMain& frm = rig.Start();
    EXPECT_EQ(Chooser(frm).text(), QStringLiteral("Need"));
    EXPECT_EQ(Chooser(frm).accessibleName(), QStringLiteral("What contacts are for: none chosen"));
    EXPECT_EQ(MarksCount(frm), 0);
}

TEST(FrmMainNeed, CellsFromTheNeedUpAreMarkedWithoutANewRun)
{
    MainRig rig;
    rig.m_engine.fnSnr = [](int iHour, int i) { return i == 3 ? 10.0 + iHour : -5.0; };
    frmMain& frm = rig.Start();
    const int nStarts = rig.m_engine.nStarts;
    Take(frm, QStringLiteral("FT8, 13 dB in 1 Hz"));
    EXPECT_EQ(frm.m_settings.m_sNeedSelected, "FT8");
    EXPECT_EQ(Chooser(frm).text(), QStringLiteral("FT8"));
    EXPECT_FALSE(frm.grdData->CellGet(3, 2).bMet);
    EXPECT_TRUE(frm.grdData->CellGet(3, 3).bMet) << "13 dB meets a need of 13";
    EXPECT_EQ(MarksCount(frm), 22);
    EXPECT_EQ(rig.m_engine.nStarts, nStarts);
    rig.m_engine.fnSnr = [](int, int i) { return i == 1 ? 20.0 : 0.0; };
    EXPECT_TRUE(frm.Update());
    EXPECT_EQ(MarksCount(frm), 24) << "the marks follow the new table";
    Take(frm, QStringLiteral("None"));
    EXPECT_EQ(MarksCount(frm), 0);
    EXPECT_EQ(frm.m_settings.m_sNeedSelected, "");
}

TEST(FrmMainNeed, AMarkedCellIsHeardAsEnough)
{
    MainRig rig;
    rig.m_engine.fnSnr = [](int, int) { return 20.0; };
    const frmMain& frm = rig.Start();
    Take(frm, QStringLiteral("FT8"));
    const auto Heard = [&] {
        return frm.grdData->model()->index(0, 0).data(Qt::AccessibleTextRole).toString();
    };
    EXPECT_TRUE(Heard().endsWith(QStringLiteral("20 dB, meets the need"))) << Heard().toStdString();
    Take(frm, QStringLiteral("SSB, clear"));
    EXPECT_TRUE(Heard().endsWith(QStringLiteral("20 dB")));
}

TEST(FrmMainNeed, TheMenuHasTheListOfTheSettingsWithTheChosenOneTicked)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_aNeed = {{"Log & chat", 33.5F, "own"}};
    frm.m_settings.m_sNeedSelected = "Log & chat";
    QMenu* pMenu = Chooser(frm).menu();
    Q_EMIT pMenu->aboutToShow();
    ASSERT_EQ(pMenu->actions().size(), 3);
    EXPECT_FALSE(pMenu->actions().at(0)->isChecked());
    EXPECT_EQ(pMenu->actions().at(2)->text(), QStringLiteral("Log && chat, 33.5 dB in 1 Hz"));
    EXPECT_TRUE(pMenu->actions().at(2)->isChecked());
}

TEST(FrmMainNeed, OptionsThatAreOpenDoNotTakeTheChoiceBack)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.mnuOptionsStation->trigger();
    MainRig::EventsRun();
    ASSERT_TRUE(frm.m_pOptions);
    EXPECT_EQ(frm.m_pOptions->SSTab->currentIndex(), kTabStation);
    Take(frm, QStringLiteral("FT8"));
    QTest::mouseClick(frm.m_pOptions->cmdApply, Qt::LeftButton);
    EXPECT_EQ(frm.m_settings.m_sNeedSelected, "FT8");
}

TEST(FrmMainNeed, WithAnOwnPowerTheLimitsTooltipNamesTheDecks)
{
    MainRig rig(kEngineRec533);
    rig.ProfileAdd("[Station Data]\nPower=100\n");
    frmMain& frm = rig.Start();
    Q_EMIT frm.grdData->CellClicked(2, 3);
    ASSERT_TRUE(frm.m_pDetails);
    GridControl& grd = *frm.m_pDetails->grdData;
    Q_EMIT grd.MouseMoved(1, 1);
    EXPECT_EQ(grd.toolTip(), QStringLiteral("[<Lower][Maximun][>Maximun] Usable Frequency (kHz)\n"
                                            "LUF for 5 kW, the deck's power"));
    Q_EMIT grd.MouseMoved(1, 2);
    EXPECT_FALSE(grd.toolTip().contains(u'\n'));
    frm.m_settings.m_fStationPower = 0.0F;
    EXPECT_TRUE(frm.Update());
    Q_EMIT grd.MouseMoved(1, 1);
    EXPECT_FALSE(grd.toolTip().contains(u'\n'));
}

TEST(FrmMainNeed, TheStatusLineCountsTheWidthOfANeedThatIsChosenElsewhere)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const auto Shared = [&frm](const std::string& sNeed) {
        frm.m_settings.m_sNeedSelected = sNeed;
        frm.OverlayFailedSet({});  // refreshes the line
        return frm.lblBest->isVisibleTo(frm.statusbar);
    };
    frm.m_settings.m_aNeed = {{"WWWWWWWWWWWWWWWW", 10.0F, ""}};
    int nDiffer = 0;
    for (int nWidth = 640; nWidth < 1300; nWidth += 20) {
        frm.resize(nWidth, 600);
        MainRig::EventsRun();
        const bool bNone = Shared("");
        const bool bLong = Shared("WWWWWWWWWWWWWWWW");
        nDiffer += bNone != bLong ? 1 : 0;
        EXPECT_EQ(bLong, Shared("WWWWWWWWWWWWWWWW")) << nWidth;
        EXPECT_EQ(bNone, Shared("")) << nWidth;
    }
    EXPECT_GT(nDiffer, 0) << "the chooser's width matters somewhere";
}

}  // namespace
