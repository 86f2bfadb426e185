/// @file SettingsRange.h
/// The ranges of a prediction's numbers, which `hopcast-predict --help` shows. SettingsTable.h says
/// which setting has which range.
///
/// Units:   as in Settings.
/// Tests:   tests/settings/SettingsRangeTest.cpp, tests/app/PredictOptionsTest.cpp (--help)
#pragma once

#include <string>

#include "geo/MathLib.h"
#include "settings/Settings.h"

struct NumberRange {
    double dLeast;
    double dMost;
    /// False for not-a-number.
    [[nodiscard]] constexpr bool Holds(double dValue) const
    {
        return dValue >= dLeast && dValue <= dMost;
    }
};

inline constexpr NumberRange kRangeLatitude{-kLatitudeMost, kLatitudeMost};     ///< degrees
inline constexpr NumberRange kRangeLongitude{-kLongitudeMost, kLongitudeMost};  ///< degrees
inline constexpr NumberRange kRangeFrequency{100, 45000};                       ///< kHz
inline constexpr NumberRange kRangeReliability{1, 99};                          ///< %
inline constexpr NumberRange kRangeNoise{-200, -100};      ///< dBW in 1 Hz at 3 MHz
inline constexpr NumberRange kRangeTakeoff{0, 40};         ///< degrees
inline constexpr NumberRange kRangeSunSpot{0, 311};        ///< smoothed sunspot number
inline constexpr NumberRange kRangeMultipathPower{0, 99};  ///< dB
inline constexpr NumberRange kRangeMultipathDelay{0, 99};  ///< ms
inline constexpr NumberRange kRangeQIndex{0, 9};
inline constexpr NumberRange kRangeLayer{0, 9.99};  ///< factor
inline constexpr NumberRange kRangeMonth{1, 12};
inline constexpr NumberRange kRangeAntenna{0, 2};
inline constexpr NumberRange kRangeModel{kEngineIcepac, kEngineRec533};
inline constexpr NumberRange kRangePower{0, 1000000};  ///< W
inline constexpr NumberRange kRangeNeed{-50, 150};     ///< dB in 1 Hz
/// Limits of an overlay's points per side, whatever the setting is.
inline constexpr int kGridSizeMin = 2;
inline constexpr int kGridSizeMax = 999;
inline constexpr NumberRange kRangeGrid{kGridSizeMin, kGridSizeMax};

/// "150 is outside 1 to 99"
[[nodiscard]] std::string RangeFaultText(double dValue, const NumberRange& range);
[[nodiscard]] std::string RangeFaultText(float fValue, const NumberRange& range);
