/// @file ApartDecks.h
/// The decks of REC533, read apart from the built-in engine: from docs/decks.md and docs/engines.md.
/// Another way: a table of every card's columns, and one loop over the lines.
#pragma once

#include <string>

#include "apart/Outcome.h"

[[nodiscard]] Outcome ApartPointDeck(const std::string& sBytes);
[[nodiscard]] Outcome ApartAreaDeck(const std::string& sBytes);
