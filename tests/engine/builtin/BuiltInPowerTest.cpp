// The user's own power in the engine of this process, compared with the powers of its decks and
// with the program.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "engine/builtin/BuiltInEngine.h"
#include "engine/builtin/RandomRequests.h"
#include "propagation/PowerTable.h"
#include "propagation/PropagationAreaLib.h"
#include "propagation/PropagationLib.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

bool SnrIs(float fSnr) { return fSnr != -999.0F && fSnr != -99.0F; }

class BuiltInPower : public testing::TestWithParam<int> {
protected:
    template <class T>
    T With(T request, float fPower) const
    {
        request.iAntennaType = GetParam();
        request.fPower = fPower;
        return request;
    }
    const TempFolder m_folder;
    const BuiltInEngine m_engine{m_folder.Path()};
    RandomRequests m_random{100};
};

INSTANTIATE_TEST_SUITE_P(Antennas, BuiltInPower, testing::Values(0, 1, 2, 7));

TEST_P(BuiltInPower, Of1000WattsIs10DecibelAboveThatOf100InEveryCell)
{
    const double dLow =
        10.0 * std::log10(100.0 / CardPowerGet(kEngineRec533, GetParam(), DeckKind::PointToPoint));
    int nShifted = 0;
    for (int nCircuit = 0; nCircuit < 20; ++nCircuit) {
        const Request request = m_random.PointGet();
        const auto TableGet = [&](float fPower) {
            return m_engine.Predict(With(request, fPower), {}).table;
        };
        const PropagationTable tableCard = TableGet(0.0F);
        const PropagationTable tableLow = TableGet(100.0F);
        const PropagationTable tableHigh = TableGet(1000.0F);
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            EXPECT_EQ(tableHigh.fLUF[iHour], tableCard.fLUF[iHour]);
            for (int i = 1; i <= request.nData; ++i) {
                EXPECT_EQ(tableHigh.fNdBW(iHour, i), tableCard.fNdBW(iHour, i));
                EXPECT_EQ(tableHigh.fReliability(iHour, i), tableCard.fReliability(iHour, i));
                EXPECT_EQ(tableHigh.fSnrLower(iHour, i), tableCard.fSnrLower(iHour, i));
                if (!SnrIs(tableCard.fSnr(iHour, i))) {
                    EXPECT_EQ(tableHigh.fSnr(iHour, i), tableCard.fSnr(iHour, i));
                    continue;
                }
                EXPECT_NEAR(tableHigh.fSnr(iHour, i) - tableLow.fSnr(iHour, i), 10.0, 1e-4);
                EXPECT_NEAR(tableHigh.fSdBW(iHour, i) - tableLow.fSdBW(iHour, i), 10.0, 1e-4);
                EXPECT_NEAR(tableLow.fSnr(iHour, i) - tableCard.fSnr(iHour, i), dLow, 1e-4);
                ++nShifted;
            }
        }
    }
    EXPECT_GT(nShifted, 1000);
}

TEST_P(BuiltInPower, Of1000WattsIs10DecibelAboveThatOf100InAnAreaAndItsDay)
{
    const AreaRequest request = m_random.AreaGet();
    const AreaPrediction low = m_engine.PredictArea(With(request, 100.0F), {});
    const AreaPrediction high = m_engine.PredictArea(With(request, 1000.0F), {});
    const AreaPrediction card = m_engine.PredictArea(With(request, 0.0F), {});
    const double dLow =
        10.0 * std::log10(100.0 / CardPowerGet(kEngineRec533, GetParam(), DeckKind::Area));
    const AreaDayRequest requestDay{With(request, 1000.0F), {request.fFrequency * 1000.0F}};
    std::optional<Failure> failure;
    const auto pWork = m_engine.AreaDayPrepare(requestDay, failure);
    ASSERT_TRUE(pWork != nullptr && !failure);
    AreaDay day(requestDay);
    for (std::size_t iPiece = 0; iPiece < pWork->PiecesGet(); ++iPiece)
        EXPECT_FALSE(pWork->Run(iPiece, day, {}));
    ASSERT_FALSE(high.aPoints.empty());
    for (std::size_t n = 0; n < high.aPoints.size(); ++n) {
        EXPECT_NEAR(high.aPoints[n].fSnr - low.aPoints[n].fSnr, 10.0, 1e-4);
        EXPECT_NEAR(low.aPoints[n].fSnr - card.aPoints[n].fSnr, dLow, 1e-4);
        EXPECT_EQ(day.SnrGet(n, request.iHour, 0), high.aPoints[n].fSnr);
    }
}

TEST_P(BuiltInPower, IsThatOfTheProgramsRuns)
{
    m_folder.Write("bin_win/x", "");
    m_folder.Write("RUN/x", "");
    m_folder.Write("areadata/x", "");
    fs::copy_file(TEST_BIN "/rec533w.exe", m_folder.Path("bin_win/rec533w.exe"));
    const EnvironmentSet root("HOPCAST_ITSHFBC", m_folder.Path());
    const Request request = With(m_random.PointGet(), 25.0F);
    PropagationTable table(request.nData);
    std::vector<Failure> aFailures;
    ASSERT_TRUE(PropagationRun(request, table, aFailures));
    const PropagationTable tableHere = m_engine.Predict(request, {}).table;
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        for (int i = 1; i <= request.nData; ++i) {
            EXPECT_EQ(tableHere.fSnr(iHour, i), table.fSnr(iHour, i));
            EXPECT_EQ(tableHere.fSdBW(iHour, i), table.fSdBW(iHour, i));
        }
    }
    const AreaRequest area = With(m_random.AreaGet(), 25.0F);
    std::vector<AreaPoint> aPoints;
    ASSERT_TRUE(AreaPointsRead(area, aPoints).empty());
    EXPECT_EQ(m_engine.PredictArea(area, {}).aPoints, aPoints);
}

}  // namespace
