// The overlay across longitude 180, run again, and after a failure.
#include "MapFakes.h"
#include "system/NumberLib.h"
#include "ui/map/MapGraticule.h"

namespace {

class frmMapOverlayAgain : public MapWindow {
protected:
    void ZoomSmall() { QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton); }
    void Wheel(QPoint pt, int nAngle)
    {
        QWheelEvent evt(pt, m_pMap->pctMap->mapToGlobal(pt), {}, {0, nAngle}, Qt::NoButton,
                        Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_pMap->pctMap, &evt);
    }
    void RunAwait(std::size_t nRuns)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_engine.m_aRuns.size() >= nRuns; }));
        QCoreApplication::processEvents();
    }
    EngineFake m_engine;
};

TEST_F(frmMapOverlayAgain, TipsOfBothSidesOfLongitude180AreThoseOfTheirCells)
{
    m_engine.m_fnSnr = [](double dLat, double dLon) { return dLon > 0 ? dLat + 20 : dLat - 100; };
    OverlayChoose();
    ASSERT_EQ(m_engine.m_aRuns.size(), 2u);
    const QString sEast = TipAt(PointOf(52, 13));
    EXPECT_TRUE(sEast.contains(QStringLiteral("Snr "))) << sEast.toStdString();
    EXPECT_NEAR(sEast.mid(sEast.indexOf(QStringLiteral("Snr ")) + 4, 4).toDouble(), 72, 3);
    const QString sWest = TipAt(PointOf(38, -100));
    EXPECT_NEAR(sWest.mid(sWest.indexOf(QStringLiteral("Snr ")) + 4, 5).toDouble(), -62, 3);
}

TEST_F(frmMapOverlayAgain, WheelRunsItAgainOnceItHasStopped)
{
    ZoomSmall();
    OverlayChoose();
    ASSERT_EQ(m_engine.m_aRuns.size(), 1u);
    for (int i = 0; i < 3; ++i) Wheel({400, 300}, 120);
    EXPECT_EQ(m_engine.m_aRuns.size(), 1u);
    RunAwait(2);
    EXPECT_EQ(m_engine.m_aRuns.size(), 2u);
    EXPECT_GT(ColoredCount(), 1000);
    EXPECT_NEAR(m_engine.m_aRuns[1].dWest, m_pMap->m_view.m_box.dLeft - 360, 0.006);
    EXPECT_TRUE(m_pMap->windowTitle().startsWith(QStringLiteral("Snr Overlay, ")));
    QTest::mouseClick(m_pMap->cmdZoomOut, Qt::LeftButton);  // hides the overlay
    Wheel({400, 300}, 120);
    QTest::qWait(400);
    EXPECT_EQ(m_engine.m_aRuns.size(), 2u);
}

TEST_F(frmMapOverlayAgain, DroppedReceiverRunsItAgainAndTheTransmitterDoesNot)
{
    ZoomSmall();
    OverlayChoose();
    Drag(m_pMap->lblRc, {5, 5}, {65, 45});
    ASSERT_EQ(m_engine.m_aRuns.size(), 2u);
    EXPECT_NE(m_engine.m_aRuns[1].sDeck.substr(m_engine.m_aRuns[1].sDeck.find("Transmit :"), 40),
              m_engine.m_aRuns[0].sDeck.substr(m_engine.m_aRuns[0].sDeck.find("Transmit :"), 40));
    EXPECT_GT(ColoredCount(), 1000);
    Drag(m_pMap->lblTx, {5, 5}, {65, 45});
    QTest::mouseClick(m_pMap->lblRc, Qt::LeftButton, {}, {5, 5});  // pressed without moving
    EXPECT_EQ(m_engine.m_aRuns.size(), 2u);
    EXPECT_EQ(m_host.m_nUpdates, 0);
}

TEST_F(frmMapOverlayAgain, PanRunsItAgain)
{
    ZoomSmall();
    OverlayChoose();
    Drag(m_pMap->pctMap, {400, 300}, {300, 250}, Qt::MiddleButton);
    EXPECT_TRUE(m_pMap->mnuOverlayDraw->isChecked());
    RunAwait(2);
    EXPECT_GT(ColoredCount(), 1000);
}

TEST_F(frmMapOverlayAgain, ShowingAndHidingKeepTheView)
{
    ZoomSmall();
    const MapBox box = m_pMap->m_view.m_box;
    for (int i = 0; i < 6; ++i) {
        OverlayChoose();
        m_pMap->Update();
    }
    BoxIs(box.dTop, box.dLeft, box.dBottom, box.dRight, 0);
}

TEST_F(frmMapOverlayAgain, FailedRunSaysWhyAndLeavesNoLegend)
{
    ZoomSmall();
    MsgRecorder msg;
    m_engine.m_bStart = false;
    OverlayChoose();
    ASSERT_EQ(msg.m_aShown.size(), 1u);
    EXPECT_EQ(m_host.m_sOverlayFailed, "Unable to execute REC533 program.");
    EXPECT_TRUE(m_pMap->txtCursor->isVisible());
    EXPECT_EQ(m_pMap->txtCursor->text(),
              QStringLiteral("No overlay: Unable to execute REC533 program."));
    m_pMap->txtCursor->hide();
    // Only the picture is shown, with nothing on top of it.
    const QImage imgShown = m_pMap->pctMap->grab().toImage();
    const QRect rct = m_pMap->pctMap->rect();
    for (int y = rct.height() / 2 - 80; y < rct.height() / 2 + 80; y += 4)
        EXPECT_EQ(imgShown.pixel(rct.width() - 30, y),
                  m_pMap->pctMap->m_img.pixel(rct.width() - 30, y))
            << y;
    m_engine.m_bStart = true;
    m_pMap->Update();
    EXPECT_EQ(m_host.m_sOverlayFailed, "");
    EXPECT_FALSE(m_pMap->txtCursor->isVisible());
    const QImage imgLegend = m_pMap->pctMap->grab().toImage();
    EXPECT_NE(imgLegend.pixel(rct.width() - 8, rct.height() / 2),
              m_pMap->pctMap->m_img.pixel(rct.width() - 8, rct.height() / 2));
}

TEST_F(frmMapOverlayAgain, HidingOrClosingTakesTheTroubleBack)
{
    ZoomSmall();
    MsgRecorder msg;
    m_engine.m_bStart = false;
    OverlayChoose();
    EXPECT_NE(m_host.m_sOverlayFailed, "");
    OverlayChoose();
    EXPECT_EQ(m_host.m_sOverlayFailed, "");
    OverlayChoose();
    EXPECT_NE(m_host.m_sOverlayFailed, "");
    QTest::mouseClick(m_pMap->cmdCancel, Qt::LeftButton);
    EXPECT_EQ(m_host.m_sOverlayFailed, "");
}

TEST_F(frmMapOverlayAgain, LegendStepsAsideForThePointer)
{
    ZoomSmall();
    m_engine.m_fnSnr = [](double, double) { return 0.0; };
    OverlayChoose();
    const QRect rct = m_pMap->pctMap->rect();
    const QPoint ptRight(rct.width() - 40, rct.height() / 2);
    const auto RightIsBare = [&] {
        const QImage img = m_pMap->pctMap->grab().toImage();
        for (int y = ptRight.y() - 60; y < ptRight.y() + 60; ++y)
            if (img.pixel(ptRight.x(), y) != m_pMap->pctMap->m_img.pixel(ptRight.x(), y))
                return false;
        return true;
    };
    EXPECT_FALSE(RightIsBare());
    TipAt(ptRight);
    EXPECT_TRUE(RightIsBare());
    TipAt({rct.width() / 2, 40});
    EXPECT_FALSE(RightIsBare());
}

class frmMapWorldBegins : public frmMapOverlayAgain {
protected:
    void EdgeSet(int iEdge)
    {
        m_host.m_settings.m_iMapWorldBegins = iEdge;
        m_pMap->Update();
    }
};

TEST_F(frmMapWorldBegins, SettingMovesTheEdgeAndKeepsTheCentre)
{
    Drag(m_pMap->pctMap, PointOf(50, 200), PointOf(10, 260));
    const LatLon center = m_pMap->m_view.CenterGet();
    const double dScale = m_pMap->m_view.m_dScale;
    EdgeSet(-180);
    EXPECT_NEAR(m_pMap->m_view.CenterGet().dLon, center.dLon - 360, 0.001);
    EXPECT_NEAR(m_pMap->m_view.CenterGet().dLat, center.dLat, 0.001);
    EXPECT_EQ(m_pMap->m_view.m_dScale, dScale);
    EXPECT_EQ(m_pMap->hscMap->minimum(), -1800);
    EXPECT_EQ(m_pMap->hscMap->maximum(), 1800);
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    EXPECT_NEAR(m_pMap->m_view.CenterGet().dLon, 0, 0.001);
    EXPECT_NE(PixelAt(47, 2), kSeaColor);   // France
    EXPECT_NE(PixelAt(52, -2), kSeaColor);  // England
    EXPECT_EQ(PixelAt(30, -40), kSeaColor);
    EXPECT_LT(PointOf(52, -2).x(), PointOf(47, 2).x());
    EXPECT_NEAR(m_pMap->m_view.m_box.dTop, 90, 1e-9);
}

TEST_F(frmMapWorldBegins, OverlayOfTheWholeWorldIsOneRunThen)
{
    EdgeSet(-180);
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    OverlayChoose();
    ASSERT_EQ(m_engine.m_aRuns.size(), 1u);
    EXPECT_DOUBLE_EQ(m_engine.m_aRuns[0].dWest, -180);
    EXPECT_DOUBLE_EQ(m_engine.m_aRuns[0].dEast, 180);
    EXPECT_EQ(PixelAt(-30, 90.5), qRgb(0, 0, 255));
    EXPECT_EQ(PixelAt(-30, -100.5), qRgb(0, 0, 255));
}

TEST_F(frmMapWorldBegins, LondonToBerlinIsOneViewUntilZoomOff)
{
    m_pMap->m_posRc = {51.5, -0.1};
    m_pMap->m_posTx = {52.5, 13.4};
    QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
    const MapBox box = m_pMap->m_view.m_box;
    EXPECT_LT(box.dRight - box.dLeft, 20);
    EXPECT_LT(box.dLeft, -0.1);
    EXPECT_GT(box.dRight, 13.4);
    EXPECT_FALSE(m_pMap->m_view.IsBeyondImage());
    OverlayChoose();
    ASSERT_EQ(m_engine.m_aRuns.size(), 1u);  // in one box
    EXPECT_NEAR(m_engine.m_aRuns[0].dWest, box.dLeft, 0.006);
    EXPECT_NEAR(m_engine.m_aRuns[0].dEast, box.dRight, 0.006);
    m_pMap->Update();  // takes over the settings' positions, keeps the edge
    EXPECT_EQ(m_pMap->m_view.m_dEdge, kEdgeDateLine);
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    EXPECT_EQ(m_pMap->m_view.m_dEdge, kEdgeGreenwich);
    EXPECT_NEAR(m_pMap->m_view.CenterGet().dLon, 180, 0.001);
    EXPECT_EQ(m_host.m_settings.m_iMapWorldBegins, 0);
}

TEST_F(frmMapWorldBegins, TokyoToSanFranciscoBeginsAtGreenwichThen)
{
    EdgeSet(-180);
    m_pMap->m_posRc = {35.7, 139.7};
    m_pMap->m_posTx = {37.8, -122.4};
    QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
    EXPECT_EQ(m_pMap->m_view.m_dEdge, kEdgeGreenwich);
    EXPECT_LT(m_pMap->m_view.m_box.dRight - m_pMap->m_view.m_box.dLeft, 140);
    for (const MarkerLabel* pMarker : {m_pMap->lblRc, m_pMap->lblTx})
        EXPECT_TRUE(m_pMap->pctMap->rect().contains(pMarker->geometry().center()));
}

TEST_F(frmMapWorldBegins, NavigationNearGreenwichStaysWhole)
{
    EdgeSet(-180);
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    Drag(m_pMap->pctMap, PointOf(60, -12), PointOf(35, 30));
    const MapBox box = m_pMap->m_view.m_box;
    EXPECT_LT(box.dLeft, 0);
    EXPECT_GT(box.dRight, 0);
    for (int i = 0; i < 2; ++i) QTest::mouseClick(m_pMap->cmdZoomIn, Qt::LeftButton);
    EXPECT_NEAR(m_pMap->m_view.CenterGet().dLon, 9, 0.5);
    for (int i = 0; i < 2; ++i) QTest::mouseClick(m_pMap->cmdZoomOut, Qt::LeftButton);
    EXPECT_NEAR(m_pMap->m_view.CenterGet().dLon, 9, 0.5);
}

TEST_F(frmMapOverlayAgain, ChangedSettingsWaitForTheEndOfARubberBand)
{
    ZoomSmall();
    OverlayChoose();
    ASSERT_EQ(m_engine.m_aRuns.size(), 1u);
    QTest::mousePress(m_pMap->pctMap, Qt::LeftButton, {}, {400, 300});
    m_pMap->Update();
    EXPECT_EQ(m_engine.m_aRuns.size(), 1u);
    QTest::mouseRelease(m_pMap->pctMap, Qt::LeftButton, {}, {400, 300});  // a click, no new view
    RunAwait(2);
    EXPECT_EQ(m_engine.m_aRuns.size(), 2u);
    EXPECT_GT(ColoredCount(), 1000);
}

}  // namespace
