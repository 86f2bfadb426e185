/// Cells picked with mouse and keys, the View menu, and the details window that follows.
#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QTest>

#include "ui/details/frmDetails.h"
#include "ui/support/MainRig.h"
#include "ui/support/UiEvents.h"

namespace {

void SelectedExpect(const frmMain& frm, int iRow, int iHour)
{
    EXPECT_EQ(frm.DataGetSelected().iFrequency, iRow);
    EXPECT_EQ(frm.DataGetSelected().iHour, iHour);
}

TEST(FrmMainSelection, ClickSelectsMarksAndOpensTheDetails)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    CellMouse(*frm.grdData, {7, 15});
    SelectedExpect(frm, 7, 15);
    EXPECT_EQ(frm.grdData->CurrentGet(), (GridPlace{7, 15}));
    EXPECT_TRUE(frm.grdData->CellGet(7, 15).bBold);
    EXPECT_TRUE(frm.grdData->CellGet(7, 15).bFrame);
    EXPECT_FALSE(frm.grdData->CellGet(1, 14).bBold);
    EXPECT_FALSE(frm.grdData->CellGet(1, 14).bFrame);
    ASSERT_TRUE(frm.m_pDetails);
    EXPECT_TRUE(frm.m_pDetails->isVisible());
    EXPECT_EQ(frm.m_pDetails->windowTitle(),
              QStringLiteral("Hopcast - Details by Frequency - 14:00"));
    EXPECT_EQ(frm.m_pDetails->m_iRow, 7);
    EXPECT_EQ(frm.m_pDetails->m_iHour, 15);
}

TEST(FrmMainSelection, DetailsCaptionHasTheHeadersLabel)
{
    MainRig rig;
    rig.ProfileAdd("[Time Data]\nCode=1\n");
    rig.m_dtLocal.nHour = 23;
    frmMain& frm = rig.Start();
    CellMouse(*frm.grdData, {7, 15});
    EXPECT_EQ(frm.m_pDetails->windowTitle(),
              QStringLiteral("Hopcast - Details by Frequency - 00:00"));
}

TEST(FrmMainSelection, HeaderClicksSelectNothing)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    for (const GridPlace place : {GridPlace{0, 3}, GridPlace{3, 0}, GridPlace{0, 0}}) {
        CellMouse(*frm.grdData, place);
        CellMouse(*frm.grdData, place, Qt::RightButton);
        SelectedExpect(frm, 1, 14);
        EXPECT_FALSE(frm.m_pDetails);
        EXPECT_FALSE(frm.mnuView->isVisible());
    }
}

TEST(FrmMainSelection, RightPressSelectsAndPopsTheViewMenuUp)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    CellMouse(*frm.grdData, {7, 15}, Qt::RightButton);
    SelectedExpect(frm, 7, 15);
    EXPECT_TRUE(frm.mnuView->isVisible());
    EXPECT_TRUE(frm.mnuViewDetailData->isEnabled());
    EXPECT_FALSE(frm.m_pDetails);
    frm.mnuView->close();
    frm.mnuViewDetailData->trigger();
    ASSERT_TRUE(frm.m_pDetails);
    EXPECT_EQ(frm.m_pDetails->m_iRow, 7);
}

TEST(FrmMainSelection, EnterPicksTheCurrentCell)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.grdData->setFocus();
    frm.grdData->CurrentSet(2, 13);  // current, but not by a key
    SelectedExpect(frm, 1, 14);
    QTest::keyClick(frm.grdData, Qt::Key_Return);
    SelectedExpect(frm, 2, 13);
    EXPECT_TRUE(frm.m_pDetails);
}

TEST(FrmMainSelection, ArrowsSelectAndOpenDetailsFollow)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.grdData->setFocus();
    QTest::keyClick(frm.grdData, Qt::Key_Down);
    QTest::keyClick(frm.grdData, Qt::Key_Left);
    SelectedExpect(frm, 2, 13);
    EXPECT_TRUE(frm.grdData->CellGet(2, 13).bFrame);
    EXPECT_FALSE(frm.grdData->CellGet(1, 14).bFrame);
    EXPECT_FALSE(frm.m_pDetails) << "the keys stay in the table";
    QTest::keyClick(frm.grdData, Qt::Key_Return);
    ASSERT_TRUE(frm.m_pDetails);
    QTest::keyClick(frm.grdData, Qt::Key_Down);
    QTest::keyClick(frm.grdData, Qt::Key_Right);
    EXPECT_EQ(frm.m_pDetails->m_iRow, 3);
    EXPECT_EQ(frm.m_pDetails->m_iHour, 14);
    EXPECT_EQ(frm.m_pDetails->windowTitle(),
              QStringLiteral("Hopcast - Details by Frequency - 13:00"));
}

TEST(FrmMainSelection, MenusFollowTheArrows)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.DataSetSelected(-1, -1);
    frm.grdData->setFocus();
    QTest::keyClick(frm.grdData, Qt::Key_Down);
    frm.mnuView->popup({0, 0});
    frm.mnuView->close();
    EXPECT_TRUE(frm.mnuViewDetailData->isEnabled());
}

TEST(FrmMainSelection, MenuKeyPopsTheViewMenuUpAtTheCurrentCell)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.grdData->CurrentSet(4, 5);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(frm.grdData->viewport(), &event);
    SelectedExpect(frm, 4, 5);
    EXPECT_TRUE(frm.mnuView->isVisible());
    frm.mnuView->close();
}

TEST(FrmMainSelection, DetailCommandNeedsBothIndices)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const auto Enabled = [&frm](int iRow, int iHour) {
        frm.DataSetSelected(iRow, iHour);
        frm.mnuView->popup({0, 0});
        frm.mnuView->close();
        return frm.mnuViewDetailData->isEnabled();
    };
    EXPECT_TRUE(Enabled(2, 3));
    EXPECT_FALSE(Enabled(-1, 3));
    EXPECT_FALSE(Enabled(2, -1));
    EXPECT_FALSE(Enabled(-1, -1));
    EXPECT_TRUE(Enabled(2, 3));
}

TEST(FrmMainSelection, DataSetSelectedMovesTheMark)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.DataSetSelected(2, 3);
    EXPECT_TRUE(frm.grdData->CellGet(2, 3).bFrame);
    frm.DataSetSelected(-1, -1);
    EXPECT_FALSE(frm.grdData->CellGet(2, 3).bFrame);
    EXPECT_FALSE(frm.grdData->CellGet(2, 3).bBold);
    SelectedExpect(frm, -1, -1);
}

TEST(FrmMainSelection, DefaultLeavesNoOldMark)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    CellMouse(*frm.grdData, {7, 3});
    frm.Initialize();
    EXPECT_FALSE(frm.m_settings.m_selected.iHour == 3);
    frm.m_settings.m_bPropagationSunSpotNumber = false;
    EXPECT_TRUE(frm.Update());
    EXPECT_FALSE(frm.grdData->CellGet(7, 3).bFrame);
    EXPECT_TRUE(frm.grdData->CellGet(1, 14).bFrame);
}

TEST(FrmMainSelection, VisibleDetailsFollowAnUpdateAndClosedOnesStayClosed)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    EXPECT_TRUE(frm.Update());
    EXPECT_FALSE(frm.m_pDetails);
    CellMouse(*frm.grdData, {7, 3});
    rig.m_engine.fnSnr = [](int, int) { return 61.0; };
    EXPECT_TRUE(frm.Update());
    EXPECT_EQ(frm.m_pDetails->m_iHour, 14);
    EXPECT_EQ(frm.m_pDetails->grdData->TextGet(7, 8), QStringLiteral("61"));
    frm.m_pDetails->close();
    MainRig::EventsRun();
    EXPECT_FALSE(frm.m_pDetails);
    EXPECT_TRUE(frm.Update());
    EXPECT_FALSE(frm.m_pDetails);
}

TEST(FrmMainSelection, SuccessAfterAFailureSelectsTheRowChosenLast)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    CellMouse(*frm.grdData, {7, 3});
    rig.m_engine.bFail = true;
    EXPECT_FALSE(frm.Update());
    rig.m_engine.bFail = false;
    rig.m_engine.fnSnr = [](int, int) { return 61.0; };
    EXPECT_TRUE(frm.Update());
    SelectedExpect(frm, 7, 14);
    EXPECT_TRUE(frm.grdData->CellGet(7, 14).bFrame);
    EXPECT_EQ(frm.m_pDetails->grdData->TextGet(7, 8), QStringLiteral("61"));
    EXPECT_EQ(frm.m_pDetails->m_iRow, 7);
}

TEST(FrmMainSelection, TheRowChosenLastOutlivesSeveralFailuresAndShorterLists)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    CellMouse(*frm.grdData, {12, 3});
    frm.m_settings.m_nData = 5;
    rig.m_engine.bFail = true;
    for (int n = 0; n < 2; ++n) {
        EXPECT_FALSE(frm.Update());
        SelectedExpect(frm, -1, -1);
    }
    frm.m_settings.m_nData = 15;
    rig.m_engine.bFail = false;
    EXPECT_TRUE(frm.Update());
    SelectedExpect(frm, 12, 14);
}

TEST(FrmMainSelection, ARowChosenAfterTheFailureIsTheOneChosenLast)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    CellMouse(*frm.grdData, {12, 3});
    rig.m_engine.bFail = true;
    EXPECT_FALSE(frm.Update());
    CellMouse(*frm.grdData, {4, 9});
    rig.m_engine.bFail = false;
    EXPECT_TRUE(frm.Update());
    SelectedExpect(frm, 4, 14);
}

TEST(FrmMainSelection, RowThatAShorterListLacksIsNone)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    CellMouse(*frm.grdData, {12, 3});
    frm.m_settings.m_nData = 5;
    rig.m_engine.nChunks = 1;
    EXPECT_TRUE(frm.Update());
    SelectedExpect(frm, -1, 14);
    EXPECT_EQ(frm.m_pDetails->m_iRow, -1);
    EXPECT_EQ(frm.m_pDetails->m_iHour, 14);
    EXPECT_EQ(frm.m_pDetails->grdData->RowsGet(), 6);
}

TEST(FrmMainSelection, DetailsAfterAFailureSpeakOfTheTableThatIsShown)
{
    MainRig rig;
    rig.ProfileAdd("[Propagation Data]\nCount=3\n");
    rig.m_engine.nChunks = 1;
    frmMain& frm = rig.Start();
    frm.m_settings.m_nData = 6;
    frm.FrequencySet(2, 29000.0F);  // above the MUF of 21000 kHz
    frm.m_settings.m_iPropagationModel = kEngineRec533;
    rig.m_engine.bFail = true;
    EXPECT_FALSE(frm.Update());
    CellMouse(*frm.grdData, {2, 2});
    ASSERT_TRUE(frm.m_pDetails);
    const GridControl& grd = *frm.m_pDetails->grdData;
    EXPECT_EQ(grd.RowsGet(), 4);
    EXPECT_EQ(grd.TextGet(2, 0), QStringLiteral("4000"));
    EXPECT_EQ(grd.TextGet(2, 1), QStringLiteral("< 5000")) << "the verdict on 4000 kHz";
    EXPECT_EQ(grd.TextGet(2, 4), QStringLiteral("2.0")) << "VOACAP's delay";
    EXPECT_GT(grd.ColWidthGet(4), 0);
    EXPECT_EQ(grd.TextGet(2, 8), QStringLiteral("4"));
}

TEST(FrmMainSelection, DetailsOfARec533TableStayWithoutDelayWhenAnotherEngineFailed)
{
    MainRig rig(kEngineRec533);
    frmMain& frm = rig.Start();
    frm.m_settings.m_iPropagationModel = kEngineVoacap;
    rig.m_engine.bFail = true;
    EXPECT_FALSE(frm.Update());
    CellMouse(*frm.grdData, {7, 2});
    ASSERT_TRUE(frm.m_pDetails);
    for (const int iCol : {4, 5}) {
        EXPECT_EQ(frm.m_pDetails->grdData->TextGet(7, iCol), QString());
        EXPECT_EQ(frm.m_pDetails->grdData->ColWidthGet(iCol), 0);
    }
}

TEST(FrmMainSelection, DetailsOfAFrequencyWithoutValuesAreEmpty)
{
    MainRig rig;
    rig.m_engine.anFailing = {0, 1};
    frmMain& frm = rig.Start();
    CellMouse(*frm.grdData, {7, 2});
    ASSERT_TRUE(frm.m_pDetails);
    const GridControl& grd = *frm.m_pDetails->grdData;
    EXPECT_EQ(grd.TextGet(7, 0), QStringLiteral("14000"));
    for (int iCol = 1; iCol < 9; ++iCol) {
        EXPECT_EQ(grd.TextGet(7, iCol), QString()) << iCol;
        EXPECT_NE(grd.TextGet(11, iCol), QString()) << iCol;
    }
    EXPECT_FALSE(grd.CellGet(7, 8).clrBack.isValid());
}

TEST(FrmMainSelection, OpenDetailsHighlightNoRowAfterAFailureAndKeepTheirHour)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    CellMouse(*frm.grdData, {7, 3});
    ASSERT_TRUE(frm.m_pDetails);
    const QString sValue = frm.m_pDetails->grdData->TextGet(7, 8);
    rig.m_engine.bFail = true;
    EXPECT_FALSE(frm.Update());
    SelectedExpect(frm, -1, -1);
    EXPECT_EQ(frm.m_pDetails->m_iRow, -1);
    EXPECT_EQ(frm.m_pDetails->m_iHour, 3);
    EXPECT_FALSE(frm.m_pDetails->grdData->CellGet(7, 8).bBold);
    EXPECT_EQ(frm.m_pDetails->grdData->TextGet(7, 8), sValue);
    EXPECT_EQ(frm.m_pDetails->lblHour->text(), QStringLiteral("02:00 Zulu"));
}

}  // namespace
