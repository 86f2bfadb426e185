#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

#include "settings/SunSpotForecast.h"

namespace {

const DateTime kToday{2026, 11, 21, 15, 30, 0};

SunSpotForecast NoaaMake(const DateTime& dt = {2026, 11, 20})
{
    return {ForecastSource::Noaa,
            ForecastDating::Mailed,
            dt,
            {{2026, 11, 87.9}, {2026, 12, 85.6}, {2027, 2, 80.0}}};
}

SunSpotForecast WwvMake(const DateTime& dt, double dFlux)
{
    return {ForecastSource::Wwv, ForecastDating::Issued, dt, {{dt.nYear, dt.nMonth, dFlux}}};
}

struct CycleCase {
    const char* sName;
    int nYear, nMonth;
    double dExpected;
};
std::ostream& operator<<(std::ostream& stm, const CycleCase& c) { return stm << c.sName; }

class MeanCycle : public testing::TestWithParam<CycleCase> {};

TEST_P(MeanCycle, IsTheFormulasNumber)
{
    const CycleCase& c = GetParam();
    EXPECT_NEAR(SunSpotMeanCycleGet(c.nYear, c.nMonth), c.dExpected, 0.005);
}

// The first three are published reference values; the others were computed by another program.
INSTANTIATE_TEST_SUITE_P(Months, MeanCycle,
                         testing::Values(CycleCase{"October2024", 2024, 10, 109.95},
                                         CycleCase{"July2026", 2026, 7, 70.89},
                                         CycleCase{"November2026", 2026, 11, 61.52},
                                         CycleCase{"December2019", 2019, 12, 0.0},
                                         CycleCase{"Year1", 1, 1, 0.0},
                                         CycleCase{"BeforeTheSecondCycle", 2030, 12, 2.617},
                                         CycleCase{"BothCyclesAdd", 2031, 1, 2.396},
                                         CycleCase{"SecondCycle", 2035, 9, 110.76}),
                         [](const auto& test) { return std::string(test.param.sName); });

TEST(SunSpotMeanCycle, IsFiniteAndBetweenNoughtAnd120InEveryMonthOfEveryYear)
{
    for (int nYear = 1; nYear <= 9999; nYear += nYear < 2300 ? 1 : 97) {
        for (int nMonth = 1; nMonth <= 12; ++nMonth) {
            const double dNumber = SunSpotMeanCycleGet(nYear, nMonth);
            ASSERT_TRUE(dNumber >= 0.0 && dNumber < 120.0) << nYear << "-" << nMonth;
        }
    }
}

TEST(SunSpotMeanCycle, GreatestSmoothedNumberIsTheObservedOne)
{
    double dMost = 0.0;
    for (int nMonth = 1; nMonth <= 72; ++nMonth)
        dMost = std::max(dMost, SunSpotMeanCycleGet(2020, nMonth));
    EXPECT_NEAR(dMost, 160.9 * kVersion2Factor, 0.1);
}

TEST(SunSpotFromFlux, IsTheRootOfTheParabola)
{
    for (const double dNumber : {0.0, 10.0, 62.0, 112.6, 200.0, 306.0})
        EXPECT_NEAR(SunSpotFromFlux(63.7 + 0.728 * dNumber + 0.00089 * dNumber * dNumber), dNumber,
                    1e-9);
    EXPECT_EQ(SunSpotFromFlux(63.7), 0.0);
    EXPECT_EQ(SunSpotFromFlux(61.0), 0.0);
    EXPECT_LT(SunSpotFromFlux(kFluxMost), 311.0);
}

TEST(SunSpotEstimate, WithoutAForecastIsTheMeanCycleRounded)
{
    const SunSpotEstimate estimate = SunSpotEstimateGet(nullptr, 2026, 11, kToday);
    EXPECT_EQ(estimate.nNumber, 62);
    EXPECT_NEAR(estimate.dNumber, 61.52, 0.005);
    EXPECT_EQ(estimate.eSource, SunSpotSource::MeanCycle);
    EXPECT_EQ(estimate.sDetail, "mean cycle by Hathaway, Wilson and Reichmann 1994, for 2026-11");
    EXPECT_EQ(estimate.sWarning, "");
}

TEST(SunSpotEstimate, ForecastGoesFirstWhereItCoversTheMonth)
{
    const SunSpotForecast forecast = NoaaMake();
    const SunSpotEstimate estimate = SunSpotEstimateGet(&forecast, 2026, 12, kToday);
    EXPECT_NEAR(estimate.dNumber, 59.92, 1e-9);
    EXPECT_EQ(estimate.nNumber, 60);
    EXPECT_EQ(SunSpotSourceName(estimate.eSource), "NOAA forecast");
    EXPECT_EQ(estimate.sDetail,
              "version-2 number 85.6 times 0.7, of the mail of 2026-11-20 (1 day old)");
    EXPECT_EQ(estimate.sWarning, "");
}

TEST(SunSpotEstimate, MonthThatTheForecastLacksIsTheMeanCyclesAndTold)
{
    const SunSpotForecast forecast = NoaaMake();
    for (const auto& [nYear, nMonth] : {std::pair{2026, 10}, {2027, 1}, {2027, 3}}) {
        const SunSpotEstimate estimate = SunSpotEstimateGet(&forecast, nYear, nMonth, kToday);
        EXPECT_EQ(estimate.dNumber, SunSpotMeanCycleGet(nYear, nMonth));
        EXPECT_EQ(estimate.eSource, SunSpotSource::MeanCycle);
    }
    EXPECT_EQ(SunSpotEstimateGet(&forecast, 2027, 3, kToday).sWarning,
              "The NOAA forecast is for 2026-11 to 2027-02; the mean cycle is used for 2027-03. "
              "Read a newer forecast.");
}

TEST(SunSpotEstimate, FluxOfADayCountsForTheCurrentMonthAlone)
{
    const SunSpotForecast forecast = WwvMake({2026, 11, 21}, 123.0);
    const SunSpotEstimate estimate = SunSpotEstimateGet(&forecast, 2026, 11, kToday);
    EXPECT_NEAR(estimate.dNumber, SunSpotFromFlux(123.0), 1e-9);
    EXPECT_EQ(estimate.nNumber, 75);
    EXPECT_EQ(SunSpotSourceName(estimate.eSource), "WWV, one day's flux");
    EXPECT_EQ(estimate.sDetail, "10.7 cm flux 123 of one day, issued 2026-11-21 (of today)");
    EXPECT_EQ(SunSpotEstimateGet(&forecast, 2026, 12, kToday).eSource, SunSpotSource::MeanCycle);
    // The same bulletin in the next month, for its own month and for the new one.
    const DateTime dtLater{2026, 12, 1};
    EXPECT_EQ(SunSpotEstimateGet(&forecast, 2026, 11, dtLater).eSource, SunSpotSource::MeanCycle);
    EXPECT_EQ(SunSpotEstimateGet(&forecast, 2026, 12, dtLater).eSource, SunSpotSource::MeanCycle);
    EXPECT_EQ(SunSpotEstimateGet(&forecast, 2026, 12, dtLater).sWarning,
              "One day's flux counts for the current month alone, and this bulletin is of "
              "2026-11-21; the mean cycle is used for 2026-12. Read a bulletin of today, or a "
              "forecast.");
}

TEST(SunSpotEstimate, ForecastOlderThanSixMonthsIsToldAndUsed)
{
    const SunSpotForecast forecast = NoaaMake({2026, 5, 20});
    const SunSpotEstimate estimate = SunSpotEstimateGet(&forecast, 2026, 11, kToday);
    EXPECT_EQ(SunSpotSourceName(estimate.eSource), "NOAA forecast");
    EXPECT_EQ(estimate.sDetail,
              "version-2 number 87.9 times 0.7, of the mail of 2026-05-20 (6 months old)");
    EXPECT_EQ(estimate.sWarning, "The NOAA forecast is older than six months. Read a newer one.");
}

TEST(ForecastIsOld, BeginsTheDayAfterSixMonths)
{
    EXPECT_FALSE(ForecastIsOld(NoaaMake({2026, 5, 21}), kToday));
    EXPECT_TRUE(ForecastIsOld(NoaaMake({2026, 5, 20}), kToday));
    EXPECT_TRUE(ForecastIsOld(NoaaMake({2025, 11, 21}), kToday));
    EXPECT_FALSE(ForecastIsOld(NoaaMake({2026, 12, 21}), kToday));
    EXPECT_FALSE(ForecastIsOld(NoaaMake({2026, 8, 31}), {2027, 2, 28}));
    EXPECT_TRUE(ForecastIsOld(NoaaMake({2026, 8, 31}), {2027, 3, 1}));
}

TEST(ForecastText, TellsSourceScaleMonthsDateAndAge)
{
    EXPECT_EQ(ForecastText(NoaaMake(), kToday),
              "NOAA forecast for 2026-11 to 2027-02, version-2 numbers times 0.7, of the mail of "
              "2026-11-20 (1 day old)");
    EXPECT_EQ(ForecastText(
                  {ForecastSource::Silso, ForecastDating::Read, {2026, 9, 10}, {{2026, 11, 89.1}}},
                  kToday),
              "SILSO forecast for 2026-11, version-2 numbers times 0.7, read on 2026-09-10 (2 "
              "months old)");
    EXPECT_EQ(
        ForecastText({ForecastSource::Silso, ForecastDating::Read, {2026, 7, 1}, {{2026, 8, 89.1}}},
                     {2026, 8, 31}),
        "SILSO forecast for 2026-08, version-2 numbers times 0.7, read on 2026-07-01 (1 month "
        "old)");
    EXPECT_EQ(ForecastText(WwvMake({2026, 11, 19}, 123.0), kToday),
              "WWV, one day's flux 123, for 2026-11, issued 2026-11-19 (2 days old)");
}

}  // namespace
