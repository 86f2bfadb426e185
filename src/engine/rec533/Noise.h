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

/// The noise maps at one place; a block of four local hours is summed when it is first needed.
struct NoisePlace {
    Place tblPlace;
    std::array<double, 15> aLon{};       ///< sines of the longitude series
    std::array<double, 29> aLat{};       ///< and of the latitude series
    std::array<double, 6> aMegahertz{};  ///< sum of the series, for 1 MHz
    std::array<bool, 6> aSummed{};
};
[[nodiscard]] NoisePlace NoisePlaceMake(const Place& tblPlace);

/// Atmospheric noise at a label (hour), its two blocks mixed.
[[nodiscard]] Noise NoiseAtmosphericGet(const Ionosphere& tbl, NoisePlace& tblPlace, int nLabel,
                                        double dFrequency);
/// Man-made noise. dLevel (dBW in 1 Hz at 3 MHz) serves the category Level.
[[nodiscard]] Noise NoiseManMadeGet(NoiseCategory eCategory, double dLevel, double dFrequency,
                                    bool bReference);
[[nodiscard]] Noise NoiseGalacticGet(double dFrequency);

/// The three combined (P.372, section 8). For information; the SNR takes the plain power sum.
[[nodiscard]] Noise NoiseTotalGet(const Noise& tblAtmospheric, const Noise& tblManMade,
                                  const Noise& tblGalactic);

}  // namespace rec533
