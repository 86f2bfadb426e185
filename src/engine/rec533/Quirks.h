/// @file Quirks.h
/// The errors of the ITU program, one by one. Behaviour::Reference repeats all of them, the others
/// none: docs/model.md, "Where it departs from the ITU program".
///
/// Tests:   tests/engine/CorrectionsTest.cpp
#pragma once

#include "engine/rec533/Units.h"

namespace rec533 {

struct Quirks {
    bool bSunEarly = false;        ///< sun, local times and noise one hour before the maps
    bool bGriddedMaps = false;     ///< maps from grids, weights mirrored in the south and west
    bool bNoMirrorTerm = false;    ///< mirror height without the linear term of G
    bool bWinterNorth = false;     ///< southern polar winter tested without the limit's sign
    bool bNegativeHours = false;   ///< negative local hours of the auroral loss not wrapped
    bool bDecilesAtUtc = false;    ///< decile factors at the UT hour
    bool bDayByUtc = false;        ///< day and night by UT hours, ignoring midnight
    bool bLowPower = false;        ///< always the operational MUF's ratio for low power
    bool bNorthOnly = false;       ///< only northern high latitudes in the signal deciles, and
                                   ///< beyond 9000 km at crossings of 90 km
    bool bDecilesSwapped = false;  ///< the deciles of a noise level the wrong way round
};

[[nodiscard]] constexpr Quirks QuirksOf(Behaviour eBehaviour)
{
    const bool bAll = eBehaviour == Behaviour::Reference;
    return {bAll, bAll, bAll, bAll, bAll, bAll, bAll, bAll, bAll, bAll};
}

}  // namespace rec533
