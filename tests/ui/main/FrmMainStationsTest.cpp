/// The two Airmail buttons and the station menus.
#include <gtest/gtest.h>

#include <QTest>
#include <filesystem>

#include "ui/support/MainRig.h"

namespace fs = std::filesystem;

namespace {

/// Captions of a submenu's visible items, as a user reads them.
QStringList ItemsGet(const QMenu* pMenu)
{
    QStringList asText;
    for (const QAction* pAction : pMenu->actions())
        if (pAction->isVisible())
            asText.append(pAction->text().replace(QStringLiteral("&&"), QStringLiteral("&")));
    return asText;
}

QAction* ItemFind(const QMenu* pMenu, const QString& sCaption)
{
    for (QAction* pAction : pMenu->actions())
        if (pAction->isVisible() && pAction->text() == sCaption)
            return pAction;
    ADD_FAILURE() << sCaption.toStdString();
    return nullptr;
}

void TransmitterPress(frmMain& frm)
{
    QTest::mouseClick(frm.cmdTxAirmail, Qt::LeftButton);
    if (frm.mnuTransmitter->isVisible())
        frm.mnuTransmitter->close();
}

const char* const kHam = "[Station Info]\nW1AW=FN31:Newington;x\nKH6=BL11AH:Hilo & Kona;\n";
const char* const kSail = "[Station Info]\nNIA=FM08:Rock Hill;\n";

TEST(FrmMainStations, ReceiverButtonTakesAirmailsPosition)
{
    MainRig rig;
    rig.AirmailWrite("Airmail.ini",
                     "[Propagation]\nLatitude=10\xB0"
                     "30.00'N\nLongitude=020\xB0"
                     "15.00'W\n");
    frmMain& frm = rig.Start();
    rig.m_engine.nStarts = 0;
    QTest::mouseClick(frm.cmdRcAirmail, Qt::LeftButton);
    EXPECT_EQ(frm.lblTrouble->text(),
              QStringLiteral("Receiver: position of Airmail, without a time"));
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dRcLat, 10.5);
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dRcLon, -20.25);
    EXPECT_EQ(frm.txtLat0->text(), QStringLiteral("10°30.00'N"));
    EXPECT_EQ(rig.m_engine.nStarts, 2);
}

TEST(FrmMainStations, ReceiverButtonWithoutPositionChangesNothing)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    rig.m_engine.nStarts = 0;
    QTest::mouseClick(frm.cmdRcAirmail, Qt::LeftButton);
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dRcLat, 24.0);
    EXPECT_EQ(rig.m_engine.nStarts, 0);
    EXPECT_EQ(rig.m_msg.m_aShown.size(), 1u);
}

TEST(FrmMainStations, ReceiverPositionWithATimeThatIsNoDateIsOnePlainBox)
{
    MainRig rig;
    rig.AirmailWrite("Airmail.ini",
                     "[Position Report]\nCurrent Latitude=10\xB0"
                     "30.00'N\nCurrent Longitude=020\xB0"
                     "15.00'W\nCurrent Time=soon\n");
    frmMain& frm = rig.Start();
    QTest::mouseClick(frm.cmdRcAirmail, Qt::LeftButton);
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dRcLat, 24.0);
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 1u);
    EXPECT_EQ(rig.m_msg.m_aShown[0].sText, "Airmail's position: Type mismatch");
    EXPECT_EQ(rig.m_msg.m_aShown[0].eIcon, MsgIcon::None);
}

TEST(FrmMainStations, MenusHoldTheStationsByKindWhateverTheCase)
{
    MainRig rig;
    rig.AirmailWrite("System.ham.ini", kHam);
    rig.AirmailWrite("System.SailMail.ini", kSail);
    rig.AirmailWrite("System.Cruise.ini", "[Station Info]\nX=AA00:Nowhere\n");
    frmMain& frm = rig.Start();
    QTest::mouseClick(frm.cmdTxAirmail, Qt::LeftButton);
    EXPECT_TRUE(frm.mnuTransmitter->isVisible());
    frm.mnuTransmitter->close();
    EXPECT_EQ(
        ItemsGet(frm.mnuTransmitter->mnuTransmitterHam),
        (QStringList{QStringLiteral("W1AW - Newington"), QStringLiteral("KH6 - Hilo & Kona")}));
    EXPECT_EQ(ItemsGet(frm.mnuTransmitter->mnuTransmitterSailMail),
              (QStringList{QStringLiteral("NIA - Rock Hill")}));
    EXPECT_EQ(ItemsGet(frm.mnuTransmitter->mnuTransmitterOther),
              (QStringList{QStringLiteral("X - Nowhere")}));
    EXPECT_EQ(frm.mnuTransmitter->mnuTransmitterHam->title(), QStringLiteral("Ham"));
    EXPECT_NE(frm.findChild<QAction*>(QStringLiteral("mnuTransmitterHamStation1")), nullptr);
}

TEST(FrmMainStations, TextsOfTheListsAreOnePrintableLineEach)
{
    MainRig rig;
    const std::string sLong(300, 'n');
    rig.AirmailWrite("System.ham.ini",
                     "[Station Info]\nA\x1b[2J=FN31:B\tC\x07;\nL=FN31:" + sLong + ";\n");
    frmMain& frm = rig.Start();
    TransmitterPress(frm);
    const QStringList asItem = ItemsGet(frm.mnuTransmitter->mnuTransmitterHam);
    ASSERT_EQ(asItem.size(), 2);
    EXPECT_EQ(asItem.at(0), QStringLiteral("A [2J - B C "));
    EXPECT_EQ(asItem.at(1), QStringLiteral("L - ") + QString(196, u'n') + QStringLiteral("..."));
    frm.mnuTransmitter->mnuTransmitterHam->actions().at(0)->trigger();
    EXPECT_EQ(frm.windowTitle(), QStringLiteral("Hopcast - A [2J - B C "));
}

TEST(FrmMainStations, SubmenusStartWithOneItemThatTheFirstStationTakes)
{
    MainRig rig;
    rig.AirmailWrite("System.ham.ini", kHam);
    frmMain& frm = rig.Start();
    QMenu* pHam = frm.mnuTransmitter->mnuTransmitterHam;
    for (QMenu* pMenu : {pHam, frm.mnuTransmitter->mnuTransmitterSailMail,
                         frm.mnuTransmitter->mnuTransmitterOther})
        EXPECT_EQ(ItemsGet(pMenu), (QStringList{QStringLiteral("Station")}));
    const QAction* pFirst = pHam->actions().at(0);
    TransmitterPress(frm);
    EXPECT_EQ(pHam->actions().at(0), pFirst);
    EXPECT_EQ(ItemsGet(pHam).size(), 2);
    EXPECT_TRUE(ItemsGet(frm.mnuTransmitter->mnuTransmitterOther).isEmpty());
}

/// Opens the menu of ham stations with keys and goes to its last item.
QMenu* HamOpenByKeys(frmMain& frm)
{
    QTest::mouseClick(frm.cmdTxAirmail, Qt::LeftButton);
    QTest::keyClick(frm.mnuTransmitter, Qt::Key_Down);
    QTest::keyClick(frm.mnuTransmitter, Qt::Key_Right);
    QMenu* pHam = frm.mnuTransmitter->mnuTransmitterHam;
    MainRig::EventsRun();
    QTest::keyClick(pHam, Qt::Key_End);
    MainRig::EventsRun();
    return pHam;
}

TEST(FrmMainStations, LongListsScrollAtTheirFirstOpeningByKeyboard)
{
    MainRig rig;
    std::string sMany = "[Station Info]\n";
    constexpr int kMany = 200;
    for (int i = 0; i < kMany; ++i) sMany += "K" + std::to_string(i) + "=FN31:Place;\n";
    rig.AirmailWrite("System.ham.ini", sMany);
    frmMain& frm = rig.Start();
    const QMenu* pHam = HamOpenByKeys(frm);
    ASSERT_TRUE(pHam->isVisible());
    EXPECT_LE(pHam->height(), frm.screen()->availableSize().height());
    ASSERT_NE(pHam->activeAction(), nullptr);
    EXPECT_EQ(pHam->activeAction()->text(), QStringLiteral("K199 - Place"));
    EXPECT_TRUE(pHam->rect().contains(pHam->actionGeometry(pHam->activeAction())));
    EXPECT_EQ(pHam->actionGeometry(pHam->actions().front()).left(),
              pHam->actionGeometry(pHam->activeAction()).left())
        << "one column";
    frm.mnuTransmitter->close();
}

TEST(FrmMainStations, WithoutListsThereIsOneBoxAndNoMenu)
{
    MainRig rig;
    frmMain& frm = rig.Start();
    QTest::mouseClick(frm.cmdTxAirmail, Qt::LeftButton);
    EXPECT_FALSE(frm.mnuTransmitter->isVisible());
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 1u);
    EXPECT_EQ(
        rig.m_msg.m_aShown[0].sText.rfind("Unable to find AirMail's \"System.*.ini\" files.", 0),
        0u);
}

TEST(FrmMainStations, BuiltTwiceTheItemsAreTheSameOnes)
{
    MainRig rig;
    rig.AirmailWrite("System.HAM.ini", kHam);
    frmMain& frm = rig.Start();
    TransmitterPress(frm);
    const QList<QAction*> aBefore = frm.mnuTransmitter->mnuTransmitterHam->actions();
    TransmitterPress(frm);
    EXPECT_EQ(frm.mnuTransmitter->mnuTransmitterHam->actions(), aBefore);
    EXPECT_EQ(ItemsGet(frm.mnuTransmitter->mnuTransmitterHam).size(), 2);
}

TEST(FrmMainStations, ItemsBeyondAShrunkenListAreHidden)
{
    MainRig rig;
    rig.AirmailWrite("System.HAM.ini", kHam);
    frmMain& frm = rig.Start();
    TransmitterPress(frm);
    rig.AirmailWrite("System.HAM.ini", "[Station Info]\nZZ=JJ00:Only\n");
    TransmitterPress(frm);
    EXPECT_EQ(ItemsGet(frm.mnuTransmitter->mnuTransmitterHam),
              (QStringList{QStringLiteral("ZZ - Only")}));
    rig.AirmailWrite("System.HAM.ini", kHam);
    TransmitterPress(frm);
    EXPECT_EQ(ItemsGet(frm.mnuTransmitter->mnuTransmitterHam).size(), 2);
}

TEST(FrmMainStations, UnreadableFileGreysItsSubmenuUntilALaterOneOfItsKind)
{
    MainRig rig;
    rig.AirmailWrite("System.HAM.ini", kHam);
    rig.AirmailWrite("System.SailMail.ini", "no stations here\n");
    frmMain& frm = rig.Start();
    TransmitterPress(frm);
    EXPECT_TRUE(frm.mnuTransmitter->mnuTransmitterHam->menuAction()->isEnabled());
    EXPECT_FALSE(frm.mnuTransmitter->mnuTransmitterSailMail->menuAction()->isEnabled());
    EXPECT_FALSE(frm.mnuTransmitter->mnuTransmitterOther->menuAction()->isEnabled());
    ASSERT_EQ(rig.m_msg.m_aShown.size(), 1u);
    EXPECT_EQ(rig.m_msg.m_aShown[0].eIcon, MsgIcon::None);
    rig.AirmailWrite("System.SailMail.ini", kSail);
    TransmitterPress(frm);
    EXPECT_TRUE(frm.mnuTransmitter->mnuTransmitterSailMail->menuAction()->isEnabled());
}

TEST(FrmMainStations, FilesOfOneKindFollowOneAnotherAroundAnUnreadableOne)
{
    // There are three files of the kind "Other", in whatever order the folder lists them; the bad
    // one disables the submenu only if it is the last.
    MainRig rig;
    rig.AirmailWrite("System.A.ini", "[Station Info]\nA1=JJ00:One\nA2=JJ01:Two\n");
    rig.AirmailWrite("System.B.ini", "rubbish\n");
    rig.AirmailWrite("System.C.ini", "[Station Info]\nC1=JJ02:Three\n");
    frmMain& frm = rig.Start();
    TransmitterPress(frm);
    QStringList asItems = ItemsGet(frm.mnuTransmitter->mnuTransmitterOther);
    asItems.sort();
    EXPECT_EQ(asItems, (QStringList{QStringLiteral("A1 - One"), QStringLiteral("A2 - Two"),
                                    QStringLiteral("C1 - Three")}));
    std::string sLast;
    for (const auto& entry : fs::directory_iterator(rig.m_folder.Path("airmail")))
        sLast = entry.path().filename().string();
    EXPECT_EQ(frm.mnuTransmitter->mnuTransmitterOther->menuAction()->isEnabled(),
              sLast != "System.B.ini");
    EXPECT_EQ(rig.m_msg.m_aShown.size(), 1u);
}

TEST(FrmMainStations, ChosenStationBecomesTheTransmitterAndNamesTheWindow)
{
    MainRig rig;
    rig.AirmailWrite("System.HAM.ini", kHam);
    frmMain& frm = rig.Start();
    TransmitterPress(frm);
    rig.m_engine.nStarts = 0;
    ItemFind(frm.mnuTransmitter->mnuTransmitterHam, QStringLiteral("KH6 - Hilo && Kona"))
        ->trigger();
    EXPECT_EQ(rig.m_engine.nStarts, 2);
    EXPECT_EQ(frm.windowTitle(), QStringLiteral("Hopcast - KH6 - Hilo & Kona"));
    EXPECT_NEAR(frm.m_settings.m_dTxLat, 21.0 + 7.0 * 59.0 / 23.0 / 60.0, 1e-9);
    EXPECT_EQ(frm.txtLat1->text().right(1), QStringLiteral("N"));
}

TEST(FrmMainStations, TypingATransmitterTakesTheStationsNameAway)
{
    MainRig rig;
    rig.AirmailWrite("System.HAM.ini", kHam);
    frmMain& frm = rig.Start();
    TransmitterPress(frm);
    ItemFind(frm.mnuTransmitter->mnuTransmitterHam, QStringLiteral("W1AW - Newington"))->trigger();
    frm.txtLat0->setFocus();
    QTest::keyClicks(frm.txtLat0, QStringLiteral("1"));
    EXPECT_EQ(frm.windowTitle(), QStringLiteral("Hopcast - W1AW - Newington"));  // receiver typed
    frm.txtLon1->setFocus();
    QTest::keyClicks(frm.txtLon1, QStringLiteral("1"));
    EXPECT_EQ(frm.windowTitle(), QStringLiteral("Hopcast"));
}

TEST(FrmMainStations, StationWithoutUsablePositionChangesNothing)
{
    for (const auto& [sEntry, sBox] :
         {std::pair("K=FN3:Short", "Unable to Convert Grid FN3 to Lat/Lon"),
          std::pair("K=FN31", "Airmail's station K: Invalid procedure call or argument")}) {
        MainRig rig;
        rig.AirmailWrite("System.HAM.ini", std::string("[Station Info]\n") + sEntry + "\n");
        frmMain& frm = rig.Start();
        TransmitterPress(frm);
        rig.m_engine.nStarts = 0;
        frm.mnuTransmitter->mnuTransmitterHam->actions().at(0)->trigger();
        EXPECT_DOUBLE_EQ(frm.m_settings.m_dTxLat, 38.0);
        EXPECT_EQ(frm.windowTitle(), QStringLiteral("Hopcast"));
        EXPECT_EQ(rig.m_engine.nStarts, 0);
        ASSERT_EQ(rig.m_msg.m_aShown.size(), 1u) << sEntry;
        EXPECT_EQ(rig.m_msg.m_aShown[0].sText, sBox);
    }
}

TEST(FrmMainStations, StatusTipTellsGridSquareAndBearing)
{
    MainRig rig;
    rig.AirmailWrite("System.HAM.ini", "[Station Info]\nEAST=JJ00AA:East;\nBAD=J:Bad\n");
    rig.ProfileAdd("[Receiver Data]\nLatitude=0\nLongitude=-20\n");
    frmMain& frm = rig.Start();
    TransmitterPress(frm);
    QAction* pItem = ItemFind(frm.mnuTransmitter->mnuTransmitterHam, QStringLiteral("EAST - East"));
    pItem->hover();
    pItem->showStatusText();
    EXPECT_EQ(frm.statusBar()->currentMessage(),
              QStringLiteral("Grid square JJ00AA, bearing 90° from the receiver"));
    QAction* pBad = ItemFind(frm.mnuTransmitter->mnuTransmitterHam, QStringLiteral("BAD - Bad"));
    pBad->hover();
    EXPECT_EQ(pBad->statusTip(), QStringLiteral("No position known"));
    EXPECT_TRUE(rig.m_msg.m_aShown.empty());
}

TEST(FrmMainStations, AnAirmailPositionOutOfRangeIsNone)
{
    MainRig rig;
    rig.AirmailWrite("Airmail.ini",
                     "[Propagation]\nLatitude=95\xB0"
                     "30.00'N\nLongitude=020\xB0"
                     "15.00'W\n");
    frmMain& frm = rig.Start();
    rig.m_engine.nStarts = 0;
    QTest::mouseClick(frm.cmdRcAirmail, Qt::LeftButton);
    EXPECT_DOUBLE_EQ(frm.m_settings.m_dRcLat, 24.0);
    EXPECT_EQ(rig.m_engine.nStarts, 0);
    EXPECT_EQ(rig.m_msg.m_aShown.size(), 1u);
}

}  // namespace
