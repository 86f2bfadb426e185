/// @file PredictReach.h
/// Places on the command line: the list of them, and which of them can be heard here.
///
/// Units:   degrees, kHz, dB in 1 Hz, nautical miles, as in the column names.
/// Errors:  boxes; places that cannot be used are counted and named in one box, and do not stop the
///          others.
/// Tests:   tests/app/PredictReachTest.cpp
#pragma once

#include <optional>
#include <string>

#include "app/predict/PredictOptions.h"
#include "settings/SunSpotForecast.h"

/// The stations of Airmail's lists and the profile's own places, one row each.
/// @return nothing if none of them can be used.
[[nodiscard]] std::optional<std::string> PredictStationsGet(const PredictOptions& options);

/// Predicts every place of the lists that the options name, on all cores. The rows are those of
/// single predictions with the place as transmitter, with the places sorted by use.
/// @param settings  with the run's month and sunspot number
/// @return nothing if no place has a prediction.
[[nodiscard]] std::optional<std::string> PredictReachGet(const PredictOptions& options,
                                                         const Settings& settings,
                                                         SunSpotSource eSunSpotSource);
