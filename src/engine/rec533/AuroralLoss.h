/// @file AuroralLoss.h
/// Auroral and other losses Lh.
///
/// Source:  Recommendation ITU-R P.533-14, section 5.2.2, table of Lh.
/// Tests:   tests/engine/FormulaTest.cpp
#pragma once

#include "engine/rec533/Variability.h"

namespace rec533 {

inline constexpr double kAuroralNearHop = 2500.0;  ///< limit of the table's hop lengths, km

/// Loss at one control point, dB; 0 below 42.5 degrees of geomagnetic latitude.
/// dGeomagneticSin: sine of the point's geomagnetic latitude. nLocalHour 0 to 23, or negative, as
/// the ITU program can have it; that gives the last column.
[[nodiscard]] double AuroralLossGet(double dGeomagneticSin, Season eSeason, double dHopKm,
                                    int nLocalHour);

/// Local hour at mid-path for the table.
[[nodiscard]] int AuroralHourGet(const Ionosphere& ionosphere, int nLabel, double dLon);

}  // namespace rec533
