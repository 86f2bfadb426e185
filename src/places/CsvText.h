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

/// Takes a text row by row, so that a text of nothing but line ends needs no room.
class CsvReader {
public:
    /// @param sText  must outlive the reader
    explicit CsvReader(std::string_view sText) : m_sRest(sText) {}

    [[nodiscard]] bool AtEnd() const { return m_sRest.empty(); }
    /// The next row. An empty line is a row of one empty field.
    CsvRow RowTake();
    /// The next line whatever it holds, as a row without fields.
    CsvRow LineTake();

private:
    CsvRow Take(std::size_t nSize);

    std::string_view m_sRest;
    int m_nLine = 1;
};

/// A field as it is written: quoted where it must be.
[[nodiscard]] std::string CsvFieldText(std::string_view sField);
