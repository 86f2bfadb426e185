#include "engine/rec533/Prediction.h"

namespace rec533 {
namespace {

constexpr double kFieldToPower = 107.2;  // dB(uV/m) to dBW, isotropic and matched, at 1 MHz
constexpr double kNepers = 0.230258509299404568;     // a dB
constexpr double kPerNeper = 4.3429448190325182765;  // dB

// Sums over the modes in power, as fields and with the receiving antenna's gains.
template <class V>
struct ModeSums {
    V tField, tReceived, tMode;
};

template <class V>
HOPCAST_INLINE ModeSums<V> ModeSumsGet(const WayHour& tblHour, const ModesRows& aModes,
                                       FrequencyRow ModeRows::*pOwn, std::size_t nAt)
{
    V vBest = LaneAll<V>(-1e300);
    V vMode = LaneAll<V>(-1.0);
    const auto nModes = static_cast<std::size_t>(tblHour.nModes);
    for (std::size_t i = 0; i < nModes; ++i) {
        const V vReceived = LaneLoad<V>(&(aModes[i].*pOwn)[nAt]) + tblHour.aModes[i].dRxGain;
        const auto mask = (LaneLoad<V>(&aModes[i].aUsed[nAt]) > 0.0) & (vReceived > vBest);
        vBest = LaneSelect(mask, vReceived, vBest);
        vMode = LaneSelect(mask, LaneAll<V>(static_cast<double>(i)), vMode);
    }
    // Powers relative to the strongest, for fields far below zero have no power to speak of.
    V vField{}, vSum{};
    for (std::size_t i = 0; i < nModes; ++i) {
        const V vPower = LaneLoad<V>(&aModes[i].aUsed[nAt])
                         * LaneExp<V>(kNepers * (LaneLoad<V>(&(aModes[i].*pOwn)[nAt]) - vBest));
        vField += vPower;
        vSum += vPower * tblHour.aModes[i].dRxPower;
    }
    const auto maskNone = vMode < 0.0;
    const V vNone = LaneAll<V>(kFieldNone);
    const V vOne = LaneAll<V>(1.0);
    return {LaneSelect(maskNone, vNone,
                       vBest + kPerNeper * LaneLog<V>(LaneSelect(maskNone, vOne, vField))),
            LaneSelect(maskNone, vNone,
                       vBest + kPerNeper * LaneLog<V>(LaneSelect(maskNone, vOne, vSum))),
            vMode};
}

// Section 5.4: mean of the two methods in the scale 10^(E/100).
template <class V>
HOPCAST_INLINE V FieldMixGet(const V& vShort, const V& vLong, double dPart)
{
    const V vX = LaneExp<V>(vShort * (kNepers / 10.0));
    return 10.0 * kPerNeper * LaneLog<V>(vX + dPart * (LaneExp<V>(vLong * (kNepers / 10.0)) - vX));
}

// What the field and power of some frequencies are made of.
template <class V>
struct Fields {
    V tShort, tLong, tShare, tField, tPower, tMode;
};

// What the ways carry in power, as fields and with the receiving antenna's gains: the terms are
// kept until their greatest is known.
template <class V>
struct WaySums {
    std::array<V, 6> aField, aReceived;
    std::size_t nTerms = 0;

    HOPCAST_INLINE void Add(const V& vField, const V& vReceived)
    {
        aField[nTerms] = vField;
        aReceived[nTerms++] = vReceived;
    }
    // The mean of the ways, two terms each.
    HOPCAST_INLINE V MeanGet(const std::array<V, 6>& aTerms) const
    {
        V vMost = aTerms[0];
        for (std::size_t i = 1; i < nTerms; ++i) vMost = LaneMax<V>(vMost, aTerms[i]);
        V vSum{};
        for (std::size_t i = 0; i < nTerms; ++i) vSum += LaneExp<V>(kNepers * (aTerms[i] - vMost));
        return vMost + kPerNeper * LaneLog<V>(vSum / (static_cast<double>(nTerms) / 2.0));
    }
};

// Adds what one way carries hop by hop and by the long method, and gives the former; its mode is
// none where the latter is stronger.
template <class V>
HOPCAST_INLINE ModeSums<V> WayAdd(WaySums<V>& tblSums, WayRows& tblRows, const WayHour& tblHour,
                                  const ModesRows& aModes, const V& vFrequency, double dEase,
                                  std::size_t nAt)
{
    constexpr double kFree = 120.0;   // E0', dB
    constexpr double kOffset = 3.87;  // dB
    const WayPath& tblPath = *tblHour.pWay;
    const LongPath& tblLong = tblPath.tblLong;
    const V vLong =
        (kFree - tblLong.dSlantDb) * LongShareGet<V>(tblLong, tblHour.tblLong, vFrequency) - 30.0
        + tblPath.dPowerDb + tblPath.tblTxLow.dGain + tblLong.dGap + kOffset;
    const V vLongReceived = vLong + tblPath.tblRxLow.dGain;
    ModeSums<V> tblHops = ModeSumsGet<V>(tblHour, aModes, &ModeRows::aHopField, nAt);
    const double dGap = tblLong.dGap * dEase;
    tblHops.tField += dGap;
    tblHops.tReceived += dGap;
    tblHops.tMode = LaneSelect(tblHops.tReceived >= vLongReceived, tblHops.tMode, LaneAll<V>(-1.0));
    tblSums.Add(tblHops.tField, tblHops.tReceived);
    tblSums.Add(vLong, vLongReceived);
    LaneStore<V>(&tblRows.aHops[nAt], tblHops.tField);
    LaneStore<V>(&tblRows.aLong[nAt], vLong);
    return tblHops;
}

// The long-path rule: hop by hop and long method add in power on each way, the ways' powers have
// their mean; eased in from 7000 km to 9000 km.
template <class V>
HOPCAST_INLINE void LongRuleFill(Fields<V>& tbl, const Hour& tblHour, PredictionWork& tblWork,
                                 const ModeSums<V>& tblShort, const FrequencySet& tblSet,
                                 double dPart, std::size_t nAt)
{
    constexpr double kShortLeast = -100.0;  // of 1 kW, dB(uV/m)
    const Path& tblPath = *tblHour.pPath;
    const V vFrequency = LaneLoad<V>(&tblSet.aMegahertz[nAt]);
    WaySums<V> tblSums;
    tbl.tMode =
        WayAdd<V>(tblSums, tblWork.aWays[0], tblHour, tblWork.aModes[0], vFrequency, dPart, nAt)
            .tMode;
    for (std::size_t i = 0; i < tblPath.nBent; ++i)
        WayAdd<V>(tblSums, tblWork.aWays[i + 1], tblHour.aBent[i], tblWork.aModes[i + 1],
                  vFrequency, dPart, nAt);
    tbl.tLong = tblSums.MeanGet(tblSums.aField);
    tbl.tField = tbl.tLong;
    tbl.tPower = tblSums.MeanGet(tblSums.aReceived);
    if (dPart < 1.0) {
        const V vLeast = LaneAll<V>(kShortLeast + tblPath.dPowerDb);
        tbl.tField = (1.0 - dPart) * LaneMax<V>(tblShort.tField, vLeast) + dPart * tbl.tField;
        tbl.tPower = (1.0 - dPart) * LaneMax<V>(tblShort.tReceived, vLeast) + dPart * tbl.tPower;
    }
}

template <class V>
HOPCAST_INLINE Fields<V> FieldsGet(const Hour& tblHour, PredictionWork& tblWork,
                                   const FrequencySet& tblSet, std::size_t nAt)
{
    const Path& tblPath = *tblHour.pPath;
    const double dKm = tblPath.tblWay.dKm;
    Fields<V> tbl{};
    ModeSums<V> tblShort{};
    if (dKm <= kLongOnly) {
        tblShort = ModeSumsGet<V>(tblHour, tblWork.aModes[0], &ModeRows::aField, nAt);
        tbl.tShort = tblShort.tField;
    }
    if (dKm >= kShortOnly) {
        tbl.tShare =
            LongShareGet<V>(tblPath.tblLong, tblHour.tblLong, LaneLoad<V>(&tblSet.aMegahertz[nAt]));
        tbl.tLong =
            LongFieldGet<V>(tblPath.tblLong, tbl.tShare, tblPath.dPowerDb, tblPath.tblTxLow.dGain);
    }
    if (dKm <= kShortOnly) {
        tbl.tField = tblShort.tField;
        tbl.tPower = tblShort.tReceived;
        tbl.tMode = tblShort.tMode;
        return tbl;
    }
    const double dPart = std::min((dKm - kShortOnly) / (kLongOnly - kShortOnly), 1.0);
    if (tblPath.bHopSum) {
        LongRuleFill<V>(tbl, tblHour, tblWork, tblShort, tblSet, dPart, nAt);
        return tbl;
    }
    tbl.tField = dPart < 1.0 ? FieldMixGet<V>(tblShort.tField, tbl.tLong, dPart) : tbl.tLong;
    tbl.tPower = tbl.tField + tblPath.tblRxLow.dGain;
    tbl.tMode = LaneAll<V>(-1.0);
    return tbl;
}

template <class V>
HOPCAST_INLINE void FieldsFill(PredictionRows& tbl, const Hour& tblHour, PredictionWork& tblWork,
                               const FrequencySet& tblSet)
{
    for (std::size_t i = 0; i < tblSet.nCount; i += kLanes<V>) {
        const Fields<V> tblF = FieldsGet<V>(tblHour, tblWork, tblSet, i);
        LaneStore<V>(&tbl.aFieldShort[i], tblF.tShort);
        LaneStore<V>(&tbl.aFieldLong[i], tblF.tLong);
        LaneStore<V>(&tbl.aLongShare[i], tblF.tShare);
        LaneStore<V>(&tbl.aField[i], tblF.tField);
        LaneStore<V>(&tbl.aPower[i], tblF.tPower - LaneLoad<V>(&tblSet.aDb[i]) - kFieldToPower);
        LaneStore<V>(&tbl.aMode[i], tblF.tMode);
    }
}

HOPCAST_WIDE void FieldsWideFill(PredictionRows& tbl, const Hour& tblHour, PredictionWork& tblWork,
                                 const FrequencySet& tblSet)
{
    FieldsFill<Lanes4>(tbl, tblHour, tblWork, tblSet);
}

}  // namespace

void PredictionRowsFill(PredictionRows& tbl, PredictionWork& tblWork, Hour& tblHour,
                        const FrequencySet& tblSet)
{
    const Path& tblPath = *tblHour.pPath;
    const Circuit& tblCircuit = tblPath.tblCircuit;
    ModesRowsFill(tblWork.aModes[0], tblHour, tblSet);
    for (std::size_t i = 0; i < tblPath.nBent; ++i)
        ModesRowsFill(tblWork.aModes[i + 1], tblHour.aBent[i], tblSet);
    if (LanesWideIs())
        FieldsWideFill(tbl, tblHour, tblWork, tblSet);
    else
        FieldsFill<Lanes2>(tbl, tblHour, tblWork, tblSet);
    const bool bShort = tblPath.tblWay.dKm <= kShortOnly;
    const double dLow = bShort ? 0.0 : tblPath.tblTxLow.nDegrees * kRadians;
    for (std::size_t i = 0; i < tblSet.nCount; ++i) {
        const int nMode = static_cast<int>(tbl.aMode[i]);
        tbl.aElevation[i] =
            nMode < 0 ? dLow : tblHour.aModes[static_cast<std::size_t>(nMode)].dElevation;
    }
    const SnrInput tblInput{tblCircuit.dBandwidth,           tblCircuit.dRequiredSnr,
                            tblCircuit.dRequiredReliability, tblPath.dShareQuantile,
                            tblPath.bHighLatitude,           tblHour.dMuf};
    SnrRowsFill(tbl.tblSnr, tblInput, tblSet, tblHour.tblNoise, tbl.aPower);
}

Prediction PredictionOfRows(const PredictionRows& tblRows, const Hour& tblHour,
                            std::size_t nFrequency)
{
    const std::size_t i = nFrequency;
    Prediction tbl;
    tbl.dFieldShort = tblRows.aFieldShort[i];
    tbl.dFieldLong = tblRows.aFieldLong[i];
    tbl.dField = tblRows.aField[i];
    tbl.dLongShare = tblRows.aLongShare[i];
    tbl.dPower = tblRows.aPower[i];
    if (tblRows.aMode[i] >= 0.0) {
        const Mode& tblMode = tblHour.aModes[static_cast<std::size_t>(tblRows.aMode[i])];
        tbl.nHops = tblMode.nHops;
        tbl.bE = tblMode.bE;
    }
    tbl.dElevation = tblRows.aElevation[i];
    tbl.dSnr = tblRows.tblSnr.aMedian[i];
    tbl.dSnrUpper = tblRows.tblSnr.aUpper[i];
    tbl.dSnrLower = tblRows.tblSnr.aLower[i];
    tbl.dSnrExceeded = tblRows.tblSnr.aExceeded[i];
    tbl.dReliability = tblRows.tblSnr.aReliability[i];
    return tbl;
}

void PredictionFill(Prediction& tbl, Hour& tblHour, double dFrequency)
{
    FrequencySet tblSet;
    PredictionWork tblWork;
    PredictionRows tblRows;
    const Path& tblPath = *tblHour.pPath;
    FrequencySetFill(tblSet, *tblPath.pIonosphere, tblPath.tblCircuit, {&dFrequency, 1},
                     NoiseBlocksOf(tblHour.tblNoise));
    PredictionRowsFill(tblRows, tblWork, tblHour, tblSet);
    tbl = PredictionOfRows(tblRows, tblHour, 0);
}

}  // namespace rec533
