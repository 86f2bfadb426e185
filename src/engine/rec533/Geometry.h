/// @file Geometry.h
/// Points, paths and rays on a spherical Earth.
///
/// Units:   radians (north and east positive) and km, unless a name says degrees.
/// Errors:  none; equal ends and antipodes give a path in some direction.
/// Source:  Recommendation ITU-R P.533-14, section 5.1 (elevation, eq. 13; slant range, eq. 19),
///          section 4 (angle of incidence, eq. 12); great circles from any navigation text.
/// Tests:   tests/engine/FormulaTest.cpp
#pragma once

#include <array>

#include "engine/rec533/Units.h"

namespace rec533 {

/// A place with the functions of its angles, so that they are computed only once.
struct Place {
    double dLat = 0.0;  ///< radians
    double dLon = 0.0;  ///< radians, -pi to pi
    double dSinLat = 0.0;
    double dCosLat = 1.0;  ///< at least 1e-9
    double dSinLon = 0.0;
    double dCosLon = 1.0;
};

[[nodiscard]] Place PlaceFromDegrees(double dLat, double dLon);

/// Unit vectors of an arc: the place at an angle is start cos + ahead sin.
struct Arc {
    std::array<double, 3> aStart{}, aAhead{};
};

/// A way between two places: a great circle, or halves of two that meet beside its middle.
struct Way {
    Place placeFrom, placeTo;
    double dKm = 0.0;          ///< length, at least one millimetre
    double dAngle = 0.0;       ///< the same in radians; above pi on the long way round
    std::array<Arc, 2> aArcs;  ///< of the two halves, both by the angle from the way's start
    bool bBent = false;        ///< false: both arcs are the same
};

[[nodiscard]] Way WayMake(const Place& placeFrom, const Place& placeTo, bool bLongWay);

/// Distance of a long path's bent ways from its middle: radians, 0 up to 12 000 km.
[[nodiscard]] double WayBendGet(double dAngle);
/// The way bent by that angle to the left (dSide 1) or to the right (-1) of the direction of
/// travel.
[[nodiscard]] Way WayBentMake(const Way& straight, double dBend, double dSide);

/// Index of the arc at an angle from the start.
[[nodiscard]] inline std::size_t WayArcIndex(const Way& way, double dAngle)
{
    return way.bBent && 2.0 * dAngle >= way.dAngle ? 1 : 0;
}
[[nodiscard]] inline const Arc& WayArcGet(const Way& way, double dAngle)
{
    return way.aArcs[WayArcIndex(way, dAngle)];
}
/// The place at a fraction of the way (0 start, 1 end).
[[nodiscard]] Place WayPlace(const Way& way, double dFraction);
/// The place on an arc at an angle given by its cosine and sine.
[[nodiscard]] Place ArcPlace(const Arc& arc, double dCos, double dSin);

/// Bearing at the first place toward the second by the short way, radians, 0 to 2 pi.
[[nodiscard]] double BearingGet(const Place& placeFrom, const Place& placeTo);

/// Elevation of a ray whose hop of dHopKm is reflected at dHeightKm, radians.
[[nodiscard]] double ElevationGet(double dHopKm, double dHeightKm);
/// Angle of incidence at dHeightKm of a ray that left the ground at dElevation, radians.
[[nodiscard]] double IncidenceGet(double dElevation, double dHeightKm);
/// Cosine of that angle.
[[nodiscard]] double IncidenceCosGet(double dElevation, double dHeightKm);
/// Virtual slant range of nHops hops over dPathKm, km.
[[nodiscard]] double SlantRangeGet(double dPathKm, int nHops, double dElevation);
/// Longest hop at an elevation and height, km, without any limit.
[[nodiscard]] double HopLongestGet(double dElevation, double dHeightKm);

/// Sine of the geomagnetic latitude (dipole, pole at 78.5 N 68.2 W).
[[nodiscard]] double GeomagneticSinGet(const Place& place);

}  // namespace rec533
