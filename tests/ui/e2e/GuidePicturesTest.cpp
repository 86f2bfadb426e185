// A user's way through every window with the built-in engine, from the first start to the overlay.
// Each step saves its picture in the build's folder "pictures/guide", from where
// scripts/pictures.sh copies it to docs/images.
#include <gtest/gtest.h>

#include <QCursor>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QScreen>
#include <QSet>
#include <QTest>
#include <QTimer>
#include <vector>

#include "engine/builtin/BuiltInEngine.h"
#include "propagation/itshfbc/EngineRoot.h"
#include "support/NeedVoacapl.h"
#include "ui/card/frmCard.h"
#include "ui/common/MsgWindow.h"
#include "ui/common/PaletteShown.h"
#include "ui/curves/frmCurves.h"
#include "ui/details/frmDetails.h"
#include "ui/e2e/RealRig.h"
#include "ui/map/frmMap.h"
#include "ui/options/OptionsDrive.h"
#include "ui/options/frmAbout.h"
#include "ui/support/UiEvents.h"

namespace {

constexpr int kRow14000 = 7;

/// A fresh installation beside Airmail, whose folder is on drive C of the rig's Wine prefix, so
/// that windows show a name that users know. The call signs are invented.
class GuideRig : public RealRig {
public:
    GuideRig() : RealRig(kEngineRec533)
    {
        QApplication::setCursorFlashTime(0);  // the same pictures in every run
        // The engines are those of a machine where Hopcast has just been installed.
        EXPECT_TRUE(EngineRootProvisionFrom(TEST_BIN, "/usr/bin"));
        m_dtLocal.nHour -= 7;
        m_folder.Write("hopcast.ini",
                       "[AirMail Data]\nDirectory Data=C:\\ProgramData\\AirMail\n"
                       "[Propagation Model]\nSunSpot Option=False\nSunSpot Number=100\n"
                       "Forecast Option=True\n[Station Data]\nPower=100\n");
        AirmailFile("Airmail.ini",
                    "[Position Report]\r\nCurrent Latitude=24°18.50'N\r\n"
                    "Current Longitude=110°24.20'W\r\nCurrent Time=2026-11-21 11:02\r\n"
                    "[Propagation]\r\nSSN=104\r\n[Settings]\r\nLast Program Version=3.1.936\r\n");
        AirmailFile("System.HAM.ini",
                    "[Station Info]\r\nXX1BOS=FN42:Boston;7066\r\nXX1TPA=EL87:Tampa;14118\r\n"
                    "XX1SEA=CN87:Seattle;7066\r\n");
        AirmailFile("System.SailMail.ini",
                    "[Station Info]\r\nXX2SAN=DM12:San Diego;7971\r\nXX2LUN=FN84:Lunenburg;8415\r\n"
                    "XX2HON=BL11:Honolulu;10333\r\nXX2AKL=RF73:Auckland;11156\r\n");
    }

private:
    void AirmailFile(const std::string& sName, std::string sText) const
    {
        for (std::size_t n = sText.find("\xC2\xB0"); n != std::string::npos;
             n = sText.find("\xC2\xB0"))
            sText.replace(n, 2, "\xB0");  // these files are Windows-1252
        m_folder.Write("wine/drive_c/ProgramData/AirMail/" + sName, sText);
    }

    EnvironmentSet m_envRoot{"HOPCAST_ITSHFBC", std::nullopt};
    EnvironmentSet m_envData{"XDG_DATA_HOME", m_folder.Path("data")};
};

/// Saves a picture; fails if it shows next to nothing.
void PictureKeep(const QPixmap& pix, const char* sName)
{
    const QDir dir(QStringLiteral(TEST_BIN "/../pictures/guide"));
    ASSERT_TRUE(dir.mkpath(QStringLiteral(".")));
    const QImage img = pix.toImage();
    QSet<QRgb> setColours;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x) setColours.insert(img.pixel(x, y));
    EXPECT_GT(setColours.size(), 8) << sName;
    constexpr int kSmallest = 0;  // for PNG the quality chooses the compression
    // For a picture of a whole large screen a few colours are enough.
    constexpr int kLarge = 2000;
    const QImage imgKept = img.width() < kLarge
                               ? img
                               : img.convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither);
    ASSERT_TRUE(imgKept.save(dir.filePath(QLatin1String(sName)), "PNG", kSmallest)) << sName;
}

void PictureKeep(QWidget& widget, const char* sName)
{
    MainRig::EventsRun();
    PictureKeep(widget.grab(), sName);
}

/// Saves a window together with the menus open above it.
void PictureKeep(QWidget& window, const std::vector<QMenu*>& aMenu, const char* sName)
{
    MainRig::EventsRun();
    QRect rect(window.mapToGlobal(QPoint(0, 0)), window.size());
    const QPoint ptWindow = rect.topLeft();
    for (const QMenu* pMenu : aMenu) {
        ASSERT_TRUE(pMenu->isVisible()) << pMenu->objectName().toStdString();
        rect |= pMenu->geometry();
    }
    QPixmap pix(rect.size());
    pix.fill(Qt::white);
    QPainter painter(&pix);
    painter.drawPixmap(ptWindow - rect.topLeft(), window.grab());
    for (QMenu* pMenu : aMenu) painter.drawPixmap(pMenu->pos() - rect.topLeft(), pMenu->grab());
    painter.end();
    PictureKeep(pix, sName);
}

frmMap& MapOpen(frmMain& frm)
{
    frm.mnuViewWorldMap->trigger();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(frm.m_pMap));
    // At the bottom of the screen its menus open upwards, above the map.
    const QRect rectScreen = frm.m_pMap->screen()->geometry();
    frm.m_pMap->move(0, rectScreen.bottom() - frm.m_pMap->height());
    QApplication::setActiveWindow(frm.m_pMap);  // a bare X server has no window manager to do it
    return *frm.m_pMap;
}

void OverlayDraw(frmMap& map)
{
    QTest::mouseClick(map.cmdOverlay, Qt::LeftButton);
    map.mnuOverlayDraw->trigger();
    map.mnuOverlay->close();
    EXPECT_TRUE(map.windowTitle().startsWith(QStringLiteral("Snr Overlay, ")));
}

TEST(GuidePictures, TableAndDetails)
{
    GuideRig rig;
    frmMain& frm = rig.Start();
    ASSERT_TRUE(frm.lblTrouble->text().isEmpty()) << frm.lblTrouble->text().toStdString();
    PictureKeep(frm, "main.png");
    CellMouse(*frm.grdData, {kRow14000, 19});
    ASSERT_TRUE(frm.m_pDetails && frm.m_pDetails->isVisible());
    PictureKeep(*frm.m_pDetails, "details.png");
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(GuidePictures, DetailsOfVoacap)
{
    NEED_VOACAPL();
    GuideRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_iPropagationModel = kEngineVoacap;
    ASSERT_TRUE(frm.Update()) << frm.lblTrouble->text().toStdString();
    CellMouse(*frm.grdData, {kRow14000, 19});
    PictureKeep(*frm.m_pDetails, "details_voacap.png");
}

TEST(GuidePictures, PositionAndStationOfAirmail)
{
    GuideRig rig;
    frmMain& frm = rig.Start();
    QTest::mouseClick(frm.cmdRcAirmail, Qt::LeftButton);
    MainRig::EventsRun();
    EXPECT_EQ(frm.txtLat0->text(), QStringLiteral("24°18.50'N"));
    QCursor::setPos(frm.cmdTxAirmail->mapToGlobal(frm.cmdTxAirmail->rect().center()));
    QTest::mouseClick(frm.cmdTxAirmail, Qt::LeftButton);
    StationMenu& mnu = *frm.mnuTransmitter;
    mnu.setActiveAction(mnu.mnuTransmitterSailMail->menuAction());
    QTest::keyClick(&mnu, Qt::Key_Right);
    ASSERT_TRUE(QTest::qWaitFor([&] { return mnu.mnuTransmitterSailMail->isVisible(); }));
    PictureKeep(frm, {&mnu, mnu.mnuTransmitterSailMail}, "stations.png");
    mnu.mnuTransmitterSailMail->close();
    mnu.close();
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(GuidePictures, MessageAndOldTable)
{
    GuideRig rig;
    frmMain& frm = rig.Start();
    MsgWindowInstall();
    bool bSeen = false;
    QTimer tmr;
    QObject::connect(&tmr, &QTimer::timeout, [&bSeen] {
        auto* pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (pBox == nullptr)
            return;
        EXPECT_TRUE(pBox->text().contains(QStringLiteral("ICEPAC not found.")));
        PictureKeep(pBox->grab(), "message.png");
        bSeen = true;
        QTest::keyClick(pBox, Qt::Key_Return);
    });
    tmr.start(100);
    frm.m_settings.m_iPropagationModel = kEngineIcepac;
    EXPECT_FALSE(frm.Update());
    tmr.stop();
    EXPECT_TRUE(bSeen);
    PictureKeep(frm, "main_old.png");
}

TEST(GuidePictures, Card)
{
    GuideRig rig;
    frmMain& frm = rig.Start();
    frm.mnuFilePrintCard->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowActive(frm.m_pCard));
    frm.m_pCard->resize(QSize(450, 620));  // keeps the file small
    MainRig::EventsRun();
    PictureKeep(*frm.m_pCard, "card.png");
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(GuidePictures, Night)
{
    GuideRig rig;
    frmMain& frm = rig.Start();
    QTest::keyClick(frm.grdData, Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(PaletteNightIs());
    PictureKeep(frm, "night.png");
    PaletteShow(Palette::Standard);
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

/// The smallest size at which the curves must be readable, and a 4K screen.
TEST(GuidePictures, Curves)
{
    GuideRig rig;
    frmMain& frm = rig.Start();
    frm.mnuPlanCurves->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowActive(frm.m_pCurves));
    for (const auto& [size, sPicture] : {std::pair(QSize(400, 300), "curves.png"),
                                         std::pair(QSize(3840, 2160), "curves_4k.png")}) {
        frm.m_pCurves->resize(size);
        MainRig::EventsRun();
        PictureKeep(*frm.m_pCurves, sPicture);
    }
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(GuidePictures, Options)
{
    GuideRig rig;
    frmMain& frm = rig.Start();
    struct TabCase {
        QAction* pCommand;
        const char* sPicture;
    };
    for (const TabCase& c : {TabCase{frm.mnuOptionsAirMail, "options_airmail.png"},
                             TabCase{frm.mnuOptionsModel, "options_model.png"},
                             TabCase{frm.mnuOptionsFrequency, "options_frequency.png"},
                             TabCase{frm.mnuOptionsTime, "options_time.png"},
                             TabCase{frm.mnuOptionsMap, "options_map.png"},
                             TabCase{frm.mnuOptionsColour, "options_colour.png"}}) {
        c.pCommand->trigger();
        ASSERT_TRUE(QTest::qWaitForWindowActive(frm.m_pOptions));
        PictureKeep(*frm.m_pOptions, c.sPicture);
    }
    Press(frm.m_pOptions->cmdCancel);
    frm.mnuHelpAbout->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowActive(frm.m_pAbout));
    PictureKeep(*frm.m_pAbout, "about.png");
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(GuidePictures, MapStationsAndPath)
{
    GuideRig rig;
    frmMap& map = MapOpen(rig.Start());
    QTest::mouseClick(map.chkNight, Qt::LeftButton);
    PictureKeep(map, "map_world.png");
    QTest::mouseClick(map.chkNight, Qt::LeftButton);
    QTest::mouseClick(map.cmdStations, Qt::LeftButton);
    map.mnuStations->close();
    for (QAction* pItem : map.mnuStationsSystem) pItem->trigger();
    QTest::mouseClick(map.cmdZoomTxRc, Qt::LeftButton);
    for (int n = 0; n < 3; ++n) QTest::mouseClick(map.cmdZoomOut, Qt::LeftButton);
    QTest::mouseClick(map.chkPath, Qt::LeftButton);
    MainRig::EventsRun();
    QTest::mouseClick(map.cmdStations, Qt::LeftButton);
    PictureKeep(map, {map.mnuStations}, "map_stations.png");
    map.mnuStations->close();
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(GuidePictures, Overlay)
{
    GuideRig rig;
    frmMain& frm = rig.Start();
    frm.DataSetSelected(kRow14000, 19);
    frmMap& map = MapOpen(frm);
    QTest::mouseClick(map.cmdOverlay, Qt::LeftButton);
    map.mnuOverlay->setActiveAction(map.mnuOverlayFrequency->menuAction());
    QTest::keyClick(map.mnuOverlay, Qt::Key_Right);
    ASSERT_TRUE(QTest::qWaitFor([&] { return map.mnuOverlayFrequency->isVisible(); }));
    PictureKeep(map, {map.mnuOverlay, map.mnuOverlayFrequency}, "map_overlay_menu.png");
    map.mnuOverlayFrequency->close();
    map.mnuOverlay->close();
    MainRig::EventsRun();
    OverlayDraw(map);
    QTest::mouseClick(map.chkPath, Qt::LeftButton);
    QTest::mouseClick(map.chkNight, Qt::LeftButton);
    PictureKeep(map, "map.png");
    map.mnuOverlaySmooth->trigger();
    QTest::mouseClick(map.chkTwilight, Qt::LeftButton);
    PictureKeep(map, "map_smooth.png");
    QTest::mouseClick(map.chkTwilight, Qt::LeftButton);
    map.mnuOverlaySmooth->trigger();
    QTest::mouseClick(map.chkNight, Qt::LeftButton);
    QTest::mouseClick(map.cmdZoomTxRc, Qt::LeftButton);
    OverlayDraw(map);
    PictureKeep(map, "map_overlay_near.png");
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

/// Saves the map zoomed to both ends, with path and overlay.
void PathPictureKeep(const LatLon& posRc, const LatLon& posTx, const char* sName)
{
    GuideRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_dRcLat = posRc.dLat;
    frm.m_settings.m_dRcLon = posRc.dLon;
    frm.m_settings.m_dTxLat = posTx.dLat;
    frm.m_settings.m_dTxLon = posTx.dLon;
    EXPECT_TRUE(frm.Update());
    frm.DataSetSelected(kRow14000, 13);
    frmMap& map = MapOpen(frm);
    QTest::mouseClick(map.cmdZoomTxRc, Qt::LeftButton);
    QTest::mouseClick(map.chkPath, Qt::LeftButton);
    OverlayDraw(map);
    PictureKeep(map, sName);
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(GuidePictures, LondonToBerlin)
{
    PathPictureKeep({51.5, -0.1}, {52.5, 13.4}, "map_london_berlin.png");
}

TEST(GuidePictures, TokyoToSanFrancisco)
{
    PathPictureKeep({35.7, 139.7}, {37.8, -122.4}, "map_pacific.png");
}

/// Saves a layer of the day around a receiver at one hour, in a window small enough for a page.
void DayPictureKeep(const LatLon& posRc, const MapBox& box, int iLayer, int iHour,
                    const char* sName)
{
    GuideRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_dRcLat = posRc.dLat;
    frm.m_settings.m_dRcLon = posRc.dLon;
    frm.m_settings.m_iMapWorldBegins = box.dLeft < 0 ? -180 : 0;
    frm.EnginesSet([pEngine = std::make_shared<BuiltInEngine>(EngineRootGet().sFolder)](int) {
        return pEngine;
    });
    EXPECT_TRUE(frm.Update());
    frm.DataSetSelected(kRow14000, iHour + 1);
    frmMap& map = MapOpen(frm);
    map.resize(800, 560);
    map.m_view.ZoomSet(map.m_view.BoxGetZoom(box));
    QTest::mouseClick(map.cmdOverlay, Qt::LeftButton);
    map.findChild<QAction*>(QStringLiteral("mnuOverlayLayer%1").arg(iLayer))->trigger();
    map.mnuOverlay->close();
    const MapDayControl& day = *map.findChild<MapDayControl*>();
    EXPECT_TRUE(QTest::qWaitFor([&day] { return !day.RunGet().RunningIs(); }, 60'000));
    EXPECT_TRUE(day.HasCells());
    PictureKeep(map, sName);
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(GuidePictures, BestFrequencyFromTheMarquesas)
{
    DayPictureKeep({-9.8, -139.0}, {62, 150, -55, 300}, 1, 6, "map_best.png");
}

TEST(GuidePictures, HoursOpenRoundLondon)
{
    DayPictureKeep({51.5, -0.1}, {72, -35, 22, 55}, 3, 6, "map_hours.png");
}

TEST(GuidePictures, CapeHorn)
{
    GuideRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_dRcLat = -55.98;
    frm.m_settings.m_dRcLon = -67.27;
    EXPECT_TRUE(frm.Update());
    frmMap& map = MapOpen(frm);
    const QPoint ptHorn = map.lblRc->geometry().center();
    for (int i = 0; i < 7; ++i) {
        QWheelEvent evt(ptHorn, map.pctMap->mapToGlobal(ptHorn), {}, {0, 120}, Qt::NoButton,
                        Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(map.pctMap, &evt);
    }
    QTest::mousePress(map.pctMap, Qt::LeftButton, {}, map.m_view.LatLonGetPoint(-55.72, -67.8));
    QTest::mouseRelease(map.pctMap, Qt::LeftButton, {}, map.m_view.LatLonGetPoint(-56.0, -67.2));
    EXPECT_LT(map.m_view.m_box.dRight - map.m_view.m_box.dLeft, 1);
    PictureKeep(map, "map_cape_horn.png");
}

/// As a screen at 200 % shows it; scripts/pictures.sh runs this test at that scale.
TEST(GuidePictures, BalticAtTheScreensDensity)
{
    GuideRig rig;
    frmMain& frm = rig.Start();
    frm.m_settings.m_dRcLat = 59.3;
    frm.m_settings.m_dRcLon = 18.1;
    frm.m_settings.m_dTxLat = 54.3;
    frm.m_settings.m_dTxLon = 10.1;
    EXPECT_TRUE(frm.Update());
    frmMap& map = MapOpen(frm);
    QTest::mouseClick(map.cmdZoomTxRc, Qt::LeftButton);
    QTest::mouseClick(map.chkPath, Qt::LeftButton);
    MainRig::EventsRun();
    const QPixmap pix =
        map.pctMap->grab(QRect(map.pctMap->rect().center() - QPoint(220, 150), QSize(440, 300)));
    EXPECT_EQ(pix.devicePixelRatio(), map.devicePixelRatioF());
    PictureKeep(pix, map.devicePixelRatioF() == 1 ? "map_100.png" : "map_200.png");
}

}  // namespace
