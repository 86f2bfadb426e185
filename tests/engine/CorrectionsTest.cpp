// Each point at which the corrected behaviour departs from the ITU program, pinned to a value that
// comes from neither.

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "engine/ReferenceData.h"
#include "engine/rec533/AuroralLoss.h"

namespace {

using namespace rec533;  // NOLINT(google-build-using-namespace)

// Low-precision sun of the Astronomical Almanac for a day of the year 2001 and UT hour: declination
// and hour angle at longitude 0, degrees.
struct AlmanacSun {
    double dDeclination, dHourAngle;
};

AlmanacSun AlmanacGet(int nDayOfYear, double dHour)
{
    const double dN = 366.0 + nDayOfYear - 1.5 + dHour / 24.0;  // days since 2000 January 1, 12 h
    const double dL = 280.460 + 0.9856474 * dN;
    const double dG = (357.528 + 0.9856003 * dN) * kRadians;
    const double dLam = (dL + 1.915 * std::sin(dG) + 0.020 * std::sin(2.0 * dG)) * kRadians;
    const double dObliquity = 23.439 * kRadians;
    const double dRa = std::atan2(std::cos(dObliquity) * std::sin(dLam), std::cos(dLam)) * kDegrees;
    return {std::asin(std::sin(dObliquity) * std::sin(dLam)) * kDegrees,
            std::remainder(15.0 * (dHour - 12.0) + std::remainder(dL - dRa, 360.0), 360.0)};
}

constexpr int kDayOfYear[12]{15, 46, 74, 105, 135, 166, 196, 227, 258, 288, 319, 349};

std::unique_ptr<Ionosphere> IonosphereOf(Behaviour eBehaviour, int nMonth, double dSsn)
{
    auto pIono = std::make_unique<Ionosphere>();
    IonosphereFill(*pIono, eBehaviour, MapSet::Ccir, nMonth, dSsn);
    return pIono;
}

TEST(Corrections, SunStandsWhereTheAlmanacHasItAtTheLabelsHour)
{
    for (int nMonth = 1; nMonth <= 12; ++nMonth) {
        const auto pIono = IonosphereOf(Behaviour::Corrected, nMonth, 50.0);
        for (const int nLabel : {1, 7, 12, 18, 24}) {
            const SunHour& sun = *FoeHourGet(*pIono, nLabel).pSun;
            const AlmanacSun almanac = AlmanacGet(kDayOfYear[nMonth - 1], nLabel);
            EXPECT_NEAR(sun.dDeclination * kDegrees, almanac.dDeclination, 0.6) << nMonth;
            const double dAngle = SunHourAngleGet(sun, 0.0) * kDegrees;
            EXPECT_NEAR(std::remainder(dAngle - almanac.dHourAngle, 360.0), 0.0, 0.5) << nMonth;
        }
    }
    // In the reference the sun is one hour behind.
    const auto pReference = IonosphereOf(Behaviour::Reference, 4, 50.0);
    EXPECT_NEAR(SunHourAngleGet(*FoeHourGet(*pReference, 12).pSun, 0.0) * kDegrees, -15.0, 0.5);
}

// The series written out term by term, independently of the program's own functions.
double SeriesOf(int nMonth, double dSsn, int nHour, double dLatDegrees, double dLonDegrees,
                double dDip)
{
    constexpr int kLast[9]{11, 35, 53, 63, 67, 69, 71, 73, 75};
    const double dLat = dLatDegrees * kPi / 180.0;
    const double dLon = dLonDegrees * kPi / 180.0;
    const double dX = std::atan(dDip / std::sqrt(std::cos(dLat)));
    const double dT = (15.0 * nHour - 180.0) * kPi / 180.0;
    const auto aFigures = FiguresFof2(false, nMonth);
    double dSum = 0.0;
    int nOrder = 0, nFirst = 0;
    for (int k = 0; k < 76; ++k) {
        if (k > kLast[nOrder])
            nFirst = kLast[nOrder++] + 1;
        const int nPower = nOrder == 0 ? k : (k - nFirst) / 2;
        const double dLonTerm = nOrder == 0             ? 1.0
                                : (k - nFirst) % 2 == 0 ? std::cos(nOrder * dLon)
                                                        : std::sin(nOrder * dLon);
        double dHours = 0.0;
        for (int i = 0; i < 13; ++i) {
            const double dLow =
                aFigures[static_cast<std::size_t>(i) + 13 * static_cast<std::size_t>(k)];
            const double dHigh =
                aFigures[static_cast<std::size_t>(i) + 13 * static_cast<std::size_t>(k) + 988];
            const int nHarmonic = (i + 1) / 2;
            const double dTerm = i == 0       ? 1.0
                                 : i % 2 == 1 ? std::sin(nHarmonic * dT)
                                              : std::cos(nHarmonic * dT);
            dHours += (dLow + (dHigh - dLow) * dSsn / 100.0) * dTerm;
        }
        dSum +=
            dHours * std::pow(std::sin(dX), nPower) * std::pow(std::cos(dLat), nOrder) * dLonTerm;
    }
    return dSum;
}

TEST(Corrections, MapsAreTheSeriesItselfInEveryQuadrantAtSunrise)
{
    const auto pIono = IonosphereOf(Behaviour::Corrected, 9, 110.0);
    const auto pReference = IonosphereOf(Behaviour::Reference, 9, 110.0);
    Site site;
    double dWorstReference = 0.0;
    for (const double dLat : {-47.3, 47.3}) {
        for (const double dLon : {-71.9, 71.9}) {
            const int nSunrise = static_cast<int>(std::lround(30.0 - dLon / 15.0)) % 24;
            const int nLabel = nSunrise == 0 ? 24 : nSunrise;
            SiteFill(site, PlaceFromDegrees(dLat, dLon));
            const double dDip = MagneticFieldGet(site.place, FieldHeight::Maps).dDip;
            const double dSeries = SeriesOf(9, 110.0, nSunrise, dLat, dLon, dDip);
            EXPECT_NEAR(SiteLayerGet(*pIono, FoeHourGet(*pIono, nLabel), site, nLabel).dFof2,
                        dSeries, 1e-4);
            site.bMap = false;
            const double dGrid =
                SiteLayerGet(*pReference, FoeHourGet(*pReference, nLabel), site, nLabel).dFof2;
            dWorstReference = std::max(dWorstReference, std::abs(dGrid - dSeries));
        }
    }
    EXPECT_GT(dWorstReference, 0.03);  // the mirrored weights make a difference
}

TEST(Corrections, MirrorHeightIsContinuousWhereItsTermGChangesForm)
{
    const auto fnHeight = [](double dRatio, bool bReference) {
        return MirrorHeightLanesGet<double>(MirrorLayerMake(5.0, 1.2, 3.0, 60.0, bReference),
                                            5.0 * dRatio, 2500.0);
    };
    EXPECT_NEAR(fnHeight(3.6999, false), fnHeight(3.7001, false), 3.0);
    EXPECT_GT(std::abs(fnHeight(2.0, true) - fnHeight(2.0, false)), 5.0);
}

// The height for foF2/foE above 3.33 and f above foF2, with the formula as printed.
double HeightOf(double dKm, double dFof2, double dFoe, double dM3, double dSsn, double dFrequency)
{
    const double y = std::max(dFof2 / dFoe, 1.8), x = dFrequency / dFof2;
    const double dH = 1490.0 / (dM3 + 0.18 / (y - 1.4) + 0.096 * (dSsn - 25.0) / 150.0) - 316.0;
    const auto fnPower = [x](int n) { return std::pow(x, n); };
    const double e = -0.09707 * fnPower(3) + 0.6870 * fnPower(2) - 0.7506 * x + 0.6;
    const double f = x <= 1.71 ? -1.862 * fnPower(4) + 12.95 * fnPower(3) - 32.03 * fnPower(2)
                                     + 33.50 * x - 10.91
                               : 1.21 + 0.2 * x;
    const double g =
        x <= 3.7 ? -2.102 * fnPower(4) + 19.50 * fnPower(3) - 63.15 * fnPower(2) + 90.47 * x - 44.73
                 : 19.25;
    const double a = (dKm - 160.0 - (dH + 43.0) * g) / (dH + 140.0);
    const double dA = 140.0 + (dH - 47.0) * e;
    const double dB = 150.0 + (dH - 17.0) * f - dA;
    return std::min(dA + dB * (dB >= 0.0 && a >= 0.0 ? std::pow(2.4, -a) : 1.0), 800.0);
}

TEST(Corrections, MirrorHeightHasTheWholeFormula)
{
    for (const double dRatio : {1.05, 1.5, 2.0, 3.0, 3.6, 4.0}) {
        for (const double dKm : {300.0, 1500.0, 3500.0}) {
            const MirrorLayer mirrorLayer = MirrorLayerMake(5.0, 1.2, 3.0, 60.0, false);
            EXPECT_NEAR(MirrorHeightLanesGet<double>(mirrorLayer, 5.0 * dRatio, dKm),
                        HeightOf(dKm, 5.0, 1.2, 3.0, 60.0, 5.0 * dRatio), 1e-6)
                << dRatio << " " << dKm;
        }
    }
}

TEST(Corrections, DecilesAreReadAtTheLocalHour)
{
    // Table of the lower decile, winter, R12 < 50, 50 degrees: 0.78 at 05 h, 0.85 at 12 h.
    for (const bool bReference : {false, true}) {
        const auto pIono =
            IonosphereOf(bReference ? Behaviour::Reference : Behaviour::Corrected, 1, 20.0);
        const double dHour = DecileHourGet(*pIono, 6, 90.0 * kPi / 180.0);
        const DecileFactors decileFactors =
            DecileFactorsGet(50.0 * kRadians, dHour, Season::Winter, 20.0);
        EXPECT_NEAR(decileFactors.dLower, bReference ? 0.78 : 0.85, 1e-6);
    }
    // The local hour wraps: 2 h at 60 W is 22 h of the day before.
    const auto pIono = IonosphereOf(Behaviour::Corrected, 1, 20.0);
    const double dHour = DecileHourGet(*pIono, 2, -60.0 * kPi / 180.0);
    EXPECT_NEAR(DecileFactorsGet(50.0 * kRadians, dHour, Season::Winter, 20.0).dLower, 0.78, 1e-6);
}

// Worked values of the noise at 07 and 01 UT; the ITU program gives them an hour later.
TEST(Corrections, NoiseIsOfTheLabelsHour)
{
    NoisePlace place = NoisePlaceMake(PlaceFromDegrees(40.0, 10.0));
    const auto pIono = IonosphereOf(Behaviour::Corrected, 2, 100.0);
    EXPECT_NEAR(NoiseAtmosphericGet(*pIono, place, 7, 10.0).dFa, 34.237, 0.001);
    const auto pMay = IonosphereOf(Behaviour::Corrected, 5, 100.0);
    NoisePlace other = NoisePlaceMake(PlaceFromDegrees(52.4862, -1.8904));
    EXPECT_NEAR(NoiseAtmosphericGet(*pMay, other, 1, 14.0).dFa, 25.256, 0.001);
}

TEST(Corrections, AuroralHourIsWrapped)
{
    const double dLon = -151.0 * kRadians;  // exactly ten time zones west
    EXPECT_EQ(AuroralHourGet(*IonosphereOf(Behaviour::Corrected, 1, 20.0), 4, dLon), 18);
    EXPECT_LT(AuroralHourGet(*IonosphereOf(Behaviour::Reference, 1, 20.0), 4, dLon), 0);
}

TEST(Corrections, PolarWinterIsOfTheSouthInJune)
{
    // 45 N on a June night: after sunset the layer decays slowly (factor exp(-1.4 t)) and does not
    // follow the sun's angle.
    const auto pIono = IonosphereOf(Behaviour::Corrected, 6, 100.0);
    const auto pReference = IonosphereOf(Behaviour::Reference, 6, 100.0);
    const Place north = PlaceFromDegrees(45.0, 0.0);
    const FoeHour hour = FoeHourGet(*pIono, 21);
    const double dCos = SunZenithCosGet(*hour.pSun, north);
    ASSERT_LT(dCos, 0.0);
    const SunTimes times = SunTimesGet(*hour.pSun, north);
    // Within an hour or two after sunset foE follows from the value at sunset by exp(-1.4 t / 4).
    FoeHour set = hour;
    set.dClock = times.dSunset;
    const double dAtSet = FoeGet(set, north, -0.2);  // deep enough for the decay to govern
    EXPECT_NEAR(FoeGet(hour, north, -0.2), dAtSet * std::exp(-0.35 * (21.0 - times.dSunset)), 1e-6);
    FoeHour flawed = FoeHourGet(*pReference, 21);
    flawed.pSun = hour.pSun;
    EXPECT_LT(FoeGet(flawed, north, -0.2), FoeGet(hour, north, -0.2));
    // At 80 S June is polar winter in both: the sun does not set there.
    const Place south = PlaceFromDegrees(-80.0, 0.0);
    EXPECT_NEAR(FoeGet(hour, south, -0.3), FoeGet(flawed, south, -0.3), 1e-9);
}

TEST(Corrections, DayIsWhereTheSunStands)
{
    // 22 UT in July at 100 W is afternoon: the sun sets at about 2 UT of the next day.
    const Place place = PlaceFromDegrees(40.0, -100.0);
    EXPECT_TRUE(OperationalDayIs(*IonosphereOf(Behaviour::Corrected, 7, 50.0), 22, place));
    EXPECT_FALSE(OperationalDayIs(*IonosphereOf(Behaviour::Reference, 7, 50.0), 22, place));
    EXPECT_FALSE(OperationalDayIs(*IonosphereOf(Behaviour::Corrected, 7, 50.0), 7, place));
    // Polar day counts as day, polar night as night.
    const Place pole = PlaceFromDegrees(85.0, 20.0);
    EXPECT_TRUE(OperationalDayIs(*IonosphereOf(Behaviour::Corrected, 6, 50.0), 24, pole));
    EXPECT_FALSE(OperationalDayIs(*IonosphereOf(Behaviour::Corrected, 12, 50.0), 12, pole));
}

TEST(Corrections, OperationalMufKnowsThePower)
{
    // Equinox day, P.1240: ratio 1.15 up to 30 dBW, 1.20 above.
    const auto pIono = IonosphereOf(Behaviour::Corrected, 4, 80.0);
    const auto pPath = std::make_unique<Path>();
    const auto pHour = std::make_unique<Hour>();
    Circuit circuit = CircuitOf(45.0, 0.0, 52.0, 8.0);
    for (const double dKw : {0.9, 1.1}) {
        circuit.dPowerKw = dKw;
        PathFill(*pPath, *pIono, circuit);
        HourFill(*pHour, *pPath, 12);
        const Mode& mode = pHour->aModes[static_cast<std::size_t>(pHour->nModes - 1)];
        EXPECT_NEAR(mode.dOperational / mode.dMuf, dKw < 1.0 ? 1.15 : 1.20, 1e-9);
    }
}

TEST(Corrections, SouthernHighLatitudesAreHigh)
{
    // Mid-path near 55 S 140 E is at 64 degrees of geomagnetic latitude.
    const auto pPath = std::make_unique<Path>();
    const Circuit circuit = CircuitOf(-45.0, 150.0, -66.0, 120.0);
    const auto pCorrected = IonosphereOf(Behaviour::Corrected, 4, 80.0);
    PathFill(*pPath, *pCorrected, circuit);
    EXPECT_TRUE(pPath->bHighLatitude);
    const auto pReference = IonosphereOf(Behaviour::Reference, 4, 80.0);
    PathFill(*pPath, *pReference, circuit);
    EXPECT_FALSE(pPath->bHighLatitude);
}

TEST(Corrections, DecilesOfANoiseLevelAreThoseOfTheCity)
{
    const Noise noise = NoiseManMadeGet(NoiseCategory::Level, -145.0, 5.0, false);
    EXPECT_EQ(noise.dUpper, 11.0);
    EXPECT_EQ(noise.dLower, 6.7);
    EXPECT_EQ(NoiseManMadeGet(NoiseCategory::Level, -145.0, 5.0, true).dUpper, 6.7);
}

TEST(Corrections, BestIsTheCorrectedMethodUpTo7000Km)
{
    const auto pPath = std::make_unique<Path>();
    const auto pHour = std::make_unique<Hour>();
    const Circuit circuit = CircuitOf(20.0, -30.0, 60.0, 40.0);  // 6200 km
    double aField[2];
    for (const bool bBest : {false, true}) {
        const auto pIono = IonosphereOf(bBest ? Behaviour::Best : Behaviour::Corrected, 10, 90.0);
        PathFill(*pPath, *pIono, circuit);
        HourFill(*pHour, *pPath, 15);
        Prediction prediction;
        PredictionFill(prediction, *pHour, 14.0);
        aField[bBest ? 1 : 0] = prediction.dField;
    }
    EXPECT_EQ(aField[0], aField[1]);
}

TEST(Quirks, AreThoseOfTheReferenceAlone)
{
    for (const Behaviour eBehaviour :
         {Behaviour::Reference, Behaviour::Corrected, Behaviour::Best}) {
        const auto pIono = IonosphereOf(eBehaviour, 3, 50.0);
        const auto& [b1, b2, b3, b4, b5, b6, b7, b8, b9, b10] = pIono->quirks;
        for (const bool bQuirk : {b1, b2, b3, b4, b5, b6, b7, b8, b9, b10})
            EXPECT_EQ(bQuirk, eBehaviour == Behaviour::Reference);
    }
}

}  // namespace
