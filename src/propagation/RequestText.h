/// @file RequestText.h
/// A request in words: engine, month, sunspot number, power; and the foot line of every result that
/// is printed, exported or copied.
///
/// Texts:   UTF-8, one line.
/// Tests:   tests/propagation/RequestTextTest.cpp
#pragma once

#include <string>

#include "propagation/Request.h"
#include "settings/Need.h"

/// Separates the parts of a line: a middle dot between blanks.
inline constexpr const char* kTextBetween = " \xC2\xB7 ";

/// "REC533"; "no engine" for an unknown number.
[[nodiscard]] std::string RequestEngineText(int iModel);
/// "November"; "month 13" for any other number.
[[nodiscard]] std::string MonthName(int nMonth);
/// "100 W"; "5 kW, as the antenna choice" without an own power.
[[nodiscard]] std::string RequestPowerText(const Request& request);
/// "SSN 62 (mean cycle)".
/// @param sAirMail  Airmail's number, if it is not the one in use; or empty
[[nodiscard]] std::string RequestSunSpotText(const RequestModel& request,
                                             const std::string& sAirMail = {});

/// "dB in 1 Hz, 50 % of the days, short path, 100 W, REC533 (built-in), November 2026, SSN 62 (mean
/// cycle)", with middle dots for commas.
/// @param nYear  the year of the run, for a request that leaves it to the clock
[[nodiscard]] std::string RequestFootText(const Request& request, bool bBuiltIn, int nYear);

/// "need: E-mail, normal, 40 dB"; "need: 40 dB" for a number without a name.
[[nodiscard]] std::string NeedFootText(const Need& need);

/// The same for an area, after its frequency and hour: "14100 kHz, 15:00 UTC, dB in 1 Hz, ...".
/// @param nYear  the year of the run
[[nodiscard]] std::string AreaFootText(const AreaRequest& request, int nYear);
