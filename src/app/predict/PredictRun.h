/// @file PredictRun.h
/// The predictions of the console program, from options to text.
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
    bool bWhole = true;  ///< false: some frequencies have no values (boxes have said which and why)
};

struct PredictPath {
    Settings settings;  ///< with the run's month and sunspot number
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

/// Runs the prediction of an area for one hour and frequency. Boxes may be shown meanwhile.
/// @return nothing when it failed (a box has said why)
[[nodiscard]] std::optional<PredictAreaRun> PredictAreaRunGet(const PredictOptions& options);

/// Runs the prediction of a path. Boxes may be shown meanwhile.
/// @return nothing when it failed (a box has said why)
[[nodiscard]] std::optional<PredictPath> PredictPathGet(const PredictOptions& options);

/// Runs the prediction that the options describe. Boxes may be shown meanwhile.
/// @param bColor  colours in the table.
/// @return nothing when the prediction failed (a box has said why).
[[nodiscard]] std::optional<PredictOutput> PredictRunGet(const PredictOptions& options,
                                                         bool bColor);
