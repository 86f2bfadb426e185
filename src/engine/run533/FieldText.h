/// @file FieldText.h
/// Numbers into the fixed columns of the engine's outputs.
#pragma once

#include <string>
#include <string_view>

namespace run533 {

/// The number that FieldAppend prints for a value.
[[nodiscard]] double FieldValueGet(double dValue, int nWidth, int nDecimals);

/// Appends a number right-justified in nWidth columns with nDecimals, after at least one blank: a
/// value that does not fit becomes the nearest one that does. Not-a-number is 0.
void FieldAppend(std::string& sLine, double dValue, int nWidth, int nDecimals);

/// Appends text right-justified (nWidth > 0) or left-justified (nWidth < 0), cut to fit.
void FieldAppend(std::string& sLine, std::string_view sText, int nWidth);

}  // namespace run533
