#include "MapFakes.h"

namespace {

class frmMapKeys : public MapWindow {};

TEST_F(frmMapKeys, ArrowKeysScrollATwentiethOfTheView)
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

TEST_F(frmMapKeys, EscapeIsCancelOnceNothingIsUnderWay)
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

TEST_F(frmMapKeys, ArrowsBelongToAFocusedFlag)
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

TEST_F(frmMapKeys, NoFlagHasTheFocusAtFirst)
{
    EXPECT_FALSE(m_pMap->lblRc->hasFocus());
    EXPECT_FALSE(m_pMap->lblTx->hasFocus());
}

TEST_F(frmMapKeys, PlusMinusAndZeroZoom)
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

TEST_F(frmMapKeys, EnterIsOk)
{
    m_pMap->m_posTx = {3, 4};
    QTest::keyClick(m_pMap, Qt::Key_Return);
    EXPECT_DOUBLE_EQ(m_host.m_settings.m_dTxLat, 3);
    EXPECT_TRUE(IsGone());
}

TEST_F(frmMapKeys, EnterOnCancelOrApplyPressesThat)
{
    m_pMap->m_posTx = {3, 4};
    m_pMap->cmdApply->setFocus();
    QTest::keyClick(m_pMap, Qt::Key_Enter);
    EXPECT_EQ(m_host.m_nUpdates, 1);
    EXPECT_TRUE(m_pMap->isVisible());
    m_pMap->m_posTx = {5, 6};
    m_pMap->cmdCancel->setFocus();
    QTest::keyClick(m_pMap, Qt::Key_Return);
    EXPECT_DOUBLE_EQ(m_host.m_settings.m_dTxLat, 3);
    EXPECT_EQ(m_host.m_nUpdates, 1);
    EXPECT_TRUE(IsGone());
}

}  // namespace
