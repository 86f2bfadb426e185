/// @file TextLib.h
/// Small text helpers and the two alphabets: UTF-8 inside the program, Windows-1252 in files of the
/// Windows world. No locale is ever asked.
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
/// UTF-8 to Windows-1252; a character that it lacks, and a malformed byte, becomes "?".
[[nodiscard]] std::string Windows1252FromUtf8(std::string_view sText);

/// Blanks and tabs at both ends dropped.
[[nodiscard]] std::string_view TextTrim(std::string_view sText);
/// ASCII letters folded; other bytes kept.
[[nodiscard]] std::string TextUpper(std::string_view sText);
/// Equal without regard to the case of ASCII letters.
[[nodiscard]] bool TextEqualNoCase(std::string_view sA, std::string_view sB);
/// Columns nStart (from 1), nWidth long; shorter or empty where the text ends before.
[[nodiscard]] std::string_view TextColumns(std::string_view sText, int nStart, int nWidth);
/// The lines of a text, as parts of it, without their ends (LF or CR LF); empty ones stay.
[[nodiscard]] std::vector<std::string_view> TextLines(std::string_view sText);
/// With blanks for control characters, line and paragraph ends and changes of the writing
/// direction, and U+FFFD for what is no UTF-8: one line that every terminal prints as it stands.
[[nodiscard]] std::string TextPrintable(std::string_view sText);
/// A foreign text (a file's, the registry's, an engine's, the user's) as it may stand in a message
/// or a menu: printable; of more than 200 characters the first 200 and "...".
[[nodiscard]] std::string TextForMessage(std::string_view sText);
inline constexpr int kMessageCharactersMax = 200;
