#include "MapFakes.h"
#include "airmail/AirMailFolders.h"
#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"

namespace {

/// On the second frequency the SNR is 50 dB plus the hour of UTC, on the others 30 dB.
class EngineKnown final : public Engine {
public:
    [[nodiscard]] int ModelGet() const override { return kEngineRec533; }
    [[nodiscard]] std::string NameGet() const override { return "Known"; }
    [[nodiscard]] std::string VersionGet() const override { return "1"; }
    [[nodiscard]] EngineLimits LimitsGet() const override { return {m_nFrequencies, 1}; }
    [[nodiscard]] std::optional<Failure> ObstacleGet() const override { return {}; }
    [[nodiscard]] Prediction Predict(const Request& request,
                                     const std::stop_token& /*stop*/) const override
    {
        m_aRequests.push_back(request);
        Prediction prediction;
        prediction.bOk = true;
        prediction.table = PropagationTable(request.nData);
        prediction.table.request = request;
        for (int i = 1; i <= request.nData; ++i) {
            prediction.table.PresentSet(i, i, true);
            for (int iHour = 1; iHour <= kHourCount; ++iHour)
                prediction.table.fSnr(iHour, i) = i == 2 ? 49.0F + float(iHour) : 30.0F;
        }
        return prediction;
    }
    [[nodiscard]] AreaPrediction PredictArea(const AreaRequest& /*request*/,
                                             const std::stop_token& /*stop*/) const override
    {
        return {};
    }
    int m_nFrequencies = 100;
    mutable std::vector<Request> m_aRequests;
};

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

    /// An answer for W1ABC only: 62 dB at 5 UTC, nothing at other hours.
    void ReachSet()
    {
        Place place;
        place.sSystem = "HAM";
        place.sKey = "W1ABC";
        ReachInput input;
        m_host.m_settings.m_nData = 1;
        m_host.m_settings.FrequencySet(1, 7000.0F);
        input.base = RequestFromSettings(m_host.m_settings);
        input.base.dTxLat = input.base.dTxLon = 0.0;
        Reach reach(input, {place});
        Prediction prediction;
        prediction.table = PropagationTable(1);
        prediction.table.request = ReachRequestGet(input, place);
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
    void PointerTo(std::size_t n)
    {
        QEnterEvent evt({4, 4}, {4, 4}, {4, 4});
        QApplication::sendEvent(m_pMap->imgStation[n], &evt);
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

TEST_F(MapReachShown, TheTipTellsWayBestFrequencyAndNextOpening)
{
    HourSet(3);
    ReachSet();
    PointerTo(0);
    // 24 N 110 W to 42.513 N 70.974 W.
    EXPECT_EQ(Dot(0).toolTip(), QStringLiteral("W1ABC, Boston\n2225 nmi, bearing 050°\n"
                                               "03:00 UTC: no value\n"
                                               "E-mail, normal (40 dB): opens at 05:00 UTC"));
    HourSet(5);
    PointerTo(0);
    EXPECT_TRUE(Dot(0).toolTip().endsWith(
        QStringLiteral("05:00 UTC: 7000 kHz, 62 dB\nE-mail, normal (40 dB): open until 06:00 UTC")))
        << Dot(0).toolTip().toStdString();
    m_host.m_settings.m_sNeedSelected = "AM broadcast";  // 62 dB
    PointerTo(0);
    EXPECT_TRUE(Dot(0).toolTip().contains(QStringLiteral("AM broadcast (62 dB): open until")));
    m_host.m_settings.m_aNeed = {{"Much", 62.5F, "test"}};
    m_host.m_settings.m_sNeedSelected = "Much";
    PointerTo(0);
    EXPECT_TRUE(Dot(0).toolTip().endsWith(QStringLiteral("Much (62.5 dB): not open")));
    EXPECT_EQ(Dot(0).ColorGet(), ColorFromBgr(SnrGetColor(62.0F))) << "keeps its colour";
}

TEST_F(MapReachShown, AStationNobodyAskedForIsPredictedAtOnceByAnEngineOfThisProcess)
{
    HourSet(7);
    PointerTo(1);
    EXPECT_TRUE(Dot(1).toolTip().startsWith(QStringLiteral("K4XYZ, Tampa\n")));
    EXPECT_TRUE(Dot(1).toolTip().endsWith(QChar(0xB0))) << "no engine: the way alone";
    const auto pEngine = std::make_shared<EngineKnown>();
    m_pMap->EnginesSet([pEngine](int) { return pEngine; });
    const QColor clrList = Dot(1).ColorGet();
    PointerTo(1);
    ASSERT_EQ(pEngine->m_aRequests.size(), 1u);
    const Request& request = pEngine->m_aRequests[0];
    EXPECT_DOUBLE_EQ(request.dRcLat, 24);
    EXPECT_NEAR(request.dTxLat, 27.513, 0.001);
    EXPECT_EQ(request.nData, m_host.m_settings.m_nData);
    EXPECT_TRUE(Dot(1).toolTip().endsWith(
        QStringLiteral("07:00 UTC: 4000 kHz, 57 dB\nE-mail, normal (40 dB): open all day")))
        << Dot(1).toolTip().toStdString();
    EXPECT_EQ(Dot(1).ColorGet(), clrList);
    PointerTo(1);
    HourSet(8);
    PointerTo(1);
    EXPECT_EQ(pEngine->m_aRequests.size(), 1u) << "kept";
    EXPECT_TRUE(Dot(1).toolTip().contains(QStringLiteral("08:00 UTC: 4000 kHz, 58 dB")));
    m_pMap->m_posRc = {10, 20};
    PointerTo(1);
    ASSERT_EQ(pEngine->m_aRequests.size(), 2u) << "the flag was moved";
    EXPECT_DOUBLE_EQ(pEngine->m_aRequests[1].dRcLon, 20);
}

TEST_F(MapReachShown, TheBoardIsNotToldFromAnotherPlaceAndOtherEnginesAreNotAsked)
{
    HourSet(5);
    ReachSet();
    const auto pEngine = std::make_shared<EngineKnown>();
    pEngine->m_nFrequencies = 10;  // like an engine program
    m_pMap->EnginesSet([pEngine](int) { return pEngine; });
    PointerTo(0);
    EXPECT_TRUE(Dot(0).toolTip().contains(QStringLiteral("7000 kHz, 62 dB")));
    m_pMap->m_posRc = {10, 20};
    PointerTo(0);
    EXPECT_FALSE(Dot(0).toolTip().contains(QStringLiteral("kHz")));
    EXPECT_TRUE(pEngine->m_aRequests.empty());
}

TEST_F(MapReachShown, WhatWasFoundWithOlderSettingsIsNotToldAnyMore)
{
    const QColor clrList = Dot(0).ColorGet();
    const QColor clrFound = ColorFromBgr(SnrGetColor(62.0F));
    HourSet(5);
    ReachSet();
    PointerTo(0);
    ASSERT_TRUE(Dot(0).toolTip().contains(QStringLiteral("7000 kHz, 62 dB")));
    const Settings before = m_host.m_settings;
    const auto Changed = [&](const auto& fnChange) {
        m_host.m_settings = before;
        fnChange(m_host.m_settings);
        m_pMap->Update();
    };
    const std::function<void(Settings&)> afnChange[] = {
        [](Settings& settings) { settings.m_iPropagationMonth = 7; },
        [](Settings& settings) { settings.m_fStationPower = 400.0F; },
        [](Settings& settings) { settings.m_dRcLat += 1.0; },
        [](Settings& settings) { settings.m_iPropagationModel = kEngineVoacap; },
        [](Settings& settings) { settings.FrequencySet(1, 7100.0F); },
        [](Settings& settings) { settings.m_nData = 2; },
    };
    for (const auto& fnChange : afnChange) {
        Changed(fnChange);
        EXPECT_EQ(Dot(0).ColorGet(), clrList);
        EXPECT_EQ(Dot(0).toolTip(), QStringLiteral("W1ABC, Boston"));
        PointerTo(0);
        EXPECT_FALSE(Dot(0).toolTip().contains(QStringLiteral("kHz")));
        Changed([](Settings&) {});
        EXPECT_EQ(Dot(0).ColorGet(), clrFound) << "it answers these again";
    }
    // A search does not depend on the other end, the need or the windows.
    Changed([](Settings& settings) {
        settings.m_dTxLat += 10.0;
        settings.m_sNeedSelected = "AM broadcast";
    });
    EXPECT_EQ(Dot(0).ColorGet(), clrFound);
}

TEST_F(MapReachShown, TheSunspotNumberThatARunFoundOutMayBeAnother)
{
    HourSet(5);
    ReachSet();
    const QColor clrFound = Dot(0).ColorGet();
    m_host.m_settings.m_fPropagationSunSpotNumber += 50.0F;
    Q_EMIT m_host.SettingsSignalGet().TableRenewed();
    EXPECT_NE(Dot(0).ColorGet(), clrFound);
}

TEST_F(MapReachShown, TheListOfAStationThatWasTakenIsNoOtherQuestion)
{
    HourSet(5);
    ReachSet();
    const QColor clrFound = Dot(0).ColorGet();
    m_host.m_settings.FrequencySet(1, 13992.0F);
    m_host.m_bTaken = true;
    m_pMap->Update();
    EXPECT_EQ(Dot(0).ColorGet(), clrFound);
    m_host.m_bTaken = false;
    m_pMap->Update();
    EXPECT_NE(Dot(0).ColorGet(), clrFound);
}

TEST_F(MapReachShown, StationsGoWithTheHourThatTheOverlaysMenuTakesFromTheTable)
{
    HourSet(6);
    ReachSet();
    m_pMap->mnuOverlayDraw->setChecked(true);
    m_host.m_settings.m_selected = {1, 6};
    QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
    m_pMap->mnuOverlay->close();
    EXPECT_EQ(Dot(0).ColorGet(), ColorFromBgr(SnrGetColor(62.0F)));
}

TEST_F(MapReachShown, AnotherSearchTakesThePlaceOfTheFormer)
{
    HourSet(5);
    const QColor clrList = Dot(0).ColorGet();
    ReachSet();
    m_host.ReachBoardGet().Set(Reach(ReachInput(), {}));
    EXPECT_EQ(Dot(0).ColorGet(), clrList);
    EXPECT_EQ(Dot(0).toolTip(), QStringLiteral("W1ABC, Boston"));
}

}  // namespace
