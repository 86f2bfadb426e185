/// @file Ionosphere.h
/// Data for all circuits of one month and sunspot number; made once, read by every thread.
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
    double dSsnLimited = 0.0;  ///< at most 160: for M(3000)F2, foE, absorption, mirror height
    double dActivity = 0.0;    ///< index of the foF2 map: IG12, or the limited sunspot number
    double dFof2Least = 0.0;   ///< MHz
    MapHours maps;             ///< by UT
    SunDay sun;
    NoiseFigures noise;
};

/// Fills an ionosphere (large: keep it off the stack of a loop).
/// nMonth 1 to 12; dSsn 0 to 311, clamped. dMeasured: a measured IG12, only for Behaviour::Best,
/// -15 to 160, clamped; without it the index is derived from the sunspot number.
void IonosphereFill(Ionosphere& ionosphere, Behaviour eBehaviour, MapSet eMaps, int nMonth,
                    double dSsn, std::optional<double> dMeasured = std::nullopt);

/// The ionospheric index IG12 that corresponds to a sunspot number.
[[nodiscard]] double ActivityOfSsn(double dSsn);

/// The hour of the maps for a label.
[[nodiscard]] inline int MapHourGet(int nLabel) { return nLabel % 24; }
/// The hour for the sun and local times. The ITU program takes the maps at the label and everything
/// else one hour earlier. Label 24 is the end of the fifteenth, not its beginning.
[[nodiscard]] inline int SunHourOfLabel(const Ionosphere& ionosphere, int nLabel)
{
    return ionosphere.quirks.bSunEarly ? nLabel - 1 : nLabel;
}

}  // namespace rec533
