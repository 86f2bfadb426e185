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
    RunParts tblParts;
    for (const bool bTx : {true, false}) {
        const auto& tblCard = bTx ? tbl.tblTxAntenna : tbl.tblRxAntenna;
        if (!tblCard)
            continue;
        Result<AntennaLoaded> resLoaded = AntennaLoad(sRoot, tblCard->sName);
        if (!resLoaded)
            return DeckErrorMake(tblCard->sCard, tblCard->tblAt, resLoaded.TextGet());
        (bTx ? tblParts.pTx : tblParts.pRx) = std::make_unique<AntennaLoaded>(resLoaded.ValueGet());
    }
    tblParts.pIonosphere = pIonosphere ? std::move(pIonosphere) : IonosphereMake(tbl, eBehaviour);
    return tblParts;
}

rec533::Circuit CircuitMake(const DeckCommon& tbl, const RunParts& tblParts, double dPowerKw)
{
    constexpr double kNoiseLeast = -200.0;  // dBW in 1 Hz at 3 MHz; quiet rural is -164 ...
    constexpr double kNoiseMost = -100.0;   // ... and a city -127
    rec533::Circuit tblCircuit;
    tblCircuit.dTxLat = tbl.dTxLat;
    tblCircuit.dTxLon = tbl.dTxLon;
    tblCircuit.dPowerKw = tbl.tblTxAntenna ? tbl.tblTxAntenna->dPowerKw : dPowerKw;
    tblCircuit.eNoise = rec533::NoiseCategory::Level;
    tblCircuit.dNoiseLevel = std::clamp(tbl.dNoise, kNoiseLeast, kNoiseMost);
    tblCircuit.dRequiredSnr = tbl.dRequiredSnr;
    tblCircuit.dRequiredReliability = tbl.dReliability;
    tblCircuit.dBandwidth = tbl.dBandwidth;
    tblCircuit.dLeastElevation = tbl.dLeastElevation;
    tblCircuit.pTx = tblParts.pTx ? &tblParts.pTx->tblAntenna : nullptr;
    tblCircuit.pRx = tblParts.pRx ? &tblParts.pRx->tblAntenna : nullptr;
    return tblCircuit;
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
