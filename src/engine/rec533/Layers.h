/// @file Layers.h
/// The E layer's critical frequency and the heights at which rays are mirrored.
///
/// Units:   MHz, km, radians.
/// Source:  foE: Recommendation ITU-R P.1239, section 4; heights: ITU-R P.533-14, sections 3.5
///          (eq. 2) and 5.1.
/// Tests:   tests/engine/CorrectionsTest.cpp
#pragma once

#include "engine/rec533/Ionosphere.h"

namespace rec533 {

/// What foE needs of month and hour.
struct FoeHour {
    const SunHour* pSun = nullptr;
    double dActivity = 1.0;  ///< factor A of the solar flux
    double dFloor = 0.0;     ///< least foE, to the fourth power
    int nMonth = 1;
    double dClock = 0.0;  ///< hour from which the time since sunset is counted
    bool bReference = false;
};
[[nodiscard]] FoeHour FoeHourGet(const Ionosphere& tbl, int nLabel);

/// foE, MHz. dCosChi: cosine of the sun's zenith angle at the place.
[[nodiscard]] double FoeGet(const FoeHour& tblHour, const Place& tblPlace, double dCosChi);

/// Mirror height of the F2 basic MUF, km, 500 at most. dM3: M(3000)F2.
[[nodiscard]] double MirrorHeightSimpleGet(double dM3);

struct MirrorHeightInput {
    double dFrequency = 0.0;  ///< MHz
    double dHopKm = 0.0;
    double dFof2 = 0.0, dFoe = 0.0, dM3 = 0.0;
    double dSsn = 0.0;        ///< limited to 160
    bool bReference = false;  ///< without the linear term of G
};
/// Mirror height that serves the screening by the E layer, km, 800 at most.
[[nodiscard]] double MirrorHeightGet(const MirrorHeightInput& tbl);

}  // namespace rec533
