/// @file AreaGrid.h
/// The points of an area deck.
///
/// Units:   degrees, dB.
/// Tests:   tests/engine/OutputTest.cpp
#pragma once

#include "engine/run533/Decks.h"

namespace run533 {

struct GridPlace {
    double dLat = 0.0;
    double dLon = 0.0;        ///< as printed: 0 to 360 if the west bound is positive
    double dLonOfPath = 0.0;  ///< -180 to 180
};

/// Row from the south, column from the west, both from 0. A point on the fixed end is moved a
/// twentieth of a degree east.
[[nodiscard]] GridPlace GridPlaceGet(const AreaDeck& deck, int nRow, int nColumn);

/// Limits a value to what a column of the grid can show.
[[nodiscard]] double GridValueClamp(double dValue);

}  // namespace run533
