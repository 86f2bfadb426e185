#include <gtest/gtest.h>

#include <ctime>

#include "support/ClockSet.h"
#include "system/ClockLib.h"
#include "system/RunErrorText.h"

namespace {

TEST(UtcNow, IsTheSystemsTime)
{
    const std::time_t nBefore = std::time(nullptr);
    const DateTime dt = UtcNow();
    const std::time_t nAfter = std::time(nullptr);
    const long long nSeconds =
        DayNumber(dt) * 86400 + dt.nHour * 3600 + dt.nMinute * 60 + dt.nSecond;
    EXPECT_GE(nSeconds, nBefore);
    EXPECT_LE(nSeconds, nAfter);
}

struct DateCase {
    const char* sText;
    DateTime dtExpected;
};
std::ostream& operator<<(std::ostream& stm, const DateCase& c) { return stm << c.sText; }
class DateText : public testing::TestWithParam<DateCase> {};
TEST_P(DateText, Converts)
{
    const auto res = DateTimeFromText(GetParam().sText);
    ASSERT_TRUE(res);
    EXPECT_TRUE(res.ValueGet() == GetParam().dtExpected);
}
INSTANTIATE_TEST_SUITE_P(
    Good, DateText,
    testing::Values(DateCase{"2026-11-21", {2026, 11, 21, 0, 0, 0}},
                    DateCase{"2026/1/2 3:04", {2026, 1, 2, 3, 4, 0}},
                    DateCase{"11/21/2026 23:59:58", {2026, 11, 21, 23, 59, 58}},
                    DateCase{"21/11/2026 08:00",
                             {2026, 11, 21, 8, 0, 0}},  // day first when above 12
                    DateCase{"13/5/2026 08:00", {2026, 5, 13, 8, 0, 0}},
                    DateCase{"3/4/2026 12:00 AM", {2026, 3, 4, 0, 0, 0}},
                    DateCase{"3/4/2026 12:05:06 pm", {2026, 3, 4, 12, 5, 6}},
                    DateCase{" 3/4/2026  1:05PM ", {2026, 3, 4, 13, 5, 0}},
                    DateCase{"2024-02-29", {2024, 2, 29, 0, 0, 0}}));

class DateTextBad : public testing::TestWithParam<const char*> {};
TEST_P(DateTextBad, IsATypeMismatch)
{
    const auto res = DateTimeFromText(GetParam());
    ASSERT_FALSE(res);
    EXPECT_EQ(res.TextGet(), kTypeMismatch);
}
INSTANTIATE_TEST_SUITE_P(Bad, DateTextBad,
                         testing::Values("", "yesterday", "2026-13-01", "2025-02-29", "13/13/2026",
                                         "1/2/26", "2026-11-21 24:00", "2026-11-21 12:60",
                                         "2026-11-21 13:00 PM", "2026-11-21 0:30 AM",
                                         "2026-11-21 12", "2026-11-21 1:2:3:4", "2026-11",
                                         "1-2-2026", "2026-11-21x", "-1-1-1", "2026/0/1",
                                         "2026/1/0"));

TEST(Boundaries, CountCalendarStepsNotWholePeriods)
{
    const DateTime dtLate{2026, 11, 21, 23, 59, 50};
    const DateTime dtEarly{2026, 11, 22, 0, 1, 0};
    EXPECT_EQ(DayBoundaries(dtLate, dtEarly), 1);
    EXPECT_EQ(HourBoundaries(dtLate, dtEarly), 1);
    EXPECT_EQ(MinuteBoundaries(dtLate, dtEarly), 2);
    EXPECT_EQ(DayBoundaries(dtEarly, dtLate), -1);
    EXPECT_EQ(DayBoundaries({2024, 2, 28, 0, 0, 0}, {2024, 3, 1, 0, 0, 0}), 2);
    EXPECT_EQ(DayNumber({1970, 1, 1, 0, 0, 0}), 0);
    EXPECT_EQ(DayNumber({2000, 3, 1, 0, 0, 0}), 11017);
}

TEST(Delay, PumpsEventsUntilTheTimerReachesTheEnd)
{
    double dTimer = 100.0;
    ClockSet clock({.fnUtc = {}, .fnLocal = {}, .fnTimer = [&] { return dTimer; }});
    int nPumped = 0;
    EventPumpFn fnBefore = EventPumpSetHandler([&] {
        ++nPumped;
        dTimer += 0.5;
    });
    Delay(2.0);
    EventPumpSetHandler(fnBefore);
    EXPECT_EQ(nPumped, 4);
}

TEST(Delay, IsNotAdjustedWhenTheTimerRestartsAtMidnight)
{
    double dTimer = 86399.0;
    ClockSet clock({.fnUtc = {}, .fnLocal = {}, .fnTimer = [&] { return dTimer; }});
    int nPumped = 0;
    EventPumpFn fnBefore = EventPumpSetHandler([&] {
        ++nPumped;
        dTimer = nPumped == 1 ? 0.0 : dTimer + 20000.0;  // past midnight the end is a day away
    });
    Delay(1.5);
    EventPumpSetHandler(fnBefore);
    EXPECT_EQ(nPumped, 6);
}

TEST(TimerGet, CountsSecondsOfTheDay)
{
    EXPECT_GE(TimerGet(), 0.0);
    EXPECT_LT(TimerGet(), 86401.0);
}

}  // namespace
