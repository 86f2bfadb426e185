#include "engine/rec533/Reliability.h"

namespace rec533 {

SignalDeciles SignalDecilesGet(double dFrequencyToMuf, bool bHighLatitude)
{
    struct Row {
        double dUpTo, dLower, dLowerHigh, dUpper, dUpperHigh;
    };
    constexpr Row kRows[]{
        {0.8, 8, 11, 6, 9},   {1.0, 12, 16, 8, 11}, {1.2, 13, 17, 12, 12}, {1.4, 10, 13, 13, 13},
        {1.6, 8, 11, 12, 12}, {1.8, 8, 11, 9, 9},   {2.0, 8, 11, 9, 9},    {3.0, 7, 9, 8, 8},
        {4.0, 6, 8, 7, 7},    {1e99, 5, 7, 7, 7},
    };
    const Row* pRow = kRows;
    while (dFrequencyToMuf > pRow->dUpTo) ++pRow;
    return bHighLatitude ? SignalDeciles{pRow->dUpperHigh, pRow->dLowerHigh}
                         : SignalDeciles{pRow->dUpper, pRow->dLower};
}

SnrResult SnrGet(const SnrInput& tbl, const Noise& tblAtmospheric, const Noise& tblManMade,
                 const Noise& tblGalactic, const SignalDeciles& tblSignal)
{
    constexpr double kHourUpper = 5.0;  // within the hour (P.842, table 1)
    constexpr double kHourLower = 8.0;
    double dSum = 0.0, dSumLow = 0.0, dSumHigh = 0.0;
    for (const Noise* pNoise : {&tblAtmospheric, &tblManMade, &tblGalactic}) {
        const double dPower = PowerFromDb(pNoise->dFa);
        dSum += dPower;
        dSumLow += dPower * PowerFromDb(-pNoise->dLower);
        dSumHigh += dPower * PowerFromDb(pNoise->dUpper);
    }
    SnrResult res;
    res.dMedian = tbl.dPower - DbFromPower(dSum * tbl.dBandwidth) + kThermal;
    // Less noise makes the better days, so the lower noise deciles belong to the upper ones.
    res.dUpper = std::sqrt(Square(DbFromPower(dSum / dSumLow)) + Square(tblSignal.dUpper)
                           + Square(kHourUpper));
    res.dLower = std::sqrt(Square(DbFromPower(dSumHigh / dSum)) + Square(tblSignal.dLower)
                           + Square(kHourLower));
    res.dExceeded = tbl.dShare >= 50.0 ? res.dMedian - res.dLower * tbl.dShareQuantile
                                       : res.dMedian + res.dUpper * tbl.dShareQuantile;
    const double dOver = res.dMedian - tbl.dRequired;
    res.dReliability = dOver >= 0.0 ? std::min(100.0, 130.0 - 80.0 / (1.0 + dOver / res.dLower))
                                    : std::max(0.0, 80.0 / (1.0 - dOver / res.dUpper) - 30.0);
    return res;
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
