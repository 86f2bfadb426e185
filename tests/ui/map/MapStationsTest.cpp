#include "MapFakes.h"
#include "airmail/AirMailFolders.h"

namespace {

class frmMapStations : public MapWindow {
protected:
    frmMapStations()
    {
        m_folder.Write("System.HAM.ini",
                       "[Station Info]\r\nW1ABC=FN42:Boston & Bay;x\r\nK4XYZ=EL87:<b>Tampa\r\n");
        m_folder.Write("System.SailMail.ini", "[Station Info]\r\nKZN508=DM12:San Diego\r\n");
        AirMailDataFolderSet(m_folder.Path());
    }
    ~frmMapStations() override { AirMailFoldersReset(); }
    /// Opens the stations menu and chooses the item of a system, counted from 0.
    void SystemChoose(std::size_t nSystem)
    {
        QTest::mouseClick(m_pMap->cmdStations, Qt::LeftButton);
        ASSERT_GT(m_pMap->mnuStationsSystem.size(), nSystem);
        ItemChoose(m_pMap->mnuStations, m_pMap->mnuStationsSystem[nSystem]);
        QCoreApplication::processEvents();
    }
    static QPoint CentreOf(const QWidget* pControl)
    {
        return {pControl->x() + pControl->width() / 2, pControl->y() + pControl->height() / 2};
    }
    /// The position of a control among its siblings, from back to front.
    [[nodiscard]] int OrderGet(QWidget* pControl) const
    {
        return int(m_pMap->pctMap->children().indexOf(pControl));
    }
    TempFolder m_folder;
};

TEST_F(frmMapStations, AreLoadedOnceWithMenuItemsAndSymbols)
{
    for (int i = 0; i < 2; ++i) {
        QTest::mouseClick(m_pMap->cmdStations, Qt::LeftButton);
        EXPECT_TRUE(m_pMap->mnuStations->isVisible());
        m_pMap->mnuStations->close();
        QCoreApplication::processEvents();
        m_folder.Write("System.Third.ini", "[Station Info]\r\nA=FN42:b\r\n");
    }
    ASSERT_EQ(m_pMap->mnuStationsSystem.size(), 2u);
    EXPECT_EQ(Find<QAction>("mnuStationsSystem0")->text(), QStringLiteral(" Display HAM Stations"));
    EXPECT_EQ(Find<QAction>("mnuStationsSystem1")->text(),
              QStringLiteral(" Display SailMail Stations"));
    ASSERT_EQ(m_pMap->imgStation.size(), 3u);
    for (StationDot* pDot : m_pMap->imgStation) EXPECT_FALSE(pDot->isVisible());
    EXPECT_EQ(Find<StationDot>("imgStation0")->toolTip(), QStringLiteral("W1ABC, Boston & Bay"));
    EXPECT_EQ(Find<StationDot>("imgStation0")->size(), QSize(9, 9));
    EXPECT_TRUE(m_pMap->imgStation[1]->toolTip().contains(QStringLiteral("&lt;b&gt;")));
}

TEST_F(frmMapStations, FollowTheirSystemsItem)
{
    SystemChoose(0);
    EXPECT_TRUE(m_pMap->mnuStationsSystem[0]->isChecked());
    EXPECT_TRUE(m_pMap->imgStation[0]->isVisible());
    EXPECT_TRUE(m_pMap->imgStation[1]->isVisible());
    EXPECT_FALSE(m_pMap->imgStation[2]->isVisible());
    SystemChoose(1);
    EXPECT_TRUE(m_pMap->imgStation[2]->isVisible());
    SystemChoose(0);
    EXPECT_FALSE(m_pMap->imgStation[0]->isVisible());
    EXPECT_TRUE(m_pMap->imgStation[2]->isVisible());
}

TEST_F(frmMapStations, StandOnTheirPositionsAndFollowZooms)
{
    SystemChoose(0);
    const double dLat = 40 + 2 + 12 * 59.0 / 23 / 60;
    const double dLon = 2 * (-40 + 4 + 12 * 59.0 / 23 / 60);
    EXPECT_EQ(CentreOf(m_pMap->imgStation[0]), m_pMap->m_view.LatLonGetPoint(dLat, dLon));
    EXPECT_GT(m_pMap->imgStation[0]->x(), m_pMap->pctMap->width() / 2);
    QTest::mouseClick(m_pMap->cmdZoomTxRc, Qt::LeftButton);
    EXPECT_EQ(CentreOf(m_pMap->imgStation[0]), m_pMap->m_view.LatLonGetPoint(dLat, dLon));
    // Hidden dots are placed, too.
    EXPECT_EQ(CentreOf(m_pMap->imgStation[2]).y(),
              m_pMap->m_view.LatLonGetPoint(30 + 2 + 12 * 59.0 / 23 / 60, 0).y());
}

TEST_F(frmMapStations, MarkersAreInFrontOnlyWhileNoneIsShown)
{
    SystemChoose(0);
    for (QWidget* pMarker : {m_pMap->lblRc, m_pMap->lblTx})
        for (StationDot* pDot : m_pMap->imgStation) EXPECT_LT(OrderGet(pMarker), OrderGet(pDot));
    SystemChoose(0);
    for (QWidget* pMarker : {m_pMap->lblRc, m_pMap->lblTx})
        for (StationDot* pDot : m_pMap->imgStation) EXPECT_GT(OrderGet(pMarker), OrderGet(pDot));
}

TEST_F(frmMapStations, RightClickSetsReceiverAndTransmitter)
{
    SystemChoose(0);
    QTest::mouseClick(m_pMap->imgStation[0], Qt::RightButton);
    EXPECT_EQ(m_pMap->mnuStationSetRc->text(), QStringLiteral("Set as Receiver"));
    ItemChoose(m_pMap->mnuStation, m_pMap->mnuStationSetRc);
    EXPECT_NEAR(m_pMap->m_posRc.dLat, 42.51304, 1e-5);
    EXPECT_NEAR(m_pMap->m_posRc.dLon, -70.97391, 1e-5);
    EXPECT_EQ(CentreOf(m_pMap->lblRc), CentreOf(m_pMap->imgStation[0]));
    EXPECT_DOUBLE_EQ(m_pMap->m_posTx.dLat, 38);
    QTest::mouseClick(m_pMap->imgStation[1], Qt::RightButton);
    ItemChoose(m_pMap->mnuStation, m_pMap->mnuStationSetTx);
    EXPECT_EQ(CentreOf(m_pMap->lblTx), CentreOf(m_pMap->imgStation[1]));
    EXPECT_DOUBLE_EQ(m_host.m_settings.m_dRcLat, 24);  // unchanged until Apply
    QTest::mouseClick(m_pMap->cmdApply, Qt::LeftButton);
    EXPECT_NEAR(m_host.m_settings.m_dRcLat, 42.51304, 1e-5);
}

TEST_F(frmMapStations, AClickMakesAStationTheTransmitter)
{
    SystemChoose(0);
    QTest::mouseClick(m_pMap->imgStation[0], Qt::LeftButton);
    EXPECT_FALSE(m_pMap->mnuStation->isVisible());
    EXPECT_NEAR(m_pMap->m_posTx.dLat, 42.51304, 1e-5);
    EXPECT_EQ(CentreOf(m_pMap->lblTx), CentreOf(m_pMap->imgStation[0]));
    EXPECT_DOUBLE_EQ(m_pMap->m_posRc.dLat, 24);
    EXPECT_DOUBLE_EQ(m_host.m_settings.m_dTxLat, 38) << "until Apply";
    QTest::mousePress(m_pMap->imgStation[1], Qt::LeftButton);
    QTest::mouseRelease(m_pMap->imgStation[1], Qt::LeftButton, {}, {40, 40});
    EXPECT_NEAR(m_pMap->m_posTx.dLat, 42.51304, 1e-5) << "released elsewhere";
}

TEST_F(frmMapStations, WithoutSystemsThereIsABoxAndNoMenu)
{
    TempFolder folderEmpty;
    AirMailDataFolderSet(folderEmpty.Path());
    MsgRecorder msg;
    for (int i = 1; i <= 2; ++i) {
        QTest::mouseClick(m_pMap->cmdStations, Qt::LeftButton);
        EXPECT_EQ(msg.m_aShown.size(), std::size_t(i));
        EXPECT_FALSE(m_pMap->mnuStations->isVisible());
    }
    AirMailDataFolderSet(m_folder.Path());
    QTest::mouseClick(m_pMap->cmdStations, Qt::LeftButton);
    EXPECT_TRUE(m_pMap->mnuStations->isVisible());
    m_pMap->mnuStations->close();
}

TEST_F(frmMapStations, UnreadableListContributesNoneAndOthersStay)
{
    m_folder.Write("System.Broken.ini", "no section\r\n");
    MsgRecorder msg;
    QTest::mouseClick(m_pMap->cmdStations, Qt::LeftButton);
    m_pMap->mnuStations->close();
    EXPECT_EQ(msg.m_aShown.size(), 1u);
    EXPECT_EQ(m_pMap->mnuStationsSystem.size(), 3u);
    EXPECT_EQ(m_pMap->imgStation.size(), 3u);
}

TEST_F(frmMapStations, BadEntriesAreToldOnceAndTheOthersLoaded)
{
    m_folder.Write("System.HAM.ini",
                   "[Station Info]\r\nA=no colon\r\nB=nor here\r\nW1ABC=FN42:Boston\r\n");
    MsgRecorder msg;
    QTest::mouseClick(m_pMap->cmdStations, Qt::LeftButton);
    m_pMap->mnuStations->close();
    ASSERT_EQ(msg.m_aShown.size(), 1u);
    EXPECT_EQ(msg.m_aShown[0].sText, "Airmail's stations: Invalid procedure call or argument");
    EXPECT_EQ(m_pMap->imgStation.size(), 2u);
    EXPECT_EQ(m_pMap->imgStation[0]->toolTip(), QStringLiteral("W1ABC, Boston"));
}

}  // namespace
