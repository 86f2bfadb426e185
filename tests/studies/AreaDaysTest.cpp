#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "studies/areaday/AreaDays.h"

namespace {

constexpr float kNone = std::numeric_limits<float>::quiet_NaN();

/// Four points, three frequencies, with the spreads.
AreaDay DayMake()
{
    AreaDayRequest request;
    request.area.nGridSize = 2;
    request.area.iModel = kEngineVoacap;
    request.afFrequency = {7000.0F, 14000.0F, 21000.0F};
    request.bSpread = true;
    return AreaDay(request);
}

void SnrSet(AreaDay& day, int iHour, float fSnr0, float fSnr1, float fSnr2)
{
    day.SnrGet(1, iHour, 0) = fSnr0;
    day.SnrGet(1, iHour, 1) = fSnr1;
    day.SnrGet(1, iHour, 2) = fSnr2;
}

TEST(AreaBest, IsTheFrequencyWithTheHighestSnrAndOfEqualOnesTheFirst)
{
    AreaDay day = DayMake();
    SnrSet(day, 6, 41.0F, 55.5F, 55.4F);
    EXPECT_EQ(AreaBestGet(day, 1, 6), (AreaBest{1, 55.5F}));
    SnrSet(day, 7, 41.0F, 41.0F, 40.0F);
    EXPECT_EQ(AreaBestGet(day, 1, 7), (AreaBest{0, 41.0F}));
    SnrSet(day, 8, -120.0F, kNone, -98.0F);
    EXPECT_EQ(AreaBestGet(day, 1, 8), (AreaBest{2, -98.0F}));
}

TEST(AreaBest, IsNoneWhereNoFrequencyHasAnSnr)
{
    AreaDay day = DayMake();
    EXPECT_FALSE(AreaBestGet(day, 1, 6));
    SnrSet(day, 6, kNone, -99.0F, -999.0F);
    EXPECT_FALSE(AreaBestGet(day, 1, 6));
}

TEST(AreaDaysInTen, FollowTheMedianAndItsDeciles)
{
    AreaDay day = DayMake();
    day.SnrGet(1, 6, 1) = 50.0F;
    day.SpreadGet(1, 6, 1) = {50.0F, 10.0F, 5.0F};
    EXPECT_EQ(AreaDaysInTenGet(day, 1, 6, 1, 50.0F), 5);
    EXPECT_EQ(AreaDaysInTenGet(day, 1, 6, 1, 40.0F), 9);
    EXPECT_EQ(AreaDaysInTenGet(day, 1, 6, 1, 55.0F), 1);
    EXPECT_EQ(AreaDaysInTenGet(day, 1, 6, 1, 0.0F), 10);
    EXPECT_EQ(AreaDaysInTenGet(day, 1, 6, 1, 100.0F), 0);
}

TEST(AreaDaysInTen, StepAsTheirEngineDoes)
{
    AreaDay day = DayMake();
    for (const auto& [iModel, nDays] : {std::pair(kEngineVoacap, 7), std::pair(kEngineRec533, 8)}) {
        day.request.area.iModel = iModel;
        day.SnrGet(1, 6, 1) = 50.0F;
        day.SpreadGet(1, 6, 1) = {50.0F, 10.0F, 5.0F};
        EXPECT_EQ(AreaDaysInTenGet(day, 1, 6, 1, 44.9F), nDays) << iModel;
    }
}

TEST(AreaDaysInTen, AreNoneWithoutAnSnrOrWithoutDeciles)
{
    AreaDay day = DayMake();
    EXPECT_FALSE(AreaDaysInTenGet(day, 1, 6, 1, 40.0F));
    day.SnrGet(1, 6, 1) = 50.0F;
    EXPECT_FALSE(AreaDaysInTenGet(day, 1, 6, 1, 40.0F));
    day.SpreadGet(1, 6, 1) = {50.0F, 10.0F, 0.0F};
    EXPECT_FALSE(AreaDaysInTenGet(day, 1, 6, 1, 40.0F));
    day.SpreadGet(1, 6, 1) = {50.0F, 10.0F, 5.0F};
    day.SnrGet(1, 6, 1) = -999.0F;
    EXPECT_FALSE(AreaDaysInTenGet(day, 1, 6, 1, 40.0F));
}

TEST(AreaHoursOpen, CountTheHoursInWhichSomeFrequencyReachesTheNeed)
{
    AreaDay day = DayMake();
    EXPECT_EQ(AreaHoursOpenGet(day, 1, 40.0F), 0);
    SnrSet(day, 0, 39.9F, 40.0F, kNone);
    SnrSet(day, 5, kNone, kNone, 70.0F);
    SnrSet(day, 6, 39.9F, 39.9F, 39.9F);
    SnrSet(day, 23, 45.0F, 46.0F, 47.0F);
    EXPECT_EQ(AreaHoursOpenGet(day, 1, 40.0F), 3);
    EXPECT_EQ(AreaHoursOpenGet(day, 1, 39.9F), 4);
    EXPECT_EQ(AreaHoursOpenGet(day, 0, 40.0F), 0);
}

TEST(AreaHoursOpen, HoursThatDoNotCountAreLeftOut)
{
    AreaDay day = DayMake();
    SnrSet(day, 0, 50.0F, kNone, kNone);
    SnrSet(day, 5, 50.0F, kNone, kNone);
    AreaHours hours;
    hours.set(5);
    EXPECT_EQ(AreaHoursOpenGet(day, 1, 40.0F, hours), 1);
}

}  // namespace
