/// @file AreaBoxes.h
/// The boxes in which an area is predicted. The engines take longitudes from -180 to 180 and would
/// go the long way round from a west bound to a smaller east bound, so an area across the 180th
/// meridian is two boxes.
///
/// Units:   degrees, north and east positive.
/// Domain:  any scale of longitudes (-180..180, 0..360); west not above east, at most 360 apart.
/// Errors:  none; an area without width or height, or with a bound that is not a number, has no
///          box.
/// Tests:   tests/propagation/AreaBoxesTest.cpp
#pragma once

#include <vector>

struct AreaBox {
    double dBottom = 0.0;
    double dTop = 0.0;
    double dLeft = 0.0;
    double dRight = 0.0;
    bool operator==(const AreaBox&) const = default;
};

/// The area's boxes from west to east, longitudes in -180..180.
[[nodiscard]] std::vector<AreaBox> AreaBoxesGet(const AreaBox& area);

/// The box as the engine sees it: bounds as the deck prints them, to hundredths of a degree. Bounds
/// that do not fit the deck's fields are returned as they are.
[[nodiscard]] AreaBox AreaBoxPrinted(const AreaBox& box);
