/// @file BearingLib.h
/// Direction of the great circle between two points.
///
/// Units:   degrees, north and east positive.
/// Domain:  latitudes -90..90, any finite longitude.
/// Errors:  none reported; a not-a-number argument gives a not-a-number result.
/// Source:  spherical trigonometry, tan(bearing) = sin(dlon) cos(lat2) /
///          (cos(lat1) sin(lat2) - sin(lat1) cos(lat2) cos(dlon)), any navigation text.
/// Tests:   tests/geo/BearingLibTest.cpp
#pragma once

/// Initial bearing from point 1 to point 2.
/// @return degrees clockwise from true north, [0, 360); exactly 0 when the points coincide.
[[nodiscard]] double BearingGet(double dLat1, double dLon1, double dLat2, double dLon2);
