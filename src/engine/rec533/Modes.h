/// @file Modes.h
/// One hour of a path: the propagation modes with everything that does not depend on the frequency,
/// the path's MUFs, and the fields of the modes at a frequency.
///
/// Units:   MHz, km, radians, dB.
/// Source:  Recommendation ITU-R P.533-14, sections 3 to 5.2.
/// Tests:   tests/engine/ReferenceTableTest.cpp
#pragma once

#include "engine/rec533/Absorption.h"
#include "engine/rec533/Frequencies.h"
#include "engine/rec533/Path.h"
#include "engine/rec533/Variability.h"

namespace rec533 {

inline constexpr int kModesMost = 9;

struct Mode {
    bool bE = false;  ///< E mode, else F2
    int nHops = 1;
    double dMuf = 0.0;    ///< basic MUF, median
    double dWorst = 0.0;  ///< in the hop sum: the lowest MUF of its hops
    DecileFactors deciles;
    double dOperational = 0.0;  ///< operational MUF
    bool bReaches = true;       ///< its hop is short enough to carry power
    double dElevation = 0.0;
    double dSlant = 0.0;                  ///< virtual slant range
    double dCosIncidence = 1.0;           ///< at 110 km
    double dGyro = 0.0;                   ///< fL of the absorption
    double dAuroral = 0.0;                ///< Lh
    double dTxGain = 0.0, dRxGain = 0.0;  ///< at its elevation, dBi
    double dRxPower = 1.0;                ///< the receiver's gain as a ratio of powers
    int nCrossing = -1;                   ///< first crossing, -1 until they are needed
};

/// A mode at the frequencies of a set.
struct ModeRows {
    FrequencyRow aUsed;       ///< 1 if it carries power, else 0
    FrequencyRow aScreening;  ///< fs: the E layer screens at and below it
    FrequencyRow aMirror;     ///< mirror height for the screening
    FrequencyRow aLoss;       ///< basic transmission loss Lb
    FrequencyRow aField;      ///< Ew, dB(uV/m)
    FrequencyRow aHopField;   ///< the same in the hop sum of the long-path rule
};

/// An hour of one way.
struct WayHour {
    WayPath* pWay = nullptr;
    int nLabel = 1;  ///< 1 to 24 UTC
    FoeHour foe;
    AbsorptionHour absorption;
    F2Layer mid, hopT, hopR;
    double dFoeModes = 0.0;         ///< foE of the E modes
    double dFoeScreen = 0.0;        ///< foE of the screening
    double dRangeMost = 0.0;        ///< dmax of the path, limited
    double dHeightF2 = 0.0;         ///< reflection height of the F2 modes
    int nOrderF2 = 0, nOrderE = 0;  ///< lowest orders, 0 none
    std::array<Mode, kModesMost> aModes;
    int nModes = 0;
    std::array<Crossing, kCrossingsMost> aCrossings;
    int nCrossings = 0;
    LongHour longPath;
};

struct Hour : WayHour {
    Path* pPath = nullptr;
    NoiseHour noise;
    double dMuf = 0.0, dMuf10 = 0.0,
           dMuf90 = 0.0;  ///< path basic MUF: median, 10 %, 90 % of the days
    double dOperational = 0.0, dOperational10 = 0.0, dOperational90 = 0.0;
    std::array<WayHour, 2> aBent;  ///< of the path's bent ways
};

/// Fills an hour (large: keep it off the stack of a loop). The path must outlive it.
void HourFill(Hour& hour, Path& path, int nLabel);

using ModesRows = std::array<ModeRows, kModesMost>;

/// Fills all modes at the frequencies of a set. Crossings are made when a mode first needs them.
void ModesRowsFill(ModesRows& aRows, WayHour& hour, const FrequencySet& set);

}  // namespace rec533
