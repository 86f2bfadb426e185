/// @file DeckTables.h
/// The tables of columns in docs/decks.md, made from the layouts of the cards and outputs.
#pragma once

#include <string>

/// The text of docs/decks.md with the tables of columns made from the layouts.
/// @throws std::logic_error if a field of a layout is not described, or a section is missing
[[nodiscard]] std::string DeckTablesPut(std::string sDocument);
