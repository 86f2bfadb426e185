/// @file Path.h
/// A circuit with everything that does not change from hour to hour: its great circle, control
/// points, the receiver's noise sums and the long method's limits.
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
inline constexpr double kControlShort = 2000.0;  ///< up to here mid-path only, km
inline constexpr double kShortOnly = 7000.0;     ///< up to here the short method only, km
inline constexpr double kLongOnly = 9000.0;      ///< from here the long method (or rule) only, km
inline constexpr int kOrderMost = 6;             ///< hops of the highest order of the short method
inline constexpr int kHopSumMore = 3;            ///< orders above the lowest in the hop sum
inline constexpr int kOrderHopSumMost = kHopsMost - kHopSumMore;  ///< its highest lowest order
/// The points of orders up to this one are kept for all hours. Only the long way round with a low
/// layer, and rays that must leave steeply, need more hops; those orders share one place.
inline constexpr int kHopsKept = 17;

/// The middles of the hops of each order, whose lowest MUF is that of the whole order: rows with
/// space for a whole vector after the last one. An order that is not kept is made for one hour.
struct HopMiddles {
    static constexpr std::size_t kNotKept = kHopsKept * (kHopsKept + 1) / 2;
    static constexpr std::size_t kCount = kNotKept + kHopsMost + 4;
    using Row = std::array<double, kCount>;
    [[nodiscard]] static std::size_t FirstGet(int nHops)
    {
        return nHops <= kHopsKept ? static_cast<std::size_t>(nHops * (nHops - 1) / 2) : kNotKept;
    }
    std::array<bool, kHopsKept + 1> aMade{};  ///< of the kept orders
    Row aSinLat{}, aCosLat{}, aSinLon{}, aCosLon{};
    Row aGyro{};                         ///< at 300 km, MHz
    std::array<Row, 24> aFof2{}, aM3{};  ///< by hour UT
};

/// One way of a path with its control points.
struct WayPath {
    const Ionosphere* pIonosphere = nullptr;
    const Antenna* pTx = nullptr;
    const Antenna* pRx = nullptr;
    Way way;
    CrossingTrack track;
    double dPowerDb = 0.0;         ///< transmitter, dB above 1 kW
    double dLeastElevation = 0.0;  ///< radians
    bool bHopSum = false;          ///< the long-path rule applies
    int nOnlyHour = -1;            ///< the only hour UT of the maps that is needed, -1 any
    AntennaLow txLow, rxLow;
    Site mid;
    Site aheadT, aheadR;  ///< T + 1000, R - 1000; only beyond 2000 km
    /// T + d0/2 and R - d0/2 for d0 = D / index; at 0 for an order that is not kept.
    std::array<Site, kHopsKept + 1> aHopT, aHopR;
    std::array<int, kHopsKept + 1> anHopMade{};  ///< the order that they are made for, 0 none
    HopMiddles middles;                          ///< only where the long-path rule applies
    LongPath longPath;                           ///< only from 7000 km on
};

struct Path : WayPath {
    Circuit circuit;
    double dShareQuantile = 0.0;  ///< quantile of the required reliability
    bool bHighLatitude = false;   ///< for the signal deciles
    NoisePlace noise;
    double dBend = 0.0;            ///< bend of the bent ways, radians
    std::size_t nBent = 0;         ///< 0, or 2 beyond 12 000 km by the long-path rule
    std::array<WayPath, 2> aBent;  ///< to the right and to the left
};

/// Fills a path (large: keep it off the stack of a loop). The ionosphere must outlive it.
/// nOnlyLabel: the only label that is needed, 0 any.
void PathFill(Path& path, const Ionosphere& ionosphere, const Circuit& circuit, int nOnlyLabel = 0);

/// Index of the two half-hop control points of an order, which are made if they do not exist yet.
std::size_t PathHopSitesMake(WayPath& wayPath, int nOrder);
/// The lowest basic MUF of the hops of an order at a label, by the long-path rule. Makes the hops'
/// middles if they do not exist yet.
[[nodiscard]] double PathWorstMufGet(WayPath& wayPath, const FoeHour& foe, int nLabel, int nHops);

}  // namespace rec533
