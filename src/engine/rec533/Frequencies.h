/// @file Frequencies.h
/// The frequencies of a request, with everything that depends only on month, noise and frequency;
/// made once per request, read by every thread.
///
/// Units:   MHz, dB; noise powers above k T0 b.
/// Tests:   tests/engine/DayTest.cpp
#pragma once

#include <span>

#include "engine/rec533/Noise.h"

namespace rec533 {

inline constexpr double kFrequencyLeast = 0.1;  ///< MHz
inline constexpr double kFrequencyMost = 45.0;

/// True for a frequency within the method's range.
[[nodiscard]] inline bool FrequencyUsable(double dFrequency)
{
    return dFrequency >= kFrequencyLeast && dFrequency <= kFrequencyMost;
}

inline constexpr std::size_t kFrequenciesInSet = 16;

/// A value for each frequency of a set.
struct alignas(64) FrequencyRow : std::array<double, kFrequenciesInSet> {};

/// The atmospheric noise of four local hours north or south of the equator.
struct NoiseRows {
    FrequencyRow aFactor, aRest;  ///< Fa = factor * figure of the place + rest
    FrequencyRow aUpper, aLower;  ///< deciles as ratios of powers
};

struct FrequencySet {
    std::size_t nCount = 0;  ///< after these the last one is repeated
    FrequencyRow aMegahertz;
    FrequencyRow aDb;                               ///< 20 log f
    std::array<NoiseRows, kNoiseBlocks> aNoise;     ///< northern blocks, then southern ones
    FrequencyRow aOther, aOtherLower, aOtherUpper;  ///< man-made and galactic; at their deciles
};

/// All noise blocks.
inline constexpr unsigned kNoiseBlocksAll = (1U << kNoiseBlocks) - 1U;

/// The blocks of an hour.
[[nodiscard]] inline unsigned NoiseBlocksOf(const NoiseHour& noiseHour)
{
    return 1U << noiseHour.nBlockA | 1U << noiseHour.nBlockB;
}

/// aFrequencies: 1 to 16. nBlocks: the bits of the noise blocks that will be needed.
void FrequencySetFill(FrequencySet& frequencySet, const Ionosphere& ionosphere,
                      const Circuit& circuit, std::span<const double> aFrequencies,
                      unsigned nBlocks = kNoiseBlocksAll);

}  // namespace rec533
