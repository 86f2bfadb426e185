/// @file PredictRun.h
/// The two predictions of the console program, from options to text.
/// Tests:   tests/app/HopcastPredictTest.cpp
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/predict/PredictOptions.h"
#include "propagation/Prediction.h"
#include "settings/SunSpotLib.h"

struct PredictOutput {
    std::string sText;   ///< to print
    bool bWhole = true;  ///< false: some frequencies have no values (boxes have told which and why)
};

struct PredictPath {
    Settings settings;  ///< with month and sunspot number of the run
    SunSpotRun ssn;
    PropagationTable table;
    bool bWhole = true;  ///< as in PredictOutput
};

struct PredictAreaBox {
    AreaRequest request;  ///< of the run
    std::vector<AreaPoint> aPoints;
};

struct PredictAreaRun {
    Settings settings;                   ///< as in PredictPath
    std::vector<PredictAreaBox> aBoxes;  ///< two where the area crosses longitude 180
};

/// Runs the prediction of an area for one hour and frequency. Boxes come out on the way.
/// @return nothing when it failed (a box has told why)
[[nodiscard]] std::optional<PredictAreaRun> PredictAreaRunGet(const PredictOptions& options);

/// Runs the prediction of a path. Boxes come out on the way.
/// @return nothing when it failed (a box has told why)
[[nodiscard]] std::optional<PredictPath> PredictPathGet(const PredictOptions& options);

/// Runs the prediction that the options ask for. Boxes come out on the way.
/// @param bColor  colours in the table.
/// @return nothing when the prediction failed (a box has told why).
[[nodiscard]] std::optional<PredictOutput> PredictRunGet(const PredictOptions& options,
                                                         bool bColor);
