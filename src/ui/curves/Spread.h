/// @file Spread.h
/// Moves things on a line apart that would overlap.
///
/// Tests:   tests/ui/curves/SpreadTest.cpp
#pragma once

#include <vector>

/// Positions at least dApart from each other and within the ends, as close as possible to the
/// wanted ones. If the whole range is too short, the last ones pass the lower end.
/// @param aWanted  ascending
[[nodiscard]] std::vector<double> Spread(const std::vector<double>& aWanted, double dApart,
                                         double dTop, double dBottom);
