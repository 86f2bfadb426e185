/// @file ForecastParts.h
/// What the readers of the products share. Private to ForecastReader.
///
/// Text:    cleaned by ForecastReader: no quoting, no control characters but LF at each line's end.
/// Errors:  the reason alone and what to do next; ForecastReader names the text.
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
/// A whole number of digits alone, at most nDigits of them.
[[nodiscard]] std::optional<int> ForecastWhole(std::string_view sWord, std::size_t nDigits);
/// "Nov" or "November" as 11; nothing for another word.
[[nodiscard]] std::optional<int> ForecastMonthNumber(std::string_view sWord);
/// The day, when the calendar has it.
[[nodiscard]] std::optional<DateTime> ForecastDay(int nYear, int nMonth, int nDay);

/// Checks a month and its version-2 number and puts it behind the others.
Result<void> ForecastMonthAdd(ForecastMonths& aMonths, const ForecastMonth& month);

/// The array of NOAA. @return nothing when the text holds none of it.
std::optional<Result<ForecastMonths>> ForecastNoaaRead(std::string_view sText);
/// The rows of SILSO. @param bEnded  false when the text's last line had no line end: it may be cut
std::optional<Result<ForecastMonths>> ForecastSilsoRead(std::string_view sText, bool bEnded);

struct ForecastFlux {
    DateTime dtDay;  ///< day of issue
    double dFlux = 0.0;
};
/// The bulletin of WWV.
std::optional<Result<ForecastFlux>> ForecastWwvRead(std::string_view sText);

/// A number for a message: of more than 12 characters the first 12 and "...".
[[nodiscard]] std::string ForecastNumberText(double dValue);
