/// @file CsvText.h
/// Rows of comma-separated values by RFC 4180: fields may be quoted, a quote inside is doubled, and
/// a quoted field may contain commas and line ends.
///
/// Domain:  rows of up to 4096 bytes, so that a missing quote does not swallow the file.
/// Errors:  of a row that breaks the rules only the first line is taken, and sFault says why.
/// Tests:   tests/places/CsvTextTest.cpp
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

inline constexpr std::size_t kCsvRowMost = 4096;  ///< bytes

struct CsvRow {
    std::string sRaw;                  ///< the row's bytes, without its line end
    std::vector<std::string> asField;  ///< empty if the row breaks the rules
    std::string sFault;                ///< the rule that it breaks; else empty
    int nLine = 1;                     ///< line number of its beginning, from 1
};

/// Reads a text row by row, so that a text of nothing but line ends needs no memory.
class CsvReader {
public:
    /// @param sText  must outlive the reader
    explicit CsvReader(std::string_view sText) : m_sRest(sText) {}

    [[nodiscard]] bool AtEnd() const { return m_sRest.empty(); }
    /// The next row. An empty line is a row of one empty field.
    CsvRow RowTake();
    /// The next line, whatever it contains, as a row without fields.
    CsvRow LineTake();

private:
    CsvRow Take(std::size_t nSize);

    std::string_view m_sRest;
    int m_nLine = 1;
};

/// A field as it is written: quoted if necessary.
[[nodiscard]] std::string CsvFieldText(std::string_view sField);
