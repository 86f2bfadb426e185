/// @file ForecastFile.h
/// The forecast that is kept beside the profile: for hopcast.ini it is hopcast.forecast.txt.
///
/// Text:    ASCII, LF or CR LF; docs/files.md describes its lines. The last one has a hash of all
///          others, so that a cut or changed file is never taken for a forecast.
/// Errors:  texts for the user. A failed save leaves the old file whole.
/// Tests:   tests/settings/ForecastFileTest.cpp, tests/fuzz/fuzz_forecast_file.cpp
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "settings/SunSpotForecast.h"
#include "system/Result.h"

/// Path of the forecast of a profile.
[[nodiscard]] std::string ForecastFilePath(std::string_view sProfileFile);

/// The forecast that is kept with a profile.
/// @return nothing if none is kept; an error if the file cannot be read or is damaged.
[[nodiscard]] Result<std::optional<SunSpotForecast>> ForecastLoad(std::string_view sProfileFile);

/// Keeps a forecast with a profile, replacing the previous one.
Result<void> ForecastSave(const std::string& sProfileFile, const SunSpotForecast& forecast);

/// A forecast from any file: one that Hopcast keeps, or a text that ForecastFromText takes.
[[nodiscard]] Result<SunSpotForecast> ForecastOpen(std::string_view sFile, const DateTime& dtToday);

/// The complete kept file: the given lines and the line with their hash.
[[nodiscard]] std::string ForecastFileEnded(std::string_view sLines);
/// The bytes of the kept file, and back.
[[nodiscard]] std::string ForecastFileText(const SunSpotForecast& forecast);
/// @return the forecast, or "line 3" and what is wrong there.
[[nodiscard]] Result<SunSpotForecast> ForecastFileParse(std::string_view sBytes);
