#include "engine/rec533/Prediction.h"

namespace rec533 {
namespace {

constexpr double kFieldToPower =
    107.2;  // dB(uV/m) to dBW into a matched isotropic antenna at 1 MHz

// Sums over the modes in power, as fields and with the receiving antenna's gain at each mode's
// angle.
struct ModeSums {
    double dField = kFieldNone;
    double dReceived = kFieldNone;
    const Mode* pStrongest = nullptr;
};

ModeSums ModeSumsGet(const Hour& tblHour, const ModeFields& aFields, bool bHopSum)
{
    ModeSums tbl;
    double dBest = -1e300;
    for (std::size_t i = 0; i < static_cast<std::size_t>(tblHour.nModes); ++i) {
        const Mode& tblMode = tblHour.aModes[i];
        if (!aFields[i].bUsed)
            continue;
        const double dReceived =
            (bHopSum ? aFields[i].dHopField : aFields[i].dField) + tblMode.dRxGain;
        if (dReceived > dBest) {
            dBest = dReceived;
            tbl.pStrongest = &tblMode;
        }
    }
    if (tbl.pStrongest == nullptr)
        return tbl;
    // Powers relative to the strongest, for fields far below zero have no power to speak of.
    double dField = 0.0, dReceived = 0.0;
    for (std::size_t i = 0; i < static_cast<std::size_t>(tblHour.nModes); ++i) {
        if (!aFields[i].bUsed)
            continue;
        const double dOwn = bHopSum ? aFields[i].dHopField : aFields[i].dField;
        dField += PowerFromDb(dOwn - dBest);
        dReceived += PowerFromDb(dOwn + tblHour.aModes[i].dRxGain - dBest);
    }
    tbl.dField = dBest + DbFromPower(dField);
    tbl.dReceived = dBest + DbFromPower(dReceived);
    return tbl;
}

double PowerSumGet(double dA, double dB)
{
    const double dMost = std::max(dA, dB);
    return dMost + DbFromPower(1.0 + PowerFromDb(std::min(dA, dB) - dMost));
}

// Section 5.4: mean of the two methods in the scale 10^(E/100).
double FieldMixGet(double dShort, double dLong, double dPart)
{
    const double dX = PowerOfTen(dShort / 100.0);
    return 100.0 * std::log10(dX + dPart * (PowerOfTen(dLong / 100.0) - dX));
}

// The long-path rule: hop by hop and long method add in power, eased in from 7000 km to 9000 km.
void LongRuleFill(Prediction& tbl, const Hour& tblHour, const ModeFields& aFields,
                  const ModeSums& tblShort, double dPart)
{
    constexpr double kFree = 120.0;         // E0', dB
    constexpr double kOffset = 3.87;        // dB
    constexpr double kShortLeast = -100.0;  // of 1 kW, dB(uV/m)
    const Path& tblPath = *tblHour.pPath;
    const AntennaLow tblTx =
        AntennaLowGet(tblPath.tblCircuit.pTx, tblPath.tblCircuit.dLeastElevation);
    const AntennaLow tblRx =
        AntennaLowGet(tblPath.tblCircuit.pRx, tblPath.tblCircuit.dLeastElevation);
    const double dLong = (kFree - 20.0 * std::log10(tblPath.tblLong.dSlant)) * tbl.dLongShare - 30.0
                         + tblPath.dPowerDb + tblTx.dGain + tblPath.tblLong.dGap + kOffset;
    ModeSums tblHops = ModeSumsGet(tblHour, aFields, true);
    const double dGap = tblPath.tblLong.dGap * dPart;
    tblHops.dField += dGap;
    tblHops.dReceived += dGap;
    const double dField = PowerSumGet(tblHops.dField, dLong);
    const double dReceived = PowerSumGet(tblHops.dReceived, dLong + tblRx.dGain);
    tbl.dFieldLong = dField;
    if (dPart >= 1.0) {
        tbl.dField = dField;
        tbl.dPower = dReceived;
    } else {
        const double dLeast = kShortLeast + tblPath.dPowerDb;
        tbl.dField = (1.0 - dPart) * std::max(tblShort.dField, dLeast) + dPart * dField;
        tbl.dPower = (1.0 - dPart) * std::max(tblShort.dReceived, dLeast) + dPart * dReceived;
    }
    const bool bHops = tblHops.dReceived >= dLong + tblRx.dGain && tblHops.pStrongest != nullptr;
    tbl.pMode = bHops ? tblHops.pStrongest : nullptr;
    tbl.dElevation = bHops ? tblHops.pStrongest->dElevation : tblTx.nDegrees * kRadians;
}

void FieldFill(Prediction& tbl, Hour& tblHour, double dFrequency)
{
    const Path& tblPath = *tblHour.pPath;
    const double dKm = tblPath.tblWay.dKm;
    const bool bBest = tblPath.pIonosphere->eBehaviour == Behaviour::Best;
    ModeFields aFields;
    ModeSums tblShort;
    ModeFieldsFill(aFields, tblHour, dFrequency);
    if (dKm <= kLongOnly) {
        tblShort = ModeSumsGet(tblHour, aFields, false);
        tbl.dFieldShort = tblShort.dField;
    }
    if (dKm >= kShortOnly)
        tbl.dLongShare = LongShareGet(tblPath.tblLong, tblHour.tblLong, dFrequency);
    const AntennaLow tblTx =
        AntennaLowGet(tblPath.tblCircuit.pTx, tblPath.tblCircuit.dLeastElevation);
    if (dKm >= kShortOnly)
        tbl.dFieldLong =
            LongFieldGet(tblPath.tblLong, tbl.dLongShare, tblPath.dPowerDb, tblTx.dGain);
    if (dKm <= kShortOnly) {
        tbl.dField = tblShort.dField;
        tbl.dPower = tblShort.dReceived;
        tbl.pMode = tblShort.pStrongest;
        tbl.dElevation = tbl.pMode != nullptr ? tbl.pMode->dElevation : 0.0;
        return;
    }
    const double dPart = std::min((dKm - kShortOnly) / (kLongOnly - kShortOnly), 1.0);
    if (bBest) {
        LongRuleFill(tbl, tblHour, aFields, tblShort, dPart);
        return;
    }
    tbl.dField = dPart < 1.0 ? FieldMixGet(tblShort.dField, tbl.dFieldLong, dPart) : tbl.dFieldLong;
    tbl.dPower = tbl.dField
                 + AntennaLowGet(tblPath.tblCircuit.pRx, tblPath.tblCircuit.dLeastElevation).dGain;
    tbl.pMode = nullptr;
    tbl.dElevation = tblTx.nDegrees * kRadians;
}

}  // namespace

void PredictionFill(Prediction& tbl, Hour& tblHour, double dFrequency)
{
    Path& tblPath = *tblHour.pPath;
    const Ionosphere& tblIono = *tblPath.pIonosphere;
    const Circuit& tblCircuit = tblPath.tblCircuit;
    tbl = Prediction{};
    FieldFill(tbl, tblHour, dFrequency);
    tbl.dPower += -20.0 * std::log10(dFrequency) - kFieldToPower;
    tbl.tblAtmospheric = NoiseAtmosphericGet(tblIono, tblPath.tblNoise, tblHour.nLabel, dFrequency);
    tbl.tblManMade =
        NoiseManMadeGet(tblCircuit.eNoise, tblCircuit.dNoiseLevel, dFrequency, tblIono.bReference);
    tbl.tblGalactic = NoiseGalacticGet(dFrequency);
    const SnrInput tblInput{tbl.dPower, tblCircuit.dBandwidth, tblCircuit.dRequiredSnr,
                            tblCircuit.dRequiredReliability, tblPath.dShareQuantile};
    const double dToMuf = tblHour.dMuf > 0.0 ? dFrequency / tblHour.dMuf : 1e9;
    tbl.tblSnr = SnrGet(tblInput, tbl.tblAtmospheric, tbl.tblManMade, tbl.tblGalactic,
                        SignalDecilesGet(dToMuf, tblPath.bHighLatitude));
    tbl.dNoise = tbl.dPower - tbl.tblSnr.dMedian;
}

}  // namespace rec533
