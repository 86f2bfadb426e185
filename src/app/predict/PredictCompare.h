/// @file PredictCompare.h
/// A path by two engines, side by side.
///
/// Units:   dB in 1 Hz; kHz; hours of UTC.
/// Errors:  shown in boxes.
/// Tests:   tests/app/PredictCompareTest.cpp
#pragma once

#include "app/predict/PredictRun.h"
#include "settings/SunSpotForecast.h"

/// Predicts the path of the settings with their engine (A) and the one to compare with (B), at the
/// same power. A box says how far they agree in the cells that are open for the need.
/// @param settings  the run's settings
/// @return rows by hour and frequency; nothing if one of the engines gives no value
[[nodiscard]] std::optional<PredictOutput> PredictCompareGet(const PredictOptions& options,
                                                             const Settings& settings,
                                                             SunSpotSource eSunSpotSource);
