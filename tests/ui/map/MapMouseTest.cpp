#include "MapFakes.h"
#include "geo/MathLib.h"

namespace {

class frmMapMouse : public MapWindow {};

TEST_F(frmMapMouse, RubberBandAboveTwentyPixelsZooms)
{
    const LatLon posFrom = m_pMap->m_view.PointGetLatLon(MapControl::Map, 400, 200);
    const LatLon posTo = m_pMap->m_view.PointGetLatLon(MapControl::Map, 421, 221);
    const MapZoom zoom =
        m_pMap->m_view.BoxGetZoom({posFrom.dLat, posFrom.dLon, posTo.dLat, posTo.dLon});
    Drag(m_pMap->pctMap, {400, 200}, {421, 221});
    EXPECT_DOUBLE_EQ(m_pMap->m_view.m_dScale, zoom.dScale);
    EXPECT_NEAR(CenterGet().dLat, zoom.dCenterLat, 0.01);
}

TEST_F(frmMapMouse, RubberBandOfTwentyPixelsEitherWayIsAClick)
{
    const MapBox box = m_pMap->m_view.m_box;
    const QImage img = m_pMap->pctMap->m_img.copy();
    Drag(m_pMap->pctMap, {400, 200}, {420, 300});
    Drag(m_pMap->pctMap, {400, 200}, {500, 180});
    BoxIs(box.dTop, box.dLeft, box.dBottom, box.dRight, 0);
    EXPECT_EQ(m_pMap->pctMap->m_img, img);  // the band is gone
}

TEST_F(frmMapMouse, RubberBandIsDrawnInvertedAndErased)
{
    const QImage img = m_pMap->pctMap->m_img.copy();
    QTest::mousePress(m_pMap->pctMap, Qt::LeftButton, {}, {400, 200});
    const auto Move = [&](QPoint pt) {
        QMouseEvent evt(QEvent::MouseMove, pt, m_pMap->pctMap->mapToGlobal(pt), Qt::NoButton,
                        Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_pMap->pctMap, &evt);
    };
    Move({500, 300});
    EXPECT_EQ(m_pMap->pctMap->m_img.pixel(450, 200), img.pixel(450, 200) ^ 0xFFFFFF);
    Move({450, 260});
    EXPECT_EQ(m_pMap->pctMap->m_img.pixel(500, 250), img.pixel(500, 250));
    EXPECT_EQ(m_pMap->pctMap->m_img.pixel(450, 230), img.pixel(450, 230) ^ 0xFFFFFF);
    QTest::keyClick(m_pMap, Qt::Key_Escape);
    EXPECT_EQ(m_pMap->pctMap->m_img, img);
    QTest::mouseRelease(m_pMap->pctMap, Qt::LeftButton, {}, {600, 400});
    EXPECT_EQ(m_pMap->pctMap->m_img, img);  // Escape has ended the drag
    EXPECT_TRUE(m_pMap->isVisible());
}

TEST_F(frmMapMouse, RubberBandUpAndLeftShowsItsBox)
{
    const LatLon posFrom = m_pMap->m_view.PointGetLatLon(MapControl::Map, 500, 300);
    Drag(m_pMap->pctMap, {500, 300}, {420, 250});
    EXPECT_LT(SpanGet(), 90);
    EXPECT_GT(SpanGet(), 10);
    EXPECT_NEAR(CenterGet().dLat, posFrom.dLat + 12, 12);
}

TEST_F(frmMapMouse, RubberBandFromTheBlankStripEndsAtTheImage)
{
    Drag(m_pMap->pctMap, {20, 200}, PointOf(10, 60));
    EXPECT_NEAR(CenterGet().dLon, 30, 0.5);
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    Drag(m_pMap->pctMap, PointOf(50, 300), {m_pMap->pctMap->width() + 40, 400});
    EXPECT_NEAR(CenterGet().dLon, 330, 0.5);
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    const MapBox box = m_pMap->m_view.m_box;
    Drag(m_pMap->pctMap, {10, 100}, {60, 300});  // entirely within the strip
    BoxIs(box.dTop, box.dLeft, box.dBottom, box.dRight, 0);
}

TEST_F(frmMapMouse, RubberBandOverTheUpperEdgeShowsTheWorldBelowIt)
{
    Drag(m_pMap->pctMap, {400, -30}, {520, 40});
    EXPECT_FALSE(m_pMap->m_view.ImageGetRect().isEmpty());
    EXPECT_GT(CenterGet().dLat, 82);
    EXPECT_LT(CenterGet().dLat, 84.1);
}

TEST_F(frmMapMouse, RightDragZoomsNothing)
{
    const MapBox box = m_pMap->m_view.m_box;
    Drag(m_pMap->pctMap, {300, 200}, {500, 400}, Qt::RightButton);
    BoxIs(box.dTop, box.dLeft, box.dBottom, box.dRight, 0);
    EXPECT_TRUE(m_pMap->mnuMap->isVisible());
    m_pMap->mnuMap->close();
}

TEST_F(frmMapMouse, MiddleDragPans)
{
    ZoomInside();
    const LatLon pos = m_pMap->m_view.PointGetLatLon(MapControl::Map, 400, 300);
    const double dSpan = SpanGet();
    Drag(m_pMap->pctMap, {400, 300}, {310, 355}, Qt::MiddleButton);
    const LatLon posAfter = m_pMap->m_view.PointGetLatLon(MapControl::Map, 310, 355);
    EXPECT_NEAR(posAfter.dLat, pos.dLat, 0.05);
    EXPECT_NEAR(posAfter.dLon, pos.dLon, 0.05);
    EXPECT_NEAR(SpanGet(), dSpan, 0.002);
    EXPECT_FALSE(m_pMap->mnuMap->isVisible());
}

TEST_F(frmMapMouse, WheelZoomsAboutThePointer)
{
    ZoomInside();
    const double dSpan = SpanGet();
    const QPoint pt(200, 150);
    const LatLon posBefore = m_pMap->m_view.PointGetLatLon(MapControl::Map, pt.x(), pt.y());
    const auto Turn = [&](int nAngle) {
        QWheelEvent evt(pt, m_pMap->pctMap->mapToGlobal(pt), {}, {0, nAngle}, Qt::NoButton,
                        Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_pMap->pctMap, &evt);
    };
    Turn(60);
    EXPECT_DOUBLE_EQ(SpanGet(), dSpan);  // half a notch
    Turn(60);
    EXPECT_NEAR(SpanGet(), dSpan / 2, 0.01);
    const LatLon posAfter = m_pMap->m_view.PointGetLatLon(MapControl::Map, pt.x(), pt.y());
    EXPECT_NEAR(posAfter.dLat, posBefore.dLat, 0.1);
    EXPECT_NEAR(posAfter.dLon, posBefore.dLon, 0.1);
    Turn(-240);
    EXPECT_NEAR(SpanGet(), dSpan * 2, 0.01);
}

TEST_F(frmMapMouse, HoveringTellsThePosition)
{
    ZoomInside();
    const LatLon pos = m_pMap->m_view.PointGetLatLon(MapControl::Map, 300, 200);
    EXPECT_EQ(TipAt({300, 200}).toStdString(),
              "Lat " + LatitudeToText(pos.dLat) + ", Lon " + LongitudeToText(pos.dLon));
}

}  // namespace
