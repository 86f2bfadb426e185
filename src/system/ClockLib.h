/// @file ClockLib.h
/// The computer's clock: UTC and local time to the second, date texts, and a delay that keeps the
/// user interface alive.
///
/// Units:   seconds if a procedure says so; civil dates of the Gregorian calendar.
/// Domain:  years 100 to 9999.
/// Tests:   tests/system/ClockLibTest.cpp
#pragma once

#include <compare>
#include <functional>
#include <string>
#include <string_view>

#include "system/Result.h"

/// A date and time to the second. All fields zero means "no time known".
struct DateTime {
    int nYear = 0;
    int nMonth = 0;  ///< 1..12
    int nDay = 0;    ///< 1..31
    int nHour = 0;   ///< 0..23
    int nMinute = 0;
    int nSecond = 0;

    auto operator<=>(const DateTime&) const = default;
    [[nodiscard]] bool IsZero() const { return *this == DateTime{}; }
};

/// The current UTC date and time, milliseconds dropped.
[[nodiscard]] DateTime UtcNow();
/// The current date and time of the computer's time zone.
[[nodiscard]] DateTime LocalNow();

/// Text to date: year-month-day, year/month/day or month/day/year (swapped when the month is above
/// 12), then optionally a blank and hours:minutes with or without seconds and AM/PM.
/// @return the date, or "Type mismatch".
[[nodiscard]] Result<DateTime> DateTimeFromText(std::string_view sText);

/// Days since 1970-01-01 of the date, its time of day dropped.
[[nodiscard]] long long DayNumber(const DateTime& dt);
/// Boundaries between two times, later minus earlier, signed: calendar days, hours, minutes.
[[nodiscard]] long long DayBoundaries(const DateTime& dtFrom, const DateTime& dtTo);
[[nodiscard]] long long HourBoundaries(const DateTime& dtFrom, const DateTime& dtTo);
[[nodiscard]] long long MinuteBoundaries(const DateTime& dtFrom, const DateTime& dtTo);

/// Seconds since local midnight, with fractions, [0, 86400).
[[nodiscard]] double TimerGet();

/// Lets pending user-interface events run until dSeconds have passed on TimerGet's clock. A delay
/// that crosses midnight is not treated specially: the timer restarts at 0 and the delay lasts
/// accordingly longer.
void Delay(double dSeconds);

/// What Delay calls again and again; the window program sets its event loop here.
using EventPumpFn = std::function<void()>;
EventPumpFn EventPumpSetHandler(EventPumpFn fnPump);
/// Lets pending user-interface events run once.
void EventPumpRun();

/// The clock that all of the above read; tests set another. Empty functions mean the system's.
struct ClockSource {
    std::function<DateTime()> fnUtc;
    std::function<DateTime()> fnLocal;
    std::function<double()> fnTimer;  ///< seconds since midnight
};
ClockSource ClockSetHandler(ClockSource source);
