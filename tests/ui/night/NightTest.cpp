/// Night: every window, box, menu, tip and list of the program is red on black. Each is opened,
/// grabbed and checked pixel by pixel; the pictures are kept in the build's folder
/// "pictures/night".
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include "places/OwnPlaces.h"
#include "ui/card/frmCard.h"
#include "ui/common/Guide.h"
#include "ui/common/MsgWindow.h"
#include "ui/common/NightColors.h"
#include "ui/common/PaletteShown.h"
#include "ui/compare/frmCompare.h"
#include "ui/curves/frmCurves.h"
#include "ui/days/frmDays.h"
#include "ui/details/frmDetails.h"
#include "ui/map/frmMap.h"
#include "ui/options/frmAbout.h"
#include "ui/options/frmForecast.h"
#include "ui/options/frmOptions.h"
#include "ui/places/frmPlaces.h"
#include "ui/reach/frmReach.h"
#include "ui/support/MainRig.h"
#include "ui/support/UiEvents.h"

namespace {

class Night : public testing::Test {
protected:
    Night()
    {
        m_rig.ProfileAdd("[Colour Data]\nPalette=Night\n");
        m_rig.AirmailWrite("System.HAM.ini",
                           "[Station Info]\nKQ6XA=CM87:San Luis; 7103.0\nW1AW=FN31:Newington\n");
        m_rig.m_folder.Write("hopcast.places.csv", std::string(kOwnPlacesHead) + "\nHome,JN47,,\n");
        m_rig.m_engine.fnSnr = [](int iHour, int iFrequency) {
            return 20.0 + 3.0 * iHour - iFrequency;  // covers all bands
        };
    }
    ~Night() override
    {
        m_rig.m_pFrm.reset();
        PaletteShow(Palette::Standard);
    }
    frmMain& Start() { return m_rig.Start(); }

    /// Checks one window or popup as it is shown.
    static void DarkIs(QWidget& window, const std::string& sName)
    {
        MainRig::EventsRun();
        const QImage img = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QDir dir(QStringLiteral(TEST_BIN "/../pictures/night"));
        dir.mkpath(QStringLiteral("."));
        img.save(dir.filePath(QString::fromStdString(sName + ".png")));
        int nMost = 0;
        int nRed = 0;
        QPoint ptMost;
        for (int y = 0; y < img.height(); ++y) {
            const auto* pRow = reinterpret_cast<const QRgb*>(img.constScanLine(y));
            for (int x = 0; x < img.width(); ++x) {
                nRed = std::max(nRed, qRed(pRow[x]));
                const int nOther = std::max(qGreen(pRow[x]), qBlue(pRow[x]));
                if (nOther > nMost) {
                    nMost = nOther;
                    ptMost = QPoint(x, y);
                }
            }
        }
        EXPECT_LE(nMost, kNightMost) << sName << " at " << ptMost.x() << "," << ptMost.y();
        EXPECT_GT(nRed, 200) << sName << " shows nothing";
    }
    /// Checks everything that is open: windows, menus, lists, tips.
    static int AllDarkAre(const std::string& sName)
    {
        MainRig::EventsRun();
        int nSeen = 0;
        for (QWidget* pWindow : QApplication::topLevelWidgets())
            if (pWindow->isVisible())
                DarkIs(*pWindow, sName + "_" + std::to_string(++nSeen));
        return nSeen;
    }
    static void MenuDarkIs(QMenu* pMenu, const std::string& sName)
    {
        ASSERT_NE(pMenu, nullptr) << sName;
        pMenu->popup(QPoint(10, 10));
        DarkIs(*pMenu, sName);
        pMenu->close();
    }

    MainRig m_rig;
};

TEST_F(Night, TheMainWindowItsMenusAndItsTips)
{
    frmMain& frm = Start();
    CellMouse(*frm.grdData, {3, 12});
    ASSERT_TRUE(frm.m_pDetails);
    frm.txtLat0->MarkSet(QStringLiteral("out of range"));
    DarkIs(frm, "main");
    DarkIs(*frm.m_pDetails, "details");
    for (QAction* pAction : frm.menuBar()->actions())
        MenuDarkIs(pAction->menu(), "menu_" + pAction->text().remove(u'&').toStdString());
    QTest::mouseClick(frm.cmdTxAirmail, Qt::LeftButton);
    ASSERT_TRUE(frm.mnuTransmitter->isVisible());
    DarkIs(*frm.mnuTransmitter, "menu_stations");
    frm.mnuTransmitter->close();
    QToolTip::showText(frm.mapToGlobal(QPoint(50, 50)), QStringLiteral("SNR 49 dB"), &frm);
    ASSERT_TRUE(QTest::qWaitFor([] { return QToolTip::isVisible(); }, 2000));
    EXPECT_GE(AllDarkAre("tip"), 3) << "main window, details, tip";
    QToolTip::hideText();
}

TEST_F(Night, AnOldTableAndARefusedEngine)
{
    frmMain& frm = Start();
    m_rig.m_engine.bFail = true;
    frm.m_settings.m_fPropagationSunSpotNumber = 33;
    EXPECT_FALSE(frm.Update());
    EXPECT_TRUE(frm.lblOld->isVisible());
    DarkIs(frm, "main_old");
}

TEST_F(Night, TheMapWithEverythingOnItAndItsMenus)
{
    frmMain& frm = Start();
    frm.mnuViewWorldMap->trigger();
    frmMap& map = *frm.m_pMap;
    DarkIs(map, "map");
    for (QToolButton* pToggle : {map.chkPath, map.chkNight})
        QTest::mouseClick(pToggle, Qt::LeftButton);
    QTest::mouseClick(map.cmdStations, Qt::LeftButton);
    DarkIs(*map.mnuStations, "map_menu_stations");
    map.mnuStations->close();
    for (QAction* pItem : map.mnuStationsSystem) pItem->trigger();
    QTest::mousePress(map.pctMap, Qt::LeftButton, {}, QPoint(200, 150));
    QTest::mouseMove(map.pctMap, QPoint(420, 330));
    DarkIs(map, "map_stations_path_band");
    QTest::mouseRelease(map.pctMap, Qt::LeftButton, {}, QPoint(205, 152));
    MenuDarkIs(map.mnuOverlay, "map_menu_overlay");
    MenuDarkIs(map.mnuOverlayFrequency, "map_menu_frequency");
    MenuDarkIs(map.mnuOverlayTime, "map_menu_time");
    MenuDarkIs(map.mnuMap, "map_menu");
    // Cells are covered by the map's own tests; this is the outline map.
    m_rig.m_msg.m_aShown.clear();
    map.mnuOverlayDraw->trigger();
    DarkIs(map, "map_outlines");
}

TEST_F(Night, EveryTabOfTheOptionsTheirListsAndTheForecast)
{
    frmMain& frm = Start();
    frm.mnuOptionsModel->trigger();
    frmOptions& options = *frm.m_pOptions;
    for (int i = 0; i < options.SSTab->count(); ++i) {
        options.TabShow(i);
        DarkIs(options, "options_" + std::to_string(i));
        for (QComboBox* pList : options.findChildren<QComboBox*>()) {
            if (!pList->isVisible() || !pList->isEnabled())
                continue;
            pList->showPopup();
            EXPECT_GE(AllDarkAre("list_" + pList->objectName().toStdString()), 3);
            pList->hidePopup();
        }
    }
    options.TabShow(kTabModel);
    QTest::mouseClick(options.cmdForecast, Qt::LeftButton);
    auto* pForecast = options.findChild<frmForecast*>();
    ASSERT_NE(pForecast, nullptr);
    DarkIs(*pForecast, "forecast");
    pForecast->close();
}

TEST_F(Night, About)
{
    frmMain& frm = Start();
    frm.mnuHelpAbout->trigger();
    DarkIs(*frm.m_pAbout, "about");
}

TEST_F(Night, ThePlanningWindows)
{
    frmMain& frm = Start();
    frm.mnuFilePrintCard->trigger();  // a planning window would print itself
    ASSERT_TRUE(frm.m_pCard);
    DarkIs(*frm.m_pCard, "card");
    frm.mnuPlanReach->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !frm.m_pReach->RunningIs(); }, 20000));
    DarkIs(*frm.m_pReach, "reach");
    frm.mnuPlanCurves->trigger();
    DarkIs(*frm.m_pCurves, "curves");
    frm.mnuPlanDays->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !frm.m_pDays->RunningIs(); }, 20000));
    DarkIs(*frm.m_pDays, "days");
    frm.mnuPlanCompare->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !frm.m_pCompare->RunningIs(); }, 20000));
    DarkIs(*frm.m_pCompare, "compare");
    frm.mnuPlanPlaces->trigger();
    DarkIs(*frm.m_pPlaces, "places");
}

TEST_F(Night, AMessageBox)
{
    frmMain& frm = Start();
    MsgWindowInstall();
    bool bSeen = false;
    QTimer::singleShot(0, [&bSeen] {
        auto* pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(pBox, nullptr);
        DarkIs(*pBox, "message");
        bSeen = true;
        QTest::keyClick(pBox, Qt::Key_Return);
    });
    MsgBox(MsgIcon::Exclamation, "Cannot read forecast.txt: no sunspot number found.");
    EXPECT_TRUE(bSeen);
    DarkIs(frm, "main_after_message");
}

TEST_F(Night, TheGuideWithAPicture)
{
    Start();
    const TempFolder folder;
    QImage img(300, 200, QImage::Format_RGB32);
    img.fill(QColor(0xBC, 0xD7, 0xE8));
    ASSERT_TRUE(img.save(QString::fromStdString(folder.Path("a.png"))));
    frmGuide frm(QString::fromStdString(folder.Write(
        "guide.html",
        "<h1>Guide</h1><p><a href=\"x\">Bigger</a> is better.</p><img src=\"a.png\">")));
    frm.setAttribute(Qt::WA_DeleteOnClose, false);
    frm.show();
    DarkIs(frm, "guide");
}

TEST_F(Night, TheMenuOfAField)
{
    frmMain& frm = Start();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                            frm.txtLat0->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(frm.txtLat0, &event);
    EXPECT_GE(AllDarkAre("field_menu"), 2);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QApplication::activePopupWidget()->close();
}

}  // namespace
