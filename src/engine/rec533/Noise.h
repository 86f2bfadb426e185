/// @file Noise.h
/// Atmospheric, man-made and galactic noise at the receiver.
///
/// Units:   noise figures Fa in dB above k T0 b; noise power in dBW/Hz is Fa - 204. MHz, radians.
/// Source:  Recommendation ITU-R P.372 (atmospheric: numerical maps of Report CCIR 322).
/// Tests:   tests/engine/FormulaTest.cpp
#pragma once

#include "engine/rec533/Circuit.h"
#include "engine/rec533/Ionosphere.h"

namespace rec533 {

/// A noise figure and its deciles, dB.
struct Noise {
    double dFa = 0.0;
    double dUpper = 0.0;
    double dLower = 0.0;
};

/// The maps have blocks of four local hours, six for each side of the equator.
inline constexpr std::size_t kNoiseBlocks = 12;

/// A block at a frequency: Fa = dFactor * figure of the place + dRest; deciles, dB.
struct NoiseBlock {
    double dFactor = 0.0, dRest = 0.0;
    double dUpper = 0.0, dLower = 0.0;
};
[[nodiscard]] NoiseBlock NoiseBlockGet(const NoiseFigures& noiseFigures, std::size_t nBlock,
                                       double dFrequency);

/// The noise maps at one place; a block is summed when it is first needed.
struct NoisePlace {
    Place place;
    std::array<double, 15> aLon{};    ///< sines of the longitude series
    std::array<double, 29> aLat{};    ///< and of the latitude series
    std::array<double, 6> aFigure{};  ///< of the blocks
    std::array<bool, 6> aSummed{};
};
[[nodiscard]] NoisePlace NoisePlaceMake(const Place& place);

/// A label (hour) at a place: two blocks, whose powers are mixed.
struct NoiseHour {
    std::size_t nBlockA = 0, nBlockB = 0;
    double dFigureA = 0.0, dFigureB = 0.0;
    double dPart = 0.0;  ///< weight of B; with 0 B is A
};
[[nodiscard]] NoiseHour NoiseHourGet(const Ionosphere& ionosphere, NoisePlace& place, int nLabel);

/// Atmospheric noise at a label (hour), its two blocks mixed.
[[nodiscard]] Noise NoiseAtmosphericGet(const Ionosphere& ionosphere, NoisePlace& place, int nLabel,
                                        double dFrequency);
/// Man-made noise. dLevel (dBW in 1 Hz at 3 MHz) is for the category Level; bSwapped: its deciles
/// are the wrong way round, as in the ITU program.
[[nodiscard]] Noise NoiseManMadeGet(NoiseCategory eCategory, double dLevel, double dFrequency,
                                    bool bSwapped);
[[nodiscard]] Noise NoiseGalacticGet(double dFrequency);

/// The three combined (P.372, section 8). For information; the SNR uses the plain power sum.
[[nodiscard]] Noise NoiseTotalGet(const Noise& atmospheric, const Noise& manMade,
                                  const Noise& galactic);

}  // namespace rec533
