/// @file ApartDecks.h
/// The decks, read apart from the built-in engine and the launcher of VOACAP: from docs/decks.md
/// and docs/engines.md. Another way: a table of every card's columns, and one loop over the lines.
#pragma once

#include <string>

#include "apart/Outcome.h"

[[nodiscard]] Outcome ApartPointDeck(const std::string& sBytes);
[[nodiscard]] Outcome ApartAreaDeck(const std::string& sBytes);

/// VOACAP's decks as voacapl is to get them: text, frequencies or points of the grid, antennas.
[[nodiscard]] Outcome ApartVoacapPoint(const std::string& sBytes);
[[nodiscard]] Outcome ApartVoacapArea(const std::string& sBytes);
