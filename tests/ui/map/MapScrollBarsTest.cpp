#include "MapFakes.h"

namespace {

class frmMapScrollBars : public MapWindow {};

TEST_F(frmMapScrollBars, ScrollBarsMoveTheMapOnlyWithTheFocus)
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

TEST_F(frmMapScrollBars, ScrollBarsAreSetToTenthsOfTheCentre)
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

TEST_F(frmMapScrollBars, ScrollBarsByTheMouse)
{
    ZoomInside();
    const double dLon = CenterGet().dLon;
    // A click between the slider and the arrow at the end moves by a page and takes the focus.
    const QSize size = m_pMap->hscMap->size();
    QTest::mouseClick(m_pMap->hscMap, Qt::LeftButton, {},
                      {size.width() - 3 * size.height(), size.height() / 2});
    EXPECT_NEAR(CenterGet().dLon, dLon + SpanGet() / 2, 0.01);
    // A click on the arrow at the end moves by a twentieth.
    QTest::mouseClick(m_pMap->hscMap, Qt::LeftButton, {}, {size.width() - 3, size.height() / 2});
    EXPECT_NEAR(CenterGet().dLon, dLon + SpanGet() * 0.55, 0.01);
}

TEST_F(frmMapScrollBars, WheelOverABarMovesBarAndMap)
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

}  // namespace
