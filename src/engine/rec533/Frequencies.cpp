#include "engine/rec533/Frequencies.h"

#include <cassert>

namespace rec533 {

void FrequencySetFill(FrequencySet& tbl, const Ionosphere& tblIonosphere, const Circuit& tblCircuit,
                      std::span<const double> aFrequencies, unsigned nBlocks)
{
    assert(!aFrequencies.empty() && aFrequencies.size() <= kFrequenciesInSet);
    tbl.nCount = aFrequencies.size();
    for (std::size_t i = 0; i < kFrequenciesInSet; ++i) {
        const std::size_t nFrom = std::min(i, tbl.nCount - 1);
        const double dFrequency = aFrequencies[nFrom];
        const Noise tblManMade = NoiseManMadeGet(tblCircuit.eNoise, tblCircuit.dNoiseLevel,
                                                 dFrequency, tblIonosphere.quirks.bDecilesSwapped);
        const Noise tblGalactic = NoiseGalacticGet(dFrequency);
        const double dManMade = PowerFromDb(tblManMade.dFa);
        const double dGalactic = PowerFromDb(tblGalactic.dFa);
        tbl.aMegahertz[i] = dFrequency;
        tbl.aDb[i] = 20.0 * std::log10(dFrequency);
        tbl.aOther[i] = dManMade + dGalactic;
        tbl.aOtherLower[i] = dManMade * PowerFromDb(-tblManMade.dLower)
                             + dGalactic * PowerFromDb(-tblGalactic.dLower);
        tbl.aOtherUpper[i] =
            dManMade * PowerFromDb(tblManMade.dUpper) + dGalactic * PowerFromDb(tblGalactic.dUpper);
        for (std::size_t k = 0; k < kNoiseBlocks; ++k) {
            if ((nBlocks >> k & 1U) == 0)
                continue;
            const NoiseBlock tblBlock = NoiseBlockGet(tblIonosphere.tblNoise, k, dFrequency);
            tbl.aNoise[k].aFactor[i] = tblBlock.dFactor;
            tbl.aNoise[k].aRest[i] = tblBlock.dRest;
            tbl.aNoise[k].aUpper[i] = PowerFromDb(tblBlock.dUpper);
            tbl.aNoise[k].aLower[i] = PowerFromDb(tblBlock.dLower);
        }
        if (nFrom + 1 == tbl.nCount && i % 4 == 3)
            break;  // whole vectors
    }
}

}  // namespace rec533
