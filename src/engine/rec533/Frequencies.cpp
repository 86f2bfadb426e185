#include "engine/rec533/Frequencies.h"

#include <cassert>

namespace rec533 {

void FrequencySetFill(FrequencySet& frequencySet, const Ionosphere& ionosphere,
                      const Circuit& circuit, std::span<const double> aFrequencies,
                      unsigned nBlocks)
{
    assert(!aFrequencies.empty() && aFrequencies.size() <= kFrequenciesInSet);
    frequencySet.nCount = aFrequencies.size();
    for (std::size_t i = 0; i < kFrequenciesInSet; ++i) {
        const std::size_t nFrom = std::min(i, frequencySet.nCount - 1);
        const double dFrequency = aFrequencies[nFrom];
        const Noise manMade = NoiseManMadeGet(circuit.eNoise, circuit.dNoiseLevel, dFrequency,
                                              ionosphere.quirks.bDecilesSwapped);
        const Noise galactic = NoiseGalacticGet(dFrequency);
        const double dManMade = PowerFromDb(manMade.dFa);
        const double dGalactic = PowerFromDb(galactic.dFa);
        frequencySet.aMegahertz[i] = dFrequency;
        frequencySet.aDb[i] = 20.0 * std::log10(dFrequency);
        frequencySet.aOther[i] = dManMade + dGalactic;
        frequencySet.aOtherLower[i] =
            dManMade * PowerFromDb(-manMade.dLower) + dGalactic * PowerFromDb(-galactic.dLower);
        frequencySet.aOtherUpper[i] =
            dManMade * PowerFromDb(manMade.dUpper) + dGalactic * PowerFromDb(galactic.dUpper);
        for (std::size_t k = 0; k < kNoiseBlocks; ++k) {
            if ((nBlocks >> k & 1U) == 0)
                continue;
            const NoiseBlock block = NoiseBlockGet(ionosphere.noise, k, dFrequency);
            frequencySet.aNoise[k].aFactor[i] = block.dFactor;
            frequencySet.aNoise[k].aRest[i] = block.dRest;
            frequencySet.aNoise[k].aUpper[i] = PowerFromDb(block.dUpper);
            frequencySet.aNoise[k].aLower[i] = PowerFromDb(block.dLower);
        }
        if (nFrom + 1 == frequencySet.nCount && i % 4 == 3)
            break;  // filled up to a whole vector
    }
}

}  // namespace rec533
