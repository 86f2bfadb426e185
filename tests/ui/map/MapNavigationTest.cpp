#include "MapFakes.h"
#include "geo/MathLib.h"
#include "ui/map/MapGraticule.h"

namespace {

class frmMapNavigation : public MapWindow {
protected:
    /// A view well inside the image, so that nothing is cut.
    void ZoomInside() { Drag(m_pMap->pctMap, PointOf(50, 200), PointOf(10, 260)); }
    [[nodiscard]] QPoint PointOf(double dLat, double dLon) const
    {
        return m_pMap->m_view.LatLonGetPoint(dLat, dLon);
    }
    [[nodiscard]] double SpanGet() const
    {
        return m_pMap->m_view.m_box.dRight - m_pMap->m_view.m_box.dLeft;
    }
    [[nodiscard]] LatLon CenterGet() const { return m_pMap->m_view.CenterGet(); }
    [[nodiscard]] QPoint Middle() const { return m_pMap->pctMap->rect().center(); }
};

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
    EXPECT_NE(img.pixel(PointOf(62, 100)), kSeaColour);           // Siberia
    EXPECT_EQ(img.pixel(PointOf(-30, 230)), kSeaColour);
}

TEST_F(frmMapNavigation, ControlsCarryTheirNamesAndTexts)
{
    for (const char* sName : {"pctFrame", "pctMap", "hscMap", "vscMap", "txtCursor", "cmdZoomIn",
                              "cmdZoomOut", "cmdZoomOff", "cmdZoomTxRc", "cmdOverlay",
                              "cmdStations", "cmdApply", "cmdOk", "cmdCancel", "lblRc", "lblTx"})
        Find<QWidget>(sName);
    for (const char* sName : {"mnuMapCenter", "mnuMapZoomIn", "mnuMapZoomOut", "mnuOverlayDraw",
                              "mnuOverlaySeparator", "mnuStationSetRc", "mnuStationSetTx"})
        Find<QAction>(sName);
    EXPECT_EQ(m_pMap->cmdZoomTxRc->text(), QStringLiteral("Zoom to Transmitter and Receiver"));
    EXPECT_EQ(m_pMap->cmdZoomOff->text(), QStringLiteral("Zoom Off"));
    EXPECT_EQ(m_pMap->mnuMapZoomOut->text(), QStringLiteral("Center, Zoom Out"));
    EXPECT_EQ(m_pMap->cmdOverlay->toolTip(),
              QStringLiteral("Display Snr Overlay (Snr vs Range from Rc)"));
    EXPECT_EQ(m_pMap->cmdStations->toolTip(), QStringLiteral("Display AirMail Stations"));
}

TEST_F(frmMapNavigation, ButtonsFormOneRowWithinTheWindow)
{
    m_pMap->resize(m_pMap->minimumSize());
    EXPECT_LE(m_pMap->minimumWidth(), 1000);
    const int nTop = m_pMap->height() - m_pMap->cmdZoomOff->height() - 10;
    int nRight = 0;
    for (QAbstractButton* pButton : std::initializer_list<QAbstractButton*>{
             m_pMap->cmdZoomIn, m_pMap->cmdZoomOut, m_pMap->cmdZoomOff, m_pMap->cmdZoomTxRc,
             m_pMap->cmdOverlay, m_pMap->cmdStations, m_pMap->chkPath, m_pMap->chkNight,
             m_pMap->cmdOk, m_pMap->cmdCancel, m_pMap->cmdApply}) {
        EXPECT_EQ(pButton->y(), nTop);
        EXPECT_GT(pButton->x(), nRight);
        nRight = pButton->geometry().right();
    }
    EXPECT_LT(nRight, m_pMap->width());
}

TEST_F(frmMapNavigation, FrameAndMapFollowTheWindowsSize)
{
    m_pMap->resize(1200, 800);
    EXPECT_EQ(m_pMap->pctFrame->geometry(), QRect(10, 10, 1180, m_pMap->cmdZoomOff->y() - 10 - 10));
    const QRect rctInner = m_pMap->pctFrame->contentsRect();
    EXPECT_EQ(m_pMap->pctMap->width(), rctInner.width() - m_pMap->vscMap->width());
    EXPECT_EQ(m_pMap->pctMap->height(), rctInner.height() - m_pMap->hscMap->height());
    EXPECT_EQ(m_pMap->hscMap->width(), m_pMap->pctMap->width());
    EXPECT_EQ(m_pMap->vscMap->height(), m_pMap->pctMap->height());
    EXPECT_EQ(m_pMap->pctMap->m_img.size(), m_pMap->pctMap->size());
    EXPECT_NEAR(m_pMap->m_view.m_box.dTop, 90, 1e-9);
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

TEST_F(frmMapNavigation, RubberBandAboveTwentyPixelsZooms)
{
    const LatLon posFrom = m_pMap->m_view.PointGetLatLon(MapControl::Map, 400, 200);
    const LatLon posTo = m_pMap->m_view.PointGetLatLon(MapControl::Map, 421, 221);
    const MapZoom zoom =
        m_pMap->m_view.BoxGetZoom({posFrom.dLat, posFrom.dLon, posTo.dLat, posTo.dLon});
    Drag(m_pMap->pctMap, {400, 200}, {421, 221});
    EXPECT_DOUBLE_EQ(m_pMap->m_view.m_dScale, zoom.dScale);
    EXPECT_NEAR(CenterGet().dLat, zoom.dCenterLat, 0.01);
}

TEST_F(frmMapNavigation, RubberBandOfTwentyPixelsEitherWayIsAClick)
{
    const MapBox box = m_pMap->m_view.m_box;
    const QImage img = m_pMap->pctMap->m_img.copy();
    Drag(m_pMap->pctMap, {400, 200}, {420, 300});
    Drag(m_pMap->pctMap, {400, 200}, {500, 180});
    BoxIs(box.dTop, box.dLeft, box.dBottom, box.dRight, 0);
    EXPECT_EQ(m_pMap->pctMap->m_img, img);  // the band is gone
}

TEST_F(frmMapNavigation, RubberBandIsDrawnInvertedAndErased)
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
    EXPECT_EQ(m_pMap->pctMap->m_img, img);  // Escape has left the drag
    EXPECT_TRUE(m_pMap->isVisible());
}

TEST_F(frmMapNavigation, RubberBandUpAndLeftShowsItsBox)
{
    const LatLon posFrom = m_pMap->m_view.PointGetLatLon(MapControl::Map, 500, 300);
    Drag(m_pMap->pctMap, {500, 300}, {420, 250});
    EXPECT_LT(SpanGet(), 90);
    EXPECT_GT(SpanGet(), 10);
    EXPECT_NEAR(CenterGet().dLat, posFrom.dLat + 12, 12);
}

TEST_F(frmMapNavigation, RubberBandFromTheBlankStripEndsAtTheImage)
{
    Drag(m_pMap->pctMap, {20, 200}, PointOf(10, 60));
    EXPECT_NEAR(CenterGet().dLon, 30, 0.5);
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    Drag(m_pMap->pctMap, PointOf(50, 300), {m_pMap->pctMap->width() + 40, 400});
    EXPECT_NEAR(CenterGet().dLon, 330, 0.5);
    QTest::mouseClick(m_pMap->cmdZoomOff, Qt::LeftButton);
    const MapBox box = m_pMap->m_view.m_box;
    Drag(m_pMap->pctMap, {10, 100}, {60, 300});  // all of it in the strip
    BoxIs(box.dTop, box.dLeft, box.dBottom, box.dRight, 0);
}

TEST_F(frmMapNavigation, RubberBandOverTheUpperEdgeShowsTheWorldBelowIt)
{
    Drag(m_pMap->pctMap, {400, -30}, {520, 40});
    EXPECT_FALSE(m_pMap->m_view.ImageGetRect().isEmpty());
    EXPECT_GT(CenterGet().dLat, 82);
    EXPECT_LT(CenterGet().dLat, 84.1);
}

TEST_F(frmMapNavigation, RightDragZoomsNothing)
{
    const MapBox box = m_pMap->m_view.m_box;
    Drag(m_pMap->pctMap, {300, 200}, {500, 400}, Qt::RightButton);
    BoxIs(box.dTop, box.dLeft, box.dBottom, box.dRight, 0);
    EXPECT_TRUE(m_pMap->mnuMap->isVisible());
    m_pMap->mnuMap->close();
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

TEST_F(frmMapNavigation, ScrollBarsMoveTheMapOnlyWithTheFocus)
{
    ZoomInside();
    m_pMap->cmdZoomIn->setFocus();
    const MapBox box = m_pMap->m_view.m_box;
    m_pMap->hscMap->setValue(1000);
    m_pMap->vscMap->setValue(-300);
    BoxIs(box.dTop, box.dLeft, box.dBottom, box.dRight, 0);
    m_pMap->hscMap->setFocus();
    m_pMap->hscMap->setValue(1500);
    EXPECT_NEAR(CenterGet().dLon, 150, 0.001);
    EXPECT_NEAR(SpanGet(), box.dRight - box.dLeft, 0.002);
    m_pMap->vscMap->setFocus();
    m_pMap->vscMap->setValue(-455);
    EXPECT_NEAR(CenterGet().dLat, 45.5, 0.001);
    EXPECT_EQ(m_pMap->hscMap->value(), 1500);
    EXPECT_EQ(m_pMap->vscMap->value(), -455);
}

TEST_F(frmMapNavigation, ScrollBarsAreSetToTenthsOfTheCentre)
{
    ZoomInside();
    EXPECT_NEAR(m_pMap->hscMap->value(), CenterGet().dLon * 10, 0.5);
    EXPECT_NEAR(m_pMap->vscMap->value(), -CenterGet().dLat * 10, 0.5);
    EXPECT_EQ(m_pMap->hscMap->minimum(), 0);
    EXPECT_EQ(m_pMap->hscMap->maximum(), 3600);
    EXPECT_EQ(m_pMap->vscMap->minimum(), -840);
    EXPECT_EQ(m_pMap->vscMap->maximum(), 840);
    EXPECT_NEAR(m_pMap->hscMap->singleStep(), SpanGet() * 10 / 20, 0.5);
    EXPECT_NEAR(m_pMap->hscMap->pageStep(), SpanGet() * 10 / 2, 0.5);
}

TEST_F(frmMapNavigation, ScrollBarsByTheMouse)
{
    ZoomInside();
    const double dLon = CenterGet().dLon;
    // Between the slider and the arrow at the end: a page, and the press takes the focus.
    const QSize size = m_pMap->hscMap->size();
    QTest::mouseClick(m_pMap->hscMap, Qt::LeftButton, {},
                      {size.width() - 3 * size.height(), size.height() / 2});
    EXPECT_NEAR(CenterGet().dLon, dLon + SpanGet() / 2, 0.01);
    // The arrow at the end: a twentieth.
    QTest::mouseClick(m_pMap->hscMap, Qt::LeftButton, {}, {size.width() - 3, size.height() / 2});
    EXPECT_NEAR(CenterGet().dLon, dLon + SpanGet() * 0.55, 0.01);
}

TEST_F(frmMapNavigation, ArrowKeysScrollATwentiethOfTheView)
{
    const std::pair<const char*, std::function<void()>> aViews[] = {
        {"wide", [this] { ZoomInside(); }},
        {"closest",
         [this] {
             m_pMap->m_view.ZoomSet({kScaleMin, 38.4567, 237.6543});
         }},
    };
    for (const auto& [sName, fnView] : aViews) {
        fnView();
        m_pMap->Update();
        const double dSpan = SpanGet();
        const LatLon center = CenterGet();
        const double dOrdinate = m_pMap->m_view.LatGetOrdinate(center.dLat);
        m_pMap->cmdZoomIn->setFocus();
        QTest::keyClick(m_pMap->cmdZoomIn, Qt::Key_Right);
        EXPECT_NEAR(CenterGet().dLon, center.dLon + dSpan / 20, dSpan / 100) << sName;
        EXPECT_TRUE(m_pMap->cmdZoomIn->hasFocus());
        QTest::keyClick(m_pMap->hscMap, Qt::Key_Left);
        EXPECT_NEAR(CenterGet().dLon, center.dLon, dSpan / 100) << sName;
        const double dPixelsPerOrdinate =
            m_pMap->m_view.m_nImgHeight / 180.0 / m_pMap->m_view.m_dScale;
        const double dHeight = m_pMap->m_view.m_nMapHeight / dPixelsPerOrdinate;
        QTest::keyClick(m_pMap->hscMap, Qt::Key_Up);
        EXPECT_NEAR(m_pMap->m_view.LatGetOrdinate(CenterGet().dLat), dOrdinate + dHeight / 20,
                    dHeight / 100)
            << sName;
        QTest::keyClick(m_pMap->vscMap, Qt::Key_Down);
        QTest::keyClick(m_pMap->vscMap, Qt::Key_Down);
        EXPECT_NEAR(m_pMap->m_view.LatGetOrdinate(CenterGet().dLat), dOrdinate - dHeight / 20,
                    dHeight / 100)
            << sName;
    }
}

TEST_F(frmMapNavigation, WheelOverABarMovesBarAndMap)
{
    ZoomInside();
    for (QScrollBar* pBar : {m_pMap->hscMap, m_pMap->vscMap}) {
        m_pMap->cmdZoomIn->setFocus();
        const int nBefore = pBar->value();
        const LatLon center = CenterGet();
        const QPoint pt = pBar->rect().center();
        QWheelEvent evt(pt, pBar->mapToGlobal(pt), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                        Qt::NoScrollPhase, false);
        QApplication::sendEvent(pBar, &evt);
        EXPECT_GT(pBar->value(), nBefore);
        const bool bAcross = pBar == m_pMap->hscMap;
        EXPECT_EQ(CenterGet().dLon > center.dLon + SpanGet() / 10, bAcross);
        EXPECT_EQ(CenterGet().dLat < center.dLat - 1, !bAcross);
        EXPECT_NEAR(pBar->value(), (bAcross ? CenterGet().dLon : -CenterGet().dLat) * 10, 0.51);
    }
}

TEST_F(frmMapNavigation, MiddleDragPans)
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

TEST_F(frmMapNavigation, EscapeIsCancelOnceNothingIsUnderWay)
{
    m_pMap->m_posRc = {1, 2};
    QTest::mousePress(m_pMap->lblTx, Qt::LeftButton, {}, {5, 5});
    QMouseEvent evt(QEvent::MouseMove, QPointF(40, 40), m_pMap->lblTx->mapToGlobal(QPoint(40, 40)),
                    Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_pMap->lblTx, &evt);
    EXPECT_NE(m_pMap->m_posTx.dLat, 38);
    QTest::keyClick(m_pMap, Qt::Key_Escape);  // ends the drag
    ASSERT_TRUE(m_pMap && m_pMap->isVisible());
    EXPECT_DOUBLE_EQ(m_pMap->m_posTx.dLat, 38);
    EXPECT_DOUBLE_EQ(m_pMap->m_posTx.dLon, -122);
    QTest::mouseRelease(m_pMap->lblTx, Qt::LeftButton, {}, {5, 5});
    QTest::keyClick(m_pMap, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(m_pMap.isNull());
    EXPECT_DOUBLE_EQ(m_host.m_settings.m_dRcLat, 24);
    EXPECT_EQ(m_host.m_nUpdates, 0);
}

TEST_F(frmMapNavigation, ArrowsBelongToAFocusedFlag)
{
    QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
    const MapBox box = m_pMap->m_view.m_box;
    const QPoint ptBefore = m_pMap->lblRc->pos();
    m_pMap->lblRc->setFocus();
    QTest::keyClick(m_pMap->lblRc, Qt::Key_Right);
    QTest::keyClick(m_pMap->lblRc, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(m_pMap->lblRc->pos(), ptBefore + QPoint(1, 10));
    const LatLon pos =
        m_pMap->m_view.PointGetLatLon(MapControl::Marker, 0, 0, m_pMap->lblRc->geometry());
    EXPECT_DOUBLE_EQ(m_pMap->m_posRc.dLat, pos.dLat);
    EXPECT_DOUBLE_EQ(m_pMap->m_posRc.dLon, pos.dLon);
    EXPECT_TRUE(m_pMap->txtCursor->isVisible());
    EXPECT_TRUE(m_pMap->txtCursor->text().startsWith(QStringLiteral("Receiver, Lat ")));
    BoxIs(box.dTop, box.dLeft, box.dBottom, box.dRight, 0);
    m_pMap->cmdZoomIn->setFocus();
    EXPECT_FALSE(m_pMap->txtCursor->isVisible());
    QTest::keyClick(m_pMap->cmdZoomIn, Qt::Key_Right);
    EXPECT_GT(m_pMap->m_view.m_box.dLeft, box.dLeft);
}

TEST_F(frmMapNavigation, NoFlagHasTheFocusAtFirst)
{
    EXPECT_FALSE(m_pMap->lblRc->hasFocus());
    EXPECT_FALSE(m_pMap->lblTx->hasFocus());
}

TEST_F(frmMapNavigation, ReadOutIsAsWideAsItsText)
{
    QTest::mousePress(m_pMap->lblRc, Qt::LeftButton, {}, {5, 5});
    const QFontMetrics metrics = m_pMap->txtCursor->fontMetrics();
    const int nText = metrics.horizontalAdvance(m_pMap->txtCursor->text());
    EXPECT_GT(nText, 100);
    EXPECT_GT(m_pMap->txtCursor->width(), nText + 8);
    EXPECT_LT(m_pMap->txtCursor->width(), nText + 40);
    EXPECT_NEAR(m_pMap->txtCursor->geometry().center().x(), m_pMap->pctMap->geometry().center().x(),
                1);
    m_pMap->txtCursor->setText(QString(400, QLatin1Char('m')));
    EXPECT_LE(m_pMap->txtCursor->width(), m_pMap->pctMap->width());
    QTest::mouseRelease(m_pMap->lblRc, Qt::LeftButton, {}, {5, 5});
}

TEST_F(frmMapNavigation, MarkerOutsideTheViewHasAnArrowAtTheEdge)
{
    ZoomInside();  // the North Pacific, west of both
    m_pMap->m_posRc = m_pMap->m_posTx = {30, 230};
    m_pMap->m_posRc.dLat = 30.5;
    const QImage imgInside = m_pMap->pctMap->grab().toImage();
    m_pMap->m_posTx = {30, 20};  // far to the west
    const QImage img = m_pMap->pctMap->grab().toImage();
    const double dY = m_pMap->pctMap->height() / 2.0;
    bool bChanged = false;
    for (int y = int(dY) - 60; y < int(dY) + 60; ++y)
        bChanged = bChanged || img.pixel(8, y) != imgInside.pixel(8, y);
    EXPECT_TRUE(bChanged);
}

TEST_F(frmMapNavigation, PlusMinusAndZeroZoom)
{
    ZoomInside();
    const double dSpan = SpanGet();
    QTest::keyClick(m_pMap, '+');
    EXPECT_NEAR(SpanGet(), dSpan / 2, dSpan * 0.03);
    QTest::keyClick(m_pMap, '-');
    QTest::keyClick(m_pMap, '-');
    EXPECT_GT(SpanGet(), dSpan * 1.5);
    QTest::keyClick(m_pMap, '0');
    EXPECT_NEAR(m_pMap->m_view.m_box.dTop, 90, 1e-9);
}

TEST_F(frmMapNavigation, WheelZoomsAboutThePointer)
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

TEST_F(frmMapNavigation, HoveringTellsThePosition)
{
    ZoomInside();
    const LatLon pos = m_pMap->m_view.PointGetLatLon(MapControl::Map, 300, 200);
    EXPECT_EQ(TipAt({300, 200}).toStdString(),
              "Lat " + LatitudeToText(pos.dLat) + ", Lon " + LongitudeToText(pos.dLon));
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

TEST_F(frmMapNavigation, TogglesPaintAboveThePictureOnly)
{
    const QImage img = m_pMap->pctMap->m_img.copy();
    const QImage imgShown = m_pMap->pctMap->grab().toImage();
    for (QToolButton* pToggle : {m_pMap->chkPath, m_pMap->chkNight}) {
        EXPECT_FALSE(pToggle->isChecked());
        QTest::mouseClick(pToggle, Qt::LeftButton);
        EXPECT_NE(m_pMap->pctMap->grab().toImage(), imgShown);
        EXPECT_EQ(m_pMap->pctMap->m_img, img);
        QTest::mouseClick(pToggle, Qt::LeftButton);
        EXPECT_EQ(m_pMap->pctMap->grab().toImage(), imgShown);
    }
}

}  // namespace
