#include "engine/rec533/Prediction.h"

namespace rec533 {
namespace {

constexpr double kFieldToPower = 107.2;  // dB(uV/m) to dBW, isotropic and matched, at 1 MHz

// Sums over the modes in power, as fields and with the receiving antenna's gains.
struct ModeSums {
    double dField = kFieldNone;
    double dReceived = kFieldNone;
    const Mode* pStrongest = nullptr;
};

ModeSums ModeSumsGet(const Hour& tblHour, const ModeFields& aFields, bool bHopSum)
{
    ModeSums tbl;
    double dBest = -1e300;
    const auto fnOwn = [&](std::size_t i) {
        return bHopSum ? aFields[i].dHopField : aFields[i].dField;
    };
    for (std::size_t i = 0; i < static_cast<std::size_t>(tblHour.nModes); ++i) {
        const Mode& tblMode = tblHour.aModes[i];
        if (!aFields[i].bUsed)
            continue;
        if (fnOwn(i) + tblMode.dRxGain > dBest) {
            dBest = fnOwn(i) + tblMode.dRxGain;
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
        dField += PowerFromDb(fnOwn(i) - dBest);
        dReceived += PowerFromDb(fnOwn(i) + tblHour.aModes[i].dRxGain - dBest);
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
    const double dLong = (kFree - 20.0 * std::log10(tblPath.tblLong.dSlant)) * tbl.dLongShare - 30.0
                         + tblPath.dPowerDb + tblPath.tblTxLow.dGain + tblPath.tblLong.dGap
                         + kOffset;
    ModeSums tblHops = ModeSumsGet(tblHour, aFields, true);
    const double dGap = tblPath.tblLong.dGap * dPart;
    tblHops.dField += dGap;
    tblHops.dReceived += dGap;
    const double dLongReceived = dLong + tblPath.tblRxLow.dGain;
    const double dField = PowerSumGet(tblHops.dField, dLong);
    const double dReceived = PowerSumGet(tblHops.dReceived, dLongReceived);
    tbl.dFieldLong = dField;
    if (dPart >= 1.0) {
        tbl.dField = dField;
        tbl.dPower = dReceived;
    } else {
        const double dLeast = kShortLeast + tblPath.dPowerDb;
        tbl.dField = (1.0 - dPart) * std::max(tblShort.dField, dLeast) + dPart * dField;
        tbl.dPower = (1.0 - dPart) * std::max(tblShort.dReceived, dLeast) + dPart * dReceived;
    }
    const bool bHops = tblHops.dReceived >= dLongReceived && tblHops.pStrongest != nullptr;
    tbl.pMode = bHops ? tblHops.pStrongest : nullptr;
    tbl.dElevation = bHops ? tblHops.pStrongest->dElevation : tblPath.tblTxLow.nDegrees * kRadians;
}

void FieldFill(Prediction& tbl, Hour& tblHour, double dFrequency)
{
    const Path& tblPath = *tblHour.pPath;
    const double dKm = tblPath.tblWay.dKm;
    ModeFields aFields;
    ModeSums tblShort;
    ModeFieldsFill(aFields, tblHour, dFrequency);
    if (dKm <= kLongOnly) {
        tblShort = ModeSumsGet(tblHour, aFields, false);
        tbl.dFieldShort = tblShort.dField;
    }
    if (dKm >= kShortOnly) {
        tbl.dLongShare = LongShareGet(tblPath.tblLong, tblHour.tblLong, dFrequency);
        tbl.dFieldLong =
            LongFieldGet(tblPath.tblLong, tbl.dLongShare, tblPath.dPowerDb, tblPath.tblTxLow.dGain);
    }
    if (dKm <= kShortOnly) {
        tbl.dField = tblShort.dField;
        tbl.dPower = tblShort.dReceived;
        tbl.pMode = tblShort.pStrongest;
        tbl.dElevation = tbl.pMode != nullptr ? tbl.pMode->dElevation : 0.0;
        return;
    }
    const double dPart = std::min((dKm - kShortOnly) / (kLongOnly - kShortOnly), 1.0);
    if (tblPath.pIonosphere->eBehaviour == Behaviour::Best) {
        LongRuleFill(tbl, tblHour, aFields, tblShort, dPart);
        return;
    }
    tbl.dField = dPart < 1.0 ? FieldMixGet(tblShort.dField, tbl.dFieldLong, dPart) : tbl.dFieldLong;
    tbl.dPower = tbl.dField + tblPath.tblRxLow.dGain;
    tbl.dElevation = tblPath.tblTxLow.nDegrees * kRadians;
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
}

}  // namespace rec533
