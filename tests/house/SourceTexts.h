/// @file SourceTexts.h
/// The string literals of the sources, for what documents quote from them.
#pragma once

#include <set>
#include <string>
#include <string_view>

/// Texts of the programs' sources and forms: adjacent literals are joined, escapes resolved, and
/// several blanks become one.
[[nodiscard]] const std::set<std::string>& SourceTextsGet();

/// True if a text of the sources contains this part.
[[nodiscard]] bool SourceTextsHave(std::string_view sPart);
