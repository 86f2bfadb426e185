/// @file Absorption.h
/// Absorption in the D and E layers along the rays of a path.
///
/// A mode's loss is a mean over the places where its ray crosses 90 km. All that does not depend on
/// the frequency is taken once for an hour and a mode: foE and the weight of the place.
///
/// Units:   km, MHz, dB.
/// Source:  Recommendation ITU-R P.533-14, section 5.2.2, figures 1 to 3 as numbers.
/// Tests:   tests/engine/FormulaTest.cpp
#pragma once

#include "engine/rec533/Layers.h"

namespace rec533 {

/// One crossing of 90 km.
struct Crossing {
    double dFoe = 0.0;     ///< MHz
    double dWeight = 0.0;  ///< absorption factor at noon, times the diurnal factor
};

/// Most crossings that the modes of a path and hour have: F2 modes of 14 to 17 hops.
inline constexpr int kCrossingsMost = 2 * (14 + 15 + 16 + 17);

/// The month and hour for crossings.
struct AbsorptionHour {
    const Ionosphere* pIonosphere = nullptr;
    FoeHour tblFoe;
};

/// From a hop's start to its first crossing, and from its end back to the second, km.
[[nodiscard]] double CrossingKmGet(double dElevation);

/// Fills the 2 n crossings of nHops hops in the order of the path.
void CrossingsFill(const AbsorptionHour& tblHour, const GreatCircle& tblPath, int nHops,
                   double dElevation, Crossing* pCrossings);

/// Mean of the absorption factor of a mode's 2 n crossings at the frequency fv = f cos i(110).
[[nodiscard]] double AbsorptionFactorGet(const Crossing* pCrossings, int nCount, double dVertical);

/// Loss of an n-hop mode, dB. dGyro: mean over the control points of |fH sin I| at 100 km.
[[nodiscard]] double AbsorptionLossGet(double dFactor, int nHops, double dSsnLimited,
                                       double dFrequency, double dGyro, double dCosIncidence);

}  // namespace rec533
