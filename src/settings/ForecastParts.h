/// @file ForecastParts.h
/// What the readers of the forecast products share. Private to ForecastReader.
///
/// Text:    cleaned by ForecastReader: no quoting, no control characters except LF at the end of
///          each line.
/// Errors:  only the reason and what to do next; ForecastReader says which text it is.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/SunSpotForecast.h"
#include "system/Result.h"

using ForecastMonths = std::vector<ForecastMonth>;

/// The words of a line, separated by blanks or semicolons.
[[nodiscard]] std::vector<std::string_view> ForecastWords(std::string_view sLine);
/// A whole number that consists only of digits, at most nDigits of them.
[[nodiscard]] std::optional<int> ForecastWhole(std::string_view sWord, std::size_t nDigits);
/// "Nov" or "November" as 11; nothing for any other word.
[[nodiscard]] std::optional<int> ForecastMonthNumber(std::string_view sWord);
/// The day; nothing if it is not in the calendar.
[[nodiscard]] std::optional<DateTime> ForecastDay(int nYear, int nMonth, int nDay);

/// Checks a month and its version-2 number and inserts it among the others in order of time.
Result<void> ForecastMonthAdd(ForecastMonths& aMonths, const ForecastMonth& month);

/// NOAA's array. @return nothing when it is not in the text.
std::optional<Result<ForecastMonths>> ForecastNoaaRead(std::string_view sText);
/// SILSO's rows. @param bEnded  false when the text's last line had no line end: it may be cut
std::optional<Result<ForecastMonths>> ForecastSilsoRead(std::string_view sText, bool bEnded);

struct ForecastFlux {
    DateTime dtDay;  ///< day of issue
    double dFlux = 0.0;
};
/// WWV's bulletin.
std::optional<Result<ForecastFlux>> ForecastWwvRead(std::string_view sText);

/// A number for a message, cut to 12 characters and "..." if it is longer.
[[nodiscard]] std::string ForecastNumberText(double dValue);
