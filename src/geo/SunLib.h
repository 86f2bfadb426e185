/// @file SunLib.h
/// The sun's position.
///
/// Units:    degrees; hours UT.
/// Accuracy: half a degree; the position is that of the middle of the month, in any year.
/// Source:   The Astronomical Almanac, section C, "Low-precision formulas for the Sun".
/// Tests:    tests/geo/SunLibTest.cpp
#pragma once

#include "geo/SphereLib.h"

/// Where the sun is in the zenith, in the middle of a month (1..12; any other counts as 1).
[[nodiscard]] LatLon SunGetPosition(int nMonth, double dHour);
