/// @file Prediction.h
/// A path at an hour and frequencies: field strength, power, noise, SNR, reliability.
///
/// Units:   MHz, dB(uV/m), dBW, dB, percent, radians.
/// Domain:  frequencies 0.1 to 45 MHz (1 to 30 as the reference), everything else clamped.
/// Source:  Recommendation ITU-R P.533-14, sections 5.4 to 10.1; docs/model.md describes the
///          long-path rule.
/// Tests:   tests/engine/ReferenceTableTest.cpp, tests/engine/VariantsTest.cpp
#pragma once

#include "engine/rec533/Modes.h"
#include "engine/rec533/Reliability.h"

namespace rec533 {

/// The predictions at the frequencies of a set.
struct PredictionRows {
    FrequencyRow aFieldShort;  ///< short method; only up to 9000 km
    FrequencyRow aFieldLong;   ///< long method; only from 7000 km on
    FrequencyRow aField;       ///< the result
    FrequencyRow aLongShare;   ///< 1 - Q of the long method
    FrequencyRow aPower;       ///< median at the receiver's input, dBW
    FrequencyRow aMode;        ///< number of the strongest mode, -1 if the long method prevails
    FrequencyRow aElevation;   ///< of that mode, or the best low angle of the antenna
    SnrRows snr;
};

/// The fields of one way by the long-path rule, dB(uV/m).
struct WayRows {
    FrequencyRow aHops;  ///< hop by hop
    FrequencyRow aLong;  ///< the long method, widened
};

/// Working memory of PredictionRowsFill: large, one per thread.
struct PredictionWork {
    std::array<ModesRows, 3> aModes;  ///< of the straight way and the bent ones
    std::array<WayRows, 3> aWays;     ///< of the same; only beyond 7000 km by the long-path rule
};

/// The hour's lists of crossings grow with the first prediction that needs them.
void PredictionRowsFill(PredictionRows& predictionRows, PredictionWork& work, Hour& hour,
                        const FrequencySet& set);

/// One hour and frequency.
struct Prediction {
    double dFieldShort = 0.0;  ///< as in the rows
    double dFieldLong = 0.0;
    double dField = 0.0;
    double dLongShare = 0.0;
    double dPower = 0.0;
    int nHops = 0;    ///< of the strongest mode; 0 if the long method prevails
    bool bE = false;  ///< it is an E mode
    double dElevation = 0.0;
    double dSnr = 0.0, dSnrUpper = 0.0, dSnrLower = 0.0, dSnrExceeded = 0.0;
    double dReliability = 0.0;
};

/// The prediction at one frequency of the rows.
[[nodiscard]] Prediction PredictionOfRows(const PredictionRows& rows, const Hour& hour,
                                          std::size_t nFrequency);

/// The prediction at a single frequency.
void PredictionFill(Prediction& prediction, Hour& hour, double dFrequency);

}  // namespace rec533
