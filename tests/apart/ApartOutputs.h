/// @file ApartOutputs.h
/// Independent readers of the engines' outputs, written from docs/decks.md and the captured files.
/// Their approach differs: the whole file is split into lines first, rows are found by index, and
/// each row is cut before any number is looked at.
#pragma once

#include <string>
#include <vector>

#include "apart/Outcome.h"

[[nodiscard]] Outcome ApartVoacap(const std::string& sBytes, std::size_t nFrequencies);
/// @param aKhz  the frequencies of the deck
[[nodiscard]] Outcome ApartRec533(const std::string& sBytes, const std::vector<double>& aKhz);
[[nodiscard]] Outcome ApartGrid(const std::string& sBytes);

/// Stands for a value that is not printed.
inline constexpr double kApartNone = 1e300;
