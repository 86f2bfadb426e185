/// @file TextLib.h
/// Small text helpers and the two encodings: UTF-8 inside the program, Windows-1252 in files of the
/// Windows world. The locale is never used.
/// Tests:   tests/system/TextLibTest.cpp
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// U+00B0 in UTF-8.
inline constexpr std::string_view kDegreeSign = "\xC2\xB0";

/// Adds a character (0 to 0x10FFFF) as UTF-8.
void Utf8Append(std::string& sText, char32_t nCode);

/// Windows-1252 bytes to UTF-8; the five bytes without a meaning become U+FFFD.
[[nodiscard]] std::string Utf8FromWindows1252(std::string_view sBytes);
/// UTF-8 to Windows-1252; a character outside it, or a malformed byte, becomes "?".
[[nodiscard]] std::string Windows1252FromUtf8(std::string_view sText);

/// The text without blanks and tabs at its ends.
[[nodiscard]] std::string_view TextTrim(std::string_view sText);
/// ASCII letters in upper case; other bytes kept.
[[nodiscard]] std::string TextUpper(std::string_view sText);
/// Equal without regard to the case of ASCII letters.
[[nodiscard]] bool TextEqualNoCase(std::string_view sA, std::string_view sB);
/// nWidth columns from nStart (counted from 1); shorter or empty if the text ends earlier.
[[nodiscard]] std::string_view TextColumns(std::string_view sText, int nStart, int nWidth);
/// The lines of a text, as parts of it, without their ends (LF or CR LF); empty ones stay.
[[nodiscard]] std::vector<std::string_view> TextLines(std::string_view sText);
/// The text with blanks for control characters, line and paragraph ends and changes of the writing
/// direction, and U+FFFD for what is not UTF-8: one line that every terminal prints unchanged.
[[nodiscard]] std::string TextPrintable(std::string_view sText);
/// A foreign text (a file's, the registry's, an engine's, the user's) made fit for a message or a
/// menu: printable, and cut to 200 characters and "..." if it is longer.
[[nodiscard]] std::string TextForMessage(std::string_view sText);
inline constexpr int kMessageCharactersMax = 200;
