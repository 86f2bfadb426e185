/// @file PredictValue.h
/// The values of hopcast-predict's options: numbers within bounds and lists of texts.
///
/// Errors:  texts that name the value and what was expected.
/// Tests:   tests/app/PredictOptionsTest.cpp
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/SettingsRange.h"
#include "system/Result.h"

/// The texts between commas, without blanks at their ends.
[[nodiscard]] std::vector<std::string> ValueListGet(std::string_view sText);

/// A number within bounds, or an error that names what was expected.
[[nodiscard]] Result<double> ValueBoundedGet(const std::string& sValue, const NumberRange& range,
                                             const char* sWhat);
[[nodiscard]] Result<int> ValueWholeGet(const std::string& sValue, const NumberRange& range,
                                        const char* sWhat);

/// Stores a checked value; its error is handed on.
template <class From, class To>
Result<void> ValueKeep(const Result<From>& res, To& to)
{
    if (!res)
        return res.ErrorGet();
    to = static_cast<To>(res.ValueGet());
    return {};
}
