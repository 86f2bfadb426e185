/// @file PredictArguments.h
/// The words of hopcast-predict's command line: which options they give, and whether these go
/// together. What an option does with its value is told in PredictOptions.cpp.
///
/// Errors:  one line that names the option.
/// Tests:   tests/app/PredictOptionsTest.cpp
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/predict/PredictOptions.h"
#include "system/Result.h"

/// What an option goes with: any run, a path, a path or a day of an area, an area, a day of one.
enum class PredictMode { Both, PointToPoint, PathOrDay, Area, Day };

/// What an option does with its value; an error says what is wrong with it.
using PredictApplyFn =
    std::function<Result<void>(PredictOptions& options, const std::string& sValue)>;

struct PredictOption {
    const char* sName;
    PredictMode eMode;
    PredictApplyFn fnApply;
    bool bValue = true;  ///< a value follows
};

struct GivenOption {
    const PredictOption* pOption;
    std::string sValue;
};

/// Words to options with their values ("--month 3" and "--month=3"). The result points into
/// aOption.
[[nodiscard]] Result<std::vector<GivenOption>> GivenGet(std::span<const std::string> asArguments,
                                                        const std::vector<PredictOption>& aOption);

/// The option of a name; nullptr where it is not given.
[[nodiscard]] const GivenOption* GivenFind(const std::vector<GivenOption>& aGiven,
                                           std::string_view sName);

/// One of the two modes, and whole: options.bArea and the area's format are set.
[[nodiscard]] Result<void> ModeCheck(const std::vector<GivenOption>& aGiven,
                                     PredictOptions& options);
