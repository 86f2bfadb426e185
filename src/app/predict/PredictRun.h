/// @file PredictRun.h
/// The two predictions of the console program, from options to text.
/// Tests:   tests/app/HopcastPredictTest.cpp
#pragma once

#include <optional>
#include <string>

#include "app/predict/PredictOptions.h"

struct PredictOutput {
    std::string sText;   ///< to print
    bool bWhole = true;  ///< false: some frequencies have no values (boxes have told which and why)
};

/// Runs the prediction that the options ask for. Boxes come out on the way.
/// @param bColor  colours in the table.
/// @return nothing when the prediction failed (a box has told why).
[[nodiscard]] std::optional<PredictOutput> PredictRunGet(const PredictOptions& options,
                                                         bool bColor);
