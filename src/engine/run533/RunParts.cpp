#include "engine/run533/RunParts.h"

#include <algorithm>
#include <array>
#include <utility>

namespace run533 {

std::shared_ptr<const rec533::Ionosphere> IonosphereMake(const DeckCommon& deckCommon,
                                                         rec533::Behaviour eBehaviour)
{
    const auto pIonosphere = std::make_shared<rec533::Ionosphere>();
    IonosphereFill(*pIonosphere, eBehaviour, deckCommon.eMaps, deckCommon.nMonth, deckCommon.dSsn);
    return pIonosphere;
}

Result<RunParts> RunPartsMake(const DeckCommon& deckCommon, std::string_view sRoot,
                              rec533::Behaviour eBehaviour,
                              std::shared_ptr<const rec533::Ionosphere> pIonosphere)
{
    RunParts parts;
    for (const bool bTx : {true, false}) {
        const auto& deckCard = bTx ? deckCommon.txAntenna : deckCommon.rxAntenna;
        if (!deckCard)
            continue;
        Result<AntennaLoaded> resLoaded = AntennaLoad(sRoot, deckCard->sName);
        if (!resLoaded)
            return DeckErrorMake(deckCard->sCard, deckCard->atMuf, resLoaded.TextGet());
        (bTx ? parts.pTx : parts.pRx) = std::make_unique<AntennaLoaded>(resLoaded.ValueGet());
    }
    parts.pIonosphere =
        pIonosphere ? std::move(pIonosphere) : IonosphereMake(deckCommon, eBehaviour);
    return parts;
}

rec533::Circuit CircuitMake(const DeckCommon& deckCommon, const RunParts& parts, double dPowerKw)
{
    constexpr double kNoiseLeast = -200.0;  // dBW in 1 Hz at 3 MHz; quiet rural is -164 ...
    constexpr double kNoiseMost = -100.0;   // ... and a city -127
    rec533::Circuit circuit;
    circuit.dTxLat = deckCommon.dTxLat;
    circuit.dTxLon = deckCommon.dTxLon;
    circuit.dPowerKw = deckCommon.txAntenna ? deckCommon.txAntenna->dPowerKw : dPowerKw;
    circuit.eNoise = rec533::NoiseCategory::Level;
    circuit.dNoiseLevel = std::clamp(deckCommon.dNoise, kNoiseLeast, kNoiseMost);
    circuit.dRequiredSnr = deckCommon.dRequiredSnr;
    circuit.dRequiredReliability = deckCommon.dReliability;
    circuit.dBandwidth = deckCommon.dBandwidth;
    circuit.dLeastElevation = deckCommon.dLeastElevation;
    circuit.pTx = parts.pTx ? &parts.pTx->antenna : nullptr;
    circuit.pRx = parts.pRx ? &parts.pRx->antenna : nullptr;
    return circuit;
}

std::string_view MethodNameGet(rec533::Behaviour eBehaviour)
{
    switch (eBehaviour) {
        case rec533::Behaviour::Reference:
            return "P.533 as the ITU program";
        case rec533::Behaviour::Corrected:
            return "P.533 corrected";
        default:
            return "P.533 with long-path rule";
    }
}

std::string_view MonthNameGet(int nMonth)
{
    constexpr std::array<std::string_view, 12> kNames{"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                      "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    return kNames[static_cast<std::size_t>(nMonth - 1)];
}

}  // namespace run533
