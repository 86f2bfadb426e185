/// @file PredictArguments.h
/// The words of hopcast-predict's command line: which options they give, and whether these go
/// together. PredictOptions.cpp applies their values.
///
/// Errors:  one line with the option.
/// Tests:   tests/app/PredictOptionsTest.cpp
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/predict/PredictOptions.h"
#include "system/Result.h"

/// The kinds of output; an option lists all those that it goes with.
enum PredictKind : unsigned {
    kKindPath = 1,
    kKindHour = 2,  ///< of an area
    kKindDay = 4,   ///< of an area
    kKindReach = 8,
    kKindStations = 16,
    kKindArea = kKindHour | kKindDay,
    kKindPredicts = kKindPath | kKindArea | kKindReach,
};

/// Applies an option's value; an error says what is wrong with the value.
using PredictApplyFn =
    std::function<Result<void>(PredictOptions& options, const std::string& sValue)>;

struct PredictOption {
    const char* sName;
    unsigned nKinds;  ///< PredictKind
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

/// The option of this name; nullptr if it is not given.
[[nodiscard]] const GivenOption* GivenFind(const std::vector<GivenOption>& aGiven,
                                           std::string_view sName);

/// Checks that the options give one kind, completely; sets its flags in the options, and the format
/// of kinds without a table.
[[nodiscard]] Result<void> ModeCheck(const std::vector<GivenOption>& aGiven,
                                     PredictOptions& options);
