// The map as the main window opens it, with the built-in engine.
#include <gtest/gtest.h>

#include <QMenu>
#include <QSet>
#include <QTest>

#include "ui/e2e/RealRig.h"
#include "ui/map/frmMap.h"

namespace {

frmMap& MapOpen(const frmMain& frm)
{
    frm.mnuViewWorldMap->trigger();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(frm.m_pMap));
    QApplication::setActiveWindow(frm.m_pMap);  // a bare X server has no window manager to do it
    return *frm.m_pMap;
}

void MenuChoose(QMenu* pMenu, QAction* pItem)
{
    ASSERT_TRUE(pMenu->isVisible());
    QTest::mouseClick(pMenu, Qt::LeftButton, {}, pMenu->actionGeometry(pItem).center());
    MainRig::EventsRun();
}

void OverlayChoose(frmMap& map)
{
    QTest::mouseClick(map.cmdOverlay, Qt::LeftButton);
    MenuChoose(map.mnuOverlay, map.mnuOverlayDraw);
}

/// The colours of the picture, without the labels at its edges.
QSet<QRgb> ColoursGet(const frmMap& map)
{
    QSet<QRgb> setColours;
    const QImage& img = map.pctMap->m_img;
    for (int y = 0; y < img.height() - 40; y += 3)
        for (int x = 60; x < img.width(); x += 3) setColours.insert(img.pixel(x, y));
    return setColours;
}

void MarkerDrag(MarkerLabel* pMarker, const QPoint& ptBy)
{
    const QPoint ptIn(3, 3);
    const QPoint ptEnd = pMarker->mapToGlobal(ptIn + ptBy);
    QTest::mousePress(pMarker, Qt::LeftButton, {}, ptIn);
    QMouseEvent event(QEvent::MouseMove, pMarker->mapFromGlobal(ptEnd), ptEnd, Qt::NoButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(pMarker, &event);
    QTest::mouseRelease(pMarker, Qt::LeftButton, {}, ptIn);
}

TEST(MapInMainWindow, OverlayOfTheSelectedCell)
{
    RealRig rig(kEngineRec533);
    frmMain& frm = rig.Start();
    frm.DataSetSelected(7, 19);
    frmMap& map = MapOpen(frm);
    EXPECT_EQ(map.windowTitle(), QStringLiteral("Hopcast - World Map"));
    EXPECT_EQ(map.m_posRc.dLat, frm.m_settings.m_dRcLat);
    EXPECT_EQ(map.m_posTx.dLon, frm.m_settings.m_dTxLon);
    OverlayChoose(map);
    EXPECT_EQ(map.windowTitle(), QStringLiteral("Snr Overlay, 14000.0KHz @ 18:00"));
    // Black, white, and bands of the same scale as the table's.
    QSet<QRgb> setScale{qRgb(0, 0, 0), qRgb(255, 255, 255)};
    for (int nSnr = 0; nSnr <= 80; nSnr += 5) {
        const std::uint32_t nColour = frm.SnrGetColor(static_cast<float>(nSnr));
        setScale.insert(qRgb(static_cast<int>(nColour & 255), static_cast<int>(nColour >> 8 & 255),
                             static_cast<int>(nColour >> 16 & 255)));
    }
    EXPECT_GT(ColoursGet(map).size(), 5);
    EXPECT_TRUE(setScale.contains(ColoursGet(map)));
    PictureSave(map, "main_map_overlay.png");
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(MapInMainWindow, ApplyMovesTheReceiverOfTheMainWindow)
{
    RealRig rig(kEngineRec533);
    frmMain& frm = rig.Start();
    frm.DataSetSelected(7, 19);
    frmMap& map = MapOpen(frm);
    OverlayChoose(map);
    const QImage imgBefore = map.pctMap->m_img;
    const QStringList asBefore = RowTexts(frm, 7);
    const QString sRange = frm.lblRange->text();
    const QString sLongitude = frm.txtLon0->text();
    MarkerDrag(map.lblRc, {-150, 60});
    const LatLon posRc = map.m_posRc;
    EXPECT_NE(posRc.dLon, frm.m_settings.m_dRcLon);
    EXPECT_EQ(RowTexts(frm, 7), asBefore);  // not applied yet

    QTest::mouseClick(map.cmdApply, Qt::LeftButton);
    MainRig::EventsRun();
    ASSERT_TRUE(frm.m_pMap);
    EXPECT_EQ(frm.m_settings.m_dRcLat, posRc.dLat);
    EXPECT_EQ(frm.m_settings.m_dRcLon, posRc.dLon);
    EXPECT_EQ(map.m_posRc.dLon, posRc.dLon);
    EXPECT_NE(RowTexts(frm, 7), asBefore);
    EXPECT_NE(frm.lblRange->text(), sRange);
    EXPECT_NE(frm.txtLon0->text(), sLongitude);
    // The overlay is drawn again for the new receiver, at the hour that was chosen.
    EXPECT_TRUE(map.mnuOverlayDraw->isChecked());
    EXPECT_TRUE(map.windowTitle().startsWith(QStringLiteral("Snr Overlay, ")));
    EXPECT_NE(map.pctMap->m_img, imgBefore);
    EXPECT_GT(ColoursGet(map).size(), 4);
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(MapInMainWindow, UpdateOfTheMainWindowMovesTheMarkers)
{
    RealRig rig(kEngineRec533);
    frmMain& frm = rig.Start();
    frmMap& map = MapOpen(frm);
    MarkerDrag(map.lblTx, {40, 40});  // not applied, so the update undoes it
    frm.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frm));
    frm.txtLat0->setFocus();
    QTest::keyClicks(frm.txtLat0, QStringLiteral("31"));
    QTest::mouseClick(frm.cmdUpdate, Qt::LeftButton);
    MainRig::EventsRun();
    ASSERT_EQ(frm.m_settings.m_dRcLat, 31.0);
    EXPECT_EQ(map.m_posRc.dLat, 31.0);
    EXPECT_EQ(map.m_posTx.dLat, frm.m_settings.m_dTxLat);
    EXPECT_EQ(map.m_posTx.dLon, frm.m_settings.m_dTxLon);
    EXPECT_EQ(map.lblRc->geometry().center(),
              map.m_view.LatLonGetPoint(31, frm.m_settings.m_dRcLon));
}

TEST(MapInMainWindow, ChosenFrequencyAndHourAreTheSelectedCell)
{
    RealRig rig(kEngineRec533);
    frmMain& frm = rig.Start();
    frmMap& map = MapOpen(frm);
    QTest::mouseClick(map.cmdOverlay, Qt::LeftButton);
    ASSERT_EQ(map.mnuOverlayFrequencyData.size(), 15u);
    EXPECT_EQ(map.mnuOverlayFrequencyData[0]->text(), QStringLiteral("2000  "));
    EXPECT_EQ(map.mnuOverlayFrequencyData[4]->text(), QStringLiteral("10000"));
    map.mnuOverlayFrequencyData[4]->trigger();
    map.mnuOverlayTimeData[3]->trigger();
    map.mnuOverlay->close();
    EXPECT_EQ(frm.DataGetSelected().iFrequency, 5);
    EXPECT_EQ(frm.DataGetSelected().iHour, 4);
    OverlayChoose(map);
    EXPECT_EQ(map.windowTitle(), QStringLiteral("Snr Overlay, 10000.0KHz @ 03:00"));
}

TEST(MapInMainWindow, CancelDiscardsAndOkHandsOverAndCloses)
{
    RealRig rig(kEngineRec533);
    frmMain& frm = rig.Start();
    const double dLat = frm.m_settings.m_dTxLat;
    MarkerDrag(MapOpen(frm).lblTx, {30, 30});
    QTest::mouseClick(frm.m_pMap->cmdCancel, Qt::LeftButton);
    MainRig::EventsRun();
    EXPECT_FALSE(frm.m_pMap);
    EXPECT_EQ(frm.m_settings.m_dTxLat, dLat);

    frmMap& map = MapOpen(frm);
    EXPECT_EQ(map.m_posTx.dLat, dLat);
    MarkerDrag(map.lblTx, {30, 30});
    const LatLon posTx = map.m_posTx;
    QTest::mouseClick(map.cmdOk, Qt::LeftButton);
    MainRig::EventsRun();
    EXPECT_FALSE(frm.m_pMap);
    EXPECT_NE(posTx.dLat, dLat);
    EXPECT_EQ(frm.m_settings.m_dTxLat, posTx.dLat);
    EXPECT_EQ(frm.m_settings.m_dTxLon, posTx.dLon);
}

}  // namespace
