/// @file MapButtonRow.h
/// The row of buttons below the map: the margins shrink with the window, and a row whose smallest
/// buttons do not fit scrolls.
///
/// Units:   pixels.
/// Tests:   tests/ui/map/MapButtonRowTest.cpp
#pragma once

#include <span>
#include <vector>

struct ButtonPlace {
    int nLeft = 0;
    int nWidth = 0;
};

struct ButtonRow {
    std::vector<ButtonPlace> aPlaces;  ///< in row order
    int nOver = 0;                     ///< how far the row can scroll; 0: it is all visible
};

/// @param aContent  width of each button's text or picture
/// @param nRight    number of buttons at the end that are aligned right
/// @param nWidth    inner width of the window
/// @param nShift    how far the row is scrolled; limited to 0..nOver
[[nodiscard]] ButtonRow ButtonRowGet(std::span<const int> aContent, int nRight, int nWidth,
                                     int nShift);
