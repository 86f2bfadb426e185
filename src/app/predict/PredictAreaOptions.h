/// @file PredictAreaOptions.h
/// Applies the values of the options for areas.
///
/// Units:   degrees; hours UT; kHz.
/// Tests:   tests/app/PredictOptionsTest.cpp
#pragma once

#include <string>

#include "app/predict/PredictOptions.h"

Result<void> AreaBoundsApply(PredictOptions& options, const std::string& sValue);
Result<void> AreaHourApply(PredictOptions& options, const std::string& sValue);
Result<void> AreaFrequencyApply(PredictOptions& options, const std::string& sValue);
