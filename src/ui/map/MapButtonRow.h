/// @file MapButtonRow.h
/// The row of buttons below the map: margins that shrink with the window, and a row that scrolls
/// where even the smallest do not fit.
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
    std::vector<ButtonPlace> aPlaces;  ///< in the row's order
    int nOver = 0;                     ///< how far the row can be scrolled; 0: all of it is seen
};

/// @param aContent  width of each button's text or picture
/// @param nRight    so many buttons at the end stand at the window's right edge
/// @param nWidth    inner width of the window
/// @param nShift    how far the row is scrolled, kept within 0..nOver
[[nodiscard]] ButtonRow ButtonRowGet(std::span<const int> aContent, int nRight, int nWidth,
                                     int nShift);
