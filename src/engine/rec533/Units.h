/// @file Units.h
/// Constants and small conversions of the prediction method.
///
/// Source:  Recommendation ITU-R P.533-14; the rounded degree factors are those of the ITU
///          program, so that results agree to the last printed digit.
#pragma once

#include <algorithm>
#include <cmath>

#include "geo/Earth.h"

namespace rec533 {

using ::kEarthKm;

inline constexpr double kPi = 3.14159265358979323846;
inline constexpr double kRadians = 0.0174532925;  ///< degrees to radians
inline constexpr double kDegrees = 57.2957795;    ///< radians to degrees

inline constexpr double kHeightE = 110.0;          ///< reflection height of E modes, km
inline constexpr double kHeightAbsorption = 90.0;  ///< height of the absorbing layer, km
inline constexpr double kHeightLong = 300.0;       ///< reflection height of the long method, km

/// Hops of the longest mode: what the two digits of a page hold. The short way round needs fewer,
/// as long as its rays may leave below 50 degrees.
inline constexpr int kHopsMost = 99;

inline constexpr double kSsnMost = 311.0;  ///< largest smoothed sunspot number
inline constexpr double kThermal = 204.0;  ///< dB, of 1 W to k T0 in 1 Hz

/// Field strength used if there is no mode at all, dB(uV/m).
inline constexpr double kFieldNone = -307.0;

[[nodiscard]] inline double DbFromPower(double dPower) { return 10.0 * std::log10(dPower); }
[[nodiscard]] inline double PowerFromDb(double dDb) { return std::exp(0.230258509299404568 * dDb); }
[[nodiscard]] inline double Square(double dX) { return dX * dX; }

/// Hour wrapped into 0 to 23.
[[nodiscard]] inline int HourWrap(int nHour) { return ((nHour % 24) + 24) % 24; }

/// The rounded degree factors leave a place on the border of a time zone just short of it: what is
/// this near counts as on it, so that 180 E and 180 W have the same hour. Hours, less than a metre.
inline constexpr double kZoneBorder = 1e-7;
/// Whole time zones of 15 degrees east of Greenwich for a longitude in radians, toward zero.
[[nodiscard]] inline int ZonesGet(double dLon)
{
    return static_cast<int>(dLon * (12.0 / kPi) + std::copysign(kZoneBorder, dLon));
}

/// How the method is carried out.
enum class Behaviour {
    Reference,  ///< with every quirk of the ITU program, to compare with its tables
    Corrected,  ///< the Recommendation as it was intended, without the program's errors
    Best,       ///< corrected, with the long-path rule beyond 7000 km
};

/// Coefficient set of the foF2 map.
enum class MapSet { Ccir, Ursi, Mean };

}  // namespace rec533
