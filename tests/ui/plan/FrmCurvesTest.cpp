#include <QClipboard>
#include <QFile>
#include <QHelpEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QToolTip>
#include <cmath>

#include "PlanRig.h"
#include "ui/common/HourLabels.h"
#include "ui/curves/frmCurves.h"
#include "ui/details/frmDetails.h"

namespace {

class FrmCurves : public testing::Test {
protected:
    frmCurves& Open()
    {
        frmMain& frmM = *rig.m_pFrm;
        frmM.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&frmM));
        QTest::keyClick(&frmM, Qt::Key_D, Qt::ControlModifier);
        EXPECT_TRUE(QTest::qWaitFor([&frmM] { return bool(frmM.m_pCurves); }));
        EXPECT_TRUE(QTest::qWaitForWindowActive(frmM.m_pCurves.data()));
        return *frmM.m_pCurves;
    }
    void Key(Qt::Key eKey) { QTest::keyClick(rig.m_pFrm->m_pCurves->pctCurves, eKey); }
    void SelectedExpect(int iFrequency, int iHour)
    {
        const SelectedCell cell = rig.m_pFrm->DataGetSelected();
        EXPECT_EQ(cell.iFrequency, iFrequency);
        EXPECT_EQ(cell.iHour, iHour);
    }
    PlanRig rig;
};

QPoint MiddleOf(const CurvesControl& pct, const CurvesCell& cell)
{
    return pct.CellRect(cell).center().toPoint();
}

TEST_F(FrmCurves, CtrlDShowsTheMainWindowsTable)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCurves& frm = Open();
    const PropagationTable& table = frmM.TableGet();
    const DayCurves& day = frm.pctCurves->DayGet();
    ASSERT_EQ(static_cast<int>(day.aRibbons.size()), table.nData);
    for (int i = 1; i <= table.nData; ++i)
        for (int iHour = 1; iHour <= kHourCount; ++iHour)
            EXPECT_EQ(day.aRibbons[static_cast<std::size_t>(i) - 1]
                          .afSnr[static_cast<std::size_t>(iHour) - 1],
                      table.fSnr(iHour, i));
    EXPECT_EQ(day.afMuf[4], table.fMUF[5]);
    EXPECT_FALSE(frm.lblHint->isVisible());
    EXPECT_TRUE(frm.lblFoot->text().contains(QStringLiteral("REC533")));
    EXPECT_TRUE(frm.lblFoot->text().contains(QStringLiteral("need: E-mail, normal, 40 dB")));
}

TEST_F(FrmCurves, ANewTableIsShownAtOnce)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCurves& frm = Open();
    const float fBefore = frm.pctCurves->DayGet().aRibbons[0].afSnr[7];
    rig.m_engine.fnSnr = [](int, int) { return 61; };
    frmM.m_settings.FrequencySet(1, 4321.0F);
    ASSERT_TRUE(frmM.Update());
    EXPECT_EQ(frm.pctCurves->DayGet().aRibbons[0].fFrequency, 4321.0F);
    EXPECT_NE(frm.pctCurves->DayGet().aRibbons[0].afSnr[7], fBefore);
    EXPECT_FALSE(frm.lblHint->isVisible());
    EXPECT_FALSE(frm.pctCurves->ViewGet().bOld);
}

TEST_F(FrmCurves, AFailedRunLeavesTheOldCurvesMarkedOldWithTheirOwnFootLine)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCurves& frm = Open();
    const QString sFoot = frm.lblFoot->text();
    const float fBefore = frm.pctCurves->DayGet().aRibbons[0].afSnr[7];
    rig.m_engine.bFail = true;
    frmM.m_settings.m_fStationPower = 12345.0F;
    ASSERT_FALSE(frmM.Update());
    EXPECT_TRUE(frm.lblHint->isVisible());
    EXPECT_TRUE(frm.lblHint->text().contains(QStringLiteral("older settings")));
    EXPECT_TRUE(frm.pctCurves->ViewGet().bOld);
    EXPECT_EQ(frm.lblFoot->text(), sFoot);
    EXPECT_EQ(frm.pctCurves->DayGet().aRibbons[0].afSnr[7], fBefore);
    EXPECT_TRUE(frm.PageGet().sFoot.startsWith(QStringLiteral("For older settings. ")));
    rig.m_engine.bFail = false;
    ASSERT_TRUE(frmM.Update());
    EXPECT_FALSE(frm.lblHint->isVisible());
    EXPECT_FALSE(frm.pctCurves->ViewGet().bOld);
    EXPECT_NE(frm.lblFoot->text(), sFoot) << "the new power";
    EXPECT_EQ(frm.PageGet().sFoot, frm.lblFoot->text());
}

TEST_F(FrmCurves, APositionThatIsStillTypedMakesTheCurvesOld)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCurves& frm = Open();
    QTest::keyClick(frmM.txtLat0, Qt::Key_Home);
    QTest::keyClicks(frmM.txtLat0, QStringLiteral("2"));
    EXPECT_TRUE(frm.pctCurves->ViewGet().bOld);
}

TEST_F(FrmCurves, TheMarkFollowsTheMainWindowsSelection)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCurves& frm = Open();
    frmM.DataSetSelected(3, 16);
    ASSERT_TRUE(frm.pctCurves->MarkGet());
    EXPECT_EQ(*frm.pctCurves->MarkGet(), (CurvesCell{15, 2}));
    frmM.DataSetSelected(-1, -1);
    EXPECT_FALSE(frm.pctCurves->MarkGet());
}

TEST_F(FrmCurves, ArrowsMoveHourAndFrequencyAndTheSelectionWithThem)
{
    frmMain& frmM = rig.StartWithEngine();
    for (int i = 1; i <= 3; ++i)
        frmM.m_settings.FrequencySet(i, i == 1 ? 7100.0F : i == 2 ? 21200.0F : 14100.0F);
    frmM.m_settings.m_nData = 3;
    ASSERT_TRUE(frmM.Update());
    Open();
    frmM.DataSetSelected(1, 12);
    Key(Qt::Key_Up);
    SelectedExpect(3, 12);
    Key(Qt::Key_Up);
    SelectedExpect(2, 12);
    Key(Qt::Key_Up);
    SelectedExpect(2, 12);
    Key(Qt::Key_Down);
    SelectedExpect(3, 12);
    Key(Qt::Key_Right);
    SelectedExpect(3, 13);
    Key(Qt::Key_Left);
    Key(Qt::Key_Left);
    SelectedExpect(3, 11);
    Key(Qt::Key_Home);
    SelectedExpect(3, 1);
    Key(Qt::Key_Left);
    SelectedExpect(3, 1);
    Key(Qt::Key_End);
    Key(Qt::Key_Right);
    SelectedExpect(3, 24);
}

TEST_F(FrmCurves, TheFirstArrowSelectsTheStrongestFrequencyOfTheHour)
{
    rig.m_engine.fnSnr = [](int, int iFrequency) { return iFrequency == 2 ? 60 : 20; };
    frmMain& frmM = rig.StartWithEngine();
    Open();
    frmM.DataSetSelected(-1, 14);
    Key(Qt::Key_Right);
    SelectedExpect(2, 14);
}

TEST_F(FrmCurves, TheTablesCellAndOpenDetailsGoWithTheMarkButNoneAreOpened)
{
    frmMain& frmM = rig.StartWithEngine();
    Open();
    frmM.DataSetSelected(2, 5);
    Key(Qt::Key_Right);
    EXPECT_FALSE(frmM.m_pDetails);
    EXPECT_EQ(frmM.grdData->CurrentGet().iRow, 2);
    EXPECT_EQ(frmM.grdData->CurrentGet().iCol, 6);
    frmM.mnuViewDetailData->trigger();
    ASSERT_TRUE(frmM.m_pDetails);
    Key(Qt::Key_Right);
    EXPECT_EQ(frmM.m_pDetails->m_iHour, 7);
}

TEST_F(FrmCurves, AClickSelectsTheCellUnderIt)
{
    rig.StartWithEngine();
    const frmCurves& frm = Open();
    QTest::mouseClick(frm.pctCurves, Qt::LeftButton, {}, MiddleOf(*frm.pctCurves, {9, 1}));
    SelectedExpect(2, 10);
    QTest::mouseClick(frm.pctCurves, Qt::RightButton, {}, MiddleOf(*frm.pctCurves, {3, 0}));
    SelectedExpect(2, 10);
}

TEST_F(FrmCurves, EnterSelectsAndLeadsToTheMainWindow)
{
    frmMain& frmM = rig.StartWithEngine();
    Open();
    frmM.DataSetSelected(2, 5);
    EXPECT_FALSE(frmM.isActiveWindow());
    Key(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&frmM));
    SelectedExpect(2, 5);
    EXPECT_EQ(frmM.grdData->CurrentGet().iCol, 5);
}

TEST_F(FrmCurves, NameAndTipSayFrequencyHourAndValue)
{
    rig.m_engine.fnSnr = [](int iHour, int iFrequency) { return iHour + 10 * iFrequency; };
    frmMain& frmM = rig.StartWithEngine();
    const frmCurves& frm = Open();
    frmM.DataSetSelected(2, 16);
    const QString sFrequency = frmM.grdData->TextGet(2, 0);
    const QString sValue = frmM.grdData->TextGet(2, 16);
    ASSERT_FALSE(sValue.isEmpty());
    const QString sText = QStringLiteral("%1 kHz, 15 Zulu: %2 dB").arg(sFrequency, sValue);
    EXPECT_EQ(frm.pctCurves->accessibleName(), sText);
    const QPoint pnt = MiddleOf(*frm.pctCurves, {15, 1});
    QHelpEvent help(QEvent::ToolTip, pnt, frm.pctCurves->mapToGlobal(pnt));
    QApplication::sendEvent(frm.pctCurves, &help);
    EXPECT_EQ(QToolTip::text(), sText);
    QToolTip::hideText();
}

TEST_F(FrmCurves, HoursFollowTheTimeSettingInHalfHourZones)
{
    rig.m_dtLocal = {2026, 11, 21, 18, 35, 0};  // UTC+5:30
    frmMain& frmM = rig.StartWithEngine();
    const frmCurves& frm = Open();
    frmM.m_settings.m_iTimeCode = kTimeLocal;
    ASSERT_TRUE(frmM.Update());
    EXPECT_EQ(frm.pctCurves->ViewGet().asHour[0], QStringLiteral("05:30"));
    frmM.DataSetSelected(1, 1);
    EXPECT_TRUE(frm.pctCurves->accessibleName().contains(QStringLiteral(", 05:30 Local: ")));
    EXPECT_NE(frm.PageGet().aBlock.at(0).sHeading.indexOf(QStringLiteral("Local")), -1);
}

TEST_F(FrmCurves, TheLineAtNowMovesWithTheClock)
{
    rig.StartWithEngine();
    const frmCurves& frm = Open();
    EXPECT_NEAR(frm.pctCurves->ViewGet().dNow, 13 + 5 / 60.0, 1e-9);
    EXPECT_TRUE(frm.tmrNow->isActive());
    EXPECT_EQ(frm.tmrNow->interval(), 60'000);
    rig.m_dtUtc = {2026, 11, 21, 14, 30, 0};
    frm.tmrNow->start(1);
    EXPECT_TRUE(
        QTest::qWaitFor([&frm] { return std::abs(frm.pctCurves->ViewGet().dNow - 14.5) < 1e-9; }));
}

TEST_F(FrmCurves, AnotherNeedIsTakenOverAtOnce)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCurves& frm = Open();
    frmM.m_settings.m_sNeedSelected = "FT8";
    Q_EMIT frmM.SettingsSignalGet().NeedChosen();
    EXPECT_EQ(frm.pctCurves->ViewGet().fNeed, 13.0F);
    EXPECT_TRUE(frm.lblFoot->text().contains(QStringLiteral("need: FT8, 13 dB")));
}

TEST_F(FrmCurves, BeforeTheFirstTableAHintStandsInItsPlace)
{
    rig.m_engine.bFail = true;
    frmMain& frmM = rig.StartWithEngine();
    ASSERT_EQ(frmM.TableGet().nData, 0);
    const frmCurves& frm = Open();
    EXPECT_TRUE(frm.lblHint->isVisible());
    EXPECT_TRUE(frm.lblHint->text().contains(QStringLiteral("no table yet")));
    EXPECT_FALSE(frm.cmdCopy->isEnabled());
    Key(Qt::Key_Right);
    Key(Qt::Key_Return);
    QTest::mouseClick(frm.pctCurves, Qt::LeftButton, {}, frm.pctCurves->rect().center());
    SelectedExpect(-1, -1);
    rig.m_engine.bFail = false;
    ASSERT_TRUE(frmM.Update());
    EXPECT_FALSE(frm.lblHint->isVisible());
    EXPECT_TRUE(frm.cmdCopy->isEnabled());
    EXPECT_FALSE(frm.pctCurves->DayGet().aRibbons.empty());
}

TEST_F(FrmCurves, CopyPutsTheTableAndThePictureIntoOneClipboard)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCurves& frm = Open();
    QTest::mouseClick(frm.cmdCopy, Qt::LeftButton);
    const QMimeData* const pData = QGuiApplication::clipboard()->mimeData();
    ASSERT_TRUE(pData->hasText() && pData->hasHtml() && pData->hasImage());
    const QStringList asLine = pData->text().split(u'\n');
    ASSERT_EQ(asLine.size(), 25);
    const QStringList asTitle = asLine[0].split(u'\t');
    EXPECT_TRUE(asLine[0].startsWith(QStringLiteral("Zulu\tMUF\tFOT\tLUF\t")));
    ASSERT_EQ(asTitle.size(), 4 + frmM.TableGet().nData);
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        const QStringList asCell = asLine[iHour].split(u'\t');
        ASSERT_EQ(asCell.size(), asTitle.size());
        EXPECT_EQ(asCell[0].toInt(), iHour - 1);
        for (int i = 1; i <= frmM.TableGet().nData; ++i)
            EXPECT_EQ(asCell[3 + i], frmM.grdData->TextGet(i, iHour)) << i << " at " << iHour;
    }
    const auto image = pData->imageData().value<QImage>();
    EXPECT_GE(image.width(), 1000);
    EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::white));
    const QColor clr =
        frm.PageGet().aBlock.empty()
            ? QColor()
            : std::get<PagePicture>(frm.PageGet().aBlock[0].body).gridValues.CellGet(0, 3).clrBack;
    int nPixels = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) nPixels += image.pixelColor(x, y) == clr ? 1 : 0;
    EXPECT_GT(nPixels, 50);
}

TEST_F(FrmCurves, ExportsTheTableAsCsvAndTheCurvesAsPictureAndDocument)
{
    frmMain& frmM = rig.StartWithEngine();
    const frmCurves& frm = Open();
    const auto Written = [this, &frm](const char* sName) {
        rig.m_sAnswer = QString::fromStdString(rig.m_folder.Path(sName));
        QTest::mouseClick(frm.cmdExport, Qt::LeftButton);
        QFile file(rig.m_sAnswer);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << sName;
        return file.readAll();
    };
    const QByteArray aCsv = Written("day.csv");
    EXPECT_TRUE(aCsv.startsWith("Zulu,MUF,FOT,LUF,"));
    EXPECT_EQ(aCsv.count("\r\n"), 25);
    const QImage image = QImage::fromData(Written("day.png"), "PNG");
    EXPECT_GT(image.width(), image.height());
    EXPECT_TRUE(Written("day.pdf").startsWith("%PDF"));
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    EXPECT_EQ(frm.PageGet().sFoot, frm.lblFoot->text());
    EXPECT_TRUE(frmM.isVisible());
}

TEST_F(FrmCurves, PaperHasNeitherTheLineAtNowNorTheMarkAndIsWhiteOnDarkDesktops)
{
    frmMain& frmM = rig.StartWithEngine();
    frmCurves& frm = Open();
    const QImage imageBefore = PageImage(frm.PageGet(), {}, 60);
    frmM.DataSetSelected(2, 5);
    rig.m_dtUtc.nHour = 3;
    frm.tmrNow->start(1);
    EXPECT_TRUE(QTest::qWaitFor([&frm] { return frm.pctCurves->ViewGet().dNow < 4; }));
    QPalette palette = frm.palette();
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::Text, Qt::yellow);
    frm.setPalette(palette);
    EXPECT_EQ(PageImage(frm.PageGet(), {}, 60), imageBefore);
    const QImage image = frm.pctCurves->grab().toImage();
    EXPECT_EQ(image.pixelColor(3, 3), QColor(Qt::black));
    EXPECT_EQ(frm.pctCurves->ViewGet().clrInk, QColor(Qt::yellow));
}

TEST_F(FrmCurves, FitsInto400By300)
{
    rig.StartWithEngine();
    frmCurves& frm = Open();
    frm.resize(400, 300);
    MainRig::EventsRun();
    EXPECT_EQ(frm.size(), QSize(400, 300));
    EXPECT_TRUE(frm.rect().contains(frm.cmdPrint->geometry()));
    EXPECT_GE(frm.pctCurves->height(), 150);
}

TEST_F(FrmCurves, KeepsItsPlace)
{
    frmMain& frmM = rig.StartWithEngine();
    frmCurves& frm = Open();
    frm.resize(610, 420);
    MainRig::EventsRun();
    frm.close();
    MainRig::EventsRun();
    EXPECT_TRUE(frmM.m_settings.m_aPlanWindow[static_cast<std::size_t>(PlanName::Curves)]);
    EXPECT_EQ(Open().size(), QSize(610, 420));
}

}  // namespace
