#include "engine/rec533/Noise.h"

namespace rec533 {
namespace {

constexpr std::size_t kLongitudeTerms = 15;
constexpr std::size_t kLatitudeTerms = 29;
constexpr double kDecileSigma = 1.282;  // standard deviations from median to decile

// Value of a polynomial, highest power first.
template <int kCount>
double PolynomialGet(const float* pTerms, double dX)
{
    double dSum = 0.0;
    for (int i = 0; i < kCount; ++i) dSum = dSum * dX + static_cast<double>(pTerms[i]);
    return dSum;
}

// sin(i x), i = 1 ... kCount, by the recurrence of multiple angles.
template <std::size_t kCount>
std::array<double, kCount> SinesGet(double dX)
{
    std::array<double, kCount> aSin;
    const double dTwoCos = 2.0 * std::cos(dX);
    double dBefore = 0.0;
    double dNow = std::sin(dX);
    for (double& dSin : aSin) {
        dSin = dNow;
        const double dNext = dTwoCos * dNow - dBefore;
        dBefore = dNow;
        dNow = dNext;
    }
    return aSin;
}

double PlaceW(const Place& place) { return place.dLat + kPi / 2.0; }

// Sums a block: the longitude series gives the coefficients of the latitude series.
double BlockSum(const NoiseFigures& noiseFigures, const NoisePlace& place, std::size_t nBlock)
{
    const float* pFakp = noiseFigures.pFakp + (kLongitudeTerms + 1) * kLatitudeTerms * nBlock;
    std::array<double, kLatitudeTerms> aZ;
    for (std::size_t j = 0; j < kLatitudeTerms; ++j)
        aZ[j] = static_cast<double>(pFakp[kLongitudeTerms * kLatitudeTerms + j]);
    for (std::size_t k = 0; k < kLongitudeTerms; ++k)
        for (std::size_t j = 0; j < kLatitudeTerms; ++j)
            aZ[j] += place.aLon[k] * static_cast<double>(pFakp[k * kLatitudeTerms + j]);
    double dSum = static_cast<double>(noiseFigures.pFakabp[2 * nBlock])
                  + static_cast<double>(noiseFigures.pFakabp[2 * nBlock + 1]) * PlaceW(place.place);
    for (std::size_t j = 0; j < kLatitudeTerms; ++j) dSum += place.aLat[j] * aZ[j];
    return dSum;
}

double FigureGet(const NoiseFigures& noiseFigures, NoisePlace& place, std::size_t nBlock)
{
    constexpr double kU1 = -0.75;  // 1 MHz
    const std::size_t nAt = nBlock % 6;
    if (!place.aSummed[nAt]) {
        const float* pFam = noiseFigures.pFam + 14 * nBlock;
        place.aFigure[nAt] =
            BlockSum(noiseFigures, place, nAt) * (2.0 - PolynomialGet<7>(pFam, kU1))
            - PolynomialGet<7>(pFam + 7, kU1);
        place.aSummed[nAt] = true;
    }
    return place.aFigure[nAt];
}

}  // namespace

NoisePlace NoisePlaceMake(const Place& place)
{
    const double dEast = place.dLon < 0.0 ? place.dLon + 2.0 * kPi : place.dLon;
    NoisePlace noisePlace;
    noisePlace.place = place;
    noisePlace.aLon = SinesGet<kLongitudeTerms>(dEast / 2.0);
    noisePlace.aLat = SinesGet<kLatitudeTerms>(PlaceW(place));
    return noisePlace;
}

NoiseBlock NoiseBlockGet(const NoiseFigures& noiseFigures, std::size_t nBlock, double dFrequency)
{
    const float* pFam = noiseFigures.pFam + 14 * nBlock;
    const float* pUpper = noiseFigures.pDud + 5 * nBlock;
    const double dU = (8.0 * std::exp2(std::log10(dFrequency)) - 11.0) / 4.0;
    const double dLogDecile = std::log10(std::min(dFrequency, 20.0));
    return {PolynomialGet<7>(pFam, dU), PolynomialGet<7>(pFam + 7, dU),
            PolynomialGet<5>(pUpper, dLogDecile), PolynomialGet<5>(pUpper + 60, dLogDecile)};
}

NoiseHour NoiseHourGet(const Ionosphere& ionosphere, NoisePlace& place, int nLabel)
{
    const int nHour = HourWrap(SunHourOfLabel(ionosphere, nLabel) + ZonesGet(place.place.dLon));
    const std::size_t nSouth = place.place.dLat >= 0.0 ? 0 : 6;
    NoiseHour hour;
    hour.dPart = nHour % 4 / 4.0;
    hour.nBlockA = static_cast<std::size_t>(nHour / 4) + nSouth;
    hour.nBlockB =
        hour.dPart > 0.0 ? static_cast<std::size_t>((nHour / 4 + 1) % 6) + nSouth : hour.nBlockA;
    hour.dFigureA = FigureGet(ionosphere.noise, place, hour.nBlockA);
    hour.dFigureB = FigureGet(ionosphere.noise, place, hour.nBlockB);
    return hour;
}

Noise NoiseAtmosphericGet(const Ionosphere& ionosphere, NoisePlace& place, int nLabel,
                          double dFrequency)
{
    const NoiseHour hour = NoiseHourGet(ionosphere, place, nLabel);
    const NoiseBlock blockA = NoiseBlockGet(ionosphere.noise, hour.nBlockA, dFrequency);
    const NoiseBlock blockB = NoiseBlockGet(ionosphere.noise, hour.nBlockB, dFrequency);
    const auto fnMix = [&](double dA, double dB) {
        return dA + DbFromPower(1.0 + (PowerFromDb(dB - dA) - 1.0) * hour.dPart);
    };
    return {fnMix(blockA.dFactor * hour.dFigureA + blockA.dRest,
                  blockB.dFactor * hour.dFigureB + blockB.dRest),
            fnMix(blockA.dUpper, blockB.dUpper), fnMix(blockA.dLower, blockB.dLower)};
}

Noise NoiseManMadeGet(NoiseCategory eCategory, double dLevel, double dFrequency, bool bSwapped)
{
    struct Row {
        double dC, dD, dUpper, dLower;
    };
    // P.372: c - d log f and deciles; Quiet and Noisy exist only in the ITU program.
    constexpr Row kRows[]{
        {76.8, 27.7, 11.0, 6.7}, {72.5, 27.7, 10.6, 5.3}, {67.2, 27.7, 9.2, 4.6},
        {53.6, 28.6, 9.2, 4.6},  {65.2, 29.1, 9.2, 4.6},  {83.2, 37.5, 11.0, 6.7},
    };
    constexpr double kLevelLog = 0.47712125471966244;  // log10 of 3 MHz
    const double dLog = std::log10(dFrequency);
    if (eCategory != NoiseCategory::Level) {
        const Row& row = kRows[static_cast<std::size_t>(eCategory)];
        return {row.dC - row.dD * dLog, row.dUpper, row.dLower};
    }
    const double dFa = kThermal + dLevel + kRows[0].dD * (kLevelLog - dLog);
    // The ITU program swaps the deciles of a level.
    return bSwapped ? Noise{dFa, kRows[0].dLower, kRows[0].dUpper}
                    : Noise{dFa, kRows[0].dUpper, kRows[0].dLower};
}

Noise NoiseGalacticGet(double dFrequency)
{
    return {52.0 - 23.0 * std::log10(dFrequency), 2.0, 2.0};
}

Noise NoiseTotalGet(const Noise& atmospheric, const Noise& manMade, const Noise& galactic)
{
    constexpr double kC = 4.3429448190325183;  // 10 / ln 10
    constexpr double kGalacticSigma = 1.56;
    constexpr double kDecileMost = 12.0;
    const double aFa[3]{atmospheric.dFa, manMade.dFa, galactic.dFa};
    double aMedian[2], aDecile[2];
    for (int nPass = 0; nPass < 2; ++nPass) {
        const double aD[3]{nPass == 0 ? atmospheric.dUpper : atmospheric.dLower,
                           nPass == 0 ? manMade.dUpper : manMade.dLower,
                           kGalacticSigma * kDecileSigma};
        double dAlpha = 0.0, dBeta = 0.0, dGamma = 0.0;
        for (int i = 0; i < 3; ++i) {
            const double dSigma = aD[i] / kDecileSigma;
            const double dA = std::exp(aFa[i] / kC + Square(dSigma / kC) / 2.0);
            dAlpha += dA;
            dBeta += dA * dA * (std::exp(Square(dSigma / kC)) - 1.0);
            dGamma += std::exp(aFa[i] / kC);
        }
        const bool bWide = aD[0] > kDecileMost || aD[1] > kDecileMost;
        const double dSigmaT = bWide ? kC * std::sqrt(2.0 * std::log(dAlpha / dGamma))
                                     : kC * std::sqrt(std::log(1.0 + dBeta / (dAlpha * dAlpha)));
        aMedian[nPass] = kC * (std::log(dAlpha) - Square(dSigmaT / kC) / 2.0);
        aDecile[nPass] = kDecileSigma * dSigmaT;
    }
    return {std::min(aMedian[0], aMedian[1]), aDecile[0], aDecile[1]};
}

}  // namespace rec533
