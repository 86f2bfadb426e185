#include <QClipboard>
#include <QFile>
#include <QMimeData>
#include <cmath>

#include "PlanRig.h"

namespace {

class FrmReach : public testing::Test {
protected:
    void Stations()
    {
        rig.AirmailWrite("System.HAM.ini", kStationsHam);
        rig.AirmailWrite("System.SailMail.ini", kStationsSail);
    }
    PlanRig rig;
};

int RowOf(const frmReach& frm, const QString& sPart)
{
    for (int i = 1; i < frm.grdReach->RowsGet(); ++i)
        if (frm.grdReach->TextGet(i, kReachStation).contains(sPart))
            return i;
    return -1;
}

TEST_F(FrmReach, ShowsEveryStationWithItsHoursInTheOrderOfUse)
{
    Stations();
    rig.StartWithEngine();
    const frmReach& frm = rig.ReachOpen();
    ASSERT_EQ(frm.grdReach->RowsGet(), 6);
    EXPECT_EQ(frm.frm->lblCount->text(), QStringLiteral("5 of 5"));
    EXPECT_EQ(frm.frm->achkKind[0]->text(), QStringLiteral("Ham 3"));
    EXPECT_EQ(frm.frm->achkKind[1]->text(), QStringLiteral("SailMail 2"));
    EXPECT_FALSE(frm.frm->achkKind[3]->isEnabled());
    EXPECT_NE(RowOf(frm, QStringLiteral("M\u00FCnchen")), -1);
    const Reach& reach = *frm.ReachGet();
    const auto aRanking = reach.RankingGet();
    for (int i = 1; i < frm.grdReach->RowsGet(); ++i) {
        const ReachRow& row = reach.RowsGet()[aRanking[static_cast<std::size_t>(i) - 1]];
        EXPECT_TRUE(
            frm.grdReach->TextGet(i, kReachStation).startsWith(QStringLiteral("%1  ").arg(i)));
        for (int iHour = 0; iHour < kReachHours; ++iHour) {
            const ReachHour& hour = row.aHours[static_cast<std::size_t>(iHour)];
            const GridCell& cell = frm.grdReach->CellGet(i, kReachHour + iHour);
            EXPECT_EQ(cell.sText.isEmpty(), !(hour.fFrequency > 0.0F));
            EXPECT_EQ(cell.bMet, hour.fSnr >= 40.0F);
            if (hour.fFrequency > 0.0F) {
                EXPECT_NEAR(cell.sText.toDouble(), hour.fSnr, 0.5);
            }
        }
    }
}

TEST_F(FrmReach, ItsRowsAreTheMainTablesOfTheSameCircuits)
{
    Stations();
    frmMain& frmM = rig.StartWithEngine();
    const frmReach& frm = rig.ReachOpen();
    const Request base = frmM.RequestGet();
    for (const ReachRow& row : frm.ReachGet()->RowsGet()) {
        Request request =
            ReachRequestGet(frm.ReachGet()->InputGet(), frm.ReachGet()->PlacesGet()[row.iPlace]);
        EXPECT_EQ(request.dRcLat, base.dRcLat);
        EXPECT_EQ(request.fSunSpotNumber, base.fSunSpotNumber);
        const Prediction single = rig.m_pEngine->Predict(request, {});
        for (int iHour = 0; iHour < kReachHours; ++iHour) {
            float fBest = -99.0F;
            for (int i = 1; i <= request.nData; ++i)
                fBest = std::fmax(fBest, single.table.fSnr(iHour + 1, i));
            const float fRow = row.aHours[static_cast<std::size_t>(iHour)].fSnr;
            EXPECT_EQ(std::isnan(fRow) ? -99.0F : fRow, fBest);
        }
    }
}

TEST_F(FrmReach, EntriesThatCannotBeUsedAreCountedAndNamed)
{
    Stations();
    rig.StartWithEngine();
    const frmReach& frm = rig.ReachOpen();
    ASSERT_TRUE(frm.frm->cmdFaults->isVisible());
    EXPECT_EQ(frm.frm->cmdFaults->text(), QStringLiteral("1 cannot be &used..."));
    EXPECT_TRUE(rig.m_msg.m_aShown.empty()) << "opening shows no box";
    frm.frm->cmdFaults->click();
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 1U);
    EXPECT_NE(rig.m_msg.m_aShown[0].sText.find("BAD1"), std::string::npos);
}

TEST_F(FrmReach, EnterTakesAStationWithItsFrequenciesAndBackBringsTheOldPath)
{
    Stations();
    frmMain& frmM = rig.StartWithEngine();
    frmM.DataSetSelected(2, 7);
    const Settings before = frmM.m_settings;
    const QString sTitle = frmM.windowTitle();
    EXPECT_FALSE(frmM.mnuPlanBack->isEnabled());
    const frmReach& frm = rig.ReachOpen();
    const int iRow = RowOf(frm, QStringLiteral("WHV382"));
    ASSERT_NE(iRow, -1);
    frm.grdReach->CurrentSet(iRow, kReachHour + 18);
    QTest::keyClick(frm.grdReach, Qt::Key_Return);
    MainRig::EventsRun();
    EXPECT_EQ(frmM.windowTitle(), QStringLiteral("Hopcast - WHV382 - Friday Harbor"));
    EXPECT_NEAR(frmM.m_settings.m_dTxLat, 48.5, 0.6);
    ASSERT_EQ(frmM.m_settings.m_nData, 3);
    EXPECT_EQ(frmM.m_settings.FrequencyGet(1), 5881.0F);
    EXPECT_EQ(frmM.m_settings.m_selected.iHour, 19) << "18 UTC";
    EXPECT_TRUE(frmM.mnuPlanBack->isEnabled());
    EXPECT_EQ(frm.ReachGet()->InputGet().base.nData, before.m_nData) << "the question stays";

    QTest::keyClick(&frmM, Qt::Key_Left, Qt::AltModifier);
    MainRig::EventsRun();
    EXPECT_EQ(frmM.windowTitle(), sTitle);
    EXPECT_EQ(frmM.m_settings.m_dTxLat, before.m_dTxLat);
    EXPECT_EQ(frmM.m_settings.m_dTxLon, before.m_dTxLon);
    EXPECT_EQ(frmM.m_settings.m_nData, before.m_nData);
    EXPECT_EQ(frmM.m_settings.FrequencyGet(1), before.FrequencyGet(1));
    EXPECT_EQ(frmM.m_settings.m_selected.iFrequency, 2);
    EXPECT_EQ(frmM.m_settings.m_selected.iHour, 7);
    EXPECT_FALSE(frmM.mnuPlanBack->isEnabled()) << "one step";
}

TEST_F(FrmReach, AChangeByHandClearsTheWayBack)
{
    Stations();
    frmMain& frmM = rig.StartWithEngine();
    const frmReach& frm = rig.ReachOpen();
    QTest::keyClick(frm.grdReach, Qt::Key_Return);
    MainRig::EventsRun();
    ASSERT_TRUE(frmM.mnuPlanBack->isEnabled());
    frmM.Update();
    EXPECT_TRUE(frmM.mnuPlanBack->isEnabled()) << "nothing changed";
    frmM.m_settings.m_dRcLat += 1.0;
    frmM.Update();
    EXPECT_FALSE(frmM.mnuPlanBack->isEnabled());
}

TEST_F(FrmReach, ExchangeSwapsTheEndsAndDropsTheStationsName)
{
    Stations();
    frmMain& frmM = rig.StartWithEngine();
    const frmReach& frm = rig.ReachOpen();
    QTest::keyClick(frm.grdReach, Qt::Key_Return);
    MainRig::EventsRun();
    const Settings before = frmM.m_settings;
    frmM.mnuPlanExchange->trigger();
    EXPECT_EQ(frmM.m_settings.m_dTxLat, before.m_dRcLat);
    EXPECT_EQ(frmM.m_settings.m_dTxLon, before.m_dRcLon);
    EXPECT_EQ(frmM.m_settings.m_dRcLat, before.m_dTxLat);
    EXPECT_EQ(frmM.m_settings.m_dRcLon, before.m_dTxLon);
    EXPECT_EQ(frmM.windowTitle(), QStringLiteral("Hopcast"));
    EXPECT_FALSE(frmM.mnuPlanBack->isEnabled());
}

TEST_F(FrmReach, KindsTextMarginAndOrderFilterAndSort)
{
    Stations();
    rig.StartWithEngine();
    frmReach& frm = rig.ReachOpen();
    frm.frm->txtFind->setText(QStringLiteral("harbor"));
    EXPECT_EQ(frm.grdReach->RowsGet(), 2);
    EXPECT_EQ(frm.frm->lblCount->text(), QStringLiteral("1 of 5"));
    frm.frm->txtFind->clear();
    frm.frm->cmbOrder->setCurrentText(QStringLiteral("station"));
    EXPECT_TRUE(frm.grdReach->TextGet(1, kReachStation).contains(QStringLiteral("DL0XYZ")));
    CellMouse(*frm.grdReach, {0, kReachMargin});
    EXPECT_EQ(frm.frm->cmbOrder->currentText(), QStringLiteral("margin"));
    CellMouse(*frm.grdReach, {0, kReachMargin});
    EXPECT_EQ(frm.frm->cmbOrder->currentText(), QStringLiteral("use"));
    frm.frm->numMargin->setValue(100);
    EXPECT_EQ(frm.grdReach->RowsGet(), 1);
    EXPECT_TRUE(frm.lblHint->isVisible());
    frm.frm->numMargin->setValue(frm.frm->numMargin->minimum());
    EXPECT_EQ(frm.grdReach->RowsGet(), 6);
    QTest::mouseClick(frm.frm->achkKind[1], Qt::LeftButton, {}, QPoint(6, 8));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !frm.RunningIs(); }));
    EXPECT_EQ(frm.grdReach->RowsGet(), 4) << "no SailMail";
}

TEST_F(FrmReach, TwoStationsOfOneNameAreTwoRows)
{
    Stations();
    rig.StartWithEngine();
    const frmReach& frm = rig.ReachOpen();
    int nRows = 0;
    for (int i = 1; i < frm.grdReach->RowsGet(); ++i)
        nRows += frm.grdReach->TextGet(i, kReachStation).contains(QStringLiteral("KQ6XA")) ? 1 : 0;
    EXPECT_EQ(nRows, 2);
}

TEST_F(FrmReach, WithoutAirmailOwnPlacesAreListed)
{
    rig.OwnPlacesWrite(
        "Home,N47 30 E8 30,7050 14100,\nAntipode,S15.375 E47.3125,,\n"
        "Here,N15.375 W132.6875,,\n");
    rig.StartWithEngine();
    const frmReach& frm = rig.ReachOpen();
    EXPECT_EQ(frm.grdReach->RowsGet(), 4);
    EXPECT_EQ(frm.frm->achkKind[3]->text(), QStringLiteral("My places 3"));
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    for (const ReachRow& row : frm.ReachGet()->RowsGet())
        EXPECT_NE(row.eState, ReachState::Waiting);
}

TEST_F(FrmReach, WithoutAnyPlaceItSaysWhereTheyComeFrom)
{
    rig.StartWithEngine();
    const frmReach& frm = rig.ReachOpen();
    EXPECT_EQ(frm.grdReach->RowsGet(), 1);
    ASSERT_TRUE(frm.lblHint->isVisible());
    EXPECT_TRUE(frm.lblHint->text().contains(QStringLiteral("My Places")));
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST_F(FrmReach, EscapeStopsTheSearchKeepsTheRowsAndThenCloses)
{
    Stations();
    const auto pHeld = std::make_shared<HeldEngine>(rig.m_pEngine);
    rig.m_pEngine = pHeld;
    frmMain& frmM = rig.StartWithEngine();
    frmReach& frm = rig.ReachOpenSoon();
    pHeld->Release(2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return frm.ReachGet()->DoneGet() == 2; }));
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return frm.frm->lblCount->text() == QStringLiteral("2 of 5 done"); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return frm.frm->prgDone->isVisible(); }));
    QTest::keyClick(&frm, Qt::Key_Escape);
    EXPECT_FALSE(frm.RunningIs());
    EXPECT_FALSE(frm.frm->prgDone->isVisible());
    EXPECT_EQ(frm.grdReach->RowsGet(), 6);
    EXPECT_EQ(frm.grdReach->TextGet(5, kReachOpen), QStringLiteral("..."));
    QTest::keyClick(&frm, Qt::Key_Escape);
    MainRig::EventsRun();
    EXPECT_TRUE(frmM.m_pReach.isNull());
}

TEST_F(FrmReach, ClosingTheProgramDuringASearchEnds)
{
    Stations();
    rig.m_pEngine = std::make_shared<HeldEngine>(rig.m_pEngine);
    frmMain& frmM = rig.StartWithEngine();
    rig.ReachOpenSoon();
    frmM.close();
    EXPECT_TRUE(frmM.m_pReach.isNull());
}

TEST_F(FrmReach, AnEngineThatIsNotInstalledIsToldInTheWindow)
{
    Stations();
    const auto pHeld = std::make_shared<HeldEngine>(rig.m_pEngine);
    pHeld->m_obstacle = Failure{FailureKind::NotInstalled, "VOACAP is not there."};
    rig.m_pEngine = pHeld;
    rig.StartWithEngine();
    const frmReach& frm = rig.ReachOpenSoon();
    EXPECT_TRUE(frm.lblHint->isVisible());
    EXPECT_EQ(frm.lblHint->text(), QStringLiteral("VOACAP is not there."));
}

TEST_F(FrmReach, OtherSettingsAskAnew)
{
    Stations();
    frmMain& frmM = rig.StartWithEngine();
    const frmReach& frm = rig.ReachOpen();
    const float fBefore = frm.ReachGet()->RowsGet()[0].aHours[18].fSnr;
    frmM.m_settings.m_fStationPower = 1000.0F;
    frmM.Update();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return !frm.RunningIs() && frm.ReachGet()->InputGet().base.fPower == 1000.0F; }));
    EXPECT_NE(frm.ReachGet()->RowsGet()[0].aHours[18].fSnr, fBefore);
    EXPECT_TRUE(frm.lblFoot->text().contains(QStringLiteral("1 kW")));
    frmM.m_settings.m_dTxLat += 5.0;
    const Reach* const pBefore = frm.ReachGet();
    frmM.Update();
    MainRig::EventsRun();
    EXPECT_EQ(frm.ReachGet(), pBefore) << "the transmitter is none of it";
}

TEST_F(FrmReach, NeedAndHoursJudgeWithoutAnotherPrediction)
{
    Stations();
    frmMain& frmM = rig.StartWithEngine();
    const frmReach& frm = rig.ReachOpen();
    const Reach* const pBefore = frm.ReachGet();
    EXPECT_EQ(frm.ReachGet()->InputGet().fNeed, 40.0F) << "E-mail, normal where none is chosen";
    EXPECT_EQ(frm.frm->cmdNeed->text(), QStringLiteral("E-mail, normal"));
    EXPECT_TRUE(frm.lblFoot->text().endsWith(QStringLiteral("need: E-mail, normal, 40 dB")));
    frmM.m_settings.m_sNeedSelected = "FT8";
    Q_EMIT frmM.SettingsSignalGet().NeedChosen();
    EXPECT_EQ(frm.ReachGet()->InputGet().fNeed, 13.0F);
    frm.frm->cmbFrom->setCurrentIndex(20);
    frm.frm->numHours->setValue(3);
    EXPECT_EQ(frm.ReachGet()->InputGet().iFrom, 19);
    EXPECT_EQ(frm.ReachGet()->InputGet().nHours, 3);
    EXPECT_EQ(frm.ReachGet(), pBefore);
}

TEST_F(FrmReach, NowGoesOnWithTheClock)
{
    Stations();
    rig.StartWithEngine();
    const frmReach& frm = rig.ReachOpen();
    EXPECT_EQ(frm.ReachGet()->InputGet().iFrom, 13);
    rig.m_dtUtc.nHour = 14;
    frm.tmrNow->setInterval(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return frm.ReachGet()->InputGet().iFrom == 14; }));
    EXPECT_EQ(frm.ReachGet()->InputGet().iFrom, 14);
    EXPECT_EQ(frm.frm->cmbFrom->itemText(0), QStringLiteral("now 14"));
}

TEST_F(FrmReach, CopyGivesTabsAndHtmlAndExportFollowsTheSuffix)
{
    Stations();
    rig.StartWithEngine();
    frmReach& frm = rig.ReachOpen();
    frm.cmdCopy->click();
    const QMimeData* pData = QGuiApplication::clipboard()->mimeData();
    const QStringList asLine = pData->text().split(u'\n');
    ASSERT_EQ(asLine.size(), 6);
    EXPECT_TRUE(asLine[0].startsWith(QStringLiteral("#\tstation\tname\tkHz\tnow\tmargin\t00\t")));
    EXPECT_EQ(asLine[1].count(u'\t'), asLine[0].count(u'\t'));
    EXPECT_TRUE(pData->html().contains(QStringLiteral("bgcolor"))
                || pData->html().contains(QStringLiteral("background")));
    for (const char* sSuffix : {"csv", "png", "pdf"}) {
        rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path(std::string("out.") + sSuffix));
        frm.cmdExport->click();
        EXPECT_GT(QFile(rig.m_sAnswer).size(), 100) << sSuffix;
    }
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path("out.doc"));
    frm.cmdExport->click();
    EXPECT_EQ(rig.m_msg.m_aShown.size(), 1U);
    EXPECT_TRUE(frm.PageGet().sFoot.contains(QStringLiteral("REC533 (built-in)")));
}

TEST_F(FrmReach, ItsPlaceIsKept)
{
    Stations();
    frmMain& frmM = rig.StartWithEngine();
    frmReach& frm = rig.ReachOpen();
    frm.resize(700, 444);
    const QSize size = frm.size();
    frm.close();
    MainRig::EventsRun();
    EXPECT_TRUE(frmM.m_settings.m_aPlanWindow[0]);
    EXPECT_EQ(rig.ReachOpen().size(), size);
}

TEST_F(FrmReach, WhichOfThreeStationsTonightOnWhichChannelTakesSixKeys)
{
    rig.OwnPlacesWrite(
        "Near,N18 W130,7050 14100,\nFar,N47 30 E8 30,10120 21050,\n"
        "West,N21 18 W157 50,5330 10140 18100,\n");
    frmMain& frmM = rig.StartWithEngine();
    frmReach& frm = rig.ReachOpen();                            // 1: Ctrl+R
    QTest::keyClick(frm.grdReach, Qt::Key_O, Qt::AltModifier);  // 2: From
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_2);    // 3, 4: 21 UTC
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_1);
    ASSERT_EQ(frm.ReachGet()->InputGet().iFrom, 21);
    // The answer is in the first row: station, channel, margin.
    const Reach& reach = *frm.ReachGet();
    const ReachRow& best = reach.RowsGet()[reach.RankingGet()[0]];
    EXPECT_TRUE(frm.grdReach->TextGet(1, kReachStation)
                    .contains(QString::fromStdString(reach.PlacesGet()[best.iPlace].sKey)));
    EXPECT_EQ(frm.grdReach->TextGet(1, kReachChannel).toFloat(), ReachChannelGet(reach, best));
    EXPECT_TRUE(frm.grdReach->TextGet(1, kReachMargin).startsWith(u'+'));
    frm.grdReach->setFocus();                       // 5: Tab or a click
    QTest::keyClick(frm.grdReach, Qt::Key_Return);  // 6: takes the station
    MainRig::EventsRun();
    EXPECT_TRUE(
        frmM.windowTitle().contains(QString::fromStdString(reach.PlacesGet()[best.iPlace].sKey)));
    EXPECT_EQ(frmM.m_settings.m_selected.iHour, 22);
}

TEST_F(FrmReach, FiveThousandStationsLeaveTheWindowAlive)
{
    std::string sMany = "[Station Info]\n";
    constexpr int kMany = 5000;
    for (int n = 0; n < kMany; ++n)
        sMany += "S" + std::to_string(n) + "=" + char('A' + n % 18) + char('A' + n / 18 % 18)
                 + char('0' + n / 324 % 10) + char('0' + n / 3240 % 10) + ":Station\n";
    rig.AirmailWrite("System.HAM.ini", sMany);
    const auto pHeld = std::make_shared<HeldEngine>(rig.m_pEngine);
    rig.m_pEngine = pHeld;
    rig.StartWithEngine();
    frmReach& frm = rig.ReachOpenSoon();
    pHeld->Release(500);
    ASSERT_TRUE(QTest::qWaitFor([&] { return frm.ReachGet()->DoneGet() == 500; }, 60000));
    EXPECT_EQ(frm.grdReach->RowsGet(), kMany + 1);
    QTest::keyClick(frm.grdReach, Qt::Key_Down);
    EXPECT_EQ(frm.grdReach->CurrentGet().iRow, 2);
    frm.frm->txtFind->setText(QStringLiteral("S4999"));
    EXPECT_EQ(frm.grdReach->RowsGet(), 2);
}

}  // namespace
