/// @file CsvText.h
/// Rows of comma-separated values by RFC 4180: fields may be quoted, a quote inside is doubled, and
/// a quoted field may hold commas and line ends.
///
/// Domain:  rows of up to 4096 bytes, so that a lost quote does not swallow the file.
/// Errors:  a row that breaks the rules is its first line alone, and says why.
/// Tests:   tests/places/CsvTextTest.cpp
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

inline constexpr std::size_t kCsvRowMost = 4096;  ///< bytes

struct CsvRow {
    std::string sRaw;                  ///< as it stands, without its end
    std::vector<std::string> asField;  ///< empty where it breaks the rules
    std::string sFault;                ///< empty; else what it breaks
    int nLine = 1;                     ///< of its beginning, from 1
};

/// The rows of a text. Empty lines are rows of one empty field.
[[nodiscard]] std::vector<CsvRow> CsvRowsGet(std::string_view sText);

/// A field as it is written: quoted where it must be.
[[nodiscard]] std::string CsvFieldText(std::string_view sField);
