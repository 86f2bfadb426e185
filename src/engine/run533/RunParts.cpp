#include "engine/run533/RunParts.h"

#include <algorithm>
#include <array>
#include <utility>

namespace run533 {

std::shared_ptr<const rec533::Ionosphere> IonosphereMake(const DeckCommon& tbl,
                                                         rec533::Behaviour eBehaviour)
{
    const auto pIonosphere = std::make_shared<rec533::Ionosphere>();
    IonosphereFill(*pIonosphere, eBehaviour, tbl.eMaps, tbl.nMonth, tbl.dSsn);
    return pIonosphere;
}

Result<RunParts> RunPartsMake(const DeckCommon& tbl, std::string_view sRoot,
                              rec533::Behaviour eBehaviour,
                              std::shared_ptr<const rec533::Ionosphere> pIonosphere)
{
    RunParts parts;
    for (const bool bTx : {true, false}) {
        const auto& deckCard = bTx ? tbl.txAntenna : tbl.rxAntenna;
        if (!deckCard)
            continue;
        Result<AntennaLoaded> resLoaded = AntennaLoad(sRoot, deckCard->sName);
        if (!resLoaded)
            return DeckErrorMake(deckCard->sCard, deckCard->atMuf, resLoaded.TextGet());
        (bTx ? parts.pTx : parts.pRx) = std::make_unique<AntennaLoaded>(resLoaded.ValueGet());
    }
    parts.pIonosphere = pIonosphere ? std::move(pIonosphere) : IonosphereMake(tbl, eBehaviour);
    return parts;
}

rec533::Circuit CircuitMake(const DeckCommon& tbl, const RunParts& parts, double dPowerKw)
{
    constexpr double kNoiseLeast = -200.0;  // dBW in 1 Hz at 3 MHz; quiet rural is -164 ...
    constexpr double kNoiseMost = -100.0;   // ... and a city -127
    rec533::Circuit circuit;
    circuit.dTxLat = tbl.dTxLat;
    circuit.dTxLon = tbl.dTxLon;
    circuit.dPowerKw = tbl.txAntenna ? tbl.txAntenna->dPowerKw : dPowerKw;
    circuit.eNoise = rec533::NoiseCategory::Level;
    circuit.dNoiseLevel = std::clamp(tbl.dNoise, kNoiseLeast, kNoiseMost);
    circuit.dRequiredSnr = tbl.dRequiredSnr;
    circuit.dRequiredReliability = tbl.dReliability;
    circuit.dBandwidth = tbl.dBandwidth;
    circuit.dLeastElevation = tbl.dLeastElevation;
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
