/// @file Path.h
/// A circuit with all that does not change from hour to hour: its great circle, control points, the
/// receiver's noise sums and the long method's limits.
///
/// Units:   km, MHz, radians.
/// Source:  control points: Recommendation ITU-R P.533-14, section 2, table 1.
/// Tests:   tests/engine/SanityTest.cpp
#pragma once

#include "engine/rec533/Absorption.h"
#include "engine/rec533/Circuit.h"
#include "engine/rec533/LongPath.h"
#include "engine/rec533/Muf.h"
#include "engine/rec533/Noise.h"
#include "engine/rec533/Site.h"

namespace rec533 {

inline constexpr double kRangeF2Most = 4000.0;   ///< longest hop, km
inline constexpr double kRangeEMost = 4000.0;    ///< no E modes from here on, km
inline constexpr double kControlAhead = 1000.0;  ///< control points T + 1000 and R - 1000, km
inline constexpr double kControlShort = 2000.0;  ///< up to here mid-path serves alone, km
inline constexpr double kShortOnly = 7000.0;     ///< up to here the short method alone, km
inline constexpr double kLongOnly = 9000.0;      ///< from here the long method (or rule) alone, km
inline constexpr int kOrderMost = 6;             ///< hops of the highest order of the short method
inline constexpr int kOrderHopSumMost = 14;      ///< highest lowest order of the hop sum

struct Path {
    const Ionosphere* pIonosphere = nullptr;
    Circuit tblCircuit;
    GreatCircle tblWay;
    CrossingTrack tblTrack;
    double dPowerDb = 0.0;         ///< transmitter, dB above 1 kW
    double dShareQuantile = 0.0;   ///< of the required reliability
    double dLeastElevation = 0.0;  ///< radians
    AntennaLow tblTxLow, tblRxLow;
    Site tblMid;
    Site tblAheadT, tblAheadR;  ///< T + 1000, R - 1000; only beyond 2000 km
    std::array<Site, kOrderHopSumMost + 1> aHopT, aHopR;  ///< T + d0/2, R - d0/2 for d0 = D / index
    std::array<bool, kOrderHopSumMost + 1> aHopMade{};
    bool bHighLatitude = false;  ///< for the signal deciles
    NoisePlace tblNoise;
    LongPath tblLong;  ///< only from 7000 km on
};

/// Fills a path (large: keep it off the stack of a loop). The ionosphere outlives it.
void PathFill(Path& tbl, const Ionosphere& tblIonosphere, const Circuit& tblCircuit);

/// Makes the two half-hop control points of an order, if they are not there.
void PathHopSitesMake(Path& tbl, int nOrder);

}  // namespace rec533
