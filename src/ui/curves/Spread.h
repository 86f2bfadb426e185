/// @file Spread.h
/// Things on a line that would cover each other, moved apart.
///
/// Tests:   tests/ui/curves/SpreadTest.cpp
#pragma once

#include <vector>

/// Places at least so far apart and within the ends, together as near as can be to those that are
/// wanted. Where even all the room is too short the last ones pass the lower end.
/// @param aWanted  ascending
[[nodiscard]] std::vector<double> Spread(const std::vector<double>& aWanted, double dApart,
                                         double dTop, double dBottom);
