#include "engine/rec533/Reliability.h"

namespace rec533 {
namespace {

struct SignalRow {
    double dUpTo, dLower, dLowerHigh, dUpper, dUpperHigh;
};
constexpr SignalRow kSignalRows[]{
    {0.8, 8, 11, 6, 9},   {1.0, 12, 16, 8, 11}, {1.2, 13, 17, 12, 12}, {1.4, 10, 13, 13, 13},
    {1.6, 8, 11, 12, 12}, {1.8, 8, 11, 9, 9},   {2.0, 8, 11, 9, 9},    {3.0, 7, 9, 8, 8},
    {4.0, 6, 8, 7, 7},    {1e99, 5, 7, 7, 7},
};

template <class V>
HOPCAST_INLINE void SignalDecilesLanesGet(const V& vToMuf, bool bHighLatitude, V& vUpper, V& vLower)
{
    const SignalRow& first = kSignalRows[0];
    vUpper = LaneAll<V>(bHighLatitude ? first.dUpperHigh : first.dUpper);
    vLower = LaneAll<V>(bHighLatitude ? first.dLowerHigh : first.dLower);
    double dFrom = first.dUpTo;
    for (const SignalRow& signalRow : kSignalRows) {
        const auto mask = vToMuf > dFrom;
        vUpper = LaneSelect(
            mask, LaneAll<V>(bHighLatitude ? signalRow.dUpperHigh : signalRow.dUpper), vUpper);
        vLower = LaneSelect(
            mask, LaneAll<V>(bHighLatitude ? signalRow.dLowerHigh : signalRow.dLower), vLower);
        dFrom = signalRow.dUpTo;
    }
}

template <class V>
HOPCAST_INLINE V DecibelsGet(const V& vRatio)
{
    constexpr double kPerNeper = 4.3429448190325182765;
    return kPerNeper * LaneLog<V>(vRatio);
}

// The noise power at the median, at the lower and at the upper decile.
template <class V>
HOPCAST_INLINE void NoiseLanesGet(const FrequencySet& set, const NoiseHour& noise, std::size_t i,
                                  V& vSum, V& vLow, V& vHigh)
{
    constexpr double kNepers = 0.230258509299404568;
    const NoiseRows& rowsA = set.aNoise[noise.nBlockA];
    V vPower = LaneExp<V>(
        kNepers * (LaneLoad<V>(&rowsA.aFactor[i]) * noise.dFigureA + LaneLoad<V>(&rowsA.aRest[i])));
    V vLower = LaneLoad<V>(&rowsA.aLower[i]);
    V vUpper = LaneLoad<V>(&rowsA.aUpper[i]);
    if (noise.dPart > 0.0) {
        const NoiseRows& rowsB = set.aNoise[noise.nBlockB];
        const V vPowerB = LaneExp<V>(
            kNepers
            * (LaneLoad<V>(&rowsB.aFactor[i]) * noise.dFigureB + LaneLoad<V>(&rowsB.aRest[i])));
        vPower += (vPowerB - vPower) * noise.dPart;
        vLower += (LaneLoad<V>(&rowsB.aLower[i]) - vLower) * noise.dPart;
        vUpper += (LaneLoad<V>(&rowsB.aUpper[i]) - vUpper) * noise.dPart;
    }
    vSum = vPower + LaneLoad<V>(&set.aOther[i]);
    vLow = vPower / vLower + LaneLoad<V>(&set.aOtherLower[i]);
    vHigh = vPower * vUpper + LaneLoad<V>(&set.aOtherUpper[i]);
}

template <class V>
HOPCAST_INLINE void SnrLanesFill(SnrRows& snrRows, const SnrInput& input, const FrequencySet& set,
                                 const NoiseHour& noise, const FrequencyRow& aPower)
{
    constexpr double kHourUpper = 5.0;  // within the hour (P.842, table 1)
    constexpr double kHourLower = 8.0;
    const double dToMuf = input.dMuf > 0.0 ? 1.0 / input.dMuf : 1e9;
    const double dBandwidth = DbFromPower(input.dBandwidth);
    for (std::size_t i = 0; i < set.nCount; i += kLanes<V>) {
        V vSum, vLow, vHigh, vSignalUpper, vSignalLower;
        NoiseLanesGet<V>(set, noise, i, vSum, vLow, vHigh);
        SignalDecilesLanesGet<V>(LaneLoad<V>(&set.aMegahertz[i]) * dToMuf, input.bHighLatitude,
                                 vSignalUpper, vSignalLower);
        const V vMedian = LaneLoad<V>(&aPower[i]) - (DecibelsGet<V>(vSum) + dBandwidth) + kThermal;
        // Days with less noise are better, so the lower noise deciles go with the upper SNR decile.
        const V vNoiseUpper = DecibelsGet<V>(vSum / vLow);
        const V vNoiseLower = DecibelsGet<V>(vHigh / vSum);
        const V vUpper = LaneSqrt<V>(vNoiseUpper * vNoiseUpper + vSignalUpper * vSignalUpper
                                     + kHourUpper * kHourUpper);
        const V vLower = LaneSqrt<V>(vNoiseLower * vNoiseLower + vSignalLower * vSignalLower
                                     + kHourLower * kHourLower);
        const V vOver = vMedian - input.dRequired;
        const V vGood =
            LaneMin<V>(LaneAll<V>(100.0), 130.0 - 80.0 / (1.0 + LaneAbs(vOver) / vLower));
        const V vBad = LaneMax<V>(LaneAll<V>(0.0), 80.0 / (1.0 + LaneAbs(vOver) / vUpper) - 30.0);
        LaneStore<V>(&snrRows.aMedian[i], vMedian);
        LaneStore<V>(&snrRows.aUpper[i], vUpper);
        LaneStore<V>(&snrRows.aLower[i], vLower);
        LaneStore<V>(&snrRows.aExceeded[i], input.dShare >= 50.0
                                                ? vMedian - vLower * input.dShareQuantile
                                                : vMedian + vUpper * input.dShareQuantile);
        LaneStore<V>(&snrRows.aReliability[i], LaneSelect(vOver >= 0.0, vGood, vBad));
    }
}

HOPCAST_WIDE void SnrWideFill(SnrRows& snrRows, const SnrInput& input, const FrequencySet& set,
                              const NoiseHour& noise, const FrequencyRow& aPower)
{
    SnrLanesFill<Lanes4>(snrRows, input, set, noise, aPower);
}

}  // namespace

SignalDeciles SignalDecilesGet(double dFrequencyToMuf, bool bHighLatitude)
{
    SignalDeciles signalDeciles;
    SignalDecilesLanesGet<double>(dFrequencyToMuf, bHighLatitude, signalDeciles.dUpper,
                                  signalDeciles.dLower);
    return signalDeciles;
}

void SnrRowsFill(SnrRows& snrRows, const SnrInput& input, const FrequencySet& set,
                 const NoiseHour& noise, const FrequencyRow& aPower)
{
    if (LanesWideIs())
        SnrWideFill(snrRows, input, set, noise, aPower);
    else
        SnrLanesFill<Lanes2>(snrRows, input, set, noise, aPower);
}

double ShareQuantileGet(double dShare)
{
    constexpr double kQuantile90 = 1.281551564;
    const double dP = std::max(dShare, 100.0 - dShare) / 100.0;
    // Newton's rule on the normal distribution, from the median.
    double dT = 0.0;
    for (int i = 0; i < 40; ++i) {
        const double dDensity = 0.39894228040143268 * std::exp(-dT * dT / 2.0);
        const double dStep = (0.5 * std::erfc(-dT * 0.70710678118654752) - dP) / dDensity;
        dT -= dStep;
        if (std::abs(dStep) < 1e-12)
            break;
    }
    return dT / kQuantile90;
}

}  // namespace rec533
