/// @file ApartDecks.h
/// Independent readers of the decks, written from docs/decks.md and docs/engines.md and not from
/// the built-in engine or the launcher of VOACAP. Their approach differs: a table of every card's
/// columns, and one loop over the lines.
#pragma once

#include <string>

#include "apart/Outcome.h"

[[nodiscard]] Outcome ApartPointDeck(const std::string& sBytes);
[[nodiscard]] Outcome ApartAreaDeck(const std::string& sBytes);

/// VOACAP's decks as voacapl must get them: text, frequencies or points of the grid, antennas.
[[nodiscard]] Outcome ApartVoacapPoint(const std::string& sBytes);
[[nodiscard]] Outcome ApartVoacapArea(const std::string& sBytes);
