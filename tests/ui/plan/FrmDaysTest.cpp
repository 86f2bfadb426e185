#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <cmath>

#include "PlanRig.h"
#include "propagation/SnrScale.h"
#include "ui/days/frmDays.h"

namespace {

class FrmDays : public testing::Test {
protected:
    frmDays& Open(frmMain& frmM)
    {
        frmDays& frm = rig.WindowOpen(Qt::Key_B, frmM.m_pDays);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !frm.RunningIs(); }, 20000));
        return frm;
    }
    /// An engine without deciles, under REC533's number.
    std::shared_ptr<ChangedEngine> PlainEngine()
    {
        return std::make_shared<ChangedEngine>(
            kEngineRec533, rig.m_pEngine, [](Prediction& prediction) {
                const CellArray<float> none(prediction.table.nData, PropagationTable::kNotPrinted);
                prediction.table.fSnrLower = none;
                prediction.table.fSnrUpper = none;
                prediction.table.fSnrMedian = none;
            });
    }
    PlanRig rig;
};

QString Whole(float fValue)
{
    return QString::number(static_cast<int>(std::nearbyint(static_cast<double>(fValue))));
}

TEST_F(FrmDays, ShowsDaysInTenOfTheEnginesDeciles)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmDays& frm = Open(frmM);
    const PropagationTable table = rig.m_pEngine->Predict(frmM.RequestGet(), {}).table;
    const auto aDays = DaysGet(table, 40.0);
    ASSERT_EQ(frm.grdDays->RowsGet(), table.nData + 1);
    int nKnown = 0;
    for (int i = 1; i <= table.nData; ++i) {
        EXPECT_EQ(frm.grdDays->TextGet(i, 0), frmM.grdData->TextGet(i, 0));
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            const int nDays = aDays(iHour, i).DaysInTenGet();
            const GridCell& cell = frm.grdDays->CellGet(i, iHour);
            EXPECT_EQ(cell.sText, nDays < 0 ? QString() : QString::number(nDays));
            EXPECT_EQ(cell.bHatch, nDays < 0) << "without deciles a cell is told, not numbered";
            nKnown += nDays < 0 ? 0 : 1;
        }
    }
    EXPECT_GT(nKnown, 50);
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST_F(FrmDays, ColoursGetDarkerWithEveryDayAndTheirNumbersReadable)
{
    double dBefore = 256.0;
    for (int nDays = 0; nDays <= 10; ++nDays) {
        const QColor clr = DaysColor(nDays);
        const double dLight = 0.2126 * clr.red() + 0.7152 * clr.green() + 0.0722 * clr.blue();
        EXPECT_LT(dLight, dBefore) << nDays;
        dBefore = dLight;
        const auto Bgr = [](const QColor& c) {
            return static_cast<std::uint32_t>(c.red() | c.green() << 8 | c.blue() << 16);
        };
        EXPECT_GE(ColorContrast(Bgr(clr), Bgr(TextColorOn(clr))), 4.5) << nDays;
    }
}

TEST_F(FrmDays, TheSelectedCellIsToldInWords)
{
    frmMain& frmM = rig.StartWithEngine();
    frmM.DataSetSelected(2, 20);
    const frmDays& frm = Open(frmM);
    const auto days = SnrDaysGet(frm.DaysTableGet().table, 20, 2);
    ASSERT_TRUE(days);
    const DaysCell& cell = frm.DaysTableGet().aCells(20, 2);
    EXPECT_TRUE(frm.lblCell->text().startsWith(
        frmM.grdData->TextGet(2, 0) + QStringLiteral(" kHz, 19 h: ") + Whole(cell.fMedian)
        + QStringLiteral(", on a bad day ") + Whole(cell.fBad)))
        << frm.lblCell->text().toStdString();
    EXPECT_LT(cell.fBad, cell.fMedian);
    EXPECT_LT(cell.fMedian, cell.fGood);
    EXPECT_EQ(frm.picBand->BandGet().iHour, 19);
    EXPECT_EQ(frm.picBand->BandGet().aHours[19].fMedian, cell.fMedian);
    EXPECT_EQ(frm.picBand->BandGet().fNeed, 40.0F);
}

TEST_F(FrmDays, FollowsTheMainWindowsSelection)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmDays& frm = Open(frmM);
    frmM.DataSetSelected(3, 5);
    EXPECT_EQ(frm.grdDays->CurrentGet(), (GridPlace{3, 5}));
    EXPECT_EQ(frm.picBand->BandGet().iHour, 4);
    frmM.DataSetSelected(-1, -1);
    EXPECT_EQ(frm.grdDays->CurrentGet(), (GridPlace{3, 5})) << "no selection moves nothing";
}

TEST_F(FrmDays, ArrowsMoveInTheWindowAndEnterSelectsInTheMainOne)
{
    frmMain& frmM = rig.StartWithEngine();
    frmM.DataSetSelected(2, 7);
    const frmDays& frm = Open(frmM);
    QTest::keyClick(frm.grdDays, Qt::Key_Down);
    QTest::keyClick(frm.grdDays, Qt::Key_Right);
    EXPECT_EQ(frm.picBand->BandGet().iHour, 7);
    EXPECT_EQ(frmM.m_settings.m_selected.iFrequency, 2) << "not before Enter";
    QTest::keyClick(frm.grdDays, Qt::Key_Return);
    MainRig::EventsRun();
    EXPECT_EQ(frmM.m_settings.m_selected.iFrequency, 3);
    EXPECT_EQ(frmM.m_settings.m_selected.iHour, 8);
    EXPECT_EQ(frmM.grdData->CurrentGet(), (GridPlace{3, 8}));
}

TEST_F(FrmDays, AClickOnTheBandGoesToItsHour)
{
    frmMain& frmM = rig.StartWithEngine();
    frmM.DataSetSelected(2, 1);
    const frmDays& frm = Open(frmM);
    const QRectF rct = frm.picBand->rect();
    const QFontMetricsF metrics(frm.picBand->font());
    EXPECT_FALSE(DaysBandHourAt(rct, metrics, QPointF(1, rct.center().y()))) << "the labels";
    const QPoint pnt(rct.center().toPoint());
    const auto iHour = DaysBandHourAt(rct, metrics, pnt);
    ASSERT_TRUE(iHour);
    QTest::mouseClick(frm.picBand, Qt::LeftButton, {}, pnt);
    EXPECT_EQ(frm.grdDays->CurrentGet(), (GridPlace{2, *iHour + 1}));
}

TEST_F(FrmDays, WithoutAChosenNeedTheOneInForceIsTakenAndNamed)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmDays& frm = Open(frmM);
    EXPECT_EQ(frm.cmdNeed->text(), QStringLiteral("E-mail, normal"));
    EXPECT_TRUE(frm.lblFoot->text().endsWith(QStringLiteral("need: E-mail, normal, 40 dB")));
    EXPECT_TRUE(frm.lblFoot->text().contains(QStringLiteral("REC533 (built-in)")));
    const int iHour = frm.grdDays->CurrentGet().iCol;
    const float fBefore = frm.DaysTableGet().aCells(iHour, 2).fShare;
    frmM.m_settings.m_sNeedSelected = "FT8";
    Q_EMIT frmM.SettingsSignalGet().NeedChosen();
    EXPECT_FALSE(frm.RunningIs()) << "judged anew, not predicted";
    EXPECT_TRUE(frm.lblFoot->text().endsWith(QStringLiteral("need: FT8, 13 dB")));
    EXPECT_GE(frm.DaysTableGet().aCells(iHour, 2).fShare, fBefore);
    EXPECT_EQ(frm.picBand->BandGet().fNeed, 13.0F);
}

TEST_F(FrmDays, PrintedDecilesOfTheMainWindowsTableAreTakenAsTheyAre)
{
    rig.m_engine.bDeciles = true;
    const auto pVoacap =
        std::make_shared<ChangedEngine>(kEngineVoacap, rig.m_pEngine, [](Prediction&) {});
    rig.m_aEngine[kEngineVoacap] = pVoacap;
    frmMain& frmM = rig.StartWithEngine();
    frmM.m_settings.m_iPropagationModel = kEngineVoacap;
    ASSERT_TRUE(frmM.Update());
    const frmDays& frm = Open(frmM);
    EXPECT_TRUE(pVoacap->RequestsGet().empty()) << "nobody is asked again";
    const DaysCell& cell = frm.DaysTableGet().aCells(20, 2);
    EXPECT_EQ(cell.fBad, -12.0F);
    EXPECT_EQ(cell.fMedian, 0.0F);
    EXPECT_EQ(cell.fGood, 9.0F);
    EXPECT_EQ(frm.grdDays->TextGet(2, 20), QStringLiteral("0"));
    EXPECT_TRUE(frm.lblFoot->text().contains(QStringLiteral("VOACAP")));
}

TEST_F(FrmDays, AnEngineWithoutDecilesIsAskedForThreeSharesOfTheDays)
{
    const auto pPlain = PlainEngine();
    rig.m_aEngine[kEngineRec533] = pPlain;
    frmMain& frmM = rig.StartWithEngine();
    const frmDays& frm = Open(frmM);
    std::vector<float> afShare;
    for (const Request& request : pPlain->RequestsGet()) afShare.push_back(request.fReliability);
    std::sort(afShare.begin(), afShare.end());
    ASSERT_GE(afShare.size(), 3U);
    EXPECT_EQ(afShare.front(), 10.0F);
    EXPECT_EQ(afShare.back(), 90.0F);
    EXPECT_TRUE(DaysArePrinted(frm.DaysTableGet().table));
    EXPECT_FALSE(frm.grdDays->StaleGet());
    EXPECT_FALSE(frm.lblFoot->text().contains(QStringLiteral("built-in")));
}

TEST_F(FrmDays, AFrequencyWithoutValuesIsNamed)
{
    rig.m_aEngine[kEngineRec533] = std::make_shared<ChangedEngine>(
        kEngineRec533, rig.m_pEngine,
        [](Prediction& prediction) { prediction.table.PresentSet(2, 2, false); });
    frmMain& frmM = rig.StartWithEngine();
    const frmDays& frm = Open(frmM);
    ASSERT_TRUE(frm.lblHint->isVisible());
    EXPECT_TRUE(frm.lblHint->text().contains(frmM.grdData->TextGet(2, 0)));
    EXPECT_FALSE(frm.lblHint->text().contains(frmM.grdData->TextGet(1, 0)));
    EXPECT_TRUE(frm.grdDays->CellGet(2, 20).bHatch);
}

TEST_F(FrmDays, AMissingEngineAndAFailedRunAreTold)
{
    const auto pHeld = std::make_shared<HeldEngine>(rig.m_pEngine);
    pHeld->m_obstacle = Failure{FailureKind::NotInstalled, "REC533 is not there."};
    rig.m_aEngine[kEngineRec533] = pHeld;
    frmMain& frmM = rig.StartWithEngine();
    const frmDays& frm = Open(frmM);
    EXPECT_EQ(frm.lblHint->text(), QStringLiteral("REC533 is not there."));
    EXPECT_EQ(frm.grdDays->RowsGet(), 1);
    rig.m_aEngine[kEngineRec533] =
        std::make_shared<ChangedEngine>(kEngineRec533, rig.m_pEngine, [](Prediction& prediction) {
            prediction.table.PresentSet(1, prediction.table.nData, false);
            prediction.bOk = false;
            prediction.aFailures.push_back({FailureKind::BadOutput, "It ended with an error."});
        });
    frmM.Update();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !frm.RunningIs(); }, 20000));
    EXPECT_TRUE(frm.lblHint->text().startsWith(QStringLiteral("It ended with an error.")));
    EXPECT_TRUE(frm.grdDays->TextGet(1, 20).isEmpty());
}

TEST_F(FrmDays, EscapeStopsTheRunKeepsWhatIsThereAndThenCloses)
{
    frmMain& frmM = rig.StartWithEngine();
    frmDays& frm = Open(frmM);
    const int nRows = frm.grdDays->RowsGet();
    rig.m_aEngine[kEngineRec533] = std::make_shared<HeldEngine>(rig.m_pEngine);
    frmM.m_settings.m_fStationPower = 1000.0F;
    frmM.Update();
    ASSERT_TRUE(frm.RunningIs());
    EXPECT_TRUE(frm.grdDays->StaleGet()) << "the numbers are those of before";
    EXPECT_TRUE(QTest::qWaitFor([&] { return frm.prgDone->isVisible(); }));
    QTest::keyClick(&frm, Qt::Key_Escape);
    EXPECT_FALSE(frm.RunningIs());
    EXPECT_FALSE(frm.prgDone->isVisible());
    EXPECT_TRUE(frm.lblHint->text().startsWith(QStringLiteral("Stopped.")));
    EXPECT_EQ(frm.grdDays->RowsGet(), nRows);
    EXPECT_TRUE(frm.grdDays->StaleGet());
    QTest::keyClick(&frm, Qt::Key_Escape);
    MainRig::EventsRun();
    EXPECT_TRUE(frmM.m_pDays.isNull());
}

TEST_F(FrmDays, FollowsANewTable)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmDays& frm = Open(frmM);
    const float fBefore = frm.DaysTableGet().aCells(20, 2).fMedian;
    EXPECT_FALSE(frm.grdDays->StaleGet());
    frmM.m_settings.m_fStationPower = 1000.0F;
    frmM.Update();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !frm.RunningIs(); }, 20000));
    EXPECT_NE(frm.DaysTableGet().aCells(20, 2).fMedian, fBefore);
    EXPECT_TRUE(frm.lblFoot->text().contains(QStringLiteral("1 kW")));
    EXPECT_FALSE(frm.grdDays->StaleGet());
}

TEST_F(FrmDays, TheColumnsTakeTheRoomThatTheWindowHas)
{
    frmMain& frmM = rig.StartWithEngine();
    frmDays& frm = Open(frmM);
    frm.resize(500, 500);
    MainRig::EventsRun();
    const int nLeast = frm.grdDays->ColWidthGet(1);
    frm.resize(1100, 500);
    MainRig::EventsRun();
    const int nWide = frm.grdDays->ColWidthGet(1);
    EXPECT_GT(nWide, nLeast);
    EXPECT_LE(frm.grdDays->ColLeftGet(kHourCount) + nWide, frm.grdDays->width()) << "none is cut";
    frm.resize(3000, 500);
    MainRig::EventsRun();
    EXPECT_EQ(frm.grdDays->ColWidthGet(1), 2 * nLeast);
}

TEST_F(FrmDays, HoursFollowTheTimeSetting)
{
    rig.m_dtLocal = {2026, 11, 21, 18, 35, 0};  // UTC+5:30
    frmMain& frmM = rig.StartWithEngine();
    frmM.m_settings.m_iTimeCode = kTimeLocal;
    frmM.Update();
    const frmDays& frm = Open(frmM);
    EXPECT_EQ(frm.grdDays->TextGet(0, 1), QStringLiteral("05:30"));
    frmM.DataSetSelected(2, 20);
    EXPECT_TRUE(frm.lblCell->text().contains(QStringLiteral("00:30 h: ")))
        << frm.lblCell->text().toStdString();
}

TEST_F(FrmDays, CopyGivesTheTableAndExportFollowsTheSuffix)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmDays& frm = Open(frmM);
    frm.cmdCopy->click();
    const QMimeData* pData = QGuiApplication::clipboard()->mimeData();
    const QStringList asLine = pData->text().split(u'\n');
    ASSERT_EQ(asLine.size(), frmM.m_settings.m_nData + 1);
    EXPECT_TRUE(asLine[0].startsWith(QStringLiteral("kHz\t00\t01\t")));
    EXPECT_TRUE(pData->html().contains(QStringLiteral("background")));
    for (const char* sSuffix : {"csv", "png", "pdf"}) {
        rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path(std::string("out.") + sSuffix));
        frm.cmdExport->click();
        EXPECT_GT(QFile(rig.m_sAnswer).size(), 100) << sSuffix;
    }
    const Page page = frm.PageGet();
    ASSERT_EQ(page.aBlock.size(), 2U) << "the table, and the band of its current row";
    EXPECT_EQ(page.aBlock[1].sHeading, frm.lblCell->text());
    EXPECT_EQ(page.sFoot, frm.lblFoot->text());
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST_F(FrmDays, TheBandIsPaintedBetweenBadAndGoodDays)
{
    DaysBand band;
    band.fNeed = 40.0F;
    for (std::size_t i = 0; i < 12; ++i) band.aHours[i] = {0.9F, 30.0F, 50.0F, 70.0F};
    const auto Paint = [&band](PageLook eLook) {
        QImage image(600, 200, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        DaysBandPaint(painter, image.rect(), band, Qt::black, eLook);
        painter.end();
        return image;
    };
    const QImage image = Paint(PageLook::Colour);
    const auto Blue = [&image](int iX, int iY) {
        const QColor clr = image.pixelColor(iX, iY);
        return clr.blue() > clr.red() + 20;
    };
    int nLeft = 0;
    int nRight = 0;
    for (int iX = 0; iX < image.width(); ++iX)
        for (int iY = 0; iY < image.height(); ++iY)
            (iX < 280 ? nLeft : nRight) += Blue(iX, iY) ? 1 : 0;
    EXPECT_GT(nLeft, 5000);
    EXPECT_LT(nRight, 1500) << "hours without values have no band";
    const QImage imageBw = Paint(PageLook::BlackWhite);
    for (int iX = 0; iX < imageBw.width(); ++iX)
        for (int iY = 0; iY < imageBw.height(); ++iY)
            ASSERT_LE(imageBw.pixelColor(iX, iY).saturation(), 0) << "no colour on black and white";
}

TEST_F(FrmDays, ItsPlaceIsKept)
{
    frmMain& frmM = rig.StartWithEngine();
    frmDays& frm = Open(frmM);
    frm.resize(777, 555);
    const QSize size = frm.size();
    frm.close();
    MainRig::EventsRun();
    EXPECT_TRUE(frmM.m_settings.m_aPlanWindow[static_cast<std::size_t>(PlanName::Days)]);
    EXPECT_EQ(Open(frmM).size(), size);
}

TEST_F(FrmDays, ClosingTheProgramDuringARunEnds)
{
    rig.m_aEngine[kEngineRec533] = std::make_shared<HeldEngine>(rig.m_pEngine);
    frmMain& frmM = rig.StartWithEngine();
    rig.WindowOpen(Qt::Key_B, frmM.m_pDays);
    frmM.close();
    EXPECT_TRUE(frmM.m_pDays.isNull());
}

TEST(DaysColor, IsNoneOfTheScaleWhichAPaletteWouldChange)
{
    for (int nDays = 0; nDays <= 10; ++nDays)
        EXPECT_EQ(SnrBandOfColor(ColorToBgr(DaysColor(nDays)), {}), nullptr) << nDays;
}

}  // namespace
