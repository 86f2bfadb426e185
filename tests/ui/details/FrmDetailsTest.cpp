#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTest>

#include "ui/details/frmDetails.h"
#include "ui/support/MainRig.h"
#include "ui/support/UiEvents.h"

namespace {

QColor Highlight(const frmDetails& frm) { return frm.palette().color(QPalette::Highlight); }
QColor HighlightText(const frmDetails& frm)
{
    return frm.palette().color(QPalette::HighlightedText);
}

/// Opens the window by a click, as a user does.
frmDetails& Open(MainRig& rig, GridPlace place = {7, 15})
{
    frmMain& frm = rig.Start();
    CellMouse(*frm.grdData, place);
    EXPECT_TRUE(frm.m_pDetails);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(frm.m_pDetails));
    return *frm.m_pDetails;
}

void RowExpect(const frmDetails& frm, int iRow, bool bHighlighted)
{
    for (int iCol = 0; iCol < 8; ++iCol) {
        const GridCell& cell = frm.grdData->CellGet(iRow, iCol);
        EXPECT_EQ(cell.clrBack, bHighlighted ? Highlight(frm) : QColor()) << iRow << "," << iCol;
        EXPECT_EQ(cell.clrFore, bHighlighted ? HighlightText(frm) : QColor())
            << iRow << "," << iCol;
    }
    EXPECT_EQ(frm.grdData->CellGet(iRow, 8).bBold, bHighlighted) << iRow;
}

TEST(FrmDetails, HasItsHeadersWidthsAndLabels)
{
    MainRig rig;
    const frmDetails& frm = Open(rig);
    const QStringList asHeader{QString(),
                               QStringLiteral("LUF-MUF"),
                               QStringLiteral("Layer"),
                               QStringLiteral("T Ang"),
                               QStringLiteral("Delay"),
                               QStringLiteral("Height"),
                               QStringLiteral("Signal"),
                               QStringLiteral("Noise"),
                               QStringLiteral("Snr")};
    const char* const asWidth[] = {"-20000-",  "-LUF-MUF-", "-Layer-", "-T Ang-", "-Delay-",
                                   "-Height-", "-Signal-",  "-Noise-", "---Snr-"};
    ASSERT_EQ(frm.grdData->ColsGet(), 9);
    for (int iCol = 0; iCol < 9; ++iCol) {
        EXPECT_EQ(frm.grdData->TextGet(0, iCol), asHeader.at(iCol));
        EXPECT_EQ(frm.grdData->ColWidthGet(iCol),
                  frm.fontMetrics().horizontalAdvance(QLatin1String(asWidth[iCol])));
        EXPECT_EQ(frm.grdData->CellGet(0, iCol).eAlignment, Qt::AlignCenter);
    }
    ASSERT_EQ(frm.grdData->RowsGet(), 16);
    for (int iRow = 1; iRow <= 15; ++iRow)
        EXPECT_EQ(frm.grdData->TextGet(iRow, 0), QString::number(2000 * iRow));
}

TEST(FrmDetails, ShowsEveryQuantityInItsFormat)
{
    MainRig rig;
    const frmDetails& frm = Open(rig);
    EXPECT_EQ(frm.grdData->TextGet(7, 2), QStringLiteral(" 1F2 "));  // as the engine printed it
    EXPECT_EQ(frm.grdData->TextGet(7, 3), QStringLiteral("7.0"));
    EXPECT_EQ(frm.grdData->TextGet(7, 4), QStringLiteral("7.0"));
    EXPECT_EQ(frm.grdData->TextGet(7, 5), QStringLiteral("7"));
    EXPECT_EQ(frm.grdData->TextGet(7, 6), QStringLiteral("7"));
    EXPECT_EQ(frm.grdData->TextGet(7, 7), QStringLiteral("7"));
    EXPECT_EQ(frm.grdData->TextGet(7, 8), QStringLiteral("22"));
    EXPECT_EQ(frm.grdData->CellGet(7, 1).eAlignment, Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_EQ(frm.grdData->CellGet(7, 2).eAlignment, Qt::AlignCenter);
}

struct LimitCase {
    double dLuf, dMuf;
    const char* sRow7;  ///< the row of 14000 kHz
};
std::ostream& operator<<(std::ostream& stm, const LimitCase& c)
{
    return stm << c.dLuf << " to " << c.dMuf;
}

class FrmDetailsLimit : public testing::TestWithParam<LimitCase> {};

TEST_P(FrmDetailsLimit, TellsWhichLimitApplies)
{
    MainRig rig;
    rig.m_engine.dLufMhz = GetParam().dLuf;
    rig.m_engine.dMufMhz = GetParam().dMuf;
    EXPECT_EQ(Open(rig).grdData->TextGet(7, 1), QString::fromLatin1(GetParam().sRow7));
}

INSTANTIATE_TEST_SUITE_P(Verdicts, FrmDetailsLimit,
                         testing::Values(LimitCase{5, 21, "21000"}, LimitCase{14.1, 21, "< 14100"},
                                         LimitCase{14, 21, "21000"}, LimitCase{5, 14, "14000"},
                                         LimitCase{5, 13.9, "> 13900"},
                                         LimitCase{15, 13, "< 15000"}));

TEST(FrmDetails, SnrCellHasItsColourAndTheSelectionsTextWhereThatReads)
{
    MainRig rig;
    rig.m_engine.fnSnr = [](int, int i) { return i < 9 ? 36.0 + 5.0 * i : 10.0; };
    const frmDetails& frm = Open(rig);
    ASSERT_EQ(HighlightText(frm), QColor(Qt::white));
    const bool abWhite[] = {true, true, true, true, true, false, false, false, false};
    for (int iRow = 1; iRow <= 9; ++iRow) {
        const GridCell& cell = frm.grdData->CellGet(iRow, 8);
        EXPECT_EQ(cell.clrBack, ColorFromBgr(rig.m_pFrm->SnrGetColor(
                                    iRow < 9 ? 36.0F + 5.0F * static_cast<float>(iRow) : 10.0F)));
        EXPECT_EQ(cell.clrFore, QColor(abWhite[iRow - 1] ? Qt::white : Qt::black)) << iRow;
    }
}

TEST(FrmDetails, OpensAtTheSelectedRow)
{
    MainRig rig;
    const frmDetails& frm = Open(rig, {12, 15});
    EXPECT_EQ(frm.grdData->CurrentGet().iRow, 12);
    CellMouse(*rig.m_pFrm->grdData, {3, 15});
    EXPECT_EQ(frm.grdData->CurrentGet().iRow, 3);
}

TEST(FrmDetails, ComesBackFromTheTaskBarAtAClick)
{
    MainRig rig;
    frmDetails& frm = Open(rig);
    frm.showMinimized();
    ASSERT_TRUE(frm.isMinimized());
    CellMouse(*rig.m_pFrm->grdData, {3, 15});
    EXPECT_FALSE(frm.isMinimized());
    EXPECT_TRUE(frm.isVisible());
    EXPECT_EQ(frm.m_iRow, 3);
}

TEST(FrmDetails, EscapeClosesIt)
{
    MainRig rig;
    frmDetails& frm = Open(rig);
    QTest::keyClick(frm.grdData, Qt::Key_Escape);
    MainRig::EventsRun();
    EXPECT_FALSE(rig.m_pFrm->m_pDetails);
}

TEST(FrmDetails, ALineSaysZuluOrLocal)
{
    MainRig rig;
    frmDetails& frm = Open(rig);
    EXPECT_EQ(frm.lblHour->text(), QStringLiteral("14:00 Zulu"));
    EXPECT_TRUE(frm.lblHour->isVisible());
    EXPECT_LE(frm.lblHour->geometry().bottom(), frm.grdData->geometry().top());
    EXPECT_GE(frm.lblHour->height(), frm.fontMetrics().height());
    rig.m_dtLocal.nHour = 15;
    rig.m_pFrm->m_settings.m_iTimeCode = kTimeLocal;
    EXPECT_TRUE(rig.m_pFrm->Update());
    EXPECT_EQ(frm.lblHour->text(), QStringLiteral("15:00 Local"));
}

TEST(FrmDetails, ArrowsPickTheRow)
{
    MainRig rig;
    frmDetails& frm = Open(rig);
    QTest::keyClick(frm.grdData, Qt::Key_Down);
    EXPECT_EQ(rig.m_pFrm->DataGetSelected().iFrequency, 8);
    EXPECT_EQ(rig.m_pFrm->DataGetSelected().iHour, 15);
    RowExpect(frm, 8, true);
}

TEST(FrmDetails, TheCornersToolTipIsTheLabelColumns)
{
    MainRig rig;
    frmDetails& frm = Open(rig);
    CellMouseMove(*frm.grdData, {3, 6});
    auto* pCorner = frm.grdData->findChild<QAbstractButton*>({}, Qt::FindDirectChildrenOnly);
    ASSERT_NE(pCorner, nullptr);
    MouseMoveTo(*pCorner, {3, 3});
    EXPECT_EQ(frm.grdData->toolTip(), QStringLiteral("Frequency (kHz)"));
}

TEST(FrmDetails, HighlightsOneRowAndKeepsTheSnrColour)
{
    MainRig rig;
    frmDetails& frm = Open(rig);
    RowExpect(frm, 7, true);
    RowExpect(frm, 6, false);
    CellMouse(*rig.m_pFrm->grdData, {6, 3});
    RowExpect(frm, 7, false);
    RowExpect(frm, 6, true);
    EXPECT_EQ(frm.m_iRow, 6);
    EXPECT_EQ(frm.m_iHour, 3);
    EXPECT_EQ(frm.windowTitle(), QStringLiteral("Hopcast - Details by Frequency - 02:00"));
}

TEST(FrmDetails, RowPickTellsTheMainWindowAndKeepsTheHour)
{
    MainRig rig;
    frmDetails& frm = Open(rig);
    CellMouse(*frm.grdData, {3, 4});
    RowExpect(frm, 3, true);
    RowExpect(frm, 7, false);
    EXPECT_EQ(rig.m_pFrm->DataGetSelected().iFrequency, 3);
    EXPECT_EQ(rig.m_pFrm->DataGetSelected().iHour, 15);
    EXPECT_TRUE(rig.m_pFrm->grdData->CellGet(3, 15).bFrame);
    EXPECT_FALSE(rig.m_pFrm->grdData->CellGet(7, 15).bFrame);
    CellMouse(*frm.grdData, {4, 0});  // a row's label belongs to the row
    EXPECT_EQ(rig.m_pFrm->DataGetSelected().iFrequency, 4);
}

TEST(FrmDetails, HeaderAndOtherButtonsPickNothing)
{
    MainRig rig;
    frmDetails& frm = Open(rig);
    CellMouse(*frm.grdData, {0, 4});
    CellMouse(*frm.grdData, {3, 4}, Qt::RightButton);
    CellMouse(*frm.grdData, {3, 4}, Qt::MiddleButton);
    RowExpect(frm, 7, true);
    EXPECT_EQ(rig.m_pFrm->DataGetSelected().iFrequency, 7);
}

TEST(FrmDetails, EnterPicksTheCurrentRow)
{
    MainRig rig;
    frmDetails& frm = Open(rig);
    frm.grdData->CurrentSet(2, 1);
    QTest::keyClick(frm.grdData, Qt::Key_Return);
    EXPECT_EQ(rig.m_pFrm->DataGetSelected().iFrequency, 2);
}

TEST(FrmDetails, Rec533HidesDelayAndHeight)
{
    MainRig rig(kEngineRec533);
    const frmDetails& frm = Open(rig);
    for (const int iCol : {4, 5}) {
        EXPECT_EQ(frm.grdData->ColWidthGet(iCol), 0);
        EXPECT_EQ(frm.grdData->TextGet(0, iCol), QString());
        EXPECT_EQ(frm.grdData->TextGet(7, iCol), QString());
    }
    EXPECT_GT(frm.grdData->ColWidthGet(6), 0);
    EXPECT_EQ(frm.grdData->TextGet(7, 3), QStringLiteral("7.0"));
}

TEST(FrmDetails, EngineChangeTakesEffectAtTheNextLoad)
{
    MainRig rig;
    frmDetails& frm = Open(rig);
    frmMain& main = *rig.m_pFrm;
    main.m_settings.m_iPropagationModel = kEngineRec533;
    EXPECT_TRUE(main.Update());
    EXPECT_GT(frm.grdData->ColWidthGet(4), 0);
    EXPECT_EQ(frm.grdData->TextGet(7, 4), QString());  // its cells are empty at once, though
    frm.close();
    MainRig::EventsRun();
    CellMouse(*main.grdData, {7, 15});
    EXPECT_EQ(main.m_pDetails->grdData->ColWidthGet(4), 0);
}

TEST(FrmDetails, SizeFollowsTheMainGridAndTheColumns)
{
    MainRig rig;
    const frmDetails& frm = Open(rig);
    const int nMargin = frm.grdData->y();
    EXPECT_EQ(frm.height(), 2 * nMargin + rig.m_pFrm->grdData->height());
    EXPECT_EQ(frm.width(), 2 * frm.grdData->x() + frm.grdData->ColLeftGet(9) + 24);
}

TEST(FrmDetails, GridFollowsTheWindow)
{
    MainRig rig;
    frmDetails& frm = Open(rig);
    frm.resize(700, 600);
    MainRig::EventsRun();
    EXPECT_EQ(frm.grdData->width(), 700 - 2 * frm.grdData->x());
    EXPECT_EQ(frm.grdData->height(), 600 - 2 * frm.grdData->y());
}

TEST(FrmDetails, ToolTipsTellTheColumnsLongDescription)
{
    MainRig rig;
    frmDetails& frm = Open(rig);
    const QStringList asLong{QStringLiteral("Frequency (kHz)"),
                             QStringLiteral("[<Lower][Maximun][>Maximun] Usable Frequency (kHz)"),
                             QStringLiteral("Ionispheric Layer, [Hops][Layer]"),
                             QStringLiteral("Ionispheric Takeoff Angle (Deg)"),
                             QStringLiteral("Ionispheric Time Delay (mSec)"),
                             QStringLiteral("Ionispheric Virtual Height (km)"),
                             QStringLiteral("Signal Level (dBw)"),
                             QStringLiteral("Noise Level (dBw)"),
                             QStringLiteral("Signal to Noise Ratio (dB)")};
    for (int iCol = 0; iCol < 9; ++iCol) {
        CellMouseMove(*frm.grdData, {3, iCol});
        EXPECT_EQ(frm.grdData->toolTip(), asLong.at(iCol));
        CellMouseMove(*frm.grdData, {0, iCol});
        EXPECT_EQ(frm.grdData->toolTip(), asLong.at(iCol)) << "header";
    }
    MouseMoveTo(*frm.grdData->viewport(), {frm.grdData->viewport()->width() - 2, 20});
    EXPECT_EQ(frm.grdData->toolTip(), QString());
}

TEST(FrmDetails, ToolTipShowsAfreshAtEachNewPosition)
{
    MainRig rig;
    frmDetails& frm = Open(rig);
    CellMouseMove(*frm.grdData, {3, 6});
    ToolTipRecorder recorder(frm.grdData);
    CellMouseMove(*frm.grdData, {3, 6});
    EXPECT_TRUE(recorder.m_asText.isEmpty());
    CellMouseMove(*frm.grdData, {3, 6}, {0, 1});
    EXPECT_EQ(recorder.m_asText, (QStringList{QString(), QStringLiteral("Signal Level (dBw)")}));
}

TEST(FrmDetails, FollowsALongerAndAShorterList)
{
    MainRig rig;
    rig.m_engine.nChunks = 1;
    rig.ProfileAdd("[Propagation Data]\nCount=4\n");
    frmDetails& frm = Open(rig, {2, 15});
    frmMain& main = *rig.m_pFrm;
    EXPECT_EQ(frm.grdData->RowsGet(), 5);
    main.m_settings.m_nData = 8;
    main.FrequencySet(8, 9999.0F);
    EXPECT_TRUE(main.Update());
    EXPECT_EQ(frm.grdData->RowsGet(), 9);
    EXPECT_EQ(frm.grdData->TextGet(8, 0), QStringLiteral("9999"));
    EXPECT_EQ(frm.grdData->TextGet(8, 8), QStringLiteral("22"));
    RowExpect(frm, 2, true);
    main.m_settings.m_nData = 3;
    EXPECT_TRUE(main.Update());
    EXPECT_EQ(frm.grdData->RowsGet(), 4);
    RowExpect(frm, 2, true);
}

TEST(FrmDetails, HighlightedRowThatIsGoneIsNone)
{
    MainRig rig;
    frmDetails& frm = Open(rig, {12, 15});
    frmMain& main = *rig.m_pFrm;
    rig.m_engine.nChunks = 1;
    main.m_settings.m_nData = 5;
    EXPECT_TRUE(main.Update());
    CellMouse(*main.grdData, {2, 2});
    EXPECT_EQ(frm.m_iRow, 2);
    frm.Update(12, 2, QStringLiteral("01:00"), main.TableGet());
    EXPECT_EQ(frm.m_iRow, -1);
    RowExpect(frm, 2, false);
}

TEST(FrmDetails, ModeTextsAreShownWithoutControlCharacters)
{
    MainRig rig;
    frmDetails& frm = Open(rig);
    PropagationTable table = rig.m_pFrm->TableGet();
    table.sLayer(3, 7) = "\x1b[2J ";
    frm.Update(7, 3, QStringLiteral("02:00"), table);
    EXPECT_EQ(frm.grdData->TextGet(7, 2), QStringLiteral(" [2J "));
}

TEST(FrmDetails, SpeaksItsCells)
{
    MainRig rig;
    const frmDetails& frm = Open(rig);
    EXPECT_EQ(frm.grdData->model()->index(6, 7).data(Qt::AccessibleTextRole).toString(),
              QStringLiteral("14000 kHz, Signal to Noise Ratio (dB) 22"));
}

}  // namespace
