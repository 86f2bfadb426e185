/// @file Prediction.h
/// A path at an hour and frequency: field strength, power, noise, SNR, reliability.
///
/// Units:   MHz, dB(uV/m), dBW, dB, percent, radians.
/// Domain:  frequencies 0.1 to 45 MHz (1 to 30 as the reference), everything else clamped.
/// Source:  Recommendation ITU-R P.533-14, sections 5.4 to 10.1; the long-path rule is told in
///          docs/model.md.
/// Tests:   tests/engine/ReferenceTableTest.cpp, tests/engine/VariantsTest.cpp
#pragma once

#include "engine/rec533/Modes.h"
#include "engine/rec533/Reliability.h"

namespace rec533 {

struct Prediction {
    double dFieldShort = 0.0;     ///< short method; only up to 9000 km
    double dFieldLong = 0.0;      ///< long method; only from 7000 km on
    double dField = 0.0;          ///< the one that counts
    double dLongShare = 0.0;      ///< 1 - Q of the long method
    double dPower = 0.0;          ///< median at the receiver's input, dBW
    const Mode* pMode = nullptr;  ///< strongest mode, none where the long method rules
    double dElevation = 0.0;      ///< of that mode, or the best low angle of the antenna
    Noise tblAtmospheric, tblManMade, tblGalactic;
    SnrResult tblSnr;
};

/// Hour's lists of crossings grow with the first prediction that needs them.
void PredictionFill(Prediction& tbl, Hour& tblHour, double dFrequency);

}  // namespace rec533
