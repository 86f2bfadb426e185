/// @file MapRange.h
/// The distance between two places, for the tips of the map.
///
/// Units:   nautical miles, one for each minute of arc of the great circle.
/// Tests:   tests/ui/map/MapOverlayControlTest.cpp, MapTruthTest.cpp
#pragma once

#include <QString>

#include "geo/MathLib.h"
#include "geo/SphereLib.h"
#include "system/NumberLib.h"

/// In whole miles.
[[nodiscard]] inline QString RangeText(const LatLon& one, const LatLon& other)
{
    constexpr double kMinutes = 60.0;  // per degree
    const double dAngle = GreatCircleAngle(one.dLat, one.dLon, other.dLat, other.dLon);
    return QString::fromStdString(NumberFormat(dAngle / kRadiansPerDegree * kMinutes, "0"));
}
