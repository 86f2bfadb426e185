/// @file Absorption.h
/// Absorption in the D and E layers along the rays of a path.
///
/// The loss of a mode is a mean over the places where its ray crosses 90 km. What does not depend
/// on the frequency, foE and the weight of the place, is computed once for each hour and mode.
///
/// Units:   km, MHz, dB.
/// Source:  Recommendation ITU-R P.533-14, section 5.2.2, figures 1 to 3 as numbers.
/// Tests:   tests/engine/FormulaTest.cpp
#pragma once

#include "engine/rec533/Layers.h"
#include "engine/rec533/MagneticField.h"

namespace rec533 {

/// One crossing of 90 km.
struct Crossing {
    double dFoe = 0.0;     ///< MHz
    double dWeight = 0.0;  ///< absorption factor at noon, times the diurnal factor
};

/// Maximum number of crossings of the modes of a path and hour: the four longest F2 modes.
inline constexpr int kCrossingsMost = 2 * (4 * kHopsMost - 6);
/// The same for one mode, with space for whole vectors.
inline constexpr int kCrossingsOfMode = 2 * kHopsMost + 6;

/// The month and hour for crossings.
struct AbsorptionHour {
    const Ionosphere* pIonosphere = nullptr;
    FoeHour foe;
};

/// The data of a path that its crossings need.
struct CrossingTrack {
    Way way;
    std::array<FieldTrack, 2> aFields;  ///< the field along the way's arcs
};
[[nodiscard]] CrossingTrack CrossingTrackMake(const Way& way);

/// From a hop's start to its first crossing, and from its end back to the second, km.
[[nodiscard]] double CrossingKmGet(double dElevation);

/// Fills the 2 n crossings of nHops hops in the order of the path.
void CrossingsFill(const AbsorptionHour& hour, const CrossingTrack& track, int nHops,
                   double dElevation, Crossing* pCrossings);

/// Sum of the absorption factors of crossings at vertical frequencies fv = f cos i(110).
/// Figure 2: the penetration factor phi against fv/foE, divided by its value for large fv/foE.
template <class V>
HOPCAST_INLINE V AbsorptionSumGet(const Crossing* pCrossings, int nCount, const V& vVertical)
{
    constexpr double kFar = 0.34;
    constexpr double kMost = 0.53;
    V vSum{};
    for (int i = 0; i < nCount; ++i) {
        const V vT = vVertical / pCrossings[i].dFoe;
        V vPhi = kFar + LaneMax<V>(10.0 - vT, LaneAll<V>(0.0)) * (0.02 / 7.8);
        if (LaneAny(vT <= 2.2)) {
            const V vX = (vT - 0.475) / 0.475;
            const V vBelow =
                (((((-0.093 * vX + 0.04) * vX + 0.127) * vX - 0.027) * vX + 0.044) * vX + 0.159)
                    * vX
                + 0.225;
            const V vY = (vT - 1.65) / 0.55;
            const V vAbove =
                (((((0.043 * vY - 0.07) * vY - 0.027) * vY + 0.034) * vY + 0.054) * vY - 0.049) * vY
                + 0.375;
            vPhi = LaneSelect(vT <= 2.2,
                              LaneMin<V>(LaneSelect(vT <= 1.0, vBelow, vAbove), LaneAll<V>(kMost)),
                              vPhi);
        }
        vSum += pCrossings[i].dWeight / kFar * vPhi;
    }
    return vSum;
}

}  // namespace rec533
