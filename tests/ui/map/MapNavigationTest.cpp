#include "MapFakes.h"
#include "geo/MathLib.h"
#include "ui/map/MapGraticule.h"

namespace {

class frmMapNavigation : public MapWindow {};

TEST_F(frmMapNavigation, OpensOnTheWholeImageWithTheSettingsLocations)
{
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Hopcast - World Map"));
    EXPECT_DOUBLE_EQ(m_pMap->m_posRc.dLat, 24);
    EXPECT_DOUBLE_EQ(m_pMap->m_posTx.dLon, -122);
    EXPECT_NEAR(m_pMap->m_view.m_box.dTop, 90, 1e-9);
    EXPECT_NEAR(CenterGet().dLon, 180, 1e-3);
    EXPECT_FALSE(m_pMap->cmdOverlay->icon().isNull());
    EXPECT_FALSE(m_pMap->cmdStations->icon().isNull());
    EXPECT_EQ(m_pMap->hscMap->value(), 1800);
    EXPECT_EQ(m_pMap->vscMap->value(), 0);
}

TEST_F(frmMapNavigation, StripsBesideTheWorldShowTheBackground)
{
    const QImage& img = m_pMap->pctMap->m_img;
    EXPECT_EQ(img.pixel(60, 100), kMapBackground);
    EXPECT_EQ(img.pixel(img.width() - 10, 100), kMapBackground);
    EXPECT_EQ(img.pixel(PointOf(40, 180)), qRgb(128, 128, 128));  // a meridian
    EXPECT_NE(img.pixel(PointOf(62, 100)), kSeaColor);            // Siberia
    EXPECT_EQ(img.pixel(PointOf(-30, 230)), kSeaColor);
}

TEST_F(frmMapNavigation, ResizingBackAndForthKeepsTheView)
{
    ZoomInside();
    const MapBox box = m_pMap->m_view.m_box;
    const QSize size = m_pMap->size();
    for (int i = 0; i < 3; ++i) {
        m_pMap->resize(1400, 700);
        m_pMap->resize(size);
    }
    BoxIs(box.dTop, box.dLeft, box.dBottom, box.dRight, 1e-9);
}

TEST_F(frmMapNavigation, ZoomButtonsHalveAndDoubleTheSpans)
{
    ZoomInside();
    const double dSpan = SpanGet();
    const LatLon center = CenterGet();
    QTest::mouseClick(m_pMap->cmdZoomIn, Qt::LeftButton);
    EXPECT_NEAR(SpanGet(), dSpan / 2, dSpan * 0.03);
    EXPECT_NEAR(CenterGet().dLon, center.dLon, 0.01);
    EXPECT_NEAR(CenterGet().dLat, center.dLat, 0.01);
    QTest::mouseClick(m_pMap->cmdZoomOut, Qt::LeftButton);
    EXPECT_NEAR(SpanGet(), dSpan, dSpan * 0.05);
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    EXPECT_NEAR(m_pMap->m_view.m_box.dTop, 90, 1e-9);
    EXPECT_NEAR(m_pMap->m_view.m_box.dBottom, -90, 1e-9);
}

TEST_F(frmMapNavigation, ZoomingForEverEndsAtBothEnds)
{
    for (int i = 0; i < 40; ++i) QTest::mouseClick(m_pMap->cmdZoomIn, Qt::LeftButton);
    EXPECT_NEAR(m_pMap->m_view.m_dScale, kScaleMin, 1e-9);
    for (int i = 0; i < 40; ++i) QTest::mouseClick(m_pMap->cmdZoomOut, Qt::LeftButton);
    EXPECT_NEAR(m_pMap->m_view.m_box.dTop, 90, 1e-9);
}

TEST_F(frmMapNavigation, ZoomTxRcShowsBothMarkers)
{
    QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
    EXPECT_LT(SpanGet(), 60);
    for (const MarkerLabel* pMarker : {m_pMap->lblRc, m_pMap->lblTx})
        EXPECT_TRUE(m_pMap->pctMap->rect().contains(pMarker->geometry().center()));
}

TEST_F(frmMapNavigation, ZoomTxRcWithBothAtOnePlaceShowsIt)
{
    m_pMap->m_posTx = m_pMap->m_posRc;
    QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
    EXPECT_NEAR(CenterGet().dLat, 24, 0.01);
    EXPECT_NEAR(CenterGet().dLon, 250, 0.01);
    EXPECT_GE(SpanGet(), 1);
    EXPECT_LT(SpanGet(), 3);
}

TEST_F(frmMapNavigation, PopupItemsCentreOnThePointOfTheRightClick)
{
    ZoomInside();
    const std::pair<QAction*, double> aItems[] = {
        {m_pMap->mnuMapCenter, 1.0}, {m_pMap->mnuMapZoomIn, 0.5}, {m_pMap->mnuMapZoomOut, 2.0}};
    for (const auto& [pItem, dFactor] : aItems) {
        const LatLon pos = m_pMap->m_view.PointGetLatLon(MapControl::Map, 400, 200);
        const MapBox box = m_pMap->m_view.m_box;
        const double dLatHalf = (box.dTop - box.dBottom) * dFactor / 2;
        const double dLonHalf = (box.dRight - box.dLeft) * dFactor / 2;
        const MapZoom zoom = m_pMap->m_view.BoxGetZoom(
            {pos.dLat + dLatHalf, pos.dLon - dLonHalf, pos.dLat - dLatHalf, pos.dLon + dLonHalf});
        MapMenuChoose(m_pMap->pctMap, {400, 200}, pItem);
        EXPECT_DOUBLE_EQ(m_pMap->m_view.m_dScale, zoom.dScale) << dFactor;
        EXPECT_NEAR(CenterGet().dLat, pos.dLat, 0.001) << dFactor;
        EXPECT_NEAR(CenterGet().dLon, pos.dLon + 360, 0.001) << dFactor;
    }
}

TEST_F(frmMapNavigation, ZoomingNearLongitudeZeroStaysThere)
{
    for (int i = 0; i < 4; ++i) MapMenuChoose(m_pMap->pctMap, PointOf(50, 8), m_pMap->mnuMapZoomIn);
    EXPECT_LT(SpanGet(), 90);
    EXPECT_TRUE(m_pMap->pctMap->rect().contains(PointOf(50, 8)));
    for (int i = 0; i < 2; ++i) {
        QTest::mouseClick(m_pMap->cmdZoomOut, Qt::LeftButton);
        EXPECT_TRUE(m_pMap->pctMap->rect().contains(PointOf(50, 8)));
    }
}

TEST_F(frmMapNavigation, PopupOfAMarkerCentresOnTheMarker)
{
    ZoomInside();
    MapMenuChoose(m_pMap->lblTx, m_pMap->lblTx->rect().center(), m_pMap->mnuMapZoomIn);
    EXPECT_NEAR(CenterGet().dLat, 38, 0.2);
    EXPECT_NEAR(CenterGet().dLon, 238, 0.2);
}

TEST_F(frmMapNavigation, RepaintingMovesNothing)
{
    ZoomInside();
    const MapBox box = m_pMap->m_view.m_box;
    for (int i = 0; i < 12; ++i) {
        m_pMap->Update();
        QTest::mouseClick(m_pMap->cmdApply, Qt::LeftButton);
    }
    BoxIs(box.dTop, box.dLeft, box.dBottom, box.dRight, 0);
    const QSize size = m_pMap->size();
    m_pMap->resize(1200, 640);
    m_pMap->resize(size);
    BoxIs(box.dTop, box.dLeft, box.dBottom, box.dRight, 0);
}

TEST_F(frmMapNavigation, GraticuleIsDrawnOnThePictureWithLabels)
{
    ZoomInside();
    const std::vector<GraticuleLine> aLines = MeridiansGet(m_pMap->m_view);
    ASSERT_FALSE(aLines.empty());
    const QImage& img = m_pMap->pctMap->m_img;
    for (const GraticuleLine& lin : aLines) {
        EXPECT_EQ(img.pixel(lin.nPixel, 5), qRgb(128, 128, 128));
        EXPECT_EQ(img.pixel(lin.nPixel - 8, img.height() - 2), kMapBackground);
    }
    for (const GraticuleLine& lin : ParallelsGet(m_pMap->m_view))
        EXPECT_EQ(img.pixel(img.width() - 1, lin.nPixel), qRgb(128, 128, 128));
}

}  // namespace
