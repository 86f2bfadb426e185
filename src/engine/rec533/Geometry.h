/// @file Geometry.h
/// Points, paths and rays on a spherical Earth.
///
/// Units:   radians (north and east positive) and km, unless a name says degrees.
/// Errors:  none; equal ends and antipodes give a path in some direction.
/// Source:  Recommendation ITU-R P.533-14, section 5.1 (elevation, eq. 13; slant range, eq. 19),
///          section 4 (angle of incidence, eq. 12); great circles from any navigation text.
/// Tests:   tests/engine/FormulaTest.cpp
#pragma once

#include "engine/rec533/Units.h"

namespace rec533 {

/// A place with the functions of its angles, so that nothing downstream needs a sine of it.
struct Place {
    double dLat = 0.0;  ///< radians
    double dLon = 0.0;  ///< radians, -pi to pi
    double dSinLat = 0.0;
    double dCosLat = 1.0;  ///< at least 1e-9
    double dSinLon = 0.0;
    double dCosLon = 1.0;
};

[[nodiscard]] Place PlaceFromDegrees(double dLat, double dLon);

/// A great circle between two places.
struct GreatCircle {
    Place tblFrom, tblTo;
    double dKm = 0.0;     ///< length, at least a millimetre
    double dAngle = 0.0;  ///< the same in radians; above pi on the long way round
    double aStart[3];     ///< unit vector of the start
    double aAhead[3];     ///< unit vector a quarter circle ahead of it
};

[[nodiscard]] GreatCircle GreatCircleMake(const Place& tblFrom, const Place& tblTo, bool bLongWay);

/// The place a fraction of the way along (0 start, 1 end).
[[nodiscard]] Place GreatCirclePlace(const GreatCircle& tblPath, double dFraction);

/// The place at an angle from the start, given by its cosine and sine.
[[nodiscard]] Place GreatCirclePlaceAt(const GreatCircle& tblPath, double dCos, double dSin);

/// Bearing at the first place toward the second by the short way, radians, 0 to 2 pi.
[[nodiscard]] double BearingGet(const Place& tblFrom, const Place& tblTo);

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
[[nodiscard]] double GeomagneticSinGet(const Place& tblPlace);

}  // namespace rec533
