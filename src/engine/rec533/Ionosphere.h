/// @file Ionosphere.h
/// What all circuits of one month and sunspot number share; made once, read by every thread.
///
/// Units:   hours are labels 1 to 24 UTC (24 = 0).
/// Tests:   tests/engine/ReferenceTableTest.cpp
#pragma once

#include <optional>

#include "engine/rec533/Maps.h"
#include "engine/rec533/Quirks.h"
#include "engine/rec533/Sun.h"

namespace rec533 {

struct Ionosphere {
    Behaviour eBehaviour = Behaviour::Best;
    Quirks quirks;             ///< of the behaviour
    int nMonth = 1;            ///< 1 to 12
    double dSsn = 0.0;         ///< smoothed sunspot number, 0 to 311
    double dSsnLimited = 0.0;  ///< the same, 160 at most: M(3000)F2, foE, absorption, mirror height
    double dActivity = 0.0;    ///< index of the foF2 map: IG12, or the limited sunspot number
    double dFof2Least = 0.0;   ///< MHz
    MapHours maps;             ///< by UT
    SunDay sun;
    NoiseFigures noise;
};

/// Fills a description (large: keep it off the stack of a loop).
/// nMonth 1 to 12; dSsn 0 to 311, clamped. dMeasured: an IG12 that was measured, for
/// Behaviour::Best alone, -15 to 160, clamped; without it the index comes from the sunspot number.
void IonosphereFill(Ionosphere& ionosphere, Behaviour eBehaviour, MapSet eMaps, int nMonth,
                    double dSsn, std::optional<double> dMeasured = std::nullopt);

/// The ionospheric index IG12 that goes with a sunspot number.
[[nodiscard]] double ActivityOfSsn(double dSsn);

/// The hour of the maps for a label.
[[nodiscard]] inline int MapHourGet(int nLabel) { return nLabel % 24; }
/// The hour of sun and local times. The ITU program takes the maps at the label and everything else
/// one hour earlier. Label 24 is the end of the fifteenth, not its begin.
[[nodiscard]] inline int SunHourOfLabel(const Ionosphere& ionosphere, int nLabel)
{
    return ionosphere.quirks.bSunEarly ? nLabel - 1 : nLabel;
}

}  // namespace rec533
