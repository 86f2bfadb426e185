/// @file ReachList.h
/// Which rows of a search are listed, and in which order.
///
/// Units:   dB; as in Reach.h.
/// Tests:   tests/studies/ReachListTest.cpp
#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "studies/reach/Reach.h"

/// The orders of the rows. Signal-to-noise ratios and margins begin with the best, all others with
/// the lowest; rows without a value come last.
enum class ReachOrder { Use, Station, Frequency, Now, Margin, Open, Bearing, Range };

inline constexpr std::array<std::string_view, 8> kReachOrders = {
    "use", "station", "kHz", "now", "margin", "opening", "bearing", "distance"};

struct ReachView {
    ReachOrder eOrder = ReachOrder::Use;
    std::string sText;  ///< part of system, name or description, without regard to case (ASCII)
    /// Rows with a lower margin in their best hour of those that count are left out; not-a-number:
    /// none is.
    float fLeastMargin = std::numeric_limits<float>::quiet_NaN();
};

/// Index into RowsGet of each listed row; equal ones by use.
[[nodiscard]] std::vector<std::size_t> ReachListGet(const Reach& reach, const ReachView& view);

/// The best of the hours that count, from now on; the first of equal ones.
/// @return UTC hour, -1 if none has a value
[[nodiscard]] int ReachBestHourGet(const Reach& reach, const ReachRow& row);

/// The frequency to try: the best one now while the place is open, else that of the hour in which
/// it opens, else again the best one now. @return kHz; 0 for none
[[nodiscard]] float ReachChannelGet(const Reach& reach, const ReachRow& row);
