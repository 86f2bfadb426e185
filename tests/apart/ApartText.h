/// @file ApartText.h
/// Lines, columns and numbers of files, for the independently written readers. Nothing here comes
/// from src.
#pragma once

#include <optional>
#include <string>
#include <vector>

/// The lines, without LF or CR LF; a CR alone is part of a line.
[[nodiscard]] std::vector<std::string> ApartLines(const std::string& sBytes);

/// Columns count from 1; those beyond the end of the line are left out.
[[nodiscard]] std::string ApartColumns(const std::string& sLine, std::size_t nFirst,
                                       std::size_t nLast);

/// Without blanks and tabs at the ends.
[[nodiscard]] std::string ApartTrim(const std::string& sText);

/// A number as engines print it: sign, digits, point; blanks at the ends.
[[nodiscard]] std::optional<double> ApartNumber(const std::string& sText);
/// The same in single precision.
[[nodiscard]] std::optional<float> ApartSingle(const std::string& sText);

/// A number in a file that people edit: it may have a decimal comma and an exponent.
[[nodiscard]] std::optional<double> ApartLenient(const std::string& sText);
[[nodiscard]] std::optional<float> ApartLenientSingle(const std::string& sText);

/// Windows-1252 as UTF-8.
[[nodiscard]] std::string ApartUtf8(const std::string& sBytes);

/// ASCII letters in lower case.
[[nodiscard]] std::string ApartLower(std::string sText);

/// UTF-8 as Windows-1252: one byte for each character, "?" for one that the code page lacks.
[[nodiscard]] std::string ApartBytes(const std::string& sText);
