#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QStandardItemModel>
#include <cmath>

#include "PlanRig.h"
#include "propagation/PowerTable.h"
#include "propagation/SnrScale.h"
#include "ui/compare/frmCompare.h"

namespace {

class FrmCompare : public testing::Test {
protected:
    FrmCompare()
    {
        // 9 dB more in every other hour.
        m_pVoacap = std::make_shared<ChangedEngine>(
            kEngineVoacap, rig.m_pEngine, [](Prediction& prediction) {
                for (int iHour = 2; iHour <= kHourCount; iHour += 2)
                    for (int i = 1; i <= prediction.table.nData; ++i)
                        prediction.table.fSnr(iHour, i) += 9.0F;
            });
        m_pIcepac = std::make_shared<HeldEngine>(rig.m_pEngine);
        m_pIcepac->m_obstacle = Failure{FailureKind::NotInstalled, "ICEPAC is not there."};
        rig.m_aEngine = {
            {kEngineRec533, rig.m_pEngine}, {kEngineVoacap, m_pVoacap}, {kEngineIcepac, m_pIcepac}};
    }
    frmCompare& Open(frmMain& frmM)
    {
        frmCompare& frm = rig.WindowOpen(Qt::Key_M, frmM.m_pCompare);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !frm.RunningIs(); }, 20000));
        return frm;
    }
    PlanRig rig;
    std::shared_ptr<ChangedEngine> m_pVoacap;
    std::shared_ptr<HeldEngine> m_pIcepac;
};

TEST_F(FrmCompare, ShowsOneEngineTheOtherAndTheirDifference)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCompare& frm = Open(frmM);
    ASSERT_EQ(frm.tabView->count(), 3);
    EXPECT_EQ(frm.tabView->tabText(0), QStringLiteral("REC533")) << "the main window's engine";
    EXPECT_EQ(frm.tabView->tabText(1), QStringLiteral("VOACAP"));
    EXPECT_EQ(frm.tabView->tabText(2), QStringLiteral("REC533 less VOACAP"));
    EXPECT_EQ(frm.ViewGet(), CompareView::Difference);
    const auto& [tableA, tableB] = frm.SidesGet().aTable;
    ASSERT_TRUE(tableA && tableB);
    ASSERT_EQ(frm.grdCompare->RowsGet(), tableA->nData + 1);
    int nSeen = 0;
    for (int i = 1; i <= tableA->nData; ++i)
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            const GridCell& cell = frm.grdCompare->CellGet(i, iHour);
            const bool bKnown = SnrIs(tableA->fSnr(iHour, i)) && SnrIs(tableB->fSnr(iHour, i));
            EXPECT_EQ(cell.sText.isEmpty(), !bKnown);
            const float fDifference = tableA->fSnr(iHour, i) - tableB->fSnr(iHour, i);
            if (bKnown) {
                EXPECT_NEAR(cell.sText.toDouble(), fDifference, 0.5001);
                EXPECT_EQ(cell.sText.startsWith(u'+'), cell.sText.toInt() > 0) << "signed";
                EXPECT_EQ(cell.clrBack, CompareColor(fDifference));
            }
            EXPECT_EQ(cell.bHatch, !bKnown);
            nSeen += bKnown ? 1 : 0;
        }
    EXPECT_GT(nSeen, 50);
    for (const int iView : {0, 1}) {
        frm.tabView->setCurrentIndex(iView);
        const PropagationTable& table = iView == 0 ? *tableA : *tableB;
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            EXPECT_NEAR(frm.grdCompare->TextGet(2, iHour).toDouble(), table.fSnr(iHour, 2), 0.5);
            EXPECT_EQ(frm.grdCompare->CellGet(2, iHour).bMet, table.fSnr(iHour, 2) >= 40.0F);
        }
    }
}

TEST_F(FrmCompare, DifferencesGoFromBlueOverWhiteToOrange)
{
    EXPECT_EQ(CompareColor(0.0F), QColor(Qt::white));
    const QColor clrMore = CompareColor(20.0F);
    EXPECT_GT(clrMore.red(), clrMore.green());
    EXPECT_GT(clrMore.green(), clrMore.blue()) << "orange where the first engine gives more";
    const QColor clrLess = CompareColor(-20.0F);
    EXPECT_GT(clrLess.blue(), clrLess.red());
    EXPECT_EQ(CompareColor(-60.0F), clrLess);
    EXPECT_GT(CompareColor(5.0F).blue(), CompareColor(10.0F).blue()) << "paler near white";
    for (const float fDifference : {-30.0F, -12.0F, -3.0F, 3.0F, 12.0F, 30.0F})
        EXPECT_EQ(TextColorOn(CompareColor(fDifference)), QColor(Qt::black))
            << "light enough for its number, " << fDifference;
}

TEST_F(FrmCompare, ItsFootTellsTheAgreementInTheOpenCells)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCompare& frm = Open(frmM);
    const CompareFigures figures =
        CompareGet(*frm.SidesGet().aTable[0], *frm.SidesGet().aTable[1], 40.0F).figures;
    ASSERT_GT(figures.nOpenEither, 0);
    const QString sFoot = frm.lblFoot->text();
    EXPECT_TRUE(
        sFoot.startsWith(QString::fromStdString(CompareText(figures, "REC533", "VOACAP") + "\n")))
        << sFoot.toStdString();
    EXPECT_TRUE(sFoot.contains(QStringLiteral("compared with VOACAP")));
    EXPECT_TRUE(sFoot.endsWith(QStringLiteral("need: E-mail, normal, 40 dB")));
    EXPECT_TRUE(sFoot.contains(QStringLiteral("REC533 (built-in)")));
    frmM.m_settings.m_sNeedSelected = "SSB, clear";
    Q_EMIT frmM.SettingsSignalGet().NeedChosen();
    EXPECT_FALSE(frm.RunningIs()) << "judged anew, not predicted";
    EXPECT_TRUE(frm.lblFoot->text().startsWith(QString::fromStdString(
        CompareText(CompareGet(*frm.SidesGet().aTable[0], *frm.SidesGet().aTable[1], 55.0F).figures,
                    "REC533", "VOACAP"))));
}

TEST_F(FrmCompare, AnEngineComparedWithItselfIsAllZero)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCompare& frm = Open(frmM);
    frm.acmbEngine[1]->setCurrentIndex(frm.acmbEngine[1]->findData(kEngineRec533));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !frm.RunningIs(); }, 20000));
    for (int i = 1; i < frm.grdCompare->RowsGet(); ++i)
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            const GridCell& cell = frm.grdCompare->CellGet(i, iHour);
            EXPECT_TRUE(cell.bHatch || cell.sText == QStringLiteral("0"));
        }
    EXPECT_TRUE(frm.lblFoot->text().startsWith(QStringLiteral("within 6 dB in 100 %\n")))
        << frm.lblFoot->text().toStdString();
    EXPECT_TRUE(frm.lblHint->text().contains(QStringLiteral("with itself")));
}

TEST_F(FrmCompare, BothAreAskedForOnePower)
{
    frmMain& frmM = rig.StartWithEngine();
    Open(frmM);
    const auto aAsked = m_pVoacap->RequestsGet();
    ASSERT_FALSE(aAsked.empty());
    const Request main = frmM.RequestGet();
    ASSERT_EQ(main.fPower, 0.0F) << "as the antenna choice";
    EXPECT_EQ(aAsked.back().fPower,
              static_cast<float>(
                  PowerInForceGet(0.0, kEngineRec533, main.iAntennaType, DeckKind::PointToPoint)));
    EXPECT_EQ(aAsked.back().iModel, kEngineVoacap);
    EXPECT_EQ(aAsked.back().fSunSpotNumber, main.fSunSpotNumber);
    EXPECT_EQ(aAsked.back().afFrequency, main.afFrequency);
    EXPECT_NE(aAsked.back().sIonCoefficients, kCoefficientsMean) << "it does not know them";
}

TEST_F(FrmCompare, AMissingEngineIsGreyWithTheReason)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCompare& frm = Open(frmM);
    for (const QComboBox* pEngine : frm.acmbEngine) {
        const auto* pModel = qobject_cast<QStandardItemModel*>(pEngine->model());
        const QStandardItem* pItem = pModel->item(pEngine->findData(kEngineIcepac));
        EXPECT_FALSE(pItem->isEnabled());
        EXPECT_TRUE(pItem->text().contains(QStringLiteral("not installed")));
        EXPECT_EQ(pItem->toolTip(), QStringLiteral("ICEPAC is not there."));
        EXPECT_TRUE(pModel->item(pEngine->findData(kEngineVoacap))->isEnabled());
    }
}

TEST_F(FrmCompare, AnEngineThatFailsInOneChunkLeavesTheRest)
{
    rig.m_aEngine[kEngineVoacap] =
        std::make_shared<ChangedEngine>(kEngineVoacap, rig.m_pEngine, [](Prediction& prediction) {
            prediction.table.PresentSet(2, 2, false);
            prediction.aFailures.push_back({FailureKind::Timeout, "It took too long."});
        });
    frmMain& frmM = rig.StartWithEngine();
    const frmCompare& frm = Open(frmM);
    EXPECT_TRUE(frm.lblHint->text().contains(QStringLiteral("VOACAP: It took too long.")));
    EXPECT_TRUE(frm.grdCompare->CellGet(2, 20).bHatch);
    EXPECT_EQ(frm.grdCompare->TextGet(1, 20).isEmpty(),
              !SnrIs(frm.SidesGet().aTable[0]->fSnr(20, 1)));
    frm.tabView->setCurrentIndex(0);
    EXPECT_FALSE(frm.grdCompare->TextGet(2, 20).isEmpty());
    EXPECT_TRUE(rig.m_msg.m_aShown.empty()) << "told in the window";
}

TEST_F(FrmCompare, EscapeStopsTheRunsKeepsWhatIsThereAndThenCloses)
{
    const auto pHeld = std::make_shared<HeldEngine>(rig.m_pEngine);
    rig.m_aEngine[kEngineVoacap] = pHeld;
    frmMain& frmM = rig.StartWithEngine();
    frmCompare& frm = rig.WindowOpen(Qt::Key_M, frmM.m_pCompare);
    ASSERT_TRUE(QTest::qWaitFor([&] { return frm.SidesGet().aTable[0].has_value(); }, 20000));
    EXPECT_TRUE(frm.RunningIs());
    EXPECT_TRUE(QTest::qWaitFor([&] { return frm.prgDone->isVisible(); }));
    EXPECT_EQ(frm.prgDone->text(), QStringLiteral("1 of 2"));
    QTest::keyClick(&frm, Qt::Key_Escape);
    EXPECT_FALSE(frm.RunningIs());
    EXPECT_FALSE(frm.prgDone->isVisible());
    EXPECT_EQ(frm.lblHint->text(), QStringLiteral("Stopped."));
    frm.tabView->setCurrentIndex(0);
    EXPECT_FALSE(frm.grdCompare->TextGet(2, 20).isEmpty());
    frm.tabView->setCurrentIndex(2);
    EXPECT_TRUE(frm.grdCompare->CellGet(2, 20).bHatch);
    QTest::keyClick(&frm, Qt::Key_Escape);
    MainRig::EventsRun();
    EXPECT_TRUE(frmM.m_pCompare.isNull());
}

TEST_F(FrmCompare, AnotherEngineNeverShowsTheFormersNumbers)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCompare& frm = Open(frmM);
    rig.m_aEngine[kEngineRec533] = std::make_shared<HeldEngine>(rig.m_pEngine);
    frm.acmbEngine[1]->setCurrentIndex(frm.acmbEngine[1]->findData(kEngineRec533));
    EXPECT_EQ(frm.tabView->tabText(1), QStringLiteral("REC533"));
    EXPECT_FALSE(frm.SidesGet().aTable[1]) << "not VOACAP's";
}

TEST_F(FrmCompare, FollowsNewTablesAndTheSelectionAndEnterTakesACell)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCompare& frm = Open(frmM);
    frmM.DataSetSelected(3, 5);
    EXPECT_EQ(frm.grdCompare->CurrentGet(), (GridPlace{3, 5}));
    EXPECT_TRUE(frm.lblCell->text().startsWith(frmM.grdData->TextGet(3, 0)
                                               + QStringLiteral(" kHz, 04 h: REC533 ")))
        << frm.lblCell->text().toStdString();
    QTest::keyClick(frm.grdCompare, Qt::Key_Down);
    QTest::keyClick(frm.grdCompare, Qt::Key_Return);
    MainRig::EventsRun();
    EXPECT_EQ(frmM.m_settings.m_selected.iFrequency, 4);
    EXPECT_EQ(frmM.m_settings.m_selected.iHour, 5);
    frmM.m_settings.m_fStationPower = 1000.0F;
    frmM.Update();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !frm.RunningIs(); }, 20000));
    EXPECT_EQ(frm.SidesGet().aTable[0]->request.fPower, 1000.0F);
    EXPECT_EQ(frm.SidesGet().aTable[1]->request.fPower, 1000.0F);
    EXPECT_FALSE(frm.grdCompare->StaleGet());
}

TEST_F(FrmCompare, HoursFollowTheTimeSetting)
{
    rig.m_dtLocal = {2026, 11, 21, 18, 35, 0};  // UTC+5:30
    frmMain& frmM = rig.StartWithEngine();
    frmM.m_settings.m_iTimeCode = kTimeLocal;
    frmM.Update();
    EXPECT_EQ(Open(frmM).grdCompare->TextGet(0, 1), QStringLiteral("05:30"));
}

TEST_F(FrmCompare, CopyGivesTheShownViewAndExportFollowsTheSuffix)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCompare& frm = Open(frmM);
    frm.cmdCopy->click();
    const QMimeData* pData = QGuiApplication::clipboard()->mimeData();
    const QStringList asField = pData->text().split(u'\n').at(2).split(u'\t');
    ASSERT_EQ(asField.size(), 1 + kHourCount);
    for (int iHour = 0; iHour <= kHourCount; ++iHour)
        EXPECT_EQ(asField[iHour], frm.grdCompare->TextGet(2, iHour));
    EXPECT_TRUE(pData->html().contains(QStringLiteral("background")));
    for (const char* sSuffix : {"csv", "png", "pdf"}) {
        rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path(std::string("out.") + sSuffix));
        frm.cmdExport->click();
        EXPECT_GT(QFile(rig.m_sAnswer).size(), 100) << sSuffix;
    }
    EXPECT_EQ(frm.PageGet().aBlock.at(0).sHeading, QStringLiteral("REC533 less VOACAP"));
    EXPECT_EQ(frm.PageGet().sFoot, frm.lblFoot->text());
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST_F(FrmCompare, ItsPlaceIsKept)
{
    frmMain& frmM = rig.StartWithEngine();
    frmCompare& frm = Open(frmM);
    frm.resize(777, 444);
    const QSize size = frm.size();
    frm.close();
    MainRig::EventsRun();
    EXPECT_TRUE(frmM.m_settings.m_aPlanWindow[static_cast<std::size_t>(PlanName::Compare)]);
    EXPECT_EQ(Open(frmM).size(), size);
}

TEST_F(FrmCompare, ClosingTheProgramDuringARunEnds)
{
    rig.m_aEngine[kEngineVoacap] = std::make_shared<HeldEngine>(rig.m_pEngine);
    frmMain& frmM = rig.StartWithEngine();
    rig.WindowOpen(Qt::Key_M, frmM.m_pCompare);
    frmM.close();
    EXPECT_TRUE(frmM.m_pCompare.isNull());
}

TEST(CompareColor, IsNoneOfTheScaleWhichAPaletteWouldChange)
{
    for (int n = -400; n <= 400; ++n)
        EXPECT_EQ(SnrBandOfColor(ColorToBgr(CompareColor(static_cast<float>(n) / 10)), {}), nullptr)
            << n;
}

}  // namespace
