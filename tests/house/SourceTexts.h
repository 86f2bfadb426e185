/// @file SourceTexts.h
/// The texts between quotes in the sources, for what documents quote of them.
#pragma once

#include <set>
#include <string>
#include <string_view>

/// Texts of the programs' sources and forms: adjacent literals as one, with escapes put in and
/// several blanks as one.
[[nodiscard]] const std::set<std::string>& SourceTextsGet();

/// True when a text of the sources has this part.
[[nodiscard]] bool SourceTextsHave(std::string_view sPart);
