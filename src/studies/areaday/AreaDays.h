/// @file AreaDays.h
/// What a day of an area says of its points: the best frequency of the list at an hour, the days in
/// ten that reach a need, and the hours of the day in which it is reached.
///
/// Units:   dB in 1 Hz; hours 0 to 23 of UTC; frequencies by their index into the day's list.
/// Domain:  points, hours and frequencies of the day; an SNR that no table would show is none.
/// Errors:  none.
/// Source:  the days are those of studies/days.
/// Tests:   tests/studies/AreaDaysTest.cpp, AreaDaysEnginesTest.cpp
#pragma once

#include <bitset>
#include <cstddef>
#include <optional>

#include "propagation/AreaDay.h"
#include "studies/days/Days.h"

/// The frequency with the highest SNR; of equal ones the first of the list.
struct AreaBest {
    std::size_t iFrequency = 0;
    float fSnr = 0.0F;

    bool operator==(const AreaBest&) const = default;
};

/// Nothing where no frequency has an SNR.
[[nodiscard]] std::optional<AreaBest> AreaBestGet(const AreaDay& day, std::size_t iPoint,
                                                  int iHour);

/// Whole days in ten that reach the need, 0 to 10; nothing where there is no SNR or no spread.
/// REQUIRES: a day with its spreads.
[[nodiscard]] std::optional<int> AreaDaysInTenGet(const AreaDay& day, std::size_t iPoint, int iHour,
                                                  std::size_t iFrequency, float fNeed);

/// The hours that count.
using AreaHours = std::bitset<kHourCount>;

/// In how many of the hours some frequency of the list reaches the need.
[[nodiscard]] int AreaHoursOpenGet(const AreaDay& day, std::size_t iPoint, float fNeed,
                                   const AreaHours& hours = AreaHours().set());
