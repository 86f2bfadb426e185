#include <QAccessible>

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

TEST_F(frmMapKeys, EscapeGivesAFlagMovedByKeysItsOldPlaceBack)
{
    QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
    const QPoint ptBefore = m_pMap->lblTx->pos();
    m_pMap->lblTx->setFocus();
    QTest::keyClick(m_pMap->lblTx, Qt::Key_Left);
    QTest::keyClick(m_pMap->lblTx, Qt::Key_Up, Qt::ShiftModifier);
    ASSERT_NE(m_pMap->m_posTx.dLat, 38);
    QTest::keyClick(m_pMap->lblTx, Qt::Key_Menu);
    ASSERT_TRUE(m_pMap->mnuMap->isVisible());
    m_pMap->mnuMap->close();
    QApplication::setActiveWindow(m_pMap);
    EXPECT_TRUE(m_pMap->txtCursor->isVisible()) << "a menu is no end of the move";
    QTest::keyClick(m_pMap->lblTx, Qt::Key_Escape);
    ASSERT_FALSE(IsGone());
    EXPECT_DOUBLE_EQ(m_pMap->m_posTx.dLat, 38);
    EXPECT_DOUBLE_EQ(m_pMap->m_posTx.dLon, -122);
    EXPECT_EQ(m_pMap->lblTx->pos(), ptBefore);
    QTest::keyClick(m_pMap->lblTx, Qt::Key_Down);
    m_pMap->cmdZoomIn->setFocus();  // this completes the move
    QTest::keyClick(m_pMap->cmdZoomIn, Qt::Key_Escape);
    EXPECT_TRUE(IsGone());
}

TEST_F(frmMapKeys, AMovedFlagIsSpoken)
{
    QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
    EXPECT_EQ(m_pMap->lblTx->accessibleName(),
              QString::fromUtf8("Transmitter, Lat 38°00.00'N, Lon 122°00.00'W"));
    m_pMap->lblTx->setFocus();
    QTest::keyClick(m_pMap->lblTx, Qt::Key_Left);
    // The toolkit reports every new name to a screen reader.
    const QString sSpoken =
        QAccessible::queryAccessibleInterface(m_pMap->lblTx)->text(QAccessible::Name);
    EXPECT_EQ(sSpoken, m_pMap->txtCursor->text());
    EXPECT_TRUE(sSpoken.startsWith(QStringLiteral("Transmitter, Lat ")));
    EXPECT_FALSE(sSpoken.contains(QStringLiteral("122°00.00'W")));
    QTest::keyClick(m_pMap->lblTx, Qt::Key_Escape);
    EXPECT_EQ(m_pMap->lblTx->accessibleName(),
              QString::fromUtf8("Transmitter, Lat 38°00.00'N, Lon 122°00.00'W"));
}

TEST_F(frmMapKeys, TheMenuKeyOpensTheMenuOfWhatHasTheFocus)
{
    QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
    const std::pair<Qt::Key, Qt::KeyboardModifiers> aKeys[] = {{Qt::Key_Menu, Qt::NoModifier},
                                                               {Qt::Key_F10, Qt::ShiftModifier}};
    for (const auto& [eKey, modifiers] : aKeys) {
        const auto Press = [&, eKey = eKey, modifiers = modifiers](QWidget* pFocus, QMenu* pMenu) {
            QApplication::setActiveWindow(m_pMap);
            pFocus->setFocus();
            QTest::keyClick(pFocus, eKey, modifiers);
            EXPECT_TRUE(pMenu->isVisible()) << pFocus->objectName().toStdString();
            pMenu->close();
        };
        Press(m_pMap->pctMap, m_pMap->mnuMap);
        Press(m_pMap->cmdOverlay, m_pMap->mnuOverlay);
        Press(m_pMap->lblRc, m_pMap->mnuMap);
        m_pMap->mnuMapCenter->trigger();
        EXPECT_NEAR(CenterGet().dLat, 24, 1.5);
        EXPECT_NEAR(m_pMap->m_view.CenterGet().dLon, 250, 1.5);
    }
}

TEST_F(frmMapKeys, TabGoesOverMapFlagsAndBarsToTheButtons)
{
    m_pMap->pctMap->setFocus();
    QWidget* const apOrder[] = {m_pMap->lblRc,  m_pMap->lblTx,     m_pMap->hscMap,
                                m_pMap->vscMap, m_pMap->cmdZoomIn, m_pMap->cmdZoomOut};
    for (QWidget* pNext : apOrder) {
        QTest::keyClick(m_pMap->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(m_pMap->focusWidget(), pNext) << pNext->objectName().toStdString();
    }
    m_pMap->cmdApply->setFocus();
    QTest::keyClick(m_pMap->cmdApply, Qt::Key_Tab);
    EXPECT_TRUE(m_pMap->pctMap->hasFocus());
}

TEST_F(frmMapKeys, TheFocusOnTheMapIsSeenAroundItAndNotInThePicture)
{
    m_pMap->cmdZoomIn->setFocus();
    const QImage imgFrame = m_pMap->pctFrame->grab().toImage();
    const QImage imgMap = m_pMap->pctMap->grab().toImage();
    m_pMap->pctMap->setFocus();
    EXPECT_NE(m_pMap->pctFrame->grab().toImage(), imgFrame);
    EXPECT_EQ(m_pMap->pctMap->grab().toImage(), imgMap);
}

TEST_F(frmMapKeys, NoFlagHasTheFocusAtFirst)
{
    EXPECT_FALSE(m_pMap->lblRc->hasFocus());
    EXPECT_FALSE(m_pMap->lblTx->hasFocus());
    EXPECT_TRUE(m_pMap->pctMap->hasFocus());
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
