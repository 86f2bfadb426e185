/// @file Reliability.h
/// Signal-to-noise ratio, its deciles, the value exceeded on a share of the days, reliability.
///
/// Units:   dB, percent.
/// Source:  Recommendation ITU-R P.533-14, sections 7, 8 and 10.1; ITU-R P.842, tables 1 and 2.
/// Tests:   tests/engine/FormulaTest.cpp
#pragma once

#include "engine/rec533/Noise.h"

namespace rec533 {

/// Day-to-day deciles of the signal by f/MUF (P.842, table 2), dB.
struct SignalDeciles {
    double dUpper = 0.0;
    double dLower = 0.0;
};
/// bHighLatitude: a control point lies at 60 degrees of geomagnetic latitude or more.
[[nodiscard]] SignalDeciles SignalDecilesGet(double dFrequencyToMuf, bool bHighLatitude);

struct SnrResult {
    double dMedian = 0.0;
    double dUpper = 0.0;        ///< from the median to the value exceeded on 10 % of the days
    double dLower = 0.0;        ///< from the value exceeded on 90 % to the median
    double dExceeded = 0.0;     ///< exceeded on the required share of the days
    double dReliability = 0.0;  ///< share of the days with the required ratio, percent
};

/// dPower: median receiver power, dBW. dRequired dB, dShare percent (1 to 99), dBandwidth Hz.
struct SnrInput {
    double dPower = 0.0;
    double dBandwidth = 1.0;
    double dRequired = 0.0;
    double dShare = 50.0;
    double dShareQuantile = 0.0;  ///< of ShareQuantileGet
};
[[nodiscard]] SnrResult SnrGet(const SnrInput& tbl, const Noise& tblAtmospheric,
                               const Noise& tblManMade, const Noise& tblGalactic,
                               const SignalDeciles& tblSignal);

/// Normal quantile of max(x, 100 - x) percent, in units of the 90 % quantile.
[[nodiscard]] double ShareQuantileGet(double dShare);

}  // namespace rec533
