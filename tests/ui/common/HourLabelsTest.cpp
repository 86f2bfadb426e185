#include <gtest/gtest.h>

#include "support/ClockSet.h"
#include "ui/common/HourLabels.h"

namespace {

/// The labels while local time is nHour:nMinute and UTC 13:05.
HourLabels LabelsAt(int nHour, int nMinute)
{
    const ClockSet clock(
        ClockSource{[] { return DateTime{2026, 11, 21, 13, 5, 0}; },
                    [nHour, nMinute] { return DateTime{2026, 11, 21, nHour, nMinute, 0}; },
                    {}});
    return HourLabelsGet(kTimeLocal);
}

TEST(HourLabels, AreHoursOfUtcOrOfTheLocalClock)
{
    EXPECT_EQ(HourLabelsGet(kTimeZulu)[0], QStringLiteral("00"));
    EXPECT_EQ(HourLabelsGet(kTimeZulu)[23], QStringLiteral("23"));
    EXPECT_EQ(LabelsAt(3, 5)[0], QStringLiteral("14"));
    EXPECT_EQ(LabelsAt(3, 5)[12], QStringLiteral("02"));
}

TEST(HourLabels, HaveMinutesInZonesThatAreNotOnWholeHours)
{
    EXPECT_EQ(LabelsAt(18, 35)[0], QStringLiteral("05:30"));
    EXPECT_EQ(LabelsAt(18, 50)[20], QStringLiteral("01:45"));
    EXPECT_EQ(HourTimeGet(QStringLiteral("05:30")), QStringLiteral("05:30"));
    EXPECT_EQ(HourTimeGet(QStringLiteral("05")), QStringLiteral("05:00"));
}

}  // namespace
