/// @file LongPath.h
/// The method for long paths: a field between a lower and an upper limit of frequency.
///
/// Units:   MHz, km, dB.
/// Source:  Recommendation ITU-R P.533-14, section 5.3.
/// Tests:   tests/engine/ReferenceTableTest.cpp
#pragma once

#include "engine/rec533/Site.h"

namespace rec533 {

inline constexpr int kLowHopsMost = 14;  ///< hops of 3000 km round the whole Earth

/// Hour-independent parts of a path and its limits at all hours.
struct LongPath {
    double dSlant = 0.0;    ///< p', km
    double dSlantDb = 0.0;  ///< 20 log p'
    double dGap = 0.0;      ///< focusing at long distances, dB
    double dGyro = 0.0;     ///< mean gyrofrequency at 300 km, MHz
    int nHops = 0;          ///< hops of the upper limit
    int nLowHops = 0;       ///< hops of the lower limit
    std::array<Place, std::size_t{2} * kLowHopsMost> aLowPlaces;  ///< their 90-km crossings
    std::array<double, 2> aLat{}, aLon{};  ///< the two control points of fM, radians
    std::array<double, 24> aBasic[2];      ///< basic MUF of the two points by UT
    std::array<double, 24> aRatio[2];      ///< K of the two points by UT
    std::array<double, 24> aLower;         ///< fL by UT
};
void LongPathFill(LongPath& longPath, const Ionosphere& ionosphere, const Way& way);

/// Limits and MUF at one hour.
struct LongHour {
    double dUpper = 0.0;  ///< fM
    double dLower = 0.0;  ///< fL
    double dBasic = 0.0;  ///< smaller basic MUF of the two points
    int nSmaller = 0;     ///< the point that has it
    double dK1 = 0.0, dK2 = 0.0;
};
[[nodiscard]] LongHour LongHourGet(const LongPath& longPath, int nLabel);

/// 1 - Q: the fraction of the free-space field that remains between the limits.
template <class V>
HOPCAST_INLINE V LongShareGet(const LongPath& longPath, const LongHour& hour, const V& vFrequency)
{
    const double dL = Square(hour.dLower + longPath.dGyro);
    const double dM = Square(hour.dUpper + longPath.dGyro);
    const V vF = (vFrequency + longPath.dGyro) * (vFrequency + longPath.dGyro);
    return 1.0 - (dL / vF + vF / dM) * dM / (dM + dL);
}

/// E0 of the Recommendation, dB.
[[nodiscard]] inline double LongFreeGet(const LongPath& longPath)
{
    return 139.6 - longPath.dSlantDb;
}

/// Field strength of the Recommendation's long method, dB(uV/m). Power in dB above 1 kW.
template <class V>
HOPCAST_INLINE V LongFieldGet(const LongPath& longPath, const V& vShare, double dPowerDb,
                              double dGain)
{
    constexpr double kLy = -0.17;  // losses not otherwise included, dB
    return LongFreeGet(longPath) * vShare - 30.0 + dPowerDb + dGain + longPath.dGap - kLy;
}

}  // namespace rec533
