/// Creation, first showing, other windows, end.
#include <gtest/gtest.h>

#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QTest>

#include "ui/details/frmDetails.h"
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

TEST(FrmMainStart, CommandsOfWindowsThatAreNotThereAreAbsent)
{
    MainRig rig;
    const frmMain& frm = rig.Start();
    EXPECT_FALSE(frm.mnuOptions->menuAction()->isVisible());
    EXPECT_FALSE(frm.mnuHelp->menuAction()->isVisible());
    EXPECT_FALSE(frm.mnuViewWorldMap->isVisible());
    EXPECT_FALSE(frm.cmdRcMap->isVisible());
    EXPECT_FALSE(frm.cmdTxMap->isVisible());
    EXPECT_TRUE(frm.mnuViewDetailData->isVisible());
}

/// A stand-in for a window of another folder.
class ChildFake final : public QWidget, public ChildWindow {
public:
    QWidget* WidgetGet() override { return this; }
    ChildFake(std::vector<std::string>& asLog, std::string sName)
        : m_asLog(asLog), m_sName(std::move(sName))
    {
    }
    ~ChildFake() override { m_asLog.push_back("gone " + m_sName); }
    void TabShow(int iTab) override
    {
        m_asLog.push_back((isVisible() ? "tab " : "hidden tab ") + std::to_string(iTab));
    }

private:
    std::vector<std::string>& m_asLog;
    std::string m_sName;
};

void ChildrenAdd(frmMain& frm, std::vector<std::string>& asLog)
{
    frm.ChildSetFactory(Child::About, [&](MainLink&) { return new ChildFake(asLog, "about"); });
    frm.ChildSetFactory(Child::Map, [&](MainLink&) { return new ChildFake(asLog, "map"); });
    frm.ChildSetFactory(Child::Options, [&](MainLink&) { return new ChildFake(asLog, "options"); });
}

TEST(FrmMainStart, OptionsItemsShowTheDialogAndThenSwitchToTheirTab)
{
    std::vector<std::string> asLog;
    MainRig rig;
    frmMain& frm = rig.Start();
    ChildrenAdd(frm, asLog);
    EXPECT_TRUE(frm.mnuOptions->menuAction()->isVisible());
    for (QAction* pAction : {frm.mnuOptionsAirMail, frm.mnuOptionsModel, frm.mnuOptionsFrequency,
                             frm.mnuOptionsTime, frm.mnuOptionsMap})
        pAction->trigger();
    EXPECT_EQ(asLog, (std::vector<std::string>{"tab 0", "tab 1", "tab 2", "tab 3", "tab 4"}));
}

TEST(FrmMainStart, MapButtonsOpenTheMap)
{
    std::vector<std::string> asLog;
    MainRig rig;
    frmMain& frm = rig.Start();
    int nMade = 0;
    frm.ChildSetFactory(Child::Map, [&](MainLink& main) {
        ++nMade;
        EXPECT_EQ(&main.SettingsGet(), &frm.m_settings);
        return new ChildFake(asLog, "map");
    });
    QTest::mouseClick(frm.cmdRcMap, Qt::LeftButton);
    QTest::mouseClick(frm.cmdTxMap, Qt::LeftButton);
    frm.mnuViewWorldMap->trigger();
    EXPECT_EQ(nMade, 1);
}

TEST(FrmMainStart, EndUnloadsTheOtherWindowsInOrderAndThenSaves)
{
    std::vector<std::string> asLog;
    MainRig rig;
    frmMain& frm = rig.Start();
    ChildrenAdd(frm, asLog);
    frm.mnuOptionsModel->trigger();
    frm.mnuViewWorldMap->trigger();
    CellMouse(*frm.grdData, {2, 2});
    frm.mnuHelpAbout->trigger();
    QObject::connect(frm.m_pDetails, &QObject::destroyed, [&] {
        asLog.emplace_back("gone details");
        EXPECT_EQ(BytesRead(rig.m_sProfileFile).find("Window Data"), std::string::npos);
    });
    asLog.clear();
    frm.mnuFileExit->trigger();
    EXPECT_EQ(asLog,
              (std::vector<std::string>{"gone about", "gone details", "gone map", "gone options"}));
    EXPECT_NE(BytesRead(rig.m_sProfileFile).find("[Window Data]"), std::string::npos);
    EXPECT_FALSE(frm.isVisible());
}

TEST(FrmMainStart, ClosedWindowIsDestroyedAndMadeAnew)
{
    std::vector<std::string> asLog;
    MainRig rig;
    frmMain& frm = rig.Start();
    ChildrenAdd(frm, asLog);
    frm.mnuHelpAbout->trigger();
    for (QWidget* pWindow : QApplication::topLevelWidgets())
        if (dynamic_cast<ChildFake*>(pWindow) != nullptr)
            pWindow->close();
    MainRig::EventsRun();
    EXPECT_EQ(asLog, (std::vector<std::string>{"gone about"}));
    frm.mnuHelpAbout->trigger();
    EXPECT_EQ(asLog.size(), 1u);
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
    EXPECT_EQ(Texts(frm.mnuFile), QStringLiteral("Default|Open...|Save...|Exit"));
    EXPECT_EQ(Texts(frm.mnuView), QStringLiteral("World Map...|Detail Data..."));
    EXPECT_EQ(Texts(frm.mnuOptions),
              QStringLiteral("AirMail...|Model...|Frequency...|Time...|Map..."));
    EXPECT_EQ(Texts(frm.mnuHelp), QStringLiteral("About..."));
    EXPECT_EQ(Texts(frm.mnuTransmitter), QStringLiteral("Ham|SailMail|Other"));
    EXPECT_EQ(frm.menuBar()->actions().size(), 4);
}

}  // namespace
