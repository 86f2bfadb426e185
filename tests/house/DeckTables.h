/// @file DeckTables.h
/// The tables of columns in docs/decks.md, made from the layouts of the cards and outputs.
#pragma once

#include <string>

/// A text of docs/decks.md with its tables of columns as the layouts have them.
/// @throws std::logic_error when a layout's fields are not all told, or a section is not there
[[nodiscard]] std::string DeckTablesPut(std::string sDocument);
