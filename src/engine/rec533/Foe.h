/// @file Foe.h
/// The E layer's critical frequency.
///
/// Units:   MHz, radians.
/// Source:  Recommendation ITU-R P.1239, section 4.
/// Tests:   tests/engine/CorrectionsTest.cpp, tests/engine/LanesTest.cpp
#pragma once

#include "engine/rec533/Ionosphere.h"
#include "engine/rec533/Lanes.h"

namespace rec533 {

/// The month and hour as foE needs them.
struct FoeHour {
    const SunHour* pSun = nullptr;
    double dActivity = 1.0;  ///< factor A of the solar flux
    double dFloor = 0.0;     ///< minimum foE, to the fourth power
    int nMonth = 1;
    double dClock = 0.0;  ///< hour from which the time since sunset is counted
    Quirks quirks;
};
[[nodiscard]] FoeHour FoeHourGet(const Ionosphere& ionosphere, int nLabel);

/// foE, MHz. dCosChi: cosine of the sun's zenith angle at the place.
[[nodiscard]] double FoeGet(const FoeHour& hour, const Place& place, double dCosChi);

/// Logarithm of the diurnal factor for zenith angles above 73 degrees; any lower number if the
/// factor is below the floor of foE anyway.
/// dPower: p of the method. dLogFloor: logarithm of the factor at that floor.
[[nodiscard]] double FoeDarkLogGet(const FoeHour& hour, const Place& place, double dCosChi,
                                   double dPower, double dLogFloor);

/// The same as FoeGet for several places at once, from the sines and cosines of their angles.
template <class V>
HOPCAST_INLINE V FoeLanesGet(const FoeHour& hour, const V& vSinLat, const V& vCosLat,
                             const V& vSinLon, const V& vCosLon, const V& vCosChi)
{
    constexpr double kCos73 = 0.29237170472273677;
    constexpr double kCos80 = 0.17364817766693041;
    constexpr double kSin12 = 0.20791169081775934;
    constexpr double kSin32 = 0.52991926423320490;
    const V vAbsSin = LaneAbs(vSinLat);
    const auto maskLow = vAbsSin < kSin32;
    const V vM = LaneSelect(maskLow, -1.93 + 1.92 * vCosLat, 0.11 - 0.49 * vCosLat);
    const V vC = LaneSelect(maskLow, 23.0 + 116.0 * vCosLat, 92.0 + 35.0 * vCosLat);
    // N is the sun's zenith angle at noon, at most 80 degrees (also if the sun is lower).
    const V vCosN = LaneMax<V>(vCosLat * hour.pSun->dCosDecl + vSinLat * hour.pSun->dSinDecl,
                               LaneAll<V>(kCos80));
    const V vP = LaneSelect(vAbsSin <= kSin12, LaneAll<V>(1.31), LaneAll<V>(1.20));
    const V vLogN = vM * LaneLog<V>(vCosN);
    V vLogD = vP * LaneLog<V>(LaneMax<V>(vCosChi, LaneAll<V>(kCos73)));
    if (LaneAny(vCosChi < kCos73)) {
        const V vLogFloor = LaneLog<V>(hour.dFloor / (hour.dActivity * vC)) - vLogN;
        for (int i = 0; i < kLanes<V>; ++i) {
            if (LaneGet(vCosChi, i) >= kCos73)
                continue;
            const Place place{0.0,
                              0.0,
                              LaneGet(vSinLat, i),
                              LaneGet(vCosLat, i),
                              LaneGet(vSinLon, i),
                              LaneGet(vCosLon, i)};
            LaneSet(vLogD, i,
                    FoeDarkLogGet(hour, place, LaneGet(vCosChi, i), LaneGet(vP, i),
                                  LaneGet(vLogFloor, i)));
        }
    }
    const V vFourth = hour.dActivity * vC * LaneExp<V>(vLogN + vLogD);
    return LaneSqrt<V>(LaneSqrt<V>(LaneMax<V>(vFourth, LaneAll<V>(hour.dFloor))));
}

}  // namespace rec533
