#include <gtest/gtest.h>

#include <cmath>

#include "studies/days/Days.h"

namespace {

constexpr SnrDays kDays{50.0, 10.0, 6.0};

class DaysOfSteps : public testing::TestWithParam<DaySteps> {};
INSTANTIATE_TEST_SUITE_P(Steps, DaysOfSteps,
                         testing::Values(DaySteps::HalfNormals, DaySteps::P842));

TEST_P(DaysOfSteps, AreHalfAtTheMedianAndOneAndNineInTenAtTheDeciles)
{
    EXPECT_NEAR(DaysShareGet(kDays, 50.0, GetParam()), 0.5, 1e-12);
    EXPECT_NEAR(DaysShareGet(kDays, 40.0, GetParam()), 0.9, 1e-12);
    EXPECT_NEAR(DaysShareGet(kDays, 56.0, GetParam()), 0.1, 1e-12);
}

TEST_P(DaysOfSteps, FallWithTheNeedFromAllToNone)
{
    double dBefore = 1.0;
    for (double dNeed = -100.0; dNeed <= 150.0; dNeed += 0.5) {
        const double dShare = DaysShareGet(kDays, dNeed, GetParam());
        ASSERT_TRUE(dShare >= 0.0 && dShare <= dBefore) << dNeed;
        dBefore = dShare;
    }
    EXPECT_NEAR(DaysShareGet(kDays, -100.0, GetParam()), 1.0, 1e-9);
    EXPECT_NEAR(DaysShareGet(kDays, 150.0, GetParam()), 0.0, 1e-9);
}

TEST(Days, BetweenTheDecilesFollowTheirOwnSteps)
{
    EXPECT_NEAR(DaysShareGet(kDays, 45.0, DaySteps::HalfNormals), 0.73916, 1e-4);
    EXPECT_NEAR(DaysShareGet(kDays, 45.0, DaySteps::P842), 1.3 - 0.8 / 1.5, 1e-12);
    EXPECT_EQ(DayStepsOf(kEngineRec533), DaySteps::P842);
    EXPECT_EQ(DayStepsOf(kEngineVoacap), DaySteps::HalfNormals);
    EXPECT_EQ(DayStepsOf(kEngineIcepac), DaySteps::HalfNormals);
}

/// One frequency at hour 3 with median 50 and deciles -10 and +6.
PropagationTable TableMake()
{
    PropagationTable table(2);
    table.request.iModel = kEngineVoacap;
    table.PresentSet(1, 2, true);
    for (int iHour = 1; iHour <= kHourCount; ++iHour) table.fSnr(iHour, 1) = -999.0F;
    table.fSnr(3, 1) = 44.0F;  // for another share of the days than the median
    table.fSdBW(3, 1) = -110.0F;
    table.fNdBW(3, 1) = -160.0F;
    table.fSnrLower(3, 1) = 10.0F;
    table.fSnrUpper(3, 1) = 6.0F;
    return table;
}

TEST(DaysOfATable, AreThoseOfItsCells)
{
    const auto aCells = DaysGet(TableMake(), 40.0);
    const DaysCell& cell = aCells(3, 1);
    EXPECT_NEAR(cell.fShare, 0.9, 1e-6);
    EXPECT_EQ(cell.DaysInTenGet(), 9);
    EXPECT_EQ(cell.fBad, 40.0F);
    EXPECT_EQ(cell.fMedian, 50.0F);
    EXPECT_EQ(cell.fGood, 56.0F);
}

TEST(DaysOfATable, AreNoneWithoutSnrDecilesOrValues)
{
    PropagationTable table = TableMake();
    EXPECT_TRUE(DaysArePrinted(table));
    EXPECT_EQ(DaysGet(table, 40.0)(4, 1).DaysInTenGet(), -1) << "no SNR";
    EXPECT_EQ(DaysGet(table, 40.0)(3, 2).DaysInTenGet(), -1) << "no deciles";
    table.PresentSet(1, 1, false);
    EXPECT_EQ(DaysGet(table, 40.0)(3, 1).DaysInTenGet(), -1) << "no values";
    EXPECT_FALSE(DaysArePrinted(table));
}

TEST(DaysOfATable, TakeTheMedianThatIsNotRoundedWhereThereIsOne)
{
    PropagationTable table = TableMake();
    table.fSnrMedian(3, 1) = 50.4F;
    EXPECT_EQ(DaysGet(table, 40.0)(3, 1).fMedian, 50.4F);
}

TEST(DaysOfThreeRuns, AreAskedForWith10And50And90PercentOfTheDays)
{
    Request request;
    request.fReliability = 70.0F;
    request.nMonth = 7;
    const auto aRequests = DaysRequestsGet(request);
    EXPECT_EQ(aRequests[0].fReliability, 10.0F);
    EXPECT_EQ(aRequests[1].fReliability, 50.0F);
    EXPECT_EQ(aRequests[2].fReliability, 90.0F);
    for (Request one : aRequests) {
        one.fReliability = 70.0F;
        EXPECT_EQ(one, request);
    }
}

TEST(DaysOfThreeRuns, AreTheirDifferences)
{
    PropagationTable tableGood = TableMake();
    PropagationTable tableMedian = TableMake();
    PropagationTable tableBad = TableMake();
    tableGood.fSnr(3, 1) = 56.0F;
    tableMedian.fSnr(3, 1) = 50.0F;
    tableBad.fSnr(3, 1) = 41.0F;
    tableGood.fSnr(3, 2) = 20.0F;
    tableMedian.fSnr(3, 2) = 10.0F;
    tableBad.fSnr(3, 2) = -999.0F;
    const PropagationTable table = DaysJoin(tableGood, tableMedian, tableBad);
    const auto days = SnrDaysGet(table, 3, 1);
    ASSERT_TRUE(days);
    EXPECT_EQ(days->dMedian, 50.0);
    EXPECT_EQ(days->dUpper, 6.0);
    EXPECT_EQ(days->dLower, 9.0);
    EXPECT_FALSE(SnrDaysGet(table, 3, 2));
    tableBad.PresentSet(1, 1, false);
    EXPECT_FALSE(SnrDaysGet(DaysJoin(tableGood, tableMedian, tableBad), 3, 1));
}

}  // namespace
