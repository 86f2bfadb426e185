/// @file NumberLib.h
/// Numbers to text and back, with the same digits under every locale.
///
/// Rounding: patterns round half away from zero on the shortest decimal text of the value in its
///           own precision, so 2.5 with "0" is 3 and the single 99.95 with ".0" is 100.0.
/// Tests:    tests/system/NumberLibTest.cpp
#pragma once

#include <string>
#include <string_view>

#include "system/Result.h"

/// Strict conversion: blanks at both ends allowed; optional sign, digits, optional point with
/// digits on at least one side ("1040.", ".5", "+3"); no exponent, no "inf", no "nan".
/// @return the value, or "Type mismatch" ("Overflow" when it exceeds the type).
[[nodiscard]] Result<double> NumberFromText(std::string_view sText);
[[nodiscard]] Result<float> NumberFromTextSingle(std::string_view sText);

/// The lenient reading of the profile: as NumberFromText, but an exponent ("1e5") and a decimal
/// comma are accepted too.
[[nodiscard]] Result<double> NumberFromTextLenient(std::string_view sText);

/// Formats by a pattern: zeros before the point are the minimum number of integer digits, zeros
/// after it the decimals; a point at the end is printed. "0", "00", "000", "0.", ".0", ".00",
/// ".000", "0.0", "00.00" are in use. With no zero before the point an integer part of 0 prints no
/// digit (".5"). A value that rounds to zero prints no minus. Not-a-number prints "nan", infinity
/// "inf" (with its minus).
[[nodiscard]] std::string NumberFormat(double dValue, std::string_view sPattern);
[[nodiscard]] std::string NumberFormat(float fValue, std::string_view sPattern);

/// Shortest text that reads back to the same value, plain notation (100000, not 1e+05), no minus on
/// a zero.
[[nodiscard]] std::string NumberToText(double dValue);
[[nodiscard]] std::string NumberToText(float fValue);
[[nodiscard]] std::string NumberToText(int nValue);
[[nodiscard]] std::string NumberToText(long long nValue);

/// Round half to even, as pixel positions and the integers of the profile are rounded.
/// @return the nearest 32-bit integer, clamped to its range; 0 for not-a-number.
[[nodiscard]] int RoundHalfEven(double dValue);
