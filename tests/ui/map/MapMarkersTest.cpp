#include "MapFakes.h"
#include "geo/MathLib.h"

namespace {

class frmMapMarkers : public MapWindow {
protected:
    frmMapMarkers() { QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton); }
    static QPoint CentreOf(const QWidget* pControl)
    {
        return {pControl->x() + pControl->width() / 2, pControl->y() + pControl->height() / 2};
    }
};

TEST_F(frmMapMarkers, StandWithTheirCentreOnTheirLocations)
{
    EXPECT_EQ(CentreOf(m_pMap->lblRc), m_pMap->m_view.LatLonGetPoint(24, -110));
    EXPECT_EQ(CentreOf(m_pMap->lblTx), m_pMap->m_view.LatLonGetPoint(38, -122));
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    EXPECT_EQ(CentreOf(m_pMap->lblTx), m_pMap->m_view.LatLonGetPoint(38, -122));
}

TEST_F(frmMapMarkers, LeftDragMovesTheWorkingCopyOnly)
{
    const QPoint ptBefore = m_pMap->lblTx->pos();
    QTest::mousePress(m_pMap->lblTx, Qt::LeftButton, {}, {5, 5});
    EXPECT_TRUE(m_pMap->txtCursor->isVisible());
    const auto Move = [&](QPoint pt) {
        QMouseEvent evt(QEvent::MouseMove, pt, m_pMap->lblTx->mapToGlobal(pt), Qt::NoButton,
                        Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_pMap->lblTx, &evt);
    };
    Move({35, 25});  // 30 right and 20 down from the press
    EXPECT_EQ(m_pMap->lblTx->pos(), ptBefore + QPoint(30, 20));
    Move({15, 5});  // and 10 more
    EXPECT_EQ(m_pMap->lblTx->pos(), ptBefore + QPoint(40, 20));
    const LatLon pos =
        m_pMap->m_view.PointGetLatLon(MapControl::Marker, 0, 0, m_pMap->lblTx->geometry());
    EXPECT_DOUBLE_EQ(m_pMap->m_posTx.dLat, pos.dLat);
    EXPECT_DOUBLE_EQ(m_pMap->m_posTx.dLon, pos.dLon);
    const std::string sText =
        "Transmitter, Lat " + LatitudeToText(pos.dLat) + ", Lon " + LongitudeToText(pos.dLon);
    EXPECT_EQ(m_pMap->txtCursor->text().toStdString(), sText);
    EXPECT_EQ(m_pMap->lblTx->toolTip().toStdString(), sText);
    QTest::mouseRelease(m_pMap->lblTx, Qt::LeftButton, {}, {15, 5});
    EXPECT_FALSE(m_pMap->txtCursor->isVisible());
    EXPECT_DOUBLE_EQ(m_host.m_settings.m_dTxLat, 38);
    EXPECT_EQ(m_host.m_nUpdates, 0);
    EXPECT_DOUBLE_EQ(m_pMap->m_posRc.dLat, 24);
}

TEST_F(frmMapMarkers, HoveringTellsTheMarkersOwnPosition)
{
    QMouseEvent evt(QEvent::MouseMove, QPointF(1, 1), m_pMap->lblRc->mapToGlobal(QPointF(1, 1)),
                    Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(m_pMap->lblRc, &evt);
    EXPECT_EQ(m_pMap->lblRc->toolTip(),
              QString::fromUtf8("Receiver, Lat 24°00.00'N, Lon 110°00.00'W"));
    EXPECT_EQ(m_pMap->txtCursor->text(), m_pMap->lblRc->toolTip());
    EXPECT_FALSE(m_pMap->txtCursor->isVisible());
    EXPECT_DOUBLE_EQ(m_pMap->m_posRc.dLat, 24);  // exact, not from the rounded pixel
}

TEST_F(frmMapMarkers, RightDragMovesNothingAndShowsTheMenu)
{
    const QPoint ptBefore = m_pMap->lblRc->pos();
    Drag(m_pMap->lblRc, {5, 5}, {60, 60}, Qt::RightButton);
    EXPECT_EQ(m_pMap->lblRc->pos(), ptBefore);
    EXPECT_DOUBLE_EQ(m_pMap->m_posRc.dLat, 24);
    EXPECT_TRUE(m_pMap->mnuMap->isVisible());
    EXPECT_FALSE(m_pMap->txtCursor->isVisible());
    m_pMap->mnuMap->close();
}

TEST_F(frmMapMarkers, MiddleButtonDoesNothing)
{
    const QPoint ptBefore = m_pMap->lblRc->pos();
    Drag(m_pMap->lblRc, {5, 5}, {60, 60}, Qt::MiddleButton);
    EXPECT_EQ(m_pMap->lblRc->pos(), ptBefore);
    EXPECT_FALSE(m_pMap->mnuMap->isVisible());
}

TEST_F(frmMapMarkers, DraggedPastTheDateLineIsAWestLongitude)
{
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    const auto DragTo = [&](double dLon) {
        const QPoint ptTo = m_pMap->m_view.LatLonGetPoint(10, dLon);
        const QPoint ptFrom = m_pMap->lblRc->rect().center();
        Drag(m_pMap->lblRc, ptFrom, m_pMap->lblRc->mapFrom(m_pMap->pctMap, ptTo));
    };
    DragTo(170);
    EXPECT_NEAR(m_pMap->m_posRc.dLon, 170, 1);
    DragTo(185);
    EXPECT_NEAR(m_pMap->m_posRc.dLon, -175, 1);
}

TEST_F(frmMapMarkers, DraggedOffTheMapKeepsAPositionBeyond)
{
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    Drag(m_pMap->lblRc, {5, 5}, {5, -2000});
    EXPECT_GT(m_pMap->m_posRc.dLat, 90);
    QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
    EXPECT_TRUE(m_pMap->isVisible());
}

TEST_F(frmMapMarkers, ApplyHandsBothLocationsOver)
{
    m_pMap->m_posRc = {1, 2};
    m_pMap->m_posTx = {3, 4};
    QTest::mouseClick(m_pMap->cmdApply, Qt::LeftButton);
    EXPECT_DOUBLE_EQ(m_host.m_settings.m_dRcLat, 1);
    EXPECT_DOUBLE_EQ(m_host.m_settings.m_dRcLon, 2);
    EXPECT_DOUBLE_EQ(m_host.m_settings.m_dTxLat, 3);
    EXPECT_DOUBLE_EQ(m_host.m_settings.m_dTxLon, 4);
    EXPECT_EQ(m_host.m_nUpdates, 1);
    EXPECT_TRUE(m_pMap->isVisible());
}

TEST_F(frmMapMarkers, OkAppliesAndClosesForGood)
{
    m_pMap->m_posRc = {1, 2};
    QTest::mouseClick(m_pMap->cmdOk, Qt::LeftButton);
    EXPECT_DOUBLE_EQ(m_host.m_settings.m_dRcLat, 1);
    EXPECT_EQ(m_host.m_nUpdates, 1);
    EXPECT_TRUE(IsGone());
}

TEST_F(frmMapMarkers, CancelDiscards)
{
    Drag(m_pMap->lblRc, {5, 5}, {60, 60});
    EXPECT_NE(m_pMap->m_posRc.dLat, 24);
    QTest::mouseClick(m_pMap->cmdCancel, Qt::LeftButton);
    EXPECT_DOUBLE_EQ(m_host.m_settings.m_dRcLat, 24);
    EXPECT_EQ(m_host.m_nUpdates, 0);
    EXPECT_TRUE(IsGone());
}

TEST_F(frmMapMarkers, UpdateTakesTheSettingsLocationsAgain)
{
    m_pMap->m_posRc = {1, 2};
    const MapBox box = m_pMap->m_view.m_box;
    m_host.m_settings.m_dTxLat = 30;
    m_pMap->Update();
    EXPECT_DOUBLE_EQ(m_pMap->m_posRc.dLat, 24);
    EXPECT_DOUBLE_EQ(m_pMap->m_posTx.dLat, 30);
    EXPECT_EQ(CentreOf(m_pMap->lblTx), m_pMap->m_view.LatLonGetPoint(30, -122));
    EXPECT_NEAR(m_pMap->m_view.m_box.dLeft, box.dLeft, 0.01);
}

TEST_F(frmMapMarkers, LocationsOutOfAllRangeAreNoCrash)
{
    m_host.m_settings.m_dRcLat = 1e300;
    m_host.m_settings.m_dRcLon = -1e300;
    m_pMap->Update();
    QTest::mouseClick(m_pMap->chkPath, Qt::LeftButton);
    QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
    m_pMap->grab();
    EXPECT_TRUE(m_pMap->isVisible());
}

TEST(frmMapBeforeActivation, UpdateDoesNothing)
{
    MapHostFake host;
    frmMap frm(host);
    frm.Update();
    EXPECT_EQ(frm.m_posRc.dLat, 0);
    EXPECT_TRUE(frm.pctMap->m_img.isNull());
}

TEST_F(frmMapMarkers, AMarkerBeyondAPoleHandsNothingOverAndSaysSo)
{
    m_pMap->m_posRc = {1, 2};
    m_pMap->m_posTx = {-90.5, 4};
    for (QPushButton* pButton : {m_pMap->cmdApply, m_pMap->cmdOk}) {
        QTest::mouseClick(pButton, Qt::LeftButton);
        EXPECT_FALSE(IsGone());
        EXPECT_EQ(m_host.m_nUpdates, 0);
        EXPECT_DOUBLE_EQ(m_host.m_settings.m_dRcLat, 24);
        EXPECT_DOUBLE_EQ(m_host.m_settings.m_dTxLat, 38);
        EXPECT_TRUE(m_pMap->txtCursor->isVisible());
        EXPECT_EQ(m_pMap->txtCursor->text(),
                  QStringLiteral("Not set: latitude of transmitter beyond 90°"));
    }
    m_pMap->m_posTx = {-90, 4};
    QTest::mouseClick(m_pMap->cmdApply, Qt::LeftButton);
    EXPECT_EQ(m_host.m_nUpdates, 1);
    EXPECT_FALSE(m_pMap->txtCursor->isVisible());
}

}  // namespace
