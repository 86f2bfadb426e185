/// @file Compare.h
/// Two engines side by side: what one gives more than the other, and how far they agree.
///
/// Units:   dB in 1 Hz; hours 1 to 24 and frequencies from 1, as in PropagationTable.
/// Errors:  none; a cell that either table has no SNR for has no difference.
/// Tests:   tests/studies/CompareTest.cpp
#pragma once

#include <string>

#include "propagation/PropagationTable.h"

inline constexpr float kAgreement = 6.0F;  ///< dB; within it two engines are said to agree

/// Cells are open where a table's SNR reaches the need.
struct CompareFigures {
    int nOpenEither = 0;  ///< open in one table or both
    int nAgree = 0;       ///< of those with both SNRs: within kAgreement
    int nBoth = 0;        ///< of nOpenEither: both tables have an SNR
    int nOpenOnlyA = 0;   ///< open in A, not in B
    int nOpenOnlyB = 0;
    double dMean = 0.0;  ///< mean of A less B over nBoth; 0 without any
    double dRms = 0.0;   ///< root of the mean square of the same

    /// Share of the open cells in which the engines agree, of those with both SNRs; 0 without any.
    [[nodiscard]] double AgreementGet() const
    {
        return nBoth == 0 ? 0.0 : static_cast<double>(nAgree) / nBoth;
    }
};

struct CompareTable {
    CellArray<float> fDifference;  ///< A less B; not-a-number where there is none
    CompareFigures figures;
};

/// "within 6 dB in 71 %; only REC533 open: 22": the figures of the open cells in words; what is 0
/// is left out, and without an open cell that is told.
[[nodiscard]] std::string CompareText(const CompareFigures& figures, const std::string& sEngineA,
                                      const std::string& sEngineB);

/// The settings' path for another engine: with the antennas that are nearest to those of the
/// settings' own engine, and for the power that it has in force; the numbers of the choices mean
/// other antennas and powers from engine to engine.
[[nodiscard]] Request CompareRequestGet(const Settings& settings, SunSpotSource eSunSpotSource,
                                        int iModel);

/// REQUIRES: tables of the same frequencies.
[[nodiscard]] CompareTable CompareGet(const PropagationTable& tableA,
                                      const PropagationTable& tableB, float fNeed);
