#include "engine/rec533/Prediction.h"

namespace rec533 {
namespace {

constexpr double kFieldToPower = 107.2;  // dB(uV/m) to dBW, isotropic and matched, at 1 MHz
constexpr double kNepers = 0.230258509299404568;     // per dB
constexpr double kPerNeper = 4.3429448190325182765;  // dB

// Sums of the modes' powers, as fields and with the receiving antenna's gains.
template <class V>
struct ModeSums {
    V tField, tReceived, tMode;
};

template <class V>
HOPCAST_INLINE ModeSums<V> ModeSumsGet(const WayHour& hour, const ModesRows& aModes,
                                       FrequencyRow ModeRows::*pOwn, std::size_t nAt)
{
    V vBest = LaneAll<V>(-1e300);
    V vMode = LaneAll<V>(-1.0);
    const auto nModes = static_cast<std::size_t>(hour.nModes);
    for (std::size_t i = 0; i < nModes; ++i) {
        const V vReceived = LaneLoad<V>(&(aModes[i].*pOwn)[nAt]) + hour.aModes[i].dRxGain;
        const auto mask = (LaneLoad<V>(&aModes[i].aUsed[nAt]) > 0.0) & (vReceived > vBest);
        vBest = LaneSelect(mask, vReceived, vBest);
        vMode = LaneSelect(mask, LaneAll<V>(static_cast<double>(i)), vMode);
    }
    // Powers relative to the strongest, because the power of fields far below zero would underflow.
    // The fields of a mode without power may never have been written: nothing is made of them.
    V vField{}, vSum{};
    for (std::size_t i = 0; i < nModes; ++i) {
        const V vPower = LaneSelect(
            LaneLoad<V>(&aModes[i].aUsed[nAt]) > 0.0,
            LaneExp<V>(kNepers * (LaneLoad<V>(&(aModes[i].*pOwn)[nAt]) - vBest)), LaneAll<V>(0.0));
        vField += vPower;
        vSum += vPower * hour.aModes[i].dRxPower;
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

// The results for some frequencies from which field and power are made.
template <class V>
struct Fields {
    V tShort, tLong, tShare, tField, tPower, tMode;
};

// The ways' powers, as fields and with the receiving antenna's gains: the terms are kept until the
// largest is known.
template <class V>
struct WaySums {
    std::array<V, 6> aField, aReceived;
    std::size_t nTerms = 0;

    HOPCAST_INLINE void Add(const V& vField, const V& vReceived)
    {
        aField[nTerms] = vField;
        aReceived[nTerms++] = vReceived;
    }
    // The mean over the ways, which have two terms each.
    HOPCAST_INLINE V MeanGet(const std::array<V, 6>& aTerms) const
    {
        V vMost = aTerms[0];
        for (std::size_t i = 1; i < nTerms; ++i) vMost = LaneMax<V>(vMost, aTerms[i]);
        V vSum{};
        for (std::size_t i = 0; i < nTerms; ++i) vSum += LaneExp<V>(kNepers * (aTerms[i] - vMost));
        return vMost + kPerNeper * LaneLog<V>(vSum / (static_cast<double>(nTerms) / 2.0));
    }
};

// Adds one way's power hop by hop and by the long method, and returns the former; its mode is -1
// where the latter is stronger.
template <class V>
HOPCAST_INLINE ModeSums<V> WayAdd(WaySums<V>& sums, WayRows& rows, const WayHour& hour,
                                  const ModesRows& aModes, const V& vFrequency, double dEase,
                                  std::size_t nAt)
{
    constexpr double kFree = 120.0;   // E0', dB
    constexpr double kOffset = 3.87;  // dB
    const WayPath& path = *hour.pWay;
    const LongPath& longPath = path.longPath;
    const V vLong =
        (kFree - longPath.dSlantDb) * LongShareGet<V>(longPath, hour.longPath, vFrequency) - 30.0
        + path.dPowerDb + path.txLow.dGain + longPath.dGap + kOffset;
    const V vLongReceived = vLong + path.rxLow.dGain;
    ModeSums<V> hops = ModeSumsGet<V>(hour, aModes, &ModeRows::aHopField, nAt);
    const double dGap = longPath.dGap * dEase;
    hops.tField += dGap;
    hops.tReceived += dGap;
    hops.tMode = LaneSelect(hops.tReceived >= vLongReceived, hops.tMode, LaneAll<V>(-1.0));
    sums.Add(hops.tField, hops.tReceived);
    sums.Add(vLong, vLongReceived);
    LaneStore<V>(&rows.aHops[nAt], hops.tField);
    LaneStore<V>(&rows.aLong[nAt], vLong);
    return hops;
}

// The long-path rule: on each way the powers of the hop sum and the long method are added, and the
// mean over the ways is taken; the rule is eased in from 7000 km to 9000 km.
template <class V>
HOPCAST_INLINE void LongRuleFill(Fields<V>& fields, const Hour& hour, PredictionWork& work,
                                 const ModeSums<V>& shortPath, const FrequencySet& set,
                                 double dPart, std::size_t nAt)
{
    constexpr double kShortLeast = -100.0;  // for 1 kW, dB(uV/m)
    const Path& path = *hour.pPath;
    const V vFrequency = LaneLoad<V>(&set.aMegahertz[nAt]);
    WaySums<V> sums;
    fields.tMode =
        WayAdd<V>(sums, work.aWays[0], hour, work.aModes[0], vFrequency, dPart, nAt).tMode;
    for (std::size_t i = 0; i < path.nBent; ++i)
        WayAdd<V>(sums, work.aWays[i + 1], hour.aBent[i], work.aModes[i + 1], vFrequency, dPart,
                  nAt);
    fields.tLong = sums.MeanGet(sums.aField);
    fields.tField = fields.tLong;
    fields.tPower = sums.MeanGet(sums.aReceived);
    if (dPart < 1.0) {
        const V vLeast = LaneAll<V>(kShortLeast + path.dPowerDb);
        fields.tField =
            (1.0 - dPart) * LaneMax<V>(shortPath.tField, vLeast) + dPart * fields.tField;
        fields.tPower =
            (1.0 - dPart) * LaneMax<V>(shortPath.tReceived, vLeast) + dPart * fields.tPower;
    }
}

template <class V>
HOPCAST_INLINE Fields<V> FieldsGet(const Hour& hour, PredictionWork& work, const FrequencySet& set,
                                   std::size_t nAt)
{
    const Path& path = *hour.pPath;
    const double dKm = path.way.dKm;
    Fields<V> fields{};
    ModeSums<V> shortPath{};
    if (dKm <= kLongOnly) {
        shortPath = ModeSumsGet<V>(hour, work.aModes[0], &ModeRows::aField, nAt);
        fields.tShort = shortPath.tField;
    }
    if (dKm >= kShortOnly) {
        fields.tShare =
            LongShareGet<V>(path.longPath, hour.longPath, LaneLoad<V>(&set.aMegahertz[nAt]));
        fields.tLong =
            LongFieldGet<V>(path.longPath, fields.tShare, path.dPowerDb, path.txLow.dGain);
    }
    if (dKm <= kShortOnly) {
        fields.tField = shortPath.tField;
        fields.tPower = shortPath.tReceived;
        fields.tMode = shortPath.tMode;
        return fields;
    }
    const double dPart = std::min((dKm - kShortOnly) / (kLongOnly - kShortOnly), 1.0);
    if (path.bHopSum) {
        LongRuleFill<V>(fields, hour, work, shortPath, set, dPart, nAt);
        return fields;
    }
    fields.tField =
        dPart < 1.0 ? FieldMixGet<V>(shortPath.tField, fields.tLong, dPart) : fields.tLong;
    fields.tPower = fields.tField + path.rxLow.dGain;
    fields.tMode = LaneAll<V>(-1.0);
    return fields;
}

template <class V>
HOPCAST_INLINE void FieldsFill(PredictionRows& predictionRows, const Hour& hour,
                               PredictionWork& work, const FrequencySet& set)
{
    for (std::size_t i = 0; i < set.nCount; i += kLanes<V>) {
        const Fields<V> fields = FieldsGet<V>(hour, work, set, i);
        LaneStore<V>(&predictionRows.aFieldShort[i], fields.tShort);
        LaneStore<V>(&predictionRows.aFieldLong[i], fields.tLong);
        LaneStore<V>(&predictionRows.aLongShare[i], fields.tShare);
        LaneStore<V>(&predictionRows.aField[i], fields.tField);
        LaneStore<V>(&predictionRows.aPower[i],
                     fields.tPower - LaneLoad<V>(&set.aDb[i]) - kFieldToPower);
        LaneStore<V>(&predictionRows.aMode[i], fields.tMode);
    }
}

HOPCAST_WIDE void FieldsWideFill(PredictionRows& predictionRows, const Hour& hour,
                                 PredictionWork& work, const FrequencySet& set)
{
    FieldsFill<Lanes4>(predictionRows, hour, work, set);
}

}  // namespace

void PredictionRowsFill(PredictionRows& predictionRows, PredictionWork& work, Hour& hour,
                        const FrequencySet& set)
{
    const Path& path = *hour.pPath;
    const Circuit& circuit = path.circuit;
    ModesRowsFill(work.aModes[0], hour, set);
    for (std::size_t i = 0; i < path.nBent; ++i)
        ModesRowsFill(work.aModes[i + 1], hour.aBent[i], set);
    if (LanesWideIs())
        FieldsWideFill(predictionRows, hour, work, set);
    else
        FieldsFill<Lanes2>(predictionRows, hour, work, set);
    const bool bShort = path.way.dKm <= kShortOnly;
    const double dLow = bShort ? 0.0 : path.txLow.nDegrees * kRadians;
    for (std::size_t i = 0; i < set.nCount; ++i) {
        const int nMode = static_cast<int>(predictionRows.aMode[i]);
        predictionRows.aElevation[i] =
            nMode < 0 ? dLow : hour.aModes[static_cast<std::size_t>(nMode)].dElevation;
    }
    const SnrInput input{circuit.dBandwidth,  circuit.dRequiredSnr, circuit.dRequiredReliability,
                         path.dShareQuantile, path.bHighLatitude,   hour.dMuf};
    SnrRowsFill(predictionRows.snr, input, set, hour.noise, predictionRows.aPower);
}

Prediction PredictionOfRows(const PredictionRows& rows, const Hour& hour, std::size_t nFrequency)
{
    const std::size_t i = nFrequency;
    Prediction prediction;
    prediction.dFieldShort = rows.aFieldShort[i];
    prediction.dFieldLong = rows.aFieldLong[i];
    prediction.dField = rows.aField[i];
    prediction.dLongShare = rows.aLongShare[i];
    prediction.dPower = rows.aPower[i];
    if (rows.aMode[i] >= 0.0) {
        const Mode& mode = hour.aModes[static_cast<std::size_t>(rows.aMode[i])];
        prediction.nHops = mode.nHops;
        prediction.bE = mode.bE;
    }
    prediction.dElevation = rows.aElevation[i];
    prediction.dSnr = rows.snr.aMedian[i];
    prediction.dSnrUpper = rows.snr.aUpper[i];
    prediction.dSnrLower = rows.snr.aLower[i];
    prediction.dSnrExceeded = rows.snr.aExceeded[i];
    prediction.dReliability = rows.snr.aReliability[i];
    return prediction;
}

void PredictionFill(Prediction& prediction, Hour& hour, double dFrequency)
{
    FrequencySet set;
    PredictionWork work;
    PredictionRows rows;
    const Path& path = *hour.pPath;
    FrequencySetFill(set, *path.pIonosphere, path.circuit, {&dFrequency, 1},
                     NoiseBlocksOf(hour.noise));
    PredictionRowsFill(rows, work, hour, set);
    prediction = PredictionOfRows(rows, hour, 0);
}

}  // namespace rec533
