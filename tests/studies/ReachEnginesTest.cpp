// The rows of many places compared with single predictions of the same circuits.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <filesystem>
#include <random>
#include <thread>

#include "engine/builtin/BuiltInEngine.h"
#include "propagation/SnrScale.h"
#include "propagation/itshfbc/EngineRoot.h"
#include "propagation/itshfbc/ProcessEngine.h"
#include "studies/reach/Reach.h"
#include "support/NeedVoacapl.h"
#include "support/TempFolder.h"

namespace {

std::vector<Place> PlacesMake(int nCount, double dHereLat, double dHereLon)
{
    std::mt19937 random(22);
    std::uniform_real_distribution<double> lat(-85.0, 85.0);
    std::uniform_real_distribution<double> lon(-180.0, 180.0);
    std::vector<Place> aPlaces;
    for (int n = 0; n < nCount; ++n) {
        Place place;
        place.sKey = "S" + std::to_string(n);
        place.dLat = lat(random);
        place.dLon = lon(random);
        if (n % 3 == 0)
            place.afFrequency = {3590.0F, 7103.0F + static_cast<float>(n), 14105.5F};
        aPlaces.push_back(std::move(place));
    }
    aPlaces[1].dLat = dHereLat;  // here
    aPlaces[1].dLon = dHereLon;
    aPlaces[2].dLat = -dHereLat;  // the antipode
    aPlaces[2].dLon = dHereLon + 180.0;
    return aPlaces;
}

ReachInput AskedMake(int iModel)
{
    Settings settings;
    settings.m_iPropagationModel = iModel;
    settings.m_iPropagationMonth = 11;
    settings.m_fPropagationSunSpotNumber = 62.0F;
    settings.m_sPropagationIonCoefficients = "CCIR";
    settings.m_iPropagationAntennaType = 0;
    settings.m_dRcLat = 15.375;
    settings.m_dRcLon = -132.6875;
    ReachInput input;
    input.base = RequestFromSettings(settings);
    input.base.nYear = 2026;
    input.base.fPower = 25.0F;
    input.bOwnFrequencies = true;
    input.iFrom = 15;
    input.nHours = 6;
    return input;
}

/// Computes all rows; the runner's answers are handled on this thread or a worker's.
void ReachRun(const std::shared_ptr<const Engine>& pEngine, Reach& reach)
{
    std::atomic<bool> bEnd{false};
    std::atomic<std::size_t> nRows{0};
    Runner runner([](const std::function<void()>& fnCall) { fnCall(); }, 1);
    const RunnerJob job = ReachStart(
        runner, pEngine, reach, [&](std::size_t) { ++nRows; }, [&] { bEnd = true; });
    while (!bEnd) std::this_thread::yield();
    EXPECT_EQ(nRows, reach.PlacesGet().size());
}

/// Compares a row with the table of its circuit, requested as the main window does.
void RowExpect(const Reach& reach, std::size_t iPlace, const Engine& engine)
{
    const Place& place = reach.PlacesGet()[iPlace];
    Request request = reach.InputGet().base;
    request.dTxLat = place.dLat;
    request.dTxLon = place.dLon;
    if (!place.afFrequency.empty()) {
        request.afFrequency = place.afFrequency;
        request.afFrequency.insert(request.afFrequency.begin(), 0.0F);
        request.nData = static_cast<int>(place.afFrequency.size());
    }
    const PropagationTable table = engine.Predict(request, {}).table;
    const ReachRow& row = reach.RowsGet()[iPlace];
    ASSERT_EQ(row.eState, ReachState::Answered) << row.sFailure;
    EXPECT_EQ(row.dRange, table.fRange);
    EXPECT_EQ(row.dBearing, table.fAzimuthRcTx);
    for (int iHour = 0; iHour < kReachHours; ++iHour) {
        SCOPED_TRACE("hour " + std::to_string(iHour));
        float fBest = kSnrLeast;
        for (int i = 1; i <= request.nData; ++i) fBest = std::fmax(fBest, table.fSnr(iHour + 1, i));
        const ReachHour& hour = row.aHours.at(static_cast<std::size_t>(iHour));
        if (fBest == kSnrLeast) {
            EXPECT_TRUE(std::isnan(hour.fSnr));
            continue;
        }
        EXPECT_EQ(hour.fSnr, fBest);
        bool bFound = false;
        for (int i = 1; i <= request.nData; ++i)
            bFound = bFound
                     || (request.FrequencyGet(i) == hour.fFrequency
                         && table.fSnr(iHour + 1, i) == fBest);
        EXPECT_TRUE(bFound);
    }
}

TEST(ReachBuiltIn, RowsAreTheSinglePredictionsOfFiftyStations)
{
    const TempFolder folder;
    const auto pEngine = std::make_shared<BuiltInEngine>(folder.Path());
    const ReachInput input = AskedMake(kEngineRec533);
    Reach reach(input, PlacesMake(50, input.base.dRcLat, input.base.dRcLon));
    ReachRun(pEngine, reach);
    const BuiltInEngine engineAlone(folder.Path());
    for (std::size_t i = 0; i < reach.PlacesGet().size(); ++i) {
        SCOPED_TRACE(reach.PlacesGet()[i].sKey);
        RowExpect(reach, i, engineAlone);
    }
    const auto aiRanking = reach.RankingGet();
    int nOpen = 0;
    for (const ReachRow& row : reach.RowsGet()) nOpen += row.opening.nWait == 0 ? 1 : 0;
    ASSERT_GT(nOpen, 3);
    ASSERT_LT(nOpen, 50);
    for (std::size_t n = 1; n < static_cast<std::size_t>(nOpen); ++n)
        EXPECT_GE(reach.RowsGet()[aiRanking[n - 1]].fMargin, reach.RowsGet()[aiRanking[n]].fMargin);
}

TEST(ReachBuiltIn, ThirtyOwnFrequenciesAreAllTried)
{
    const TempFolder folder;
    ReachInput input = AskedMake(kEngineRec533);
    std::vector<Place> aPlaces = PlacesMake(4, input.base.dRcLat, input.base.dRcLon);
    aPlaces[0].afFrequency.clear();
    for (int n = 0; n < 30; ++n)
        aPlaces[0].afFrequency.push_back(2000.0F + 900.0F * static_cast<float>(n));
    Reach reach(input, aPlaces);
    ReachRun(std::make_shared<BuiltInEngine>(folder.Path()), reach);
    RowExpect(reach, 0, BuiltInEngine(folder.Path()));
}

#ifndef _WIN32
TEST(ReachVoacap, RowsAreTheSinglePredictionsOfFiftyStations)
{
    NEED_VOACAPL();
    const TempFolder folder;
    const EnvironmentSet data("XDG_DATA_HOME", folder.Path("data"));
    const EnvironmentSet wine("WINEPREFIX", folder.Path("wine"));
    const EnvironmentSet root("HOPCAST_ITSHFBC", std::nullopt);
    const auto resRoot = EngineRootProvisionFrom(TEST_BIN, "/usr/bin");
    ASSERT_TRUE(resRoot) << resRoot.TextGet();
    const auto pEngine = std::make_shared<ProcessEngine>(kEngineVoacap);
    ASSERT_FALSE(pEngine->ObstacleGet());
    const ReachInput input = AskedMake(kEngineVoacap);
    std::vector<Place> aPlaces = PlacesMake(50, input.base.dRcLat, input.base.dRcLon);
    Reach reach(input, aPlaces);
    ReachRun(pEngine, reach);
    for (std::size_t i = 0; i < aPlaces.size(); ++i) {
        SCOPED_TRACE(aPlaces[i].sKey);
        RowExpect(reach, i, *pEngine);
    }
}
#endif

}  // namespace
