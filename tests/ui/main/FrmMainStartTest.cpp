/// Creation, first showing, other windows, and the end.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QMenuBar>
#include <QTabWidget>
#include <QTest>

#include "settings/ProfileLib.h"
#include "ui/details/frmDetails.h"
#include "ui/map/frmMap.h"
#include "ui/options/frmAbout.h"
#include "ui/options/frmOptions.h"
#include "ui/support/MainRig.h"
#include "ui/support/UiEvents.h"

namespace {

TEST(FrmMainStart, CreationPutsDefaultsInForceAndPredictsNothing)
{
    MainRig rig;
    const frmMain& frm = rig.Make();
    EXPECT_FALSE(frm.ActivatedIs());
    EXPECT_EQ(frm.m_settings.m_iPropagationModel, kEngineRec533);
    EXPECT_EQ(frm.m_settings.m_dTxLat, 38.0);
    EXPECT_EQ(frm.windowTitle(), QStringLiteral("Hopcast"));
    EXPECT_EQ(frm.lblTime->text(), QStringLiteral("Zulu:  00:00"));
    EXPECT_EQ(frm.txtLat0->text(), QStringLiteral("00 00.00 N"));
    EXPECT_EQ(frm.txtLon1->text(), QStringLiteral("000 00.00 E"));
    EXPECT_EQ(rig.m_engine.nStarts, 0);
}

TEST(FrmMainStart, FirstShowingLoadsTheProfileAndPredictsOnce)
{
    MainRig rig;
    rig.ProfileAdd("[Transmitter Data]\nLatitude=-33.5\n");
    frmMain& frm = rig.Start();
    EXPECT_EQ(frm.m_settings.m_dTxLat, -33.5);
    EXPECT_EQ(frm.txtLat1->text(), QStringLiteral("33°30.00'S"));
    EXPECT_EQ(rig.m_engine.nStarts, 2);
    EXPECT_EQ(frm.lblTime->text(), QStringLiteral("Zulu: 13:05"));
    frm.hide();
    frm.show();
    MainRig::EventsRun();
    EXPECT_EQ(rig.m_engine.nStarts, 2);
}

TEST(FrmMainStart, WithoutProfileAndAirmailTheDefaultsAreInForceAndOneBoxTellsWhy)
{
    MainRig rig;
    std::remove(rig.m_sProfileFile.c_str());
    frmMain& frm = rig.Start();
    EXPECT_EQ(frm.m_settings.m_iPropagationModel, kEngineRec533);
    EXPECT_EQ(frm.grdData->RowsGet(), 16);
    EXPECT_TRUE(frm.m_settings.m_bPropagationSunSpotNumber);
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 1u);
    EXPECT_EQ(rig.m_msg.m_aShown[0].sText.rfind("Unable to find AirMail's Propagation, SSN", 0),
              0u);
    EXPECT_NE(frm.lblTrouble->text().indexOf(QStringLiteral("clear Auto")), -1);
    EXPECT_EQ(frm.lblInForce->text(),
              QStringLiteral("REC533 · November · no sunspot number · 5 kW, as the antenna "
                             "choice · hopcast.ini"));
    EXPECT_EQ(frm.grdData->TextGet(15, 0), QStringLiteral("30000")) << "no table: the list's rows";
    EXPECT_FALSE(frm.lblOld->isVisible());
}

/// The values in the first table and status line on a machine without Airmail.
void HonestTableExpect(const MainRig& rig, const frmMain& frm)
{
    EXPECT_EQ(frm.lblInForce->toolTip(),
              QStringLiteral("REC533 · November · SSN 62 (mean cycle) · 100 W · hopcast.ini\n"
                             "mean cycle by Hathaway, Wilson and Reichmann 1994, for 2026-11"));
    EXPECT_NE(rig.m_engine.asDeck.back().find("62"), std::string::npos);
    EXPECT_EQ(frm.TableGet().request.fSunSpotNumber, 62.0F);
    EXPECT_EQ(frm.TableGet().request.fPower, 100.0F);
    // The engine's 50 dB are for the 5 kW of its deck.
    EXPECT_EQ(frm.grdData->TextGet(3, 1), QStringLiteral("33"));
}

TEST(FrmMainStart, TheFirstTableHasTheMeanCycleAndAHundredWattsAndKeepsThemAfterDefault)
{
    MainRig rig(kEngineRec533);
    rig.m_engine.fnSnr = [](int, int) { return 50.0; };
    std::remove(rig.m_sProfileFile.c_str());
    frmMain& frm = rig.Make();
    ProfileShippedSet(frm.m_settings);
    rig.Start();
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    HonestTableExpect(rig, frm);
    const int nBefore = rig.m_engine.nStarts;
    frm.mnuFileDefault->trigger();
    MainRig::EventsRun();
    EXPECT_EQ(rig.m_engine.nStarts, nBefore + 2);
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
    HonestTableExpect(rig, frm);
}

TEST(FrmMainStart, TheClockShowsTheTimeBeforeTheFirstRunIsOver)
{
    MainRig rig;
    frmMain& frm = rig.Make();
    EXPECT_EQ(frm.lblTime->text(), QStringLiteral("Zulu:  00:00"));
    frm.show();
    EXPECT_FALSE(frm.ActivatedIs());
    EXPECT_EQ(frm.lblTime->text(), QStringLiteral("Zulu: 13:05"));
}

TEST(FrmMainStart, ReadOutsAndButtonsAreHeardWithTheirValuesAndCaptions)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    const auto Heard = [](QWidget* pWidget, QAccessible::Text eText) {
        return QAccessible::queryAccessibleInterface(pWidget)->text(eText);
    };
    for (QLabel* pLabel : {frm.lblRange, frm.lblRcBearing, frm.lblTxBearing, frm.lblTime}) {
        EXPECT_EQ(Heard(pLabel, QAccessible::Name), pLabel->text());
        EXPECT_EQ(Heard(pLabel, QAccessible::Description), pLabel->toolTip());
        EXPECT_FALSE(pLabel->toolTip().isEmpty());
    }
    EXPECT_EQ(Heard(frm.cmdUpdate, QAccessible::Name), QStringLiteral("Update"));
    EXPECT_EQ(Heard(frm.cmdUpdate, QAccessible::Description),
              QStringLiteral("Update Propagation Table"));
    EXPECT_EQ(Heard(frm.cmdRcAirmail, QAccessible::Name), QStringLiteral("Receiver from Airmail"));
    EXPECT_EQ(frm.cmdRcAirmail->toolTip(),
              QStringLiteral("Set Receiver Location from Airmail's Database"));
    EXPECT_EQ(frm.cmdTxAirmail->toolTip(),
              QStringLiteral("Set Tranmitter Loction from Airmail's Database"));
}

TEST(FrmMainStart, Rec533IsPredictedAndSelectsTheHour)
{
    MainRig rig(kEngineRec533);
    const frmMain& frm = rig.Start();
    EXPECT_EQ(frm.grdData->TextGet(4, 7), QStringLiteral("11"));
    EXPECT_EQ(frm.grdData->TextGet(15, 24), QStringLiteral("39"));
    EXPECT_EQ(frm.DataGetSelected().iHour, 14);
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(FrmMainStart, WindowTakesItsPlaceFromTheProfile)
{
    MainRig rig;
    rig.ProfileAdd("[Window Data]\nHeight=8400\nLeft=150\nTop=225\nWidth=11700\n");
    const frmMain& frm = rig.Start();
    EXPECT_EQ(frm.frameGeometry().topLeft(), QPoint(10, 15));
    EXPECT_EQ(frm.frameGeometry().size(), QSize(780, 560));
}

TEST(FrmMainStart, PlaceIsTheSameAfterManyStarts)
{
    MainRig rig;
    rig.ProfileAdd("[Window Data]\nHeight=8400\nLeft=150\nTop=225\nWidth=11700\n");
    for (int n = 0; n < 3; ++n) {
        rig.Start().close();
        rig.m_pFrm.reset();
    }
    EXPECT_EQ(rig.Start().frameGeometry(), QRect(10, 15, 780, 560));
}

TEST(FrmMainStart, WindowOffEveryScreenAppearsOnAVisibleOne)
{
    for (const char* sPlace :
         {"Left=-999999\nTop=-999999\n", "Left=1e30\nTop=1e30\nWidth=1e30\nHeight=1e30\n",
          "Width=-5\nHeight=0\nLeft=99999\n"}) {
        MainRig rig;
        rig.ProfileAdd(std::string("[Window Data]\n") + sPlace);
        const frmMain& frm = rig.Start();
        EXPECT_TRUE(frm.screen()->availableGeometry().contains(frm.frameGeometry())) << sPlace;
        EXPECT_GE(frm.width(), frm.minimumSizeHint().width());
    }
}

TEST(FrmMainStart, OptionsItemsShowTheDialogOnTheirTab)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    int iTab = 0;
    for (QAction* pAction : {frm.mnuOptionsAirMail, frm.mnuOptionsModel, frm.mnuOptionsFrequency,
                             frm.mnuOptionsTime, frm.mnuOptionsMap, frm.mnuOptionsStation}) {
        const frmOptions* pBefore = frm.m_pOptions;
        pAction->trigger();
        ASSERT_TRUE(frm.m_pOptions);
        EXPECT_TRUE(frm.m_pOptions->isVisible());
        EXPECT_FALSE(frm.m_pOptions->isModal());
        EXPECT_EQ(frm.m_pOptions->findChild<QTabWidget*>()->currentIndex(), iTab);
        EXPECT_TRUE(pBefore == nullptr || pBefore == frm.m_pOptions);
        ++iTab;
    }
}

TEST(FrmMainStart, MapCommandAndButtonsOpenTheOneMap)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    QTest::mouseClick(frm.cmdRcMap, Qt::LeftButton);
    ASSERT_TRUE(frm.m_pMap);
    const frmMap* pMap = frm.m_pMap;
    EXPECT_TRUE(pMap->isVisible());
    QTest::mouseClick(frm.cmdTxMap, Qt::LeftButton);
    frm.mnuViewWorldMap->trigger();
    EXPECT_EQ(frm.m_pMap, pMap);
}

TEST(FrmMainStart, EndUnloadsTheOtherWindowsInOrderAndThenSaves)
{
    std::vector<std::string> asLog;
    MainRig rig;
    frmMain& frm = rig.Start();
    frm.mnuOptionsModel->trigger();
    frm.mnuViewWorldMap->trigger();
    CellMouse(*frm.grdData, {2, 2});
    frm.mnuHelpAbout->trigger();
    const auto Log = [&](QWidget* pWindow, const char* sName) {
        QObject::connect(pWindow, &QObject::destroyed, [&, sName] {
            asLog.emplace_back(sName);
            EXPECT_EQ(BytesRead(rig.m_sProfileFile).find("Window Data"), std::string::npos);
        });
    };
    Log(frm.m_pOptions, "options");
    Log(frm.m_pMap, "map");
    Log(frm.m_pDetails, "details");
    Log(frm.m_pAbout, "about");
    frm.mnuFileExit->trigger();
    EXPECT_EQ(asLog, (std::vector<std::string>{"about", "details", "map", "options"}));
    EXPECT_NE(BytesRead(rig.m_sProfileFile).find("[Window Data]"), std::string::npos);
    EXPECT_FALSE(frm.isVisible());
}

TEST(FrmMainStart, ClosedWindowsAreDestroyedAndMadeAnew)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    for (int n = 0; n < 2; ++n) {
        frm.mnuHelpAbout->trigger();
        frm.mnuViewWorldMap->trigger();
        frm.mnuOptionsTime->trigger();
        frm.mnuViewDetailData->trigger();
        ASSERT_TRUE(frm.m_pAbout && frm.m_pMap && frm.m_pOptions && frm.m_pDetails);
        for (QWidget* pWindow : std::initializer_list<QWidget*>{frm.m_pAbout, frm.m_pMap,
                                                                frm.m_pOptions, frm.m_pDetails})
            pWindow->close();
        MainRig::EventsRun();
        EXPECT_FALSE(frm.m_pAbout || frm.m_pMap || frm.m_pOptions || frm.m_pDetails);
    }
}

TEST(FrmMainStart, OtherWindowsFindWhatTheTableIsFor)
{
    MainRig rig;
    const frmMain& frm = rig.Make();
    EXPECT_EQ(frm.TableInputGet().iModel, kEngineRec533) << "no table yet: the settings'";
    rig.Start();
    EXPECT_EQ(frm.TableInputGet().iModel, kEngineVoacap);
    EXPECT_EQ(frm.TableInputGet().nData, 15);
    EXPECT_EQ(frm.TableInputGet().FrequencyGet(7), 14000.0F);
}

TEST(FrmMainStart, MenusHaveTheirToldItems)
{
    MainRig rig;
    const frmMain& frm = rig.Start();
    const auto Texts = [](const QMenu* pMenu) {
        QStringList asText;
        for (const QAction* pAction : pMenu->actions())
            if (!pAction->isSeparator())
                asText.append(pAction->text().remove(QLatin1Char('&')));
        return asText.join(QLatin1Char('|'));
    };
    EXPECT_EQ(Texts(frm.mnuFile), QStringLiteral("Default|Undo Default|Open...|Save...|Copy Table|"
                                                 "Export...|Print Card...|Exit"));
    EXPECT_EQ(Texts(frm.mnuView), QStringLiteral("World Map...|Detail Data..."));
    EXPECT_EQ(
        Texts(frm.mnuOptions),
        QStringLiteral("AirMail...|Model...|Frequency...|Time...|Map...|Station...|Colours...|"
                       "Night\tCtrl+Shift+N"));
    EXPECT_EQ(
        Texts(frm.mnuPlan),
        QStringLiteral("Who Can I Reach|Day Curves|Good and Bad Days|Compare Engines|My Places...|"
                       "Exchange Ends|Back"));
    EXPECT_EQ(Texts(frm.mnuHelp), QStringLiteral("Guide\tF1|About..."));
    EXPECT_EQ(Texts(frm.mnuTransmitter), QStringLiteral("Ham|SailMail|Other"));
    EXPECT_EQ(frm.menuBar()->actions().size(), 5);
}

}  // namespace
