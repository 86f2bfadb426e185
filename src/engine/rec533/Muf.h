/// @file Muf.h
/// Basic MUF of a hop.
///
/// Units:   MHz, km.
/// Source:  Recommendation ITU-R P.533-14, sections 3.3 and 3.5, equations 3 to 6.
/// Tests:   tests/engine/FormulaTest.cpp
#pragma once

#include "engine/rec533/Lanes.h"
#include "engine/rec533/Units.h"

namespace rec533 {

/// The F2 layer over one control point, for the MUF of a hop.
struct F2Layer {
    double dFof2 = 0.0;       ///< MHz
    double dM3 = 0.0;         ///< M(3000)F2
    double dFoe = 0.0;        ///< MHz
    double dGyro = 0.0;       ///< gyrofrequency at 300 km, MHz
    double dB = 0.0;          ///< ratio of the MUF of a 3000-km hop to foF2
    double dRangeMost = 0.0;  ///< longest hop dmax, km, not limited
};
[[nodiscard]] F2Layer F2LayerMake(double dFof2, double dM3, double dFoe, double dGyro);

/// Ratio B of a 3000-km hop's MUF to foF2.
template <class V>
HOPCAST_INLINE V F2RatioGet(const V& vX, const V& vM3)
{
    return vM3 - 0.124 + (vM3 * vM3 - 4.0) * (0.0215 + 0.005 * LaneSin<V>(7.854 / vX - 1.9635));
}
/// dmax, km.
template <class V>
HOPCAST_INLINE V F2RangeGet(const V& vX, const V& vB)
{
    const V vX2 = 1.0 / (vX * vX);
    return 4780.0
           + (12610.0 + vX2 * (2140.0 + vX2 * (-49720.0 + vX2 * 688900.0))) * (1.0 / vB - 0.303);
}
/// Distance factor Cd of a hop, 0 at distance 0, 1 at 3000 km and about 1.4 at dmax.
template <class V>
HOPCAST_INLINE V F2DistanceGet(double dHopKm, const V& vRangeMost)
{
    const V vZ = 1.0 - 2.0 * LaneMin<V>(LaneAll<V>(dHopKm), vRangeMost) / vRangeMost;
    return (((((0.096 * vZ + 0.181) * vZ + 0.088) * vZ - 0.090) * vZ - 0.424) * vZ - 0.591) * vZ
           + 0.74;
}
/// Basic MUF of a hop with a given dmax.
template <class V>
HOPCAST_INLINE V F2MufOf(const V& vFof2, const V& vB, const V& vGyro, double dHopKm,
                         const V& vRangeMost)
{
    constexpr double kStandardHop = 3000.0;
    const V vRatio =
        F2DistanceGet<V>(dHopKm, vRangeMost) / F2DistanceGet<V>(kStandardHop, vRangeMost);
    return (1.0 + vRatio * (vB - 1.0)) * vFof2 + vGyro / 2.0 * (1.0 - dHopKm / vRangeMost);
}
[[nodiscard]] double F2MufGet(const F2Layer& f2Layer, double dHopKm, double dRangeMost);

/// The same with the layer's own dmax, for several layers at once.
template <class V>
HOPCAST_INLINE V F2MufLanesGet(const V& vFof2, const V& vM3, const V& vFoe, const V& vGyro,
                               double dHopKm)
{
    const V vX = LaneMax<V>(vFof2 / vFoe, LaneAll<V>(2.0));
    const V vB = F2RatioGet<V>(vX, vM3);
    return F2MufOf<V>(vFof2, vB, vGyro, dHopKm, F2RangeGet<V>(vX, vB));
}

}  // namespace rec533
