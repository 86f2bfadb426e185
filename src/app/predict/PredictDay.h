/// @file PredictDay.h
/// A day of an area on the command line: all hours and frequencies of every point.
///
/// Tests:   tests/app/PredictDayTest.cpp
#pragma once

#include <optional>
#include <string>

#include "app/predict/PredictOptions.h"
#include "propagation/Engine.h"

/// Maximum values of a day: points times hours times frequencies. Nobody could use a longer text.
inline constexpr std::size_t kDayValuesMost = 40'000'000;

/// Runs the day. Boxes show a failure; an engine program's progress goes to standard error.
/// @param settings  with the run's month and sunspot number
/// @return the text to print; nothing when the prediction failed.
[[nodiscard]] std::optional<std::string> PredictDayGet(const PredictOptions& options,
                                                       const Settings& settings,
                                                       const Engine& engine);
