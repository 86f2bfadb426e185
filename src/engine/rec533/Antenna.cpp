#include "engine/rec533/Circuit.h"

namespace rec533 {

double AntennaGainGet(const Antenna* pAntenna, double dElevation)
{
    if (pAntenna == nullptr)
        return 0.0;
    const double dDegrees = std::clamp(dElevation * kDegrees, 0.0, 90.0);
    const int nLow = std::min(static_cast<int>(dDegrees), 89);
    const double dPart = dDegrees - nLow;
    const auto nAt = static_cast<std::size_t>(nLow);
    return pAntenna->aGain[nAt] + (pAntenna->aGain[nAt + 1] - pAntenna->aGain[nAt]) * dPart;
}

AntennaLow AntennaLowGet(const Antenna* pAntenna, double dLeastDegrees)
{
    constexpr int kHighest = 8;
    if (pAntenna == nullptr)
        return {};
    const int nFirst = std::clamp(static_cast<int>(std::ceil(dLeastDegrees)), 0, 90);
    AntennaLow antennaLow{pAntenna->aGain[static_cast<std::size_t>(nFirst)], nFirst};
    for (int i = nFirst + 1; i <= kHighest; ++i)
        if (pAntenna->aGain[static_cast<std::size_t>(i)] > antennaLow.dGain)
            antennaLow = {pAntenna->aGain[static_cast<std::size_t>(i)], i};
    return antennaLow;
}

}  // namespace rec533
