/// @file PredictReach.h
/// Places on the command line: which there are, and which of them can be heard here.
///
/// Units:   degrees, kHz, dB in 1 Hz, nautical miles, as the names of the columns tell.
/// Errors:  boxes; places that cannot be used are counted and named in one, and do not stop the
///          others.
/// Tests:   tests/app/PredictReachTest.cpp
#pragma once

#include <optional>
#include <string>

#include "app/predict/PredictOptions.h"
#include "settings/SunSpotForecast.h"

/// The stations of Airmail's lists and the profile's own places, a row each.
/// @return nothing where there is none that can be used.
[[nodiscard]] std::optional<std::string> PredictStationsGet(const PredictOptions& options);

/// Predicts every place of the lists that the options name, on all cores. The rows are those of
/// single predictions with the place as transmitter, the places in the order of their use.
/// @param settings  month and sunspot number are those of the run
/// @return nothing where no place has a prediction.
[[nodiscard]] std::optional<std::string> PredictReachGet(const PredictOptions& options,
                                                         const Settings& settings,
                                                         SunSpotSource eSunSpotSource);
