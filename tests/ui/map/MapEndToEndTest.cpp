// The map window with real engines. Pictures of it are kept in the build's folder "pictures".
#include <QApplication>

#include "MapFakes.h"
#include "airmail/AirMailFolders.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "support/NeedVoacapl.h"
#include "ui/e2e/EngineReal.h"

namespace {

class MapEndToEnd : public MapWindow {
protected:
    MapEndToEnd()
    {
        m_host.m_settings.m_selected = {7, 19};  // 14 MHz at 18 UT
        m_host.m_settings.m_fPropagationSunSpotNumber = 100;
    }
    void PictureKeep(const char* sName)
    {
        QCoreApplication::processEvents();
        PictureSave(*m_pMap, sName);
    }
    [[nodiscard]] int ColorsCount() const
    {
        QSet<QRgb> setColors;
        const QImage& img = m_pMap->pctMap->m_img;
        for (int y = 0; y < img.height() - 40; y += 3)
            for (int x = 60; x < img.width(); x += 3) setColors.insert(img.pixel(x, y));
        return int(setColors.size());
    }
    EngineReal m_engine;
};

TEST_F(MapEndToEnd, OverlayOfTheWholeWorld)
{
    m_pMap->resize(1200, 800);
    PictureKeep("map_world.png");
    OverlayChoose();
    EXPECT_GT(ColorsCount(), 5);
    EXPECT_EQ(m_pMap->windowTitle(), QStringLiteral("Snr Overlay, 14000.0KHz @ 18:00"));
    EXPECT_TRUE(TipAt({700, 300}).contains(QStringLiteral("Snr")));
    PictureKeep("map_world_overlay.png");
    QTest::mouseClick(m_pMap->chkPath, Qt::LeftButton);
    QTest::mouseClick(m_pMap->chkNight, Qt::LeftButton);
    PictureKeep("map_world_overlay_lines.png");
}

TEST_F(MapEndToEnd, OverlayOverTheDateLine)
{
    m_pMap->resize(1024, 700);
    m_host.m_settings.m_dRcLat = m_pMap->m_posRc.dLat = -17.8;
    m_host.m_settings.m_dRcLon = m_pMap->m_posRc.dLon = 178;
    Drag(m_pMap->pctMap, m_pMap->m_view.LatLonGetPoint(10, 140),
         m_pMap->m_view.LatLonGetPoint(-45, 215));
    OverlayChoose();
    EXPECT_GT(ColorsCount(), 4);
    PictureKeep("map_date_line_overlay.png");
}

TEST_F(MapEndToEnd, PathOfTheDefaultCircuit)
{
    m_pMap->resize(1024, 700);
    QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
    QTest::mouseClick(m_pMap->chkPath, Qt::LeftButton);
    PictureKeep("map_circuit.png");
    OverlayChoose();
    EXPECT_GT(ColorsCount(), 3);
    PictureKeep("map_circuit_overlay.png");
}

TEST_F(MapEndToEnd, StationsAndReadOut)
{
    const TempFolder folder;
    folder.Write("System.HAM.ini",
                 "[Station Info]\r\nOSO=JN88:Europe\r\nW1ABC=FN42:Boston\r\nK4XYZ=EL87:Tampa\r\n");
    folder.Write("System.SailMail.ini",
                 "[Station Info]\r\nKZN508=DM12:San Diego\r\nXJN714=FN84:Lunenburg\r\n");
    folder.Write("System.Third.ini", "[Station Info]\r\nA=DM04:one\r\nB=CN87:two\r\n");
    folder.Write("System.Fourth.ini", "[Station Info]\r\nA=EM04:one\r\nB=EN37:two\r\n");
    AirMailDataFolderSet(folder.Path());
    Drag(m_pMap->pctMap, m_pMap->m_view.LatLonGetPoint(55, -135),
         m_pMap->m_view.LatLonGetPoint(15, -60));
    QTest::mouseClick(m_pMap->cmdStations, Qt::LeftButton);
    m_pMap->mnuStations->close();
    for (QAction* pItem : m_pMap->mnuStationsSystem) pItem->trigger();
    QCoreApplication::processEvents();
    QTest::mouseClick(m_pMap->cmdStations, Qt::LeftButton);
    PictureSave(*m_pMap->mnuStations, "map_menu_stations.png");
    m_pMap->mnuStations->close();
    QCoreApplication::processEvents();
    QTest::mousePress(m_pMap->lblRc, Qt::LeftButton, {}, {5, 5});
    QMouseEvent evt(QEvent::MouseMove, QPointF(60, 20), m_pMap->lblRc->mapToGlobal(QPointF(60, 20)),
                    Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_pMap->lblRc, &evt);
    EXPECT_TRUE(m_pMap->txtCursor->isVisible());
    PictureKeep("map_stations.png");
    QTest::mouseRelease(m_pMap->lblRc, Qt::LeftButton, {}, {5, 5});
    for (const StationDot* pDot : m_pMap->imgStation) EXPECT_TRUE(pDot->isVisible());
    QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
    PictureSave(*m_pMap->mnuOverlay, "map_menu_overlay.png");
    m_pMap->mnuOverlay->close();
    AirMailFoldersReset();
}

TEST_F(MapEndToEnd, VoacapPaintsTheSameMap)
{
    NEED_VOACAPL();
    m_host.m_settings.m_iPropagationModel = kEngineVoacap;
    QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
    OverlayChoose();
    EXPECT_GT(ColorsCount(), 3);
    EXPECT_TRUE(TipAt({400, 300}).contains(QStringLiteral("Snr")));
    PictureKeep("map_circuit_overlay_voacap.png");
}

}  // namespace
