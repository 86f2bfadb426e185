// Days in ten compared with the reliability that the engines themselves print for the need in their
// decks.
#include <gtest/gtest.h>

#include <cmath>

#include "engine/builtin/BuiltInEngine.h"
#include "engine/builtin/RandomRequests.h"
#include "propagation/EngineCases.h"
#include "propagation/reader/ReaderLib.h"
#include "studies/days/Days.h"
#include "support/TempFolder.h"

namespace {

constexpr double kDeckNeed = 40.0;  // dB, in every deck

TEST(DaysBuiltIn, AreThePrintedReliabilityToItsLastDigit)
{
    const TempFolder folder;
    const BuiltInEngine engine(folder.Path());
    RandomRequests random(24);
    int nCells = 0;
    for (int n = 0; n < 100; ++n) {
        const PropagationTable table = engine.Predict(random.PointGet(), {}).table;
        const auto aDays = DaysGet(table, kDeckNeed);
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            for (int i = 1; i <= table.nData; ++i) {
                if (aDays(iHour, i).DaysInTenGet() < 0)
                    continue;
                // Printed with two decimals from 0.01 to 0.99; how a half is rounded depends on
                // digits that the table lacks.
                const double dShare = std::clamp(double{aDays(iHour, i).fShare}, 0.01, 0.99);
                ASSERT_NEAR(dShare, table.fReliability(iHour, i), 0.005 + 1e-6);
                ++nCells;
            }
        }
    }
    EXPECT_GT(nCells, 5000);
}

TEST(DaysVoacap, AreThePrintedReliabilityWithinOneInTenIn95PercentOfTheCells)
{
    int nCells = 0;
    int nNear = 0;
    for (const CircuitCase& c : CircuitCases()) {
        if (c.iModel != kEngineVoacap)
            continue;
        const Request request = InputMake(c);
        PropagationTable table(request.nData);
        table.request = request;
        auto resFile = TextFile::Open(CapturedPath(c.sName, ".out"));
        ASSERT_TRUE(resFile) << c;
        ASSERT_TRUE(ReaderIcepacVoacap(resFile.ValueGet(), 1, request.nData, table)) << c;
        table.PresentSet(1, request.nData, true);
        const auto aDays = DaysGet(table, kDeckNeed);
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            for (int i = 1; i <= request.nData; ++i) {
                if (aDays(iHour, i).DaysInTenGet() < 0)
                    continue;
                ++nCells;
                const double dFar = aDays(iHour, i).fShare - table.fReliability(iHour, i);
                nNear += std::abs(dFar) <= 0.1 ? 1 : 0;
            }
        }
    }
    EXPECT_GT(nCells, 1500);
    EXPECT_GE(nNear, nCells * 0.95) << nNear << " of " << nCells;
}

TEST(DaysOfThreeRunsBuiltIn, AreThoseOfTheDecilesWithinTheirRounding)
{
    const TempFolder folder;
    const BuiltInEngine engine(folder.Path());
    RandomRequests random(90);
    int nCells = 0;
    for (int n = 0; n < 10; ++n) {
        const auto aRequests = DaysRequestsGet(random.PointGet());
        const PropagationTable tableMedian = engine.Predict(aRequests[1], {}).table;
        const PropagationTable tableJoined =
            DaysJoin(engine.Predict(aRequests[0], {}).table, tableMedian,
                     engine.Predict(aRequests[2], {}).table);
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            for (int i = 1; i <= tableMedian.nData; ++i) {
                const auto days = SnrDaysGet(tableMedian, iHour, i);
                const auto daysJoined = SnrDaysGet(tableJoined, iHour, i);
                if (!days || !daysJoined)
                    continue;
                EXPECT_NEAR(daysJoined->dMedian, days->dMedian, 0.51);
                EXPECT_NEAR(daysJoined->dLower, days->dLower, 1.01);
                EXPECT_NEAR(daysJoined->dUpper, days->dUpper, 1.01);
                ++nCells;
            }
        }
    }
    EXPECT_GT(nCells, 500);
}

}  // namespace
