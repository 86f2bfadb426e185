/// @file Days.h
/// On how many days in ten a path reaches a need, from the median of the SNR over the days of the
/// month and its deciles.
///
/// Units:   dB in 1 Hz; shares 0 to 1; hours 1 to 24 as in PropagationTable.
/// Domain:  deciles above 0; other cells have no days.
/// Errors:  none; not-a-number if there is no value.
/// Source:  half-normals on either side of the median, whose deciles are 1.28155 standard
///          deviations from it: Teters, Lloyd, Haydon, Lucas 1983, Estimating the performance of
///          telecommunication systems using the ionospheric transmission channel: IONCAP user's
///          manual, NTIA Report 83-127, circuit reliability; VOACAP and ICEPAC still use it.
///          REC533's steps: Recommendation ITU-R P.842, 130 - 80 / (1 + excess / lower decile) and
///          80 / (1 + lack / upper decile) - 30 percent.
/// Tests:   tests/studies/DaysTest.cpp, DaysEnginesTest.cpp
#pragma once

#include <array>
#include <limits>
#include <optional>
#include <vector>

#include "propagation/PropagationTable.h"

/// How an engine gets from deciles to shares of the days.
enum class DaySteps { HalfNormals, P842 };
[[nodiscard]] DaySteps DayStepsOf(int iModel);

/// The days of one cell.
struct SnrDays {
    double dMedian = 0.0;
    double dLower = 0.0;  ///< from the median to the value exceeded on 90 % of the days
    double dUpper = 0.0;  ///< from the median to the value exceeded on 10 % of the days
};

/// Nothing if the frequency has no values, there is no SNR, or the engine gave no deciles.
[[nodiscard]] std::optional<SnrDays> SnrDaysGet(const PropagationTable& table, int iHour,
                                                int iFrequency);

/// The days of an SNR with its median and deciles. Nothing where it is none, or has no deciles.
[[nodiscard]] std::optional<SnrDays> SnrDaysOf(float fSnr, double dMedian, double dLower,
                                               double dUpper);

/// Share of the days that reach the need.
[[nodiscard]] double DaysShareGet(const SnrDays& days, double dNeed, DaySteps eSteps);

/// One cell of the window.
struct DaysCell {
    float fShare = std::numeric_limits<float>::quiet_NaN();  ///< days that reach the need, 0 to 1
    float fBad = std::numeric_limits<float>::quiet_NaN();    ///< exceeded on nine days in ten
    float fMedian = std::numeric_limits<float>::quiet_NaN();
    float fGood = std::numeric_limits<float>::quiet_NaN();  ///< exceeded on one day in ten

    /// Whole days in ten, 0 to 10; -1 if there is no value.
    [[nodiscard]] int DaysInTenGet() const;
};

/// The days of a whole table by its hours and frequencies.
[[nodiscard]] CellArray<DaysCell> DaysGet(const PropagationTable& table, double dNeed);

/// True if a frequency with values has deciles in some hour; else DaysRequestsGet is needed.
[[nodiscard]] bool DaysArePrinted(const PropagationTable& table);

/// For an engine that prints no deciles: the requests for the values exceeded on 10, 50 and 90 % of
/// the days.
[[nodiscard]] std::array<Request, 3> DaysRequestsGet(const Request& request);
/// Joins their answers in one table: that of 50 % with deciles from the others. If one of the three
/// has no value there are no deciles.
/// REQUIRES: tables of the same frequencies.
[[nodiscard]] PropagationTable DaysJoin(const PropagationTable& tableGood,
                                        const PropagationTable& tableMedian,
                                        const PropagationTable& tableBad);
