/// @file AirMailPosition.h
/// The last position that Airmail knows, and its age in words.
///
/// Units:   degrees, north and east positive; times are UTC.
/// Tests:   tests/airmail/AirMailPositionTest.cpp
#pragma once

#include <string>

#include "system/ClockLib.h"
#include "system/Message.h"
#include "system/Result.h"

/// Tries three places of Airmail.ini in this order: the current position report, the last report
/// sent, the propagation data. The first two count only when they have a time. A position out of
/// range (PositionInRange) counts as none.
/// @param dLatitude   may be written by a place that then fails, as may dLongitude: pass locals.
/// @param dtTime      all zero when the place has no time (the propagation data).
/// @param paMessages  gets what is missing or cannot be decoded in the last place (one message).
/// @param psFault     if not null, gets the first value out of range, with file and key; untouched
///                    when there is none.
/// @return true when a position was found; "Type mismatch" when its time is not a date, for which
///         no message is added.
Result<bool> AirMailPositionGet(double& dLatitude, double& dLongitude, DateTime& dtTime,
                                Messages* paMessages, std::string* psFault = nullptr);

/// Boundaries between dtTime and now, in the largest unit that has any: "3 days", "1 hours",
/// "0 minutes". Always plural; negative for a future time. From 23:59 to 00:01 is "1 days".
[[nodiscard]] std::string AirMailAgeText(const DateTime& dtTime);
