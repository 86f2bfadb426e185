/// @file PredictValue.h
/// The values of hopcast-predict's options: numbers within bounds and lists of texts.
///
/// Errors:  texts with the value and what was expected.
/// Tests:   tests/app/PredictOptionsTest.cpp
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/SettingsRange.h"
#include "system/Result.h"

/// The texts between commas, trimmed.
[[nodiscard]] std::vector<std::string> ValueListGet(std::string_view sText);

/// A number within bounds, or an error with what was expected.
[[nodiscard]] Result<double> ValueBoundedGet(const std::string& sValue, const NumberRange& range,
                                             const char* sWhat);
[[nodiscard]] Result<int> ValueWholeGet(const std::string& sValue, const NumberRange& range,
                                        const char* sWhat);

/// Stores a checked value, or passes on its error.
template <class From, class To>
Result<void> ValueKeep(const Result<From>& res, To& to)
{
    if (!res)
        return res.ErrorGet();
    to = static_cast<To>(res.ValueGet());
    return {};
}
