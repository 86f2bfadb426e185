/// @file ApartOutputs.h
/// The engines' outputs, read apart from the program's readers: from docs/decks.md and the captured
/// files. Another way: the whole file in lines first, rows found by index, every row cut before any
/// number is looked at.
#pragma once

#include <string>
#include <vector>

#include "apart/Outcome.h"

[[nodiscard]] Outcome ApartVoacap(const std::string& sBytes, std::size_t nFrequencies);
/// @param aKhz  the frequencies of the deck
[[nodiscard]] Outcome ApartRec533(const std::string& sBytes, const std::vector<double>& aKhz);
[[nodiscard]] Outcome ApartGrid(const std::string& sBytes);

/// Where no value is printed.
inline constexpr double kApartNone = 1e300;
