/// @file Circuit.h
/// The input of a prediction: two ends, power, antennas, noise, requirements.
#pragma once

#include <array>

#include "engine/rec533/Units.h"

namespace rec533 {

/// Gains at whole degrees of elevation, 0 to 90, dBi; the same in every direction.
struct Antenna {
    std::array<double, 91> aGain{};
};

/// Gain at an elevation in radians, dBi; nullptr means an isotropic antenna.
[[nodiscard]] double AntennaGainGet(const Antenna* pAntenna, double dElevation);

/// Maximum gain at the elevations from 0 to 8 degrees that the least takeoff angle allows (long
/// paths), and the first whole degree that has it.
struct AntennaLow {
    double dGain = 0.0;  ///< dBi
    int nDegrees = 0;
};
[[nodiscard]] AntennaLow AntennaLowGet(const Antenna* pAntenna, double dLeastDegrees);

/// Man-made noise at the receiver.
enum class NoiseCategory { City, Residential, Rural, QuietRural, Quiet, Noisy, Level };

struct Circuit {
    double dTxLat = 0.0, dTxLon = 0.0;  ///< degrees, north and east positive
    double dRxLat = 0.0, dRxLon = 0.0;
    bool bLongWay = false;  ///< the long way round the Earth
    double dPowerKw = 1.0;  ///< into the antenna
    NoiseCategory eNoise = NoiseCategory::Level;
    double dNoiseLevel = -145.0;         ///< for Level: dBW in 1 Hz at 3 MHz
    double dRequiredSnr = 40.0;          ///< dB in the bandwidth
    double dRequiredReliability = 50.0;  ///< percent of days
    double dBandwidth = 1.0;             ///< Hz
    double dLeastElevation = 3.0;        ///< degrees
    const Antenna* pTx = nullptr;
    const Antenna* pRx = nullptr;
};

}  // namespace rec533
