/// @file Curves.h
/// The data of the day curves: MUF, FOT and LUF, a ribbon of SNR for each frequency, and the sun at
/// both ends, over the 24 hours of UTC.
///
/// Units:   kHz, dB in 1 Hz, degrees; hours of UTC, 0 to 23.
/// Errors:  none; not-a-number if a table has no value.
/// Tests:   tests/studies/CurvesTest.cpp
#pragma once

#include <array>
#include <vector>

#include "geo/SphereLib.h"
#include "propagation/PropagationTable.h"

inline constexpr std::size_t kCurveHours = 24;
inline constexpr int kSunStepsAnHour = 6;

using DayCurve = std::array<float, kCurveHours>;

/// A frequency of the request.
struct CurveRibbon {
    int iFrequency = 0;       ///< index in the table
    float fFrequency = 0.0F;  ///< kHz
    DayCurve afSnr{};         ///< not-a-number if a cell shows the lowest value that there is
};

/// Height of the sun above the horizon at one end, in steps of 10 minutes from 00:00 UTC.
using SunCurve = std::array<float, kCurveHours * kSunStepsAnHour>;

struct DayCurves {
    DayCurve afMuf{};
    DayCurve afFot{};
    DayCurve afLuf{};
    std::vector<CurveRibbon> aRibbons;  ///< frequencies with values, in the table's order
    SunCurve afSunTx{};
    SunCurve afSunRc{};
};

/// The curves of a table; the sun is that of the middle of its request's month.
[[nodiscard]] DayCurves DayCurvesGet(const PropagationTable& table);

/// Height of the sun at a place, degrees, -90 to 90. @param dHour  UTC
[[nodiscard]] double SunHeightGet(const LatLon& pos, int nMonth, double dHour);
