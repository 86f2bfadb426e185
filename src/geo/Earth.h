/// @file Earth.h
/// The size of the Earth and the nautical mile.
///
/// Source:  mean radius (2a + b) / 3 of the ellipsoid WGS 84; the international nautical mile.
/// Tests:   tests/geo/SphereLibTest.cpp
#pragma once

inline constexpr double kEarthKm = 6371.009;  ///< radius of the Earth, km
inline constexpr double kKmPerMile = 1.852;   ///< kilometres in a nautical mile
