// What must hold for all inputs: symmetry, continuity, poles, antipodes, and never not-a-number.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <random>
#include <type_traits>
#include <utility>
#include <vector>

#include "engine/ReferenceData.h"

namespace {

using namespace rec533;  // NOLINT(google-build-using-namespace)

struct Bench {
    std::unique_ptr<Ionosphere> pIono = std::make_unique<Ionosphere>();
    std::unique_ptr<Path> pPath = std::make_unique<Path>();
    std::unique_ptr<Hour> pHour = std::make_unique<Hour>();

    Prediction Run(const Circuit& circuit, int nLabel, double dFrequency)
    {
        PathFill(*pPath, *pIono, circuit);
        HourFill(*pHour, *pPath, nLabel);
        Prediction prediction;
        PredictionFill(prediction, *pHour, dFrequency);
        return prediction;
    }
};

bool AllFinite(const Hour& hour, const Prediction& prediction)
{
    for (const double d :
         {hour.dMuf, hour.dMuf10, hour.dMuf90, hour.dOperational, hour.dOperational10,
          hour.dOperational90, prediction.dField, prediction.dPower, prediction.dElevation,
          prediction.dSnr, prediction.dSnrUpper, prediction.dSnrLower, prediction.dSnrExceeded,
          prediction.dReliability})
        if (!std::isfinite(d))
            return false;
    return true;
}

class RandomSweep : public testing::TestWithParam<int> {};

// Each of eight shares has 25,000 random inputs.
TEST_P(RandomSweep, GivesNumbersEverywhere)
{
    std::mt19937 rng(static_cast<unsigned>(GetParam()) + 533U);
    const auto fnDraw = [&](double dLow, double dHigh) {
        return std::uniform_real_distribution<double>(dLow, dHigh)(rng);
    };
    Bench bench;
    for (int i = 0; i < 25000; ++i) {
        const int nMonth = static_cast<int>(fnDraw(1.0, 12.9999));
        if (i % 50 == 0)
            IonosphereFill(*bench.pIono, static_cast<Behaviour>(i / 50 % 3),
                           static_cast<MapSet>(i / 150 % 3), nMonth, fnDraw(0.0, 311.0));
        Circuit circuit = CircuitOf(fnDraw(-90.0, 90.0), fnDraw(-180.0, 180.0), fnDraw(-90.0, 90.0),
                                    fnDraw(-180.0, 180.0));
        circuit.bLongWay = i % 7 == 0;
        circuit.dPowerKw = std::pow(10.0, fnDraw(-6.0, 4.0));
        circuit.dNoiseLevel = fnDraw(-200.0, -100.0);
        circuit.dRequiredReliability = fnDraw(-50.0, 150.0);
        circuit.dLeastElevation = fnDraw(-5.0, 95.0) * (i % 2);
        const int nLabel = static_cast<int>(fnDraw(1.0, 24.9999));
        const Prediction prediction = bench.Run(circuit, nLabel, fnDraw(0.1, 45.0));
        ASSERT_TRUE(AllFinite(*bench.pHour, prediction))
            << circuit.dTxLat << " " << circuit.dTxLon << " to " << circuit.dRxLat << " "
            << circuit.dRxLon << (circuit.bLongWay ? " long" : "") << " at " << nLabel;
        ASSERT_GE(prediction.dReliability, 0.0);
        ASSERT_LE(prediction.dReliability, 100.0);
    }
}
INSTANTIATE_TEST_SUITE_P(Shares, RandomSweep, testing::Range(0, 8));

TEST(Sanity, PolesAntipodesAndOnePlaceGiveNumbers)
{
    Bench bench;
    for (const Behaviour eBehaviour :
         {Behaviour::Reference, Behaviour::Corrected, Behaviour::Best}) {
        for (const int nMonth : {1, 6}) {
            IonosphereFill(*bench.pIono, eBehaviour, MapSet::Ursi, nMonth, 0.0);
            for (const Circuit& circuit :
                 {CircuitOf(90, 0, -90, 0), CircuitOf(90, 50, 89.9, 10),
                  CircuitOf(-90, 0, -77.85, 166.67), CircuitOf(10, 20, -10, -160),
                  CircuitOf(0, 0, 0, 180), CircuitOf(0, 0, 0, 0), CircuitOf(10, 20, 10, 20),
                  CircuitOf(90, 0, 90, 0), CircuitOf(0, 180, 0, -180)}) {
                for (int nLabel = 1; nLabel <= 24; ++nLabel)
                    for (const double dFrequency : {1.0, 7.0, 29.0})
                        ASSERT_TRUE(AllFinite(*bench.pHour, bench.Run(circuit, nLabel, dFrequency)))
                            << circuit.dTxLat << " to " << circuit.dRxLat << " " << circuit.dRxLon;
            }
        }
    }
}

TEST(Sanity, ReverseHasTheSameDistanceAndMuf)
{
    std::mt19937 rng(7);
    std::uniform_real_distribution<double> draw(-1.0, 1.0);
    Bench bench;
    IonosphereFill(*bench.pIono, Behaviour::Best, MapSet::Ccir, 3, 120.0);
    for (int i = 0; i < 300; ++i) {
        const Circuit there =
            CircuitOf(90 * draw(rng), 180 * draw(rng), 90 * draw(rng), 180 * draw(rng));
        const Circuit back = CircuitOf(there.dRxLat, there.dRxLon, there.dTxLat, there.dTxLon);
        bench.Run(there, 1 + i % 24, 14.0);
        const double dKm = bench.pPath->way.dKm;
        const double dMuf = bench.pHour->dMuf;
        bench.Run(back, 1 + i % 24, 14.0);
        EXPECT_NEAR(bench.pPath->way.dKm, dKm, 1e-6);
        EXPECT_NEAR(bench.pHour->dMuf, dMuf, 1e-6);
    }
}

struct Border {
    const char* sName;
    Circuit one, other;
};

TEST(Sanity, NothingJumpsAtTheDateLineTheEquatorAndGreenwich)
{
    constexpr double kBit = 1e-7;  // degrees
    const Border aBorders[]{
        {"date line", CircuitOf(20, 150, 30, 180 - kBit), CircuitOf(20, 150, 30, -180 + kBit)},
        {"Greenwich", CircuitOf(40, 20, 50, kBit), CircuitOf(40, 20, 50, -kBit)},
        {"equator", CircuitOf(30, 20, kBit, 10), CircuitOf(30, 20, -kBit, 10)},
    };
    Bench bench;
    IonosphereFill(*bench.pIono, Behaviour::Best, MapSet::Ursi, 5, 70.0);
    for (const Border& c : aBorders) {
        for (int nLabel = 1; nLabel <= 24; ++nLabel) {
            const Prediction one = bench.Run(c.one, nLabel, 10.0);
            const double dMuf = bench.pHour->dMuf;
            const Prediction other = bench.Run(c.other, nLabel, 10.0);
            EXPECT_NEAR(dMuf, bench.pHour->dMuf, 0.001) << c.sName;
            EXPECT_NEAR(one.dField, other.dField, 0.01) << c.sName << " " << nLabel;
        }
    }
}

// The same place is 180 E and 180 W: local hours, and what hangs on them, are the same.
TEST(Sanity, TheDateLineHasOneHourWrittenEastOrWest)
{
    Bench bench;
    for (const Behaviour eBehaviour : {Behaviour::Corrected, Behaviour::Best}) {
        IonosphereFill(*bench.pIono, eBehaviour, MapSet::Ursi, 12, 70.0);
        for (const auto& [east, west] :
             {std::pair{CircuitOf(20, 150, 10, 180), CircuitOf(20, 150, 10, -180)},
              std::pair{CircuitOf(58, 180, 75, 180), CircuitOf(58, -180, 75, -180)},
              std::pair{CircuitOf(-60, 180, 60, 180), CircuitOf(-60, -180, 60, -180)}}) {
            for (int nLabel = 1; nLabel <= 24; ++nLabel) {
                const Prediction one = bench.Run(east, nLabel, 7.0);
                const Prediction other = bench.Run(west, nLabel, 7.0);
                EXPECT_NEAR(one.dField, other.dField, 1e-3) << east.dTxLat << " " << nLabel;
                EXPECT_NEAR(one.dSnr, other.dSnr, 1e-3) << east.dTxLat << " " << nLabel;
            }
        }
    }
}

// Rays that must leave steeply come down again soon: however many hops a long path then has, the
// lowest order is the first whose hops are short enough, and three more follow it.
TEST(Sanity, TheHopSumHasAsManyHopsAsItsRaysNeed)
{
    std::mt19937 rng(23);
    std::uniform_real_distribution<double> draw(-1.0, 1.0);
    Bench bench;
    int nMany = 0;
    for (int i = 0; i < 240; ++i) {
        if (i % 40 == 0)
            IonosphereFill(*bench.pIono, Behaviour::Best, MapSet::Mean, 1 + i / 20, 10.0 + i / 2);
        Circuit circuit = CircuitEndAt(CircuitOf(70 * draw(rng), 180 * draw(rng), 0, 0),
                                       180 * draw(rng), 14000.0 + 5500.0 * draw(rng));
        circuit.dLeastElevation = 10.0 * (1 + i % 4);
        const Prediction prediction = bench.Run(circuit, 1 + i % 24, 7.0);
        ASSERT_TRUE(AllFinite(*bench.pHour, prediction));
        std::vector<const WayHour*> aWays{bench.pHour.get()};
        for (std::size_t n = 0; n < bench.pPath->nBent; ++n)
            aWays.push_back(&bench.pHour->aBent[n]);
        for (const WayHour* pWay : aWays) {
            const double dLongest = HopLongestGet(circuit.dLeastElevation * kRadians,
                                                  MirrorHeightSimpleGet(pWay->mid.dM3));
            const int nOrder = static_cast<int>(pWay->pWay->way.dKm / dLongest) + 1;
            ASSERT_EQ(pWay->nOrderF2, nOrder) << i;
            ASSERT_EQ(pWay->nModes, std::max(6, nOrder + 3) - nOrder + 1) << i;
            nMany += nOrder > 17 ? 1 : 0;
        }
    }
    EXPECT_GT(nMany, 100);
}

// Orders in any sequence, at several hours: each has the lowest MUF of its own hops at its own
// hour.
TEST(Sanity, AnOrdersWorstHopIsItsOwn)
{
    Bench bench;
    IonosphereFill(*bench.pIono, Behaviour::Best, MapSet::Mean, 10, 100.0);
    bench.Run(CircuitOf(50, 0, -30, 150), 12, 7.0);
    Site site;
    for (const int nHops : {5, 40, 18, 17, 99, 40, 5, 18}) {
        const double dHop = bench.pPath->way.dKm / nHops;
        for (const int nLabel : {3, 12, 24}) {
            const FoeHour foe = FoeHourGet(*bench.pIono, nLabel);
            double dWorst = 1e9;
            for (int k = 0; k < nHops; ++k) {
                SiteFill(site, WayPlace(bench.pPath->way, (k + 0.5) / nHops));
                const F2Layer layer = SiteLayerGet(*bench.pIono, foe, site, nLabel);
                dWorst = std::min(dWorst, F2MufGet(layer, dHop, layer.dRangeMost));
            }
            EXPECT_NEAR(PathWorstMufGet(*bench.pPath, foe, nLabel, nHops), dWorst, 1e-9) << nHops;
        }
    }
}

// The hop counts of a path at an hour, on all its ways.
std::vector<int> HopsOf(const Path& path, const Hour& hour)
{
    std::vector<int> aHops;
    const auto fnAdd = [&](const WayPath& way, const WayHour& wayHour) {
        aHops.push_back(wayHour.nOrderF2);
        aHops.push_back(way.longPath.nHops);
        for (int i = 0; i < wayHour.nModes; ++i)
            aHops.push_back(wayHour.aModes[static_cast<std::size_t>(i)].bReaches ? 1 : 0);
    };
    fnAdd(path, hour);
    for (std::size_t i = 0; i < path.nBent; ++i) fnAdd(path.aBent[i], hour.aBent[i]);
    return aHops;
}

// Steps over a part of forty great circles, at three frequencies. Circles are skipped on which a
// hop count changes within that part: such a step belongs to the method, at whatever distance it
// occurs. So are circles whose field at 7000 km, where the long-path rule begins, is below -100
// dB(uV/m).
std::vector<double> StepsGet(double dNearKm, double dFarKm)
{
    std::mt19937 rng(11);
    std::uniform_real_distribution<double> draw(-1.0, 1.0);
    Bench bench;
    IonosphereFill(*bench.pIono, Behaviour::Best, MapSet::Mean, 10, 100.0);
    std::vector<double> aSteps;
    int nDrawn = 0;
    while (aSteps.size() < 40 && nDrawn < 1000) {
        ++nDrawn;
        const Circuit from = CircuitOf(80 * draw(rng), 180 * draw(rng), 0, 0);
        const double dBearing = 180.0 * draw(rng);
        const Circuit near = CircuitEndAt(from, dBearing, dNearKm);
        const Circuit far = CircuitEndAt(from, dBearing, dFarKm);
        const int nLabel = 1 + static_cast<int>(aSteps.size()) % 24;
        constexpr double kFrequencies[]{7.0, 12.0, 20.0};
        const double dFrequency = kFrequencies[aSteps.size() % 3];
        const double dNear = bench.Run(near, nLabel, dFrequency).dField;
        const auto aHops = HopsOf(*bench.pPath, *bench.pHour);
        const double dFar = bench.Run(far, nLabel, dFrequency).dField;
        auto aHopsFar = HopsOf(*bench.pPath, *bench.pHour);
        if (aHops.size() < aHopsFar.size())
            aHopsFar.resize(aHops.size());  // the bent ways begin within the step
        if (aHops == aHopsFar && (dNear > -100.0 || dNearKm > kShortOnly))
            aSteps.push_back(std::abs(dFar - dNear));
    }
    EXPECT_EQ(aSteps.size(), 40u) << "too many are passed over";
    std::sort(aSteps.begin(), aSteps.end());
    return aSteps;
}

TEST(Sanity, NothingJumpsAtTheBordersOfTheLongPathRule)
{
    for (const double dKm : {kShortOnly, kLongOnly, kLongOnly + 100.0, 12000.0, 12100.0, 14000.0})
        EXPECT_LT(StepsGet(dKm - 0.25, dKm + 0.25).back(), 0.2) << dKm;
}

// Beyond each multiple of 3000 km the lower limit counts one hop more, eased in over 100 km.
TEST(Sanity, NothingJumpsWhereTheLowerLimitHasAHopMore)
{
    for (const double dKm : {15000.0, 18000.0, 21000.0, 27000.0, 30000.0, 33000.0, 39000.0}) {
        EXPECT_LT(StepsGet(dKm - 0.25, dKm + 0.25).back(), 0.2) << dKm;
        EXPECT_LT(StepsGet(dKm + 99.75, dKm + 100.25).back(), 0.2) << dKm;
    }
}

TEST(Sanity, NothingJumpsAtTheAntipode)
{
    const double dHalf = kPi * kEarthKm;
    for (const double dKm : {dHalf - 60.0, dHalf - 1.0, dHalf, dHalf + 1.0, dHalf + 60.0})
        EXPECT_LT(StepsGet(dKm - 0.25, dKm + 0.25).back(), 0.2) << dKm - dHalf;
}

// The rows of a mode that carries nothing are not written: what is left there must not count.
TEST(Sanity, WorkingMemoryMayHoldAnythingBefore)
{
    static_assert(std::is_trivially_copyable_v<PredictionWork>);
    const auto fnFill = [](PredictionWork& work, double dValue) {
        for (std::size_t n = 0; n < sizeof work; n += sizeof dValue)
            std::memcpy(reinterpret_cast<char*>(&work) + n, &dValue, sizeof dValue);
    };
    constexpr double kFrequencies[]{2.0, 3.6, 5.3, 7.0, 10.1, 14.1, 21.2};
    std::mt19937 rng(19);
    std::uniform_real_distribution<double> draw(-1.0, 1.0);
    Bench bench;
    const auto pWork = std::make_unique<PredictionWork>();
    int nIdle = 0;
    for (int i = 0; i < 300; ++i) {
        if (i % 50 == 0)
            IonosphereFill(*bench.pIono, static_cast<Behaviour>(i / 50 % 3), MapSet::Ccir,
                           1 + i / 50, 100.0);
        const double dReach = i % 2 == 0 ? 15.0 : 180.0;
        const double dLat = 60 * draw(rng), dLon = 160 * draw(rng);
        const Circuit circuit =
            CircuitOf(dLat, dLon, dLat + dReach / 6 * draw(rng), dLon + dReach / 9 * draw(rng));
        bench.Run(circuit, 1 + i % 24, 7.0);
        FrequencySet set;
        FrequencySetFill(set, *bench.pIono, circuit, kFrequencies);
        PredictionRows aRows[2];
        for (const int n : {0, 1}) {
            fnFill(*pWork, n == 0 ? 0.0 : std::nan(""));
            PredictionRowsFill(aRows[n], *pWork, *bench.pHour, set);
        }
        for (std::size_t k = 0; k < set.nCount; ++k) {
            ASSERT_EQ(aRows[0].aField[k], aRows[1].aField[k]) << i << " " << kFrequencies[k];
            ASSERT_EQ(aRows[0].aPower[k], aRows[1].aPower[k]) << i << " " << kFrequencies[k];
            ASSERT_EQ(aRows[0].aMode[k], aRows[1].aMode[k]) << i << " " << kFrequencies[k];
            for (int j = 0; j < bench.pHour->nModes; ++j)
                nIdle += pWork->aModes[0][static_cast<std::size_t>(j)].aUsed[k] == 0.0 ? 1 : 0;
        }
    }
    EXPECT_GT(nIdle, 100);
}

TEST(Sanity, FieldDoesNotDependOnWhichHoursCameBefore)
{
    Bench bench;
    IonosphereFill(*bench.pIono, Behaviour::Best, MapSet::Ccir, 7, 100.0);
    const Circuit circuit = CircuitOf(50, 0, 10, 60);
    const double dAlone = bench.Run(circuit, 17, 15.0).dField;
    Prediction prediction;
    for (int nLabel = 1; nLabel <= 17; ++nLabel) {
        HourFill(*bench.pHour, *bench.pPath, nLabel);
        for (const double dFrequency : {3.0, 30.0, 15.0})
            PredictionFill(prediction, *bench.pHour, dFrequency);
    }
    EXPECT_EQ(prediction.dField, dAlone);
}

}  // namespace
