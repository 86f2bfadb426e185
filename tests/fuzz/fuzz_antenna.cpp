// Any text as an antenna file of the engine root: the gains of its elevations, and a prediction
// with such an antenna at both ends.
#include <cmath>
#include <memory>

#include "engine/rec533/Prediction.h"
#include "engine/run533/AntennaFile.h"
#include "fuzz/FuzzCheck.h"

namespace {

std::unique_ptr<rec533::Ionosphere> IonosphereMake()
{
    auto p = std::make_unique<rec533::Ionosphere>();
    IonosphereFill(*p, rec533::Behaviour::Best, rec533::MapSet::Ursi, 6, 100.0);
    return p;
}

void PredictionCheck(const rec533::Antenna& antenna, double dRxLat, double dRxLon)
{
    static const auto pIonosphere = IonosphereMake();
    static const auto pPath = std::make_unique<rec533::Path>();
    static const auto pHour = std::make_unique<rec533::Hour>();
    rec533::Circuit circuit;
    circuit.dTxLat = 38.0;
    circuit.dTxLon = -122.0;
    circuit.dRxLat = dRxLat;
    circuit.dRxLon = dRxLon;
    circuit.pTx = &antenna;
    circuit.pRx = &antenna;
    PathFill(*pPath, *pIonosphere, circuit);
    HourFill(*pHour, *pPath, 12);
    rec533::Prediction prediction;
    PredictionFill(prediction, *pHour, 10.0);
    Check(std::isfinite(prediction.dField) && std::isfinite(prediction.dPower)
          && std::isfinite(prediction.dSnrExceeded));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    const auto res = run533::AntennaRead(FuzzText(pBytes, nBytes));
    if (!res) {
        Check(!res.TextGet().empty());
        return 0;
    }
    for (const double dGain : res.ValueGet().antenna.aGain) Check(std::isfinite(dGain));
    PredictionCheck(res.ValueGet().antenna, 24.0, -110.0);  // modes
    PredictionCheck(res.ValueGet().antenna, -34.0, 151.0);  // the rule for long paths
    return 0;
}
