// The small procedures compared with values worked out elsewhere.

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "engine/ReferenceData.h"
#include "engine/rec533/AuroralLoss.h"

namespace {

using namespace rec533;  // NOLINT(google-build-using-namespace)

double DegreesOf(double dRadians) { return dRadians * kDegrees; }

TEST(Figures, HoldThePackagesNumbers)
{
    EXPECT_FLOAT_EQ(FiguresFof2(false, 1)[0], 5.2396593F);
    EXPECT_FLOAT_EQ(FiguresFof2(false, 1)[13], 0.93325400F);
    EXPECT_FLOAT_EQ(FiguresNoise(1).pDud[0], 0.60209268F);
    EXPECT_FLOAT_EQ(FiguresNoise(12).pDud[0], 0.60209268F);
    EXPECT_NE(FiguresNoise(3).pDud[0], 0.60209268F);
    EXPECT_NE(FiguresFof2(true, 1)[0], FiguresFof2(false, 1)[0]);
    EXPECT_FLOAT_EQ(FiguresAntennaConst17()[0], 17.0F);
    EXPECT_FLOAT_EQ(FiguresAntennaConst17()[1], -43.0F);
    EXPECT_FLOAT_EQ(FiguresAntennaSwwhip()[91], -21.9F);
}

TEST(Figures, DecilesAreThoseOfTheTable)
{
    EXPECT_EQ(FiguresDecile(false, 0, 0, 18, 0), 67);   // lower, winter, R12 < 50, 90 degrees
    EXPECT_EQ(FiguresDecile(false, 0, 0, 10, 12), 85);  // 50 degrees, local noon
    EXPECT_EQ(FiguresDecile(true, 2, 2, 0, 3), 123);    // upper, summer, R12 > 100, equator
    EXPECT_EQ(FiguresDecile(true, 2, 2, 17, 23), 126);  // 85 degrees
}

TEST(Geometry, ElevationFollowsTheTriangle)
{
    // Centre of the Earth, station, mirror: height = R (cos e / cos(e + d/2R) - 1).
    for (const double dHop : {100.0, 1000.0, 3000.0}) {
        const double dE = ElevationGet(dHop, 300.0);
        EXPECT_NEAR(kEarthKm * (std::cos(dE) / std::cos(dE + dHop / (2.0 * kEarthKm)) - 1.0), 300.0,
                    1e-6);
        EXPECT_NEAR(std::acos(IncidenceCosGet(dE, 110.0)), IncidenceGet(dE, 110.0), 1e-9);
        // By the law of sines the slant range is twice the side from station to mirror.
        const double dSide = (kEarthKm + 300.0) * std::sin(dHop / (2.0 * kEarthKm)) / std::cos(dE);
        EXPECT_NEAR(SlantRangeGet(3.0 * dHop, 3, dE), 6.0 * dSide, 1e-6);
    }
    EXPECT_NEAR(ElevationGet(HopLongestGet(0.05, 110.0), 110.0), 0.05, 1e-9);
}

TEST(Geometry, PointsOfAGreatCircleDivideIt)
{
    const Place one = PlaceFromDegrees(51.5, -0.13);
    const Place other = PlaceFromDegrees(-33.87, 151.21);
    for (const bool bLong : {false, true}) {
        const Way way = WayMake(one, other, bLong);
        EXPECT_NEAR(way.dKm, bLong ? 2.0 * kPi * kEarthKm - 16994.7 : 16994.7, 1.0);
        for (const double dPart : {0.1, 0.5, 0.9}) {
            const Place third = WayPlace(way, dPart);
            const double dFirst = WayMake(one, third, false).dKm;
            const double dKm = dPart * way.dKm;
            EXPECT_NEAR(dFirst, std::min(dKm, 2.0 * kPi * kEarthKm - dKm), 0.01);
        }
        EXPECT_NEAR(WayPlace(way, 1.0).dLat, other.dLat, 1e-9);
        EXPECT_NEAR(WayPlace(way, 1.0).dLon, other.dLon, 1e-9);
    }
    EXPECT_NEAR(DegreesOf(BearingGet(one, other)), 60.72, 0.02);
}

TEST(Zones, BeginAtTheirMeridian)
{
    for (int n = -12; n <= 12; ++n) {
        const double dBorder = 15.0 * n;
        EXPECT_EQ(ZonesGet(PlaceFromDegrees(0.0, dBorder).dLon), n);
        EXPECT_EQ(ZonesGet(PlaceFromDegrees(0.0, dBorder * 0.9999).dLon), n - (n > 0) + (n < 0));
    }
}

struct FieldCase {
    double dLat, dLon, dDip100, dGyro100, dDip300, dGyro300;
};

TEST(MagneticField, MatchesWorkedValues)
{
    for (const FieldCase& c : {FieldCase{13.210, -119.536, 32.857, 0.991, 33.178, 0.905},
                               FieldCase{35.683, -42.915, 60.521, 1.256, 60.592, 1.146}}) {
        const Place place = PlaceFromDegrees(c.dLat, c.dLon);
        const MagneticField low = MagneticFieldGet(place, FieldHeight::Absorption);
        const MagneticField high = MagneticFieldGet(place, FieldHeight::Maps);
        EXPECT_NEAR(DegreesOf(low.dDip), c.dDip100, 0.001);
        EXPECT_NEAR(low.dGyro, c.dGyro100, 0.001);
        EXPECT_NEAR(DegreesOf(high.dDip), c.dDip300, 0.001);
        EXPECT_NEAR(high.dGyro, c.dGyro300, 0.001);
        EXPECT_NEAR(std::sin(low.dDip), low.dSinDip, 1e-12);
    }
}

TEST(MagneticField, SumsAlongAGreatCircleAreTheFieldItself)
{
    for (const bool bLongWay : {false, true}) {
        for (double dLat = -85.0; dLat <= 85.0; dLat += 17.0) {
            const Way way =
                WayMake(PlaceFromDegrees(dLat, 33.0), PlaceFromDegrees(20.0, -151.0), bLongWay);
            const FieldTrack track = FieldTrackMake(way.aArcs[0]);
            for (double dAngle = 0.0; dAngle < way.dAngle; dAngle += 0.11) {
                const Place place = ArcPlace(way.aArcs[0], std::cos(dAngle), std::sin(dAngle));
                if (place.dCosLat < 0.001)
                    continue;  // here the program takes the field on a circle around the pole
                EXPECT_NEAR(std::atan(FieldTrackDipTanGet<double>(track, std::cos(dAngle),
                                                                  std::sin(dAngle))),
                            MagneticFieldGet(place, FieldHeight::Absorption).dDip, 1e-12);
            }
        }
    }
}

struct MapCase {
    int nMonth;
    double dSsn;
    int nHour;
    double dLat, dLon, dFof2, dM3;
};

TEST(Maps, SeriesMatchesWorkedValues)
{
    const auto pHours = std::make_unique<MapHours>();
    for (const MapCase& c : {MapCase{1, 140, 2, 10.100, 106.096, 12.0208, 2.4665},
                             MapCase{5, 10, 12, 30.630, 107.344, 7.4524, 3.2879},
                             MapCase{5, 10, 12, 57.954, 18.467, 4.7923, 3.0745},
                             MapCase{5, 10, 12, -23.482, 142.682, 3.5851, 3.1832}}) {
        MapHoursFill(*pHours, MapSet::Ccir, c.nMonth, c.dSsn, c.dSsn);
        const Place place = PlaceFromDegrees(c.dLat, c.dLon);
        MapPlace map;
        MapPlaceFill(map, place, MagneticFieldGet(place, FieldHeight::Maps), false);
        EXPECT_NEAR(MapFof2Get(*pHours, map, c.nHour), c.dFof2, 0.0005);
        EXPECT_NEAR(MapM3Get(*pHours, map, c.nHour), c.dM3, 0.0005);
    }
}

TEST(Maps, MeanLiesHalfwayBetweenTheSets)
{
    const auto pHours = std::make_unique<MapHours>();
    const Place place = PlaceFromDegrees(-40.0, -70.0);
    MapPlace map;
    MapPlaceFill(map, place, MagneticFieldGet(place, FieldHeight::Maps), false);
    double aValue[3];
    for (const MapSet eSet : {MapSet::Ccir, MapSet::Ursi, MapSet::Mean}) {
        MapHoursFill(*pHours, eSet, 7, 80.0, 80.0);
        aValue[static_cast<int>(eSet)] = MapFof2Get(*pHours, map, 15);
    }
    EXPECT_GT(std::abs(aValue[0] - aValue[1]), 0.01);
    EXPECT_NEAR(aValue[2], (aValue[0] + aValue[1]) / 2.0, 1e-9);
}

TEST(Absorption, PlaceTablesFollowExactAngles)
{
    // The fast arc tangents and the polynomial must match the plain functions at every crossing.
    const auto pIono = std::make_unique<Ionosphere>();
    IonosphereFill(*pIono, Behaviour::Corrected, MapSet::Ccir, 9, 60.0);
    const AbsorptionHour hour{pIono.get(), FoeHourGet(*pIono, 12)};
    const Way path = WayMake(PlaceFromDegrees(60.0, 10.0), PlaceFromDegrees(40.0, -5.0), false);
    const double dElevation = ElevationGet(path.dKm / 2.0, 300.0);
    Crossing aCrossings[4];
    CrossingsFill(hour, CrossingTrackMake(path), 2, dElevation, aCrossings);
    const double dNear = CrossingKmGet(dElevation);
    const double aKm[4]{dNear, path.dKm / 2.0 - dNear, path.dKm / 2.0 + dNear, path.dKm - dNear};
    for (int i = 0; i < 4; ++i) {
        const Place place = WayPlace(path, aKm[i] / path.dKm);
        const double dCos = SunZenithCosGet(*hour.foe.pSun, place);
        EXPECT_NEAR(aCrossings[i].dFoe, FoeGet(hour.foe, place, dCos), 1e-9);
        EXPECT_GT(aCrossings[i].dWeight, 100.0);  // September noon
        EXPECT_LT(aCrossings[i].dWeight, 346.5);
    }
}

// The three pieces of the figure's formula meet within 5 %.
TEST(Absorption, PenetrationIsContinuousWithinFivePercent)
{
    const Crossing crossing{3.0, 0.34};
    for (const double dT : {1.0, 2.2, 10.0}) {
        const double dBelow = AbsorptionSumGet<double>(&crossing, 1, 3.0 * dT * 0.999999);
        const double dAbove = AbsorptionSumGet<double>(&crossing, 1, 3.0 * dT * 1.000001);
        EXPECT_NEAR(dBelow, dAbove, 0.05 * dAbove) << dT;
    }
    EXPECT_NEAR(AbsorptionSumGet<double>(&crossing, 1, 60.0), 0.34, 1e-12);
}

TEST(Muf, LongestHopGivesTheRatioOfThe3000KmHop)
{
    const F2Layer f2Layer = F2LayerMake(8.0, 3.0, 3.0, 1.2);
    EXPECT_NEAR(F2MufGet(f2Layer, 3000.0, 4000.0), f2Layer.dB * 8.0 + 0.6 * 0.25, 1e-9);
    // Straight up it is nearly the extraordinary wave's critical frequency; Cd is not quite 0
    // there.
    EXPECT_NEAR(F2MufGet(f2Layer, 0.0, 4000.0), 8.0 + 0.6, 0.2);
    EXPECT_LT(F2MufGet(f2Layer, 500.0, 4000.0), F2MufGet(f2Layer, 1500.0, 4000.0));
}

struct NoiseCase {
    int nMonth, nLabel;
    double dLat, dLon, dFrequency, dFa, dUpper, dLower;
};

TEST(Noise, AtmosphericMatchesWorkedValues)
{
    const auto pIono = std::make_unique<Ionosphere>();
    for (const NoiseCase& c : {NoiseCase{2, 8, 40.0, 10.0, 10.0, 34.237, 7.848, 6.461},
                               NoiseCase{5, 2, 52.4862, -1.8904, 14.0, 25.256, 5.663, 4.912}}) {
        IonosphereFill(*pIono, Behaviour::Reference, MapSet::Ccir, c.nMonth, 100.0);
        NoisePlace place = NoisePlaceMake(PlaceFromDegrees(c.dLat, c.dLon));
        const Noise noise = NoiseAtmosphericGet(*pIono, place, c.nLabel, c.dFrequency);
        EXPECT_NEAR(noise.dFa, c.dFa, 0.001);
        EXPECT_NEAR(noise.dUpper, c.dUpper, 0.001);
        EXPECT_NEAR(noise.dLower, c.dLower, 0.001);
    }
}

TEST(Noise, LevelIsTheNoiseAtThreeMegahertz)
{
    EXPECT_NEAR(NoiseManMadeGet(NoiseCategory::Level, -145.0, 3.0, false).dFa, 59.0, 1e-9);
    EXPECT_NEAR(NoiseManMadeGet(NoiseCategory::Level, -145.0, 10.0, false).dFa, 44.516, 0.001);
    EXPECT_NEAR(NoiseManMadeGet(NoiseCategory::City, 0.0, 1.0, false).dFa, 76.8, 1e-9);
}

TEST(Reliability, MedianAtTheRequiredRatioIsHalfTheDays)
{
    // Three equal noises of 40 dB with deciles of 9 and 6 dB.
    const double dPower = std::pow(10.0, 4.0);
    FrequencySet set{};
    NoiseRows& rows = set.aNoise[0];
    set.nCount = 1;
    set.aMegahertz.fill(5.0);
    rows.aRest.fill(40.0);
    rows.aUpper.fill(std::pow(10.0, 0.9));
    rows.aLower.fill(std::pow(10.0, 0.6));
    set.aOther.fill(2.0 * dPower);
    set.aOtherLower.fill(2.0 * dPower / std::pow(10.0, 0.6));
    set.aOtherUpper.fill(2.0 * dPower * std::pow(10.0, 0.9));
    FrequencyRow aPower{};
    aPower.fill(-160.0);
    SnrInput input{1.0, 0.0, 90.0, ShareQuantileGet(90.0), false, 10.0};
    SnrRows res;
    const auto fnRun = [&] { SnrRowsFill(res, input, set, NoiseHour{}, aPower); };
    fnRun();
    EXPECT_NEAR(res.aMedian[0], -160.0 - 40.0 - 4.771 + 204.0, 0.001);
    EXPECT_NEAR(res.aExceeded[0], res.aMedian[0] - res.aLower[0], 1e-6);
    EXPECT_NEAR(res.aUpper[0], std::sqrt(36.0 + 36.0 + 25.0), 1e-9);
    EXPECT_NEAR(res.aLower[0], std::sqrt(81.0 + 64.0 + 64.0), 1e-9);
    input.dRequired = res.aMedian[0];
    fnRun();
    EXPECT_NEAR(res.aReliability[0], 50.0, 1e-9);
    input.dRequired = res.aExceeded[0];
    fnRun();
    EXPECT_NEAR(res.aReliability[0], 90.0, 1e-6);
}

TEST(Reliability, QuantilesAreThoseOfTheNormalDistribution)
{
    EXPECT_NEAR(ShareQuantileGet(50.0), 0.0, 1e-12);
    EXPECT_NEAR(ShareQuantileGet(90.0), 1.0, 1e-8);
    EXPECT_NEAR(ShareQuantileGet(10.0), 1.0, 1e-8);
    EXPECT_NEAR(ShareQuantileGet(99.0), 2.326347874 / 1.281551566, 1e-8);
}

TEST(Reliability, ClassLimitsBelongToTheLowerClass)
{
    EXPECT_EQ(SignalDecilesGet(0.8, false).dLower, 8.0);
    EXPECT_EQ(SignalDecilesGet(0.8000001, false).dLower, 12.0);
    EXPECT_EQ(SignalDecilesGet(1.2, true).dLower, 17.0);
    EXPECT_EQ(SignalDecilesGet(100.0, false).dLower, 5.0);
}

TEST(Antenna, GainIsInterpolatedAndClamped)
{
    Antenna antenna;
    for (std::size_t i = 0; i < antenna.aGain.size(); ++i)
        antenna.aGain[i] = static_cast<double>(i) / 10.0;
    EXPECT_NEAR(AntennaGainGet(&antenna, 4.5 * kRadians), 0.45, 1e-9);
    EXPECT_NEAR(AntennaGainGet(&antenna, 2.0), 9.0, 1e-9);
    EXPECT_NEAR(AntennaGainGet(&antenna, -0.1), 0.0, 1e-9);
    EXPECT_EQ(AntennaGainGet(nullptr, 0.3), 0.0);
    EXPECT_EQ(AntennaLowGet(&antenna, 3.0).nDegrees, 8);
    EXPECT_EQ(AntennaLowGet(&antenna, 20.0).nDegrees, 20);
    antenna.aGain.fill(1.0);
    EXPECT_EQ(AntennaLowGet(&antenna, 3.0).nDegrees, 3);
}

// On a path with several modes, each mode gets the gain at its own angle.
TEST(Antenna, GainsCountAtTheRaysElevation)
{
    const auto pIono = std::make_unique<Ionosphere>();
    IonosphereFill(*pIono, Behaviour::Best, MapSet::Ccir, 6, 100.0);
    Antenna tx, rx;
    for (std::size_t i = 0; i < tx.aGain.size(); ++i) {
        tx.aGain[i] = static_cast<double>(i) / 5.0 - 8.0;
        rx.aGain[i] = 6.0 - static_cast<double>(i) / 3.0;
    }
    Circuit circuit = CircuitOf(50.0, 0.0, 40.0, 12.0);
    const auto pPath = std::make_unique<Path>();
    const auto pHour = std::make_unique<Hour>();
    PathFill(*pPath, *pIono, circuit);
    HourFill(*pHour, *pPath, 12);
    const auto pRows = std::make_unique<ModesRows>();
    FrequencySet set;
    constexpr double kFrequency = 7.0;
    FrequencySetFill(set, *pIono, circuit, {&kFrequency, 1});
    ModesRowsFill(*pRows, *pHour, set);
    double dField = 0.0, dReceived = 0.0;
    int nUsed = 0;
    for (std::size_t i = 0; i < static_cast<std::size_t>(pHour->nModes); ++i) {
        if ((*pRows)[i].aUsed[0] == 0.0)
            continue;
        const double dDegrees = DegreesOf(pHour->aModes[i].dElevation);
        const double dOwn = (*pRows)[i].aField[0] + dDegrees / 5.0 - 8.0;
        dField += std::pow(10.0, dOwn / 10.0);
        dReceived += std::pow(10.0, (dOwn + 6.0 - dDegrees / 3.0) / 10.0);
        ++nUsed;
    }
    EXPECT_GT(nUsed, 1);
    circuit.pTx = &tx;
    circuit.pRx = &rx;
    PathFill(*pPath, *pIono, circuit);
    HourFill(*pHour, *pPath, 12);
    Prediction prediction;
    PredictionFill(prediction, *pHour, 7.0);
    EXPECT_NEAR(prediction.dField, 10.0 * std::log10(dField), 1e-6);
    EXPECT_NEAR(prediction.dPower, 10.0 * std::log10(dReceived) - 20.0 * std::log10(7.0) - 107.2,
                1e-6);
}

TEST(AuroralLoss, ColumnsIncludeTheirFirstHour)
{
    const double dSin65 = std::sin(65.0 * kRadians);  // 62.5 to 67.5 degrees, winter, short hops
    EXPECT_EQ(AuroralLossGet(dSin65, Season::Winter, 1000.0, 1), 7.0);
    EXPECT_EQ(AuroralLossGet(dSin65, Season::Winter, 1000.0, 3), 7.0);
    EXPECT_EQ(AuroralLossGet(dSin65, Season::Winter, 1000.0, 4), 16.0);
    EXPECT_EQ(AuroralLossGet(dSin65, Season::Winter, 1000.0, 22), 6.6);
    EXPECT_EQ(AuroralLossGet(dSin65, Season::Winter, 1000.0, 0), 6.6);
    EXPECT_EQ(AuroralLossGet(-dSin65, Season::Winter, 2500.1, 0), 10.0);
    EXPECT_EQ(AuroralLossGet(std::sin(42.4 * kRadians), Season::Winter, 1000.0, 1), 0.0);
}

}  // namespace
