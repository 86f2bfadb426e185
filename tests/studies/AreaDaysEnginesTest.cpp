// The spreads of an area's day as the engine in this process gives them, compared with three runs
// of it.
#include <gtest/gtest.h>

#include <cmath>

#include "engine/builtin/BuiltInEngine.h"
#include "engine/builtin/RandomRequests.h"
#include "propagation/SnrScale.h"
#include "studies/areaday/AreaDays.h"
#include "support/TempFolder.h"

namespace {

AreaDay DayGet(AreaDayWork& work, const AreaDayRequest& request)
{
    AreaDay day(request);
    for (std::size_t n = work.PiecesGet(); n-- > 0;)  // in any order
        EXPECT_FALSE(work.Run(n, day, {}));
    return day;
}

class AreaDaysBuiltIn : public testing::Test {
protected:
    const TempFolder m_folder;
    const BuiltInEngine m_engine{m_folder.Path()};
    std::optional<Failure> m_failure;
};

TEST_F(AreaDaysBuiltIn, SpreadsAreThoseOfRunsForTenFiftyAndNinetyPercentOfTheDays)
{
    RandomRequests random(7);
    int nCells = 0;
    for (int n = 0; n < 3; ++n) {
        AreaDayRequest request{random.AreaGet(), {7050.0F, 14100.0F}, true};
        request.area.nGridSize = 4;
        const auto pTold = m_engine.AreaDayPrepare(request, m_failure);
        ASSERT_NE(pTold, nullptr);
        EXPECT_FALSE(pTold->PartGet(0)) << "rows of all hours";
        const AreaDay told = DayGet(*pTold, request);
        const auto pAsked = m_engine.Engine::AreaDayPrepare(request, m_failure);
        ASSERT_NE(pAsked, nullptr);
        EXPECT_EQ(pAsked->PartGet(5), (AreaDayPart{2, 1}));
        const AreaDay asked = DayGet(*pAsked, request);
        for (std::size_t i = 0; i < told.aPlaces.size(); ++i) {
            EXPECT_EQ(told.aPlaces[i].dLat, asked.aPlaces[i].dLat);
            EXPECT_EQ(told.aPlaces[i].dLon, asked.aPlaces[i].dLon);
            for (int iHour = 0; iHour < kHourCount; ++iHour) {
                for (std::size_t j = 0; j < 2; ++j) {
                    ASSERT_EQ(told.SnrGet(i, iHour, j), asked.SnrGet(i, iHour, j));
                    const AreaSpread& one = told.SpreadGet(i, iHour, j);
                    const AreaSpread& other = asked.SpreadGet(i, iHour, j);
                    if (std::isnan(other.fMedian) || one.fMedian - one.fLower < -90.0F)
                        continue;  // a grid's least value is -99.9
                    ++nCells;
                    constexpr float kPrinted = 0.11F;  // two values, each rounded to a tenth
                    ASSERT_NEAR(one.fMedian, other.fMedian, kPrinted);
                    ASSERT_NEAR(one.fLower, other.fLower, kPrinted);
                    ASSERT_NEAR(one.fUpper, other.fUpper, kPrinted);
                }
            }
        }
    }
    EXPECT_GT(nCells, 100);
}

TEST_F(AreaDaysBuiltIn, ADayWithoutSpreadsTakesAQuarterOfTheRoom)
{
    AreaDayRequest request;
    request.afFrequency = {7000.0F};
    const std::size_t nPoints = 1600 * 24;
    EXPECT_EQ(AreaDay(request).BytesGet(), 1600 * sizeof(AreaDay::Place) + nPoints * 4);
    request.bSpread = true;
    EXPECT_EQ(AreaDay(request).BytesGet(), 1600 * sizeof(AreaDay::Place) + nPoints * 16);
}

}  // namespace
