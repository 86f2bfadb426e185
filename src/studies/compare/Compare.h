/// @file Compare.h
/// Two engines side by side: how much more SNR one gives than the other, and how far they agree.
///
/// Units:   dB in 1 Hz; hours 1 to 24 and frequencies from 1, as in PropagationTable.
/// Errors:  none; a cell without an SNR in either table has no difference.
/// Tests:   tests/studies/CompareTest.cpp
#pragma once

#include <string>

#include "propagation/PropagationTable.h"

inline constexpr float kAgreement = 6.0F;  ///< dB; engines agree if they differ by no more

/// A cell is open if its SNR reaches the need.
struct CompareFigures {
    int nOpenEither = 0;  ///< open in one table or both
    int nAgree = 0;       ///< of those with both SNRs: within kAgreement
    int nBoth = 0;        ///< of nOpenEither: both tables have an SNR
    int nOpenOnlyA = 0;   ///< open in A, not in B
    int nOpenOnlyB = 0;
    double dMean = 0.0;  ///< mean of A less B over nBoth; 0 if that is 0
    double dRms = 0.0;   ///< root mean square of the same

    /// Fraction of the open cells with both SNRs in which the engines agree; 0 if there are none.
    [[nodiscard]] double AgreementGet() const
    {
        return nBoth == 0 ? 0.0 : static_cast<double>(nAgree) / nBoth;
    }
};

struct CompareTable {
    CellArray<float> fDifference;  ///< A less B; not-a-number if there is none
    CompareFigures figures;
};

/// The figures of the open cells in words: "within 6 dB in 71 %; only REC533 open: 22". What is 0
/// is left out, and if no cell is open the text says so.
[[nodiscard]] std::string CompareText(const CompareFigures& figures, const std::string& sEngineA,
                                      const std::string& sEngineB);

/// The settings' path for another engine: with the antennas nearest to those of the engine in the
/// settings, and for the same power. The numbers of the antenna choices mean different antennas and
/// powers for each engine.
[[nodiscard]] Request CompareRequestGet(const Settings& settings, SunSpotSource eSunSpotSource,
                                        int iModel);

/// REQUIRES: tables of the same frequencies.
[[nodiscard]] CompareTable CompareGet(const PropagationTable& tableA,
                                      const PropagationTable& tableB, float fNeed);
