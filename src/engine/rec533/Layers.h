/// @file Layers.h
/// The heights at which rays are mirrored.
///
/// Units:   MHz, km.
/// Source:  Recommendation ITU-R P.533-14, sections 3.5 (eq. 2) and 5.1.
/// Tests:   tests/engine/CorrectionsTest.cpp
#pragma once

#include "engine/rec533/Foe.h"

namespace rec533 {

/// Mirror height for the F2 basic MUF, km, at most 500. dM3: M(3000)F2.
[[nodiscard]] double MirrorHeightSimpleGet(double dM3);

/// A layer as the mirror height for the screening needs it.
struct MirrorLayer {
    double dFof2 = 0.0;                ///< MHz
    double dH = 0.0;                   ///< the method's H, km
    bool bThick = false;               ///< foF2/foE above 3.33
    double dBase = 0.0, dPerKm = 0.0;  ///< if not: the height is linear in the hop's length
    double dLinear = 0.0;              ///< term of G, which the ITU program omits
};
/// dSsn: limited to 160. bNoTerm: without the linear term of G.
[[nodiscard]] MirrorLayer MirrorLayerMake(double dFof2, double dFoe, double dM3, double dSsn,
                                          bool bNoTerm);

/// Mirror height for the screening by the E layer at some frequencies, km, at most 800.
template <class V>
HOPCAST_INLINE V MirrorHeightLanesGet(const MirrorLayer& mirrorLayer, const V& vFrequency,
                                      double dHopKm)
{
    constexpr double kHighest = 800.0;
    if (!mirrorLayer.bThick)
        return LaneAll<V>(std::min(mirrorLayer.dBase + mirrorLayer.dPerKm * dHopKm, kHighest));
    const double dH = mirrorLayer.dH;
    const V vXr = vFrequency / mirrorLayer.dFof2;
    // f >= foF2
    const V vE1 = ((-0.09707 * vXr + 0.6870) * vXr - 0.7506) * vXr + 0.6;
    const V vF1 = LaneSelect(vXr <= 1.71,
                             (((-1.862 * vXr + 12.95) * vXr - 32.03) * vXr + 33.50) * vXr - 10.91,
                             1.21 + 0.2 * vXr);
    const V vG = LaneSelect(
        vXr <= 3.7,
        (((-2.102 * vXr + 19.50) * vXr - 63.15) * vXr + mirrorLayer.dLinear) * vXr - 44.73,
        LaneAll<V>(19.25));
    const V vDs = 160.0 + (dH + 43.0) * vG;
    const V vA = (dHopKm - vDs) / (dH + 140.0);
    const V vA1 = 140.0 + (dH - 47.0) * vE1;
    const V vB1 = 150.0 + (dH - 17.0) * vF1 - vA1;
    constexpr double kLog24 = 0.87546873735389985;  // ln 2.4
    const V vFall = LaneExp<V>(LaneMax<V>(vA, LaneAll<V>(0.0)) * -kLog24);
    const V vAbove = LaneSelect(vB1 >= 0.0, vA1 + vB1 * vFall, vA1 + vB1);
    // f < foF2
    const V vZ = LaneMax<V>(vXr, LaneAll<V>(0.1));
    const V vE2 = (0.1906 * vZ + 0.00583) * vZ + 0.1936;
    const V vA2 = 151.0 + (dH - 47.0) * vE2;
    const V vF2 = (0.645 * vZ + 0.883) * vZ + 0.162;
    const V vB2 = 141.0 + (dH - 24.0) * vF2 - vA2;
    const V vDf = LaneMin<V>(0.115 * dHopKm / (vZ * (dH + 140.0)), LaneAll<V>(0.65));
    const V vB = (((-7.535 * vDf + 15.75) * vDf - 8.834) * vDf - 0.378) * vDf + 1.0;
    const V vBelow = LaneSelect(vB2 >= 0.0, vA2 + vB2 * vB, vA2 + vB2);
    return LaneMin<V>(LaneSelect(vXr >= 1.0, vAbove, vBelow), LaneAll<V>(kHighest));
}

}  // namespace rec533
