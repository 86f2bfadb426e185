/// The steps from a command to the table.
#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>

#include "geo/MathLib.h"
#include "system/MsgLib.h"
#include "ui/map/frmMap.h"
#include "ui/options/frmOptions.h"
#include "ui/support/MainRig.h"
#include "ui/support/UiEvents.h"

namespace {

TEST(FrmMainUpdate, TakesItsStepsInOrder)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.mnuOptionsFrequency->trigger();
    frm.mnuViewWorldMap->trigger();
    MainRig::EventsRun();
    frm.activateWindow();
    frm.m_settings.m_dRcLat = 10.0;
    frm.FrequencySet(3, 5000.0F);
    bool bSeen = false;
    rig.m_engine.fnDuring = [&] {
        bSeen = true;
        EXPECT_FALSE(frm.grdData->RedrawGet());
        EXPECT_EQ(frm.grdData->TextGet(3, 0), QStringLiteral("5000"));
        EXPECT_EQ(frm.DataGetSelected().iHour, 14);
        EXPECT_EQ(frm.txtLat0->text(), QStringLiteral("10°00.00'N"));
        EXPECT_DOUBLE_EQ(frm.m_pMap->m_posRc.dLat, 10.0);
        EXPECT_NE(frm.m_pOptions->txtFrequency->toPlainText().indexOf(QStringLiteral("5000")), -1);
        EXPECT_EQ(frm.grdData->TextGet(1, 1), QStringLiteral("2"));  // still the old value
    };
    rig.m_engine.fnSnr = [](int, int) { return 44.0; };
    EXPECT_TRUE(frm.Update());
    EXPECT_TRUE(bSeen);
    EXPECT_EQ(frm.grdData->TextGet(1, 1), QStringLiteral("44"));
    EXPECT_TRUE(frm.grdData->RedrawGet());
    EXPECT_FALSE(frm.cmdUpdate->isEnabled());
}

TEST(FrmMainUpdate, ShowsRangeAndBearings)
{
    MainRig rig;
    const frmMain& frm = rig.Start();
    EXPECT_EQ(frm.lblRange->text(), QStringLiteral("Range:  1041"));
    EXPECT_EQ(frm.lblRcBearing->text(), QStringLiteral("Bearing Rc:  140"));
    EXPECT_EQ(frm.lblTxBearing->text(), QStringLiteral("Bearing Tx:  327"));
}

TEST(FrmMainUpdate, SelectsTheCurrentUtcHourAndKeepsTheRow)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    EXPECT_EQ(frm.DataGetSelected().iFrequency, 1);
    EXPECT_EQ(frm.DataGetSelected().iHour, 14);
    EXPECT_EQ(frm.grdData->CurrentGet(), (GridPlace{1, 14}));
    CellMouse(*frm.grdData, {5, 3});
    rig.m_dtUtc.nHour = 23;
    rig.m_dtUtc.nMinute = 59;
    EXPECT_TRUE(frm.Update());
    EXPECT_EQ(frm.DataGetSelected().iFrequency, 5);
    EXPECT_EQ(frm.DataGetSelected().iHour, 24);
    EXPECT_EQ(frm.grdData->CurrentGet(), (GridPlace{5, 24}));
    EXPECT_EQ(frm.lblTime->text(), QStringLiteral("Zulu: 23:59"));
}

TEST(FrmMainUpdate, LeavesTheFocusWhereItWas)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.txtLon1->setFocus();
    rig.m_engine.fnDuring = [&] { frm.txtLat0->setFocus(); };  // takes the focus during the run
    EXPECT_TRUE(frm.Update());
    EXPECT_TRUE(frm.txtLon1->hasFocus());
}

TEST(FrmMainUpdate, ButtonLivesWhileTypedPositionsWait)
{
    MainRig rig;
    frmMain& frm = rig.Make();
    EXPECT_TRUE(frm.cmdUpdate->isEnabled());
    rig.Start();
    EXPECT_FALSE(frm.cmdUpdate->isEnabled());
    frm.txtLat0->setFocus();
    QTest::keyClicks(frm.txtLat0, QStringLiteral("x"));  // refused
    EXPECT_FALSE(frm.cmdUpdate->isEnabled());
    QTest::keyClicks(frm.txtLat0, QStringLiteral("3"));
    EXPECT_TRUE(frm.cmdUpdate->isEnabled());
    QTest::mouseClick(frm.cmdUpdate, Qt::LeftButton);
    EXPECT_FALSE(frm.cmdUpdate->isEnabled());
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dRcLat, 34.0);
    EXPECT_EQ(frm.txtLat0->text(), QStringLiteral("34°00.00'N"));
}

TEST(FrmMainUpdate, DecodesAllFourPositions)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.txtLat0->TextSet(QStringLiteral("10°30.00'S"));
    frm.txtLon0->TextSet(QStringLiteral("020°15.00'E"));
    frm.txtLat1->TextSet(QStringLiteral("30°45.00'N"));
    frm.txtLon1->TextSet(QStringLiteral("040°00.00'W"));
    frm.cmdUpdate->setEnabled(true);
    rig.m_engine.nStarts = 0;
    QTest::mouseClick(frm.cmdUpdate, Qt::LeftButton);
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dRcLat, -10.5);
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dRcLon, 20.25);
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dTxLat, 30.75);
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dTxLon, -40.0);
    EXPECT_EQ(rig.m_engine.nStarts, 2);
}

struct DecodeCase {
    int iBad;  ///< 0 receiver latitude, 1 its longitude, 2 transmitter latitude, 3 its longitude
    const char* sMessage;
};
std::ostream& operator<<(std::ostream& stm, const DecodeCase& c) { return stm << c.iBad; }

class FrmMainDecode : public testing::TestWithParam<DecodeCase> {};

TEST_P(FrmMainDecode, StopsAtTheFirstTextThatCannotBeAndKeepsWhatCameBefore)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const std::array<LocationField*, 4> aFields{frm.txtLat0, frm.txtLon0, frm.txtLat1, frm.txtLon1};
    const std::array<double*, 4> adValues{&frm.m_settings.m_dRcLat, &frm.m_settings.m_dRcLon,
                                          &frm.m_settings.m_dTxLat, &frm.m_settings.m_dTxLon};
    std::array<double, 4> adBefore{};
    for (std::size_t n = 0; n < 4; ++n) {
        adBefore[n] = *adValues[n];
        aFields[n]->TextSet(n % 2 == 0 ? QStringLiteral("11°00.00'N")
                                       : QStringLiteral("011°00.00'E"));
    }
    aFields[static_cast<std::size_t>(GetParam().iBad)]->TextSet(QStringLiteral("no place"));
    frm.cmdUpdate->setEnabled(true);
    rig.m_engine.nStarts = 0;
    QTest::mouseClick(frm.cmdUpdate, Qt::LeftButton);
    for (int n = 0; n < 4; ++n) {
        const auto i = static_cast<std::size_t>(n);
        EXPECT_DOUBLE_EQ(*adValues[i], n < GetParam().iBad ? 11.0 : adBefore[i]) << n;
    }
    EXPECT_EQ(rig.m_engine.nStarts, 0);
    EXPECT_TRUE(frm.cmdUpdate->isEnabled());
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 1u);
    EXPECT_EQ(rig.m_msg.m_aShown[0].sText, GetParam().sMessage);
    EXPECT_EQ(rig.m_msg.m_aShown[0].eIcon, MsgIcon::Exclamation);
}

INSTANTIATE_TEST_SUITE_P(Order, FrmMainDecode,
                         testing::Values(DecodeCase{0, "Unable for decode Latitude no place"},
                                         DecodeCase{1, "Unable for decode Longitude no place"},
                                         DecodeCase{2, "Unable for decode Latitude no place"},
                                         DecodeCase{3, "Unable for decode Longitude no place"}));

TEST(FrmMainUpdate, FailureKeepsTheGridAndClearsTheSelection)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const QString sBefore = frm.grdData->TextGet(4, 7);
    const QColor clrBefore = frm.grdData->CellGet(4, 7).clrBack;
    ASSERT_EQ(sBefore, QStringLiteral("11"));
    frm.txtLat0->setFocus();
    QTest::keyClicks(frm.txtLat0, QStringLiteral("1"));
    rig.m_engine.bFail = true;
    rig.m_engine.fnSnr = [](int, int) { return 60.0; };
    QTest::mouseClick(frm.cmdUpdate, Qt::LeftButton);
    EXPECT_EQ(frm.grdData->TextGet(4, 7), sBefore);
    EXPECT_EQ(frm.grdData->CellGet(4, 7).clrBack, clrBefore);
    EXPECT_EQ(frm.lblRange->text(), QStringLiteral("Range:  1041"));
    EXPECT_EQ(frm.DataGetSelected().iFrequency, -1);
    EXPECT_EQ(frm.DataGetSelected().iHour, -1);
    EXPECT_TRUE(frm.cmdUpdate->isEnabled());
    EXPECT_FALSE(frm.grdData->CellGet(4, 7).bHatch);
    EXPECT_TRUE(frm.grdData->RedrawGet());
    EXPECT_TRUE(frm.grdData->StaleGet());
    EXPECT_TRUE(frm.lblOld->isVisible());
    EXPECT_EQ(rig.m_msg.m_aShown.size(), 2u);  // one for each chunk of frequencies
    EXPECT_NE(frm.lblTrouble->text(), QString());
}

TEST(FrmMainUpdate, UpdateButtonLivesAfterEveryFailedRun)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    EXPECT_FALSE(frm.cmdUpdate->isEnabled());
    rig.m_engine.bFail = true;
    EXPECT_FALSE(frm.Update());  // not through the button
    EXPECT_TRUE(frm.cmdUpdate->isEnabled());
    rig.m_engine.bFail = false;
    EXPECT_TRUE(frm.Update());
    EXPECT_FALSE(frm.cmdUpdate->isEnabled());
    frm.m_settings.m_nData = 0;
    EXPECT_FALSE(frm.Update());
    EXPECT_TRUE(frm.cmdUpdate->isEnabled());
}

/// Chooses another list, and an engine that is not installed.
void ListAndEngineChange(MainRig& rig, frmMain& frm)
{
    frm.m_settings.m_nData = 3;
    frm.FrequencySet(1, 18100.0F);
    frm.FrequencySet(2, 4000.0F);
    frm.FrequencySet(3, 29000.0F);
    frm.m_settings.m_iPropagationModel = kEngineIcepac;
    frm.m_settings.m_bPropagationMonth = false;
    frm.m_settings.m_iPropagationMonth = 3;
    frm.m_settings.m_fPropagationSunSpotNumber = 12.0F;
    std::remove((rig.m_folder.Path("root") + "/bin_win/icepacw.exe").c_str());
}

TEST(FrmMainUpdate, LabelsOfTheKeptTableGoBackToWhatItsValuesAreFor)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    ListAndEngineChange(rig, frm);
    EXPECT_FALSE(frm.Update());
    ASSERT_EQ(frm.grdData->RowsGet(), 16);
    for (int i = 1; i <= 15; ++i) {
        EXPECT_EQ(frm.grdData->TextGet(i, 0), QString::number(2000 * i));
        for (int iHour = 1; iHour <= 24; ++iHour) {
            const GridCell& cell = frm.grdData->CellGet(i, iHour);
            EXPECT_EQ(cell.sText, QString::number(iHour + i)) << i << "," << iHour;
            EXPECT_TRUE(cell.clrBack.isValid());
        }
    }
    EXPECT_EQ(frm.TableInputGet().FrequencyGet(1), 2000.0F);
    EXPECT_EQ(frm.FrequencyGet(1), 18100.0F) << "the user's list stays in force";
    EXPECT_EQ(frm.m_settings.m_nData, 3);
}

TEST(FrmMainUpdate, ABoxOfTheRunNeverShowsOldValuesUnderNewLabels)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    ListAndEngineChange(rig, frm);
    int nBoxes = 0;
    const auto fnBefore = MsgSetHandler([&](MsgIcon, const std::string&) {
        ++nBoxes;
        EXPECT_EQ(frm.grdData->TextGet(1, 0), QStringLiteral("18100"));
        EXPECT_EQ(frm.grdData->TextGet(1, 7), QString());
        EXPECT_EQ(frm.grdData->TextGet(2, 0), QStringLiteral("4000"));
        EXPECT_EQ(frm.grdData->TextGet(2, 7), QStringLiteral("9"));
    });
    EXPECT_FALSE(frm.Update());
    MsgSetHandler(fnBefore);
    EXPECT_EQ(nBoxes, 1);
}

TEST(FrmMainUpdate, TheStatusLineSpeaksOfTheTableThatIsShown)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    ListAndEngineChange(rig, frm);
    EXPECT_FALSE(frm.Update());
    EXPECT_EQ(frm.lblInForce->toolTip(),
              QStringLiteral("VOACAP · November · SSN 100 (typed) · 100 W, as the antenna "
                             "choice · hopcast.ini"));
    EXPECT_EQ(frm.lblTrouble->text(),
              QStringLiteral("ICEPAC is not installed: Options, Model, choose another engine "
                             "(Propagation Model ICEPAC not found.)"));
    frm.m_settings.m_iPropagationModel = kEngineRec533;
    rig.m_engine.nChunks = 1;
    EXPECT_TRUE(frm.Update());
    EXPECT_EQ(frm.lblInForce->toolTip(),
              QStringLiteral("REC533 · March · SSN 12 (typed) · 5 kW, as the antenna "
                             "choice · hopcast.ini"));
    EXPECT_EQ(frm.grdData->RowsGet(), 4);
    EXPECT_EQ(frm.grdData->TextGet(1, 0), QStringLiteral("18100"));
}

TEST(FrmMainUpdate, AChunkThatFailedBeforeAGoodOneIsEmptyHatchedAndNamed)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    rig.m_engine.nStarts = 0;
    rig.m_engine.anFailing = {0, 1};  // both attempts of the first chunk
    rig.m_engine.fnSnr = [](int, int) { return 51.0; };
    EXPECT_TRUE(frm.Update());
    for (int i = 1; i <= 15; ++i) {
        const GridCell& cell = frm.grdData->CellGet(i, 7);
        EXPECT_EQ(cell.sText, i <= 10 ? QString() : QStringLiteral("51")) << i;
        EXPECT_EQ(cell.clrBack.isValid(), i > 10) << i;
        EXPECT_EQ(cell.bHatch, i <= 10) << i;
    }
    EXPECT_EQ(frm.lblTrouble->text(),
              QStringLiteral("No values for 2000, 4000, 6000, 8000, 10000, 12000, 14000, 16000, "
                             "18000, 20000 kHz: PropagationIcepacVoacap, Input, File not found"));
    EXPECT_TRUE(frm.lblTrouble->isVisible());
    EXPECT_FALSE(frm.grdData->StaleGet()) << "it is a new table";
    EXPECT_FALSE(frm.lblOld->isVisible());
    EXPECT_EQ(rig.m_msg.m_aShown.size(), 1u);
    rig.m_engine.nStarts = 2;
    EXPECT_TRUE(frm.Update());
    EXPECT_EQ(frm.grdData->TextGet(1, 7), QStringLiteral("51"));
    EXPECT_FALSE(frm.grdData->CellGet(1, 7).bHatch);
    EXPECT_EQ(frm.lblTrouble->text(), QString());
}

TEST(FrmMainUpdate, HatchedRowsComeBackAfterAFailedRun)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    rig.m_engine.nStarts = 0;
    rig.m_engine.anFailing = {0, 1};
    EXPECT_TRUE(frm.Update());
    frm.m_settings.m_nData = 2;
    rig.m_engine.bFail = true;
    EXPECT_FALSE(frm.Update());
    ASSERT_EQ(frm.grdData->RowsGet(), 16);
    EXPECT_TRUE(frm.grdData->CellGet(10, 7).bHatch);
    EXPECT_FALSE(frm.grdData->CellGet(11, 7).bHatch);
}

TEST(FrmMainUpdate, AnOverlayThatFailedIsToldInTheStatusLineUntilTheNextRun)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.OverlayFailedSet(
        Failure{FailureKind::BadOutput, "PropagationAreaOpen, Shell do not finish."});
    EXPECT_EQ(
        frm.lblTrouble->text(),
        QStringLiteral("No overlay: VOACAP gave no usable result: PropagationAreaOpen, Shell do "
                       "not finish."));
    EXPECT_TRUE(frm.lblTrouble->isVisible());
    EXPECT_FALSE(frm.grdData->StaleGet());
    EXPECT_FALSE(frm.lblOld->isVisible());
    frm.OverlayFailedSet({});
    EXPECT_FALSE(frm.lblTrouble->isVisible());
    frm.OverlayFailedSet(
        Failure{FailureKind::BadOutput, "PropagationAreaOpen, Shell do not finish."});
    EXPECT_TRUE(frm.Update());
    EXPECT_EQ(frm.lblTrouble->text(), QString());
}

TEST(FrmMainUpdate, ClosingTheMapEndsWhatIsToldOfItsOverlay)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.mnuViewWorldMap->trigger();
    frm.OverlayFailedSet(
        Failure{FailureKind::BadOutput, "PropagationAreaOpen, Shell do not finish."});
    frm.m_pMap->close();
    MainRig::EventsRun();
    EXPECT_FALSE(frm.m_pMap);
    EXPECT_EQ(frm.lblTrouble->text(), QString());
}

TEST(FrmMainUpdate, NoCellIsMarkedAfterAFailure)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    rig.m_engine.bFail = true;
    EXPECT_FALSE(frm.Update());
    for (int iRow = 1; iRow < frm.grdData->RowsGet(); ++iRow)
        for (int iCol = 1; iCol < frm.grdData->ColsGet(); ++iCol)
            EXPECT_FALSE(frm.grdData->CellGet(iRow, iCol).bFrame) << iRow << "," << iCol;
}

TEST(FrmMainUpdate, SuccessAfterAFailureTakesTheOldMarkAway)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    rig.m_engine.bFail = true;
    EXPECT_FALSE(frm.Update());
    rig.m_engine.bFail = false;
    rig.m_engine.nStarts = 0;
    EXPECT_TRUE(frm.Update());
    EXPECT_FALSE(frm.grdData->StaleGet());
    EXPECT_FALSE(frm.lblOld->isVisible());
    EXPECT_EQ(frm.lblTrouble->text(), QString());
    EXPECT_EQ(frm.DataGetSelected().iHour, 14);
}

TEST(FrmMainUpdate, SunspotNumberComesFromAirmailWhenAskedFor)
{
    MainRig rig;
    rig.AirmailWrite("Airmail.ini", "[Propagation]\nSSN=66.5\n");
    frmMain& frm = rig.Start();
    frm.m_settings.m_bPropagationSunSpotNumber = true;
    EXPECT_TRUE(frm.Update());
    EXPECT_EQ(frm.m_settings.m_fPropagationSunSpotNumber, 66.5F);
    EXPECT_EQ(frm.lblInForce->text(),
              QStringLiteral("VOACAP · November · SSN 66.5 (Airmail) · 100 W, as the "
                             "antenna choice · hopcast.ini"));
}

TEST(FrmMainUpdate, MissingSunspotNumberRefusesThePrediction)
{
    MainRig rig;
    rig.AirmailWrite("Airmail.ini", "[Propagation]\nSSN=\n");
    frmMain& frm = rig.Start();
    rig.m_engine.nStarts = 0;
    frm.m_settings.m_bPropagationSunSpotNumber = true;
    EXPECT_FALSE(frm.Update());
    EXPECT_EQ(frm.m_settings.m_fPropagationSunSpotNumber, 100.0F);
    EXPECT_EQ(rig.m_engine.nStarts, 0);
    EXPECT_EQ(frm.grdData->TextGet(4, 7), QStringLiteral("11"));
    EXPECT_EQ(frm.DataGetSelected().iHour, -1);
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 1u);
    EXPECT_EQ(rig.m_msg.m_aShown[0].sText.rfind("Unable to find AirMail's Propagation, SSN in", 0),
              0u);
    EXPECT_EQ(frm.lblTrouble->text(),
              QStringLiteral("No sunspot number from Airmail: Options, Model, clear Auto"));
    EXPECT_EQ(frm.lblInForce->toolTip(),
              QStringLiteral("VOACAP · November · SSN 100 (typed) · 100 W, as the antenna "
                             "choice · hopcast.ini"))
        << "the one of the table that is shown";
    EXPECT_EQ(frm.lblInForce->text(),
              QStringLiteral("VOACAP · November · SSN 100 · 100 W, as the antenna choice · "
                             "hopcast.ini"));
    frm.resize(1200, 600);
    MainRig::EventsRun();
    for (const QLabel* pLabel : {frm.lblTrouble, frm.lblInForce})  // nothing is cut off
        EXPECT_GE(pLabel->width(), pLabel->fontMetrics().horizontalAdvance(pLabel->text()));
}

TEST(FrmMainUpdate, SunspotTextThatIsNoNumberIsToldOnce)
{
    MainRig rig;
    rig.AirmailWrite("Airmail.ini", "[Propagation]\nSSN=many\n");
    frmMain& frm = rig.Start();
    frm.m_settings.m_bPropagationSunSpotNumber = true;
    EXPECT_FALSE(frm.Update());
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 1u);
    EXPECT_EQ(rig.m_msg.m_aShown[0].sText, "Airmail's sunspot number: Type mismatch");
    EXPECT_EQ(rig.m_msg.m_aShown[0].eIcon, MsgIcon::None);
}

TEST(FrmMainUpdate, MonthIsTheCurrentOneOnlyWhenAskedFor)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_iPropagationMonth = 3;
    EXPECT_TRUE(frm.Update());
    EXPECT_EQ(frm.m_settings.m_iPropagationMonth, 11);
    frm.m_settings.m_bPropagationMonth = false;
    frm.m_settings.m_iPropagationMonth = 3;
    EXPECT_TRUE(frm.Update());
    EXPECT_EQ(frm.m_settings.m_iPropagationMonth, 3);
}

TEST(FrmMainUpdate, FrequencyListIsReadBackFromItsRoundedLabels)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.FrequencySet(3, 7050.6F);
    frm.FrequencySet(4, 7049.6F);
    EXPECT_TRUE(frm.Update());
    EXPECT_EQ(frm.grdData->TextGet(3, 0), QStringLiteral("7051"));
    EXPECT_EQ(frm.FrequencyGet(3), 7051.0F);
    EXPECT_EQ(frm.FrequencyGet(4), 7050.0F);
    // 7.0496 MHz would be written as 7.0, but the label's 7.05 becomes 7.1.
    const std::string& sDeck = rig.m_engine.asDeck.at(rig.m_engine.asDeck.size() - 2);
    EXPECT_EQ(sDeck.find("  7.0"), std::string::npos);
    EXPECT_NE(sDeck.find("  7.1  7.1"), std::string::npos) << sDeck;
}

TEST(FrmMainUpdate, EmptyFrequencyListFailsWithoutTouchingTheEngine)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    rig.m_engine.nStarts = 0;
    frm.m_settings.m_nData = 0;
    EXPECT_FALSE(frm.Update());
    EXPECT_EQ(rig.m_engine.nStarts, 0);
    EXPECT_EQ(frm.grdData->RowsGet(), 16);  // the rows of the table that is shown
    EXPECT_EQ(frm.lblTrouble->text(),
              QStringLiteral("No frequencies to predict: Options, Frequency"));
}

TEST(FrmMainUpdate, MissingEngineIsToldAndTheStatusLineSaysWhatToDo)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_iPropagationModel = kEngineIcepac;
    std::remove((rig.m_folder.Path("root") + "/bin_win/icepacw.exe").c_str());
    EXPECT_FALSE(frm.Update());
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 2u);
    EXPECT_EQ(rig.m_msg.m_aShown[0].sText.rfind("Propagation Model ICEPAC not found.", 0), 0u);
    EXPECT_EQ(frm.lblTrouble->text(),
              QStringLiteral("ICEPAC is not installed: Options, Model, choose another engine "
                             "(Propagation Model ICEPAC not found.)"));
}

TEST(FrmMainUpdate, UnknownEngineNumberFailsQuietly)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_iPropagationModel = 9;
    EXPECT_FALSE(frm.Update());
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    EXPECT_NE(frm.lblTrouble->text(), QString());
}

TEST(FrmMainUpdate, DefaultResetsEverySettingAndPredicts)
{
    MainRig rig(kEngineRec533);
    rig.AirmailWrite("Airmail.ini", "[Propagation]\nSSN=66\n");
    frmMain& frm = rig.Start();
    frm.m_settings.m_dTxLat = 1.0;
    frm.m_settings.m_iTimeCode = 1;
    rig.m_engine.nStarts = 0;
    const std::string sProfile = BytesRead(rig.m_sProfileFile);
    frm.mnuFileDefault->trigger();
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dTxLat, 38.0);
    EXPECT_EQ(frm.m_settings.m_iTimeCode, 0);
    EXPECT_TRUE(frm.m_settings.m_bPropagationSunSpotNumber);
    EXPECT_EQ(frm.txtLat1->text(), QStringLiteral("38°00.00'N"));
    EXPECT_EQ(BytesRead(rig.m_sProfileFile), sProfile);
    // The Airmail folders, too, are reset to their default, where this machine has no Airmail.
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 1u);
    EXPECT_EQ(rig.m_engine.nStarts, 0);
    EXPECT_NE(frm.lblTrouble->text().indexOf(QStringLiteral("clear Auto")), -1);
}

}  // namespace
