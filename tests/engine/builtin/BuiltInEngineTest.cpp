/// The engine in this process compared with the program's page and grid, field by field.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <string>

#include "engine/builtin/BuiltInEngine.h"
#include "engine/builtin/RandomRequests.h"
#include "engine/run533/Run.h"
#include "propagation/EngineCases.h"
#include "propagation/PropagationAreaLib.h"
#include "propagation/PropagationLib.h"
#include "propagation/deck/DeckLib.h"
#include "propagation/reader/ReaderLib.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

/// The table read from the pages that the program prints for a request.
PropagationTable TableOfPages(const TempFolder& folder, const Request& request)
{
    PropagationTable table(request.nData);
    table.request = request;
    for (int iFirst = 1; iFirst <= request.nData; iFirst += kChunkMax) {
        const int iLast = std::min(iFirst + kChunkMax - 1, request.nData);
        const auto resDeck = DeckRec533(request, iFirst, iLast, request.nYear);
        EXPECT_TRUE(static_cast<bool>(resDeck)) << resDeck.TextGet();
        const auto resPage =
            run533::PointOutputMake(resDeck.ValueGet(), folder.Path(), rec533::Behaviour::Best);
        EXPECT_TRUE(static_cast<bool>(resPage)) << resPage.TextGet();
        auto resFile = TextFile::Open(folder.Write("page", resPage.ValueGet()));
        const auto resRead = ReaderRec533(resFile.ValueGet(), request, iFirst, iLast, table);
        EXPECT_TRUE(static_cast<bool>(resRead)) << resRead.TextGet();
    }
    return table;
}

/// Compares every field that both hold; the page has no deciles.
void TablesExpectEqual(const PropagationTable& table, const PropagationTable& tablePage)
{
    EXPECT_EQ(table.fAzimuthTxRc, tablePage.fAzimuthTxRc);
    EXPECT_EQ(table.fAzimuthRcTx, tablePage.fAzimuthRcTx);
    EXPECT_EQ(table.fRange, tablePage.fRange);
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        EXPECT_EQ(table.fMUF[iHour], tablePage.fMUF[iHour]) << iHour;
        EXPECT_EQ(table.fLUF[iHour], tablePage.fLUF[iHour]) << iHour;
        EXPECT_EQ(table.fFOT[iHour], tablePage.fFOT[iHour]) << iHour;
        for (int j = 1; j <= table.nData; ++j) {
            SCOPED_TRACE("hour " + std::to_string(iHour) + ", frequency " + std::to_string(j));
            EXPECT_EQ(table.sLayer(iHour, j), tablePage.sLayer(iHour, j));
            EXPECT_EQ(table.fTakeoffAngle(iHour, j), tablePage.fTakeoffAngle(iHour, j));
            EXPECT_EQ(table.fTimeDelay(iHour, j), tablePage.fTimeDelay(iHour, j));
            EXPECT_EQ(table.fVirtualHeight(iHour, j), tablePage.fVirtualHeight(iHour, j));
            EXPECT_EQ(table.fSdBW(iHour, j), tablePage.fSdBW(iHour, j));
            EXPECT_EQ(table.fNdBW(iHour, j), tablePage.fNdBW(iHour, j));
            EXPECT_EQ(table.fSnr(iHour, j), tablePage.fSnr(iHour, j));
            EXPECT_EQ(table.fReliability(iHour, j), tablePage.fReliability(iHour, j));
            EXPECT_TRUE(table.PresentIs(j));
            EXPECT_TRUE(table.fSnrLower(iHour, j) > 0.0F && table.fSnrUpper(iHour, j) > 0.0F);
        }
    }
}

TEST(BuiltInEngine, EveryFieldIsTheProgramsPageOverAllSettings)
{
    constexpr int kCircuits = 500;
    const TempFolder folder;
    const BuiltInEngine engine(folder.Path());
    RandomRequests random(15);
    for (int i = 0; i < kCircuits && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE("circuit " + std::to_string(i));
        const Request request = random.PointGet();
        const Prediction prediction = engine.Predict(request, {});
        ASSERT_TRUE(prediction.bOk)
            << (prediction.aFailures.empty() ? "" : prediction.aFailures[0].sDetail);
        EXPECT_EQ(prediction.table.request, request);
        TablesExpectEqual(prediction.table, TableOfPages(folder, request));
    }
}

/// A root with the program itself.
class BuiltInBesideProgram : public testing::Test {
protected:
    BuiltInBesideProgram()
    {
        m_folder.Write("bin_win/x", "");
        m_folder.Write("RUN/x", "");
        m_folder.Write("areadata/x", "");
        // A copy, because ordinary users of Windows cannot make links.
        fs::copy_file(TEST_BIN "/rec533w.exe", m_folder.Path("bin_win/rec533w.exe"));
    }
    TempFolder m_folder;
    EnvironmentSet m_root{"HOPCAST_ITSHFBC", m_folder.Path()};
    BuiltInEngine m_engine{m_folder.Path()};
    RandomRequests m_random{20261121};
};

TEST_F(BuiltInBesideProgram, AnswersAsItsRunsDo)
{
    constexpr int kCircuits = 20;
    for (int i = 0; i < kCircuits; ++i) {
        const Request request = m_random.PointGet();
        PropagationTable table(request.nData);
        std::vector<Failure> aFailures;
        ASSERT_TRUE(PropagationRun(request, table, aFailures));
        TablesExpectEqual(m_engine.Predict(request, {}).table, table);
    }
}

TEST_F(BuiltInBesideProgram, EveryPointOfAnAreaIsTheGridsAndTheDays)
{
    constexpr int kAreas = 20;
    for (int i = 0; i < kAreas; ++i) {
        SCOPED_TRACE("area " + std::to_string(i));
        const AreaRequest request = m_random.AreaGet();
        std::vector<AreaPoint> aPoints;
        ASSERT_TRUE(AreaPointsRead(request, aPoints).empty());
        const AreaPrediction prediction = m_engine.PredictArea(request, {});
        ASSERT_TRUE(prediction.bOk);
        EXPECT_EQ(prediction.aPoints, aPoints);

        const AreaDayRequest requestDay{request, {7050.0F, request.fFrequency * 1000.0F, 28000.0F}};
        std::optional<Failure> failure;
        const auto pWork = m_engine.AreaDayPrepare(requestDay, failure);
        ASSERT_TRUE(pWork != nullptr && !failure);
        AreaDay day(requestDay);
        for (std::size_t iPiece = 0; iPiece < pWork->PiecesGet(); ++iPiece)
            EXPECT_FALSE(pWork->Run(iPiece, day, {}));
        for (std::size_t iPoint = 0; iPoint < aPoints.size(); ++iPoint) {
            EXPECT_EQ(day.aPlaces[iPoint].dLat, aPoints[iPoint].dLat);
            EXPECT_EQ(day.aPlaces[iPoint].dLon, aPoints[iPoint].dLon);
            EXPECT_EQ(day.SnrGet(iPoint, request.iHour, 1), aPoints[iPoint].fSnr);
        }
    }
}

TEST(BuiltInEngine, TellsWhatKindOfInputItCannotUse)
{
    const TempFolder folder;
    const BuiltInEngine engine(folder.Path());
    RandomRequests random(1);
    Request request = random.PointGet();
    request.fSunSpotNumber = 12345.0F;
    Prediction prediction = engine.Predict(request, {});
    EXPECT_FALSE(prediction.bOk);
    ASSERT_EQ(prediction.aFailures.size(), 1U);
    EXPECT_EQ(prediction.aFailures[0].eKind, FailureKind::BadInput);
    EXPECT_TRUE(prediction.aFailures[0].sText.starts_with("PropagationRec533, Output "));
    EXPECT_FALSE(prediction.table.PresentIs(1));

    AreaRequest area = random.AreaGet();
    area.dFixedLat = 95.0;
    EXPECT_EQ(engine.PredictArea(area, {}).aFailures.at(0).eKind, FailureKind::BadInput);
    std::optional<Failure> failure;
    EXPECT_EQ(engine.AreaDayPrepare({area, {7000.0F}}, failure), nullptr);
    EXPECT_EQ(failure->eKind, FailureKind::BadInput);
    EXPECT_EQ(engine.AreaDayPrepare({random.AreaGet(), {}}, failure), nullptr);
    EXPECT_TRUE(failure);
}

/// Otherwise a runner would return the answers for the old antenna.
TEST(BuiltInEngine, IsAnotherWhenAnAntennaOfItsRootIsExchanged)
{
    const TempFolder folder;
    const BuiltInEngine engine(folder.Path());
    const std::string sNone = engine.IdentityGet();
    EXPECT_EQ(engine.IdentityGet(), sNone);
    folder.Write("antennas/default/swwhip.voa", "mine");
    EXPECT_NE(engine.IdentityGet(), sNone);
    EXPECT_NE(BuiltInEngine("").IdentityGet(), sNone) << "another root";
}

TEST(BuiltInEngine, AFrequencyOutOfRangeIsAbsentAndTheOthersKeepTheirPlace)
{
    const TempFolder folder;
    const BuiltInEngine engine(folder.Path());
    RandomRequests random(2);
    Request request = random.PointGet();
    request.nData = 3;
    request.afFrequency = {0.0F, 7000.0F, 50.0F, 14000.0F};
    const Prediction prediction = engine.Predict(request, {});
    EXPECT_TRUE(prediction.bOk);
    EXPECT_TRUE(prediction.table.PresentIs(1));
    EXPECT_FALSE(prediction.table.PresentIs(2));
    Request requestAlone = request;
    requestAlone.nData = 1;
    requestAlone.afFrequency = {0.0F, 14000.0F};
    const Prediction alone = engine.Predict(requestAlone, {});
    for (int iHour = 1; iHour <= kHourCount; ++iHour)
        EXPECT_EQ(prediction.table.fSnr(iHour, 3), alone.table.fSnr(iHour, 1));
}

TEST(BuiltInEngine, AStopBeforeOrDuringTheWorkIsTold)
{
    const TempFolder folder;
    const BuiltInEngine engine(folder.Path());
    RandomRequests random(3);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(engine.Predict(random.PointGet(), stop.get_token()).aFailures.at(0).eKind,
              FailureKind::Cancelled);
    EXPECT_EQ(engine.PredictArea(random.AreaGet(), stop.get_token()).aFailures.at(0).eKind,
              FailureKind::Cancelled);
}

}  // namespace
