/// @file Sun.h
/// The sun's position on the fifteenth of a month.
///
/// Units:   radians, hours UT, minutes for the equation of time.
/// Source:  the low-precision almanac series of the ITU program of Recommendation ITU-R P.533;
///          within 0.6 degrees of the Astronomical Almanac.
/// Tests:   tests/engine/CorrectionsTest.cpp
#pragma once

#include <array>

#include "engine/rec533/Geometry.h"
#include "engine/rec533/Lanes.h"

namespace rec533 {

/// Cosine of the zenith angle at sunrise and sunset, 90.833 degrees: refraction and the sun's
/// radius.
inline constexpr double kSunRiseZenithCos = -0.0145380787;

/// The sun at one hour UT.
struct SunHour {
    double dHour = 0.0;         ///< UT
    double dDeclination = 0.0;  ///< radians
    double dSinDecl = 0.0;
    double dCosDecl = 1.0;
    double dEquation = 0.0;  ///< equation of time, minutes
    double dSinTurn = 0.0;   ///< sine of the hour angle at longitude 0
    double dCosTurn = 1.0;
};

/// dHour 0 to 24.
[[nodiscard]] SunHour SunHourGet(int nMonth, double dHour);

/// Hour angle at a longitude, radians, not wrapped.
[[nodiscard]] double SunHourAngleGet(const SunHour& sun, double dLon);
/// Cosine of the zenith angle, -1 to 1.
[[nodiscard]] double SunZenithCosGet(const SunHour& sun, const Place& place);

/// The same for several places, from the sines and cosines of their angles.
template <class V>
HOPCAST_INLINE V SunZenithCosLanesGet(const SunHour& sun, const V& vSinLat, const V& vCosLat,
                                      const V& vSinLon, const V& vCosLon)
{
    const V vCosAngle = sun.dCosTurn * vCosLon - sun.dSinTurn * vSinLon;
    return LaneMin<V>(
        LaneMax<V>(vSinLat * sun.dSinDecl + vCosLat * sun.dCosDecl * vCosAngle, LaneAll<V>(-1.0)),
        LaneAll<V>(1.0));
}

/// Sunrise and sunset, hours UT in [0, 24). If the sun does not rise or set bRises is false.
struct SunTimes {
    bool bRises = false;
    double dSunrise = 0.0;
    double dSunset = 0.0;
};
[[nodiscard]] SunTimes SunTimesGet(const SunHour& sun, const Place& place);

/// The sun over a whole day; between the hours its slow motion is interpolated linearly.
struct SunDay {
    std::array<SunHour, 25> aHours;  ///< 0 to 24 UT
};
[[nodiscard]] SunDay SunDayMake(int nMonth);
/// Sine and cosine of the declination at the places' local noon, from their longitudes' sines and
/// cosines.
template <class V>
HOPCAST_INLINE void SunDeclinationAtNoonGet(const SunDay& day, const SunHour& sun, const V& vSinLon,
                                            const V& vCosLon, V& vSin, V& vCos)
{
    // A coarse longitude, within 0.3 degrees (a fiftieth of an hour), is enough.
    const V vX = LaneAbs(vCosLon);
    const V vY = LaneAbs(vSinLon);
    const V vT = LaneMin(vX, vY) / LaneMax(vX, vY);
    V vLon = vT * (kPi / 4.0 + 0.273 * (1.0 - vT));
    vLon = LaneSelect(vY > vX, kPi / 2.0 - vLon, vLon);
    vLon = LaneSelect(vCosLon < 0.0, kPi - vLon, vLon);
    vLon = LaneSelect(vSinLon < 0.0, -vLon, vLon);
    V vNoon = (720.0 - 4.0 * vLon * kDegrees - sun.dEquation) / 60.0;
    vNoon = LaneSelect(vNoon < 0.0, vNoon + 24.0, LaneSelect(vNoon >= 24.0, vNoon - 24.0, vNoon));
    for (int i = 0; i < kLanes<V>; ++i) {
        const int nHour = std::clamp(static_cast<int>(vNoon[i]), 0, 23);
        const double dPart = vNoon[i] - nHour;
        const SunHour& hourA = day.aHours[static_cast<std::size_t>(nHour)];
        const SunHour& hourB = day.aHours[static_cast<std::size_t>(nHour) + 1];
        vSin[i] = hourA.dSinDecl + (hourB.dSinDecl - hourA.dSinDecl) * dPart;
        vCos[i] = hourA.dCosDecl + (hourB.dCosDecl - hourA.dCosDecl) * dPart;
    }
}

}  // namespace rec533
