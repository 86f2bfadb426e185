#include "MapFakes.h"
#include "airmail/AirMailFolders.h"
#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"

namespace {

class MapReachShown : public MapWindow {
protected:
    MapReachShown()
    {
        m_folder.Write("System.HAM.ini",
                       "[Station Info]\r\nW1ABC=FN42:Boston\r\nK4XYZ=EL87:Tampa\r\n");
        AirMailDataFolderSet(m_folder.Path());
        QTest::mouseClick(m_pMap->cmdStations, Qt::LeftButton);
        m_pMap->mnuStations->close();
        QCoreApplication::processEvents();
    }
    ~MapReachShown() override { AirMailFoldersReset(); }

    /// The answer for W1ABC alone: 62 dB at 5 UTC, nothing at another hour.
    void ReachSet()
    {
        Place place;
        place.sSystem = "HAM";
        place.sKey = "W1ABC";
        ReachAsked asked;
        asked.base.nData = 1;
        asked.base.afFrequency = {0.0F, 7000.0F};
        Reach reach(asked, {place});
        Prediction prediction;
        prediction.table = PropagationTable(1);
        prediction.table.request = ReachRequestGet(asked, place);
        prediction.table.PresentSet(1, 1, true);
        for (int iHour = 1; iHour <= kHourCount; ++iHour)
            prediction.table.fSnr(iHour, 1) = iHour == 6 ? 62.0F : -999.0F;
        reach.Add(0, prediction);
        m_host.ReachBoardGet().Set(reach);
    }
    void HourSet(int iHour)
    {
        m_host.m_settings.m_selected.iHour = iHour + 1;
        m_pMap->Update();
    }
    [[nodiscard]] const StationDot& Dot(std::size_t n) const { return *m_pMap->imgStation[n]; }
    TempFolder m_folder;
};

TEST_F(MapReachShown, StationsHaveTheColourOfTheirSnrAtTheHourShown)
{
    const QColor clrList = Dot(0).ColorGet();
    HourSet(5);
    ReachSet();
    EXPECT_EQ(Dot(0).ColorGet(), ColorFromBgr(SnrGetColor(62.0F)));
    EXPECT_EQ(Dot(0).toolTip(), QStringLiteral("W1ABC, Boston\n05:00 UTC: 7000 kHz, 62 dB"));
    EXPECT_EQ(Dot(1).ColorGet(), clrList) << "was not asked for";
    EXPECT_EQ(Dot(1).toolTip(), QStringLiteral("K4XYZ, Tampa"));
    HourSet(6);
    EXPECT_EQ(Dot(0).ColorGet(), ColorFromBgr(SnrBandsGet().back().nColor)) << "no value";
    EXPECT_TRUE(Dot(0).toolTip().endsWith(QStringLiteral("06:00 UTC: no value")));
}

TEST_F(MapReachShown, StationsFollowTheMainWindowsSelection)
{
    HourSet(6);
    ReachSet();
    m_host.m_settings.m_selected.iHour = 6;
    Q_EMIT m_host.SettingsSignalGet().CellSelected();
    EXPECT_EQ(Dot(0).ColorGet(), ColorFromBgr(SnrGetColor(62.0F)));
}

TEST_F(MapReachShown, AnotherSearchTakesThePlaceOfTheFormer)
{
    HourSet(5);
    const QColor clrList = Dot(0).ColorGet();
    ReachSet();
    m_host.ReachBoardGet().Set(Reach(ReachAsked(), {}));
    EXPECT_EQ(Dot(0).ColorGet(), clrList);
    EXPECT_EQ(Dot(0).toolTip(), QStringLiteral("W1ABC, Boston"));
}

}  // namespace
