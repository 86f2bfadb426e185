/// @file ForecastReader.h
/// Finds a forecast of the sunspot number in any text: a downloaded file, a web page's text, a mail
/// with its header and its quoting ("> "), with lines ended by LF or CR LF.
///
/// It reads NOAA's predicted solar cycle (a JSON array of objects with "time-tag" and
/// "predicted_ssn"), SILSO's forecast text KFprediCM (rows of year, month, year as a decimal,
/// number, error), and WWV's bulletin ("Solar flux 123 and", ":Issued:"), and takes the first of
/// these that it finds, in this order.
///
/// Domain:  at most 256 KB of text and 1200 months; years 2000 to 2100; version-2 numbers 0 to 350,
///          at most 30 apart in neighbouring months; flux 60 to 370. A month that occurs twice must
///          have the same number.
/// Errors:  a text for the user: what cannot be done, why, what to do next. Nothing is guessed: one
///          bad number makes the whole text invalid.
/// Tests:   tests/settings/ForecastReaderTest.cpp, tests/fuzz/fuzz_forecast.cpp
#pragma once

#include <string_view>

#include "settings/SunSpotForecast.h"
#include "system/Result.h"

inline constexpr std::size_t kForecastTextMost = std::size_t{256} << 10;  ///< bytes

/// @param dtToday  the date of a text that has none
[[nodiscard]] Result<SunSpotForecast> ForecastFromText(std::string_view sText,
                                                       const DateTime& dtToday);
