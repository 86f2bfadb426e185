/// @file Reliability.h
/// Signal-to-noise ratio, its deciles, the value exceeded on a percentage of the days, reliability.
///
/// Units:   dB, percent.
/// Source:  Recommendation ITU-R P.533-14, sections 7, 8 and 10.1; ITU-R P.842, tables 1 and 2.
/// Tests:   tests/engine/FormulaTest.cpp
#pragma once

#include "engine/rec533/Frequencies.h"

namespace rec533 {

/// Day-to-day deciles of the signal by f/MUF (P.842, table 2), dB.
struct SignalDeciles {
    double dUpper = 0.0;
    double dLower = 0.0;
};
/// bHighLatitude: a control point is at 60 degrees of geomagnetic latitude or more.
[[nodiscard]] SignalDeciles SignalDecilesGet(double dFrequencyToMuf, bool bHighLatitude);

/// The ratios at the frequencies of a set.
struct SnrRows {
    FrequencyRow aMedian;
    FrequencyRow aUpper;        ///< from the median to the value exceeded on 10 % of the days
    FrequencyRow aLower;        ///< from the value exceeded on 90 % to the median
    FrequencyRow aExceeded;     ///< exceeded on the required percentage of the days
    FrequencyRow aReliability;  ///< percentage of the days with the required ratio
};

/// dRequired dB, dShare percent (1 to 99), dBandwidth Hz, dMuf MHz.
struct SnrInput {
    double dBandwidth = 1.0;
    double dRequired = 0.0;
    double dShare = 50.0;
    double dShareQuantile = 0.0;  ///< from ShareQuantileGet
    bool bHighLatitude = false;
    double dMuf = 0.0;  ///< basic MUF of the path
};
/// aPower: median receiver power, dBW.
void SnrRowsFill(SnrRows& snrRows, const SnrInput& input, const FrequencySet& set,
                 const NoiseHour& noise, const FrequencyRow& aPower);

/// Normal quantile of max(x, 100 - x) percent, in units of the 90 % quantile.
[[nodiscard]] double ShareQuantileGet(double dShare);

}  // namespace rec533
