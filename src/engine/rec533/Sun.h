/// @file Sun.h
/// Where the sun stands on the fifteenth of a month.
///
/// Units:   radians, hours UT, minutes for the equation of time.
/// Source:  the low-precision almanac series of the ITU program of Recommendation ITU-R P.533;
///          within 0.6 degrees of the Astronomical Almanac.
/// Tests:   tests/engine/CorrectionsTest.cpp
#pragma once

#include <array>

#include "engine/rec533/Geometry.h"

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
    double dSinTurn = 0.0;   ///< of the hour angle at longitude 0
    double dCosTurn = 1.0;
};

/// dHour 0 to 24.
[[nodiscard]] SunHour SunHourGet(int nMonth, double dHour);

/// Hour angle at a longitude, radians, not wrapped.
[[nodiscard]] double SunHourAngleGet(const SunHour& tblSun, double dLon);
/// Cosine of the zenith angle, -1 to 1.
[[nodiscard]] double SunZenithCosGet(const SunHour& tblSun, const Place& tblPlace);

/// Sunrise, sunset and noon, hours UT in [0, 24). Without a rising or setting sun bRises is false.
struct SunTimes {
    bool bRises = false;
    double dSunrise = 0.0;
    double dSunset = 0.0;
};
[[nodiscard]] SunTimes SunTimesGet(const SunHour& tblSun, const Place& tblPlace);
[[nodiscard]] double SunNoonGet(const SunHour& tblSun, double dLon);

/// The sun over a whole day; between the hours its slow motion is taken as straight.
struct SunDay {
    std::array<SunHour, 25> aHours;  ///< 0 to 24 UT
};
[[nodiscard]] SunDay SunDayMake(int nMonth);
/// Sine and cosine of the declination at a place's own noon, from its longitude's sine and cosine.
void SunDeclinationAtNoonGet(const SunDay& tblDay, const SunHour& tblSun, const Place& tblPlace,
                             double& dSin, double& dCos);

}  // namespace rec533
