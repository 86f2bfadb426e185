/// @file SphereLib.h
/// Places on the globe as positions and as unit vectors, longitudes beyond 180, and points on a
/// great circle.
///
/// Units:   degrees, north and east positive.
/// Domain:  any finite value.
/// Errors:  none reported; a not-a-number argument gives a not-a-number result.
/// Tests:   tests/geo/SphereLibTest.cpp
#pragma once

#include <vector>

#include "geo/MathLib.h"

inline constexpr double kRadiansPerDegree = kPi / 180.0;
inline constexpr double kFullCircle = 360.0;  ///< degrees

struct LatLon {
    double dLat = 0.0;
    double dLon = 0.0;
};

/// A vector on the unit sphere: x towards latitude 0, longitude 0; y towards longitude 90; z north.
struct Vector3 {
    double dX, dY, dZ;
};

[[nodiscard]] Vector3 VectorFrom(const LatLon& pos);
/// The position in a vector's direction, longitude in (-180, 180].
[[nodiscard]] LatLon PositionOf(const Vector3& vec);
/// vecOne * dOne + vecTwo * dTwo.
[[nodiscard]] Vector3 Mix(const Vector3& vecOne, double dOne, const Vector3& vecTwo, double dTwo);

/// The same longitude in (-180, 180].
[[nodiscard]] double LonWrap(double dLon);
/// The full circles, in degrees, to subtract to bring a longitude into [-180, 180).
[[nodiscard]] double LonTurns(double dLon);
/// From one longitude to another the short way, [-180, 180], east positive.
[[nodiscard]] double LonApart(double dFrom, double dTo);

/// Positions along the shorter arc, both ends included, evenly spaced, at most half a degree apart.
/// Empty for coinciding points and for antipodes, which have no shortest arc.
[[nodiscard]] std::vector<LatLon> PathGetPoints(const LatLon& from, const LatLon& to);
