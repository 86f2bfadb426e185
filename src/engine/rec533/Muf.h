/// @file Muf.h
/// Basic MUF of a hop.
///
/// Units:   MHz, km.
/// Source:  Recommendation ITU-R P.533-14, sections 3.3 and 3.5, equations 3 to 6.
/// Tests:   tests/engine/FormulaTest.cpp
#pragma once

#include "engine/rec533/Units.h"

namespace rec533 {

/// The F2 layer over one control point, as the MUF of a hop needs it.
struct F2Layer {
    double dFof2 = 0.0;       ///< MHz
    double dM3 = 0.0;         ///< M(3000)F2
    double dFoe = 0.0;        ///< MHz
    double dGyro = 0.0;       ///< gyrofrequency at 300 km, MHz
    double dB = 0.0;          ///< ratio of the MUF of a 3000-km hop to foF2
    double dRangeMost = 0.0;  ///< longest hop dmax, km, not limited
};
[[nodiscard]] F2Layer F2LayerMake(double dFof2, double dM3, double dFoe, double dGyro);

/// Distance factor Cd of a hop, 0 at no distance, 1 at 3000 km and about 1.4 at dmax.
[[nodiscard]] double F2DistanceGet(double dHopKm, double dRangeMost);
/// Basic MUF of a hop with a given dmax.
[[nodiscard]] double F2MufGet(const F2Layer& tbl, double dHopKm, double dRangeMost);

}  // namespace rec533
