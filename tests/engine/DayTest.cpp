// A path's whole day is what its hours and frequencies are one by one, on one thread or several.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include "engine/ReferenceData.h"
#include "engine/rec533/Day.h"
#include "engine/rec533/Luf.h"

namespace {

using namespace rec533;  // NOLINT(google-build-using-namespace)

// Unsorted, and more than a set holds.
constexpr std::array kMegahertz{14.1, 2.0,  30.0, 3.6,  5.35, 7.05, 10.1, 18.1, 21.2,
                                24.9, 28.3, 1.9,  12.0, 6.0,  9.0,  0.1,  45.0, 16.0};

void ExpectSame(const Prediction& tblA, const Prediction& tblB)
{
    EXPECT_EQ(tblA.nHops, tblB.nHops);
    EXPECT_EQ(tblA.bE, tblB.bE);
    EXPECT_EQ(tblA.dField, tblB.dField);
    EXPECT_EQ(tblA.dPower, tblB.dPower);
    EXPECT_EQ(tblA.dElevation, tblB.dElevation);
    EXPECT_EQ(tblA.dSnr, tblB.dSnr);
    EXPECT_EQ(tblA.dSnrUpper, tblB.dSnrUpper);
    EXPECT_EQ(tblA.dSnrLower, tblB.dSnrLower);
    EXPECT_EQ(tblA.dSnrExceeded, tblB.dSnrExceeded);
    EXPECT_EQ(tblA.dReliability, tblB.dReliability);
}

Circuit CircuitDraw(std::mt19937& rng, const Antenna& tblAntenna)
{
    std::uniform_real_distribution<double> draw(-1.0, 1.0);
    Circuit tbl = CircuitOf(90 * draw(rng), 180 * draw(rng), 90 * draw(rng), 180 * draw(rng));
    tbl.bLongWay = draw(rng) > 0.8;
    tbl.dPowerKw = std::pow(10.0, 2.0 * draw(rng));
    tbl.dLeastElevation = std::max(0.0, 10.0 * draw(rng));
    tbl.dRequiredReliability = 50.0 + 45.0 * draw(rng);
    if (draw(rng) > 0.0)
        tbl.pTx = &tblAntenna;
    if (draw(rng) > 0.0)
        tbl.pRx = &tblAntenna;
    return tbl;
}

Antenna AntennaMake()
{
    Antenna tbl;
    for (std::size_t i = 0; i < tbl.aGain.size(); ++i)
        tbl.aGain[i] = 6.0 * std::sin(static_cast<double>(i) / 9.0) - 2.0;
    return tbl;
}

class Day : public testing::TestWithParam<Behaviour> {};

TEST_P(Day, EqualsItsHoursAndFrequenciesOneByOne)
{
    const Antenna tblAntenna = AntennaMake();
    std::mt19937 rng(16);
    const auto pIono = std::make_unique<Ionosphere>();
    const auto pPath = std::make_unique<Path>();
    const auto pHour = std::make_unique<Hour>();
    const auto pWork = std::make_unique<PredictionWork>();
    DayWork tblWork;
    std::array<DayHour, 24> aHours;
    std::vector<Prediction> aCells(24 * kMegahertz.size());
    IonosphereFill(*pIono, GetParam(), MapSet::Ursi, 4, 90.0);
    for (int n = 0; n < 12; ++n) {
        const Circuit tblCircuit = CircuitDraw(rng, tblAntenna);
        const Frequencies tblFrequencies(*pIono, tblCircuit, kMegahertz);
        PredictDay(tblWork, *pIono, tblFrequencies, tblCircuit, DayParts::Page, aHours, aCells);
        for (std::size_t i = 0; i < 24; ++i) {
            PathFill(*pPath, *pIono, tblCircuit);
            HourFill(*pHour, *pPath, i == 0 ? 24 : static_cast<int>(i));
            EXPECT_EQ(aHours[i].dMuf, pHour->dMuf);
            EXPECT_EQ(aHours[i].dFot, pHour->dOperational90);
            EXPECT_EQ(aHours[i].dLuf, LufGet(*pHour, *pWork));
            Prediction tbl;
            for (std::size_t k = 0; k < kMegahertz.size(); ++k) {
                PredictionFill(tbl, *pHour, kMegahertz[k]);
                ExpectSame(aCells[i * kMegahertz.size() + k], tbl);
            }
            ASSERT_EQ(aHours[i].bAtMuf, FrequencyUsable(pHour->dMuf));
            PredictionFill(tbl, *pHour, pHour->dMuf);
            ExpectSame(aHours[i].tblAtMuf, tbl);
        }
        ASSERT_FALSE(HasFailure()) << n;
    }
}
INSTANTIATE_TEST_SUITE_P(Behaviours, Day,
                         testing::Values(Behaviour::Best, Behaviour::Corrected,
                                         Behaviour::Reference));

TEST(DayHours, OneHourAloneIsTheSame)
{
    const auto pIono = std::make_unique<Ionosphere>();
    IonosphereFill(*pIono, Behaviour::Best, MapSet::Mean, 12, 20.0);
    const Circuit tblCircuit = CircuitOf(-33.9, 151.2, 51.5, -0.1);
    const Frequencies tblFrequencies(*pIono, tblCircuit, kMegahertz);
    DayWork tblWork;
    std::array<DayHour, 24> aHours;
    std::vector<Prediction> aCells(24 * kMegahertz.size()), aHour(kMegahertz.size());
    PredictDay(tblWork, *pIono, tblFrequencies, tblCircuit, DayParts::Cells, aHours, aCells);
    for (int nHour = 0; nHour <= 24; ++nHour) {
        DayHour tblHour;
        PredictHour(tblWork, *pIono, tblFrequencies, tblCircuit, nHour, tblHour, aHour);
        const auto nAt = static_cast<std::size_t>(nHour % 24);
        EXPECT_EQ(tblHour.dMuf, aHours[nAt].dMuf);
        for (std::size_t k = 0; k < kMegahertz.size(); ++k)
            ExpectSame(aHour[k], aCells[nAt * kMegahertz.size() + k]);
    }
}

// Two threads over one month's data and frequencies, each with its own work.
TEST(DayThreads, GiveWhatOneThreadGives)
{
    constexpr std::size_t kPaths = 60;
    const Antenna tblAntenna = AntennaMake();
    const auto pIono = std::make_unique<Ionosphere>();
    IonosphereFill(*pIono, Behaviour::Best, MapSet::Ursi, 8, 130.0);
    const Frequencies tblFrequencies(*pIono, Circuit{}, kMegahertz);
    std::mt19937 rng(17);
    std::vector<Circuit> aCircuits;
    for (std::size_t i = 0; i < kPaths; ++i) aCircuits.push_back(CircuitDraw(rng, tblAntenna));
    const std::size_t nCells = 24 * kMegahertz.size();
    std::vector<Prediction> aOne(kPaths * nCells), aTwo(kPaths * nCells);
    const auto fnShare = [&](std::vector<Prediction>& aCells, std::size_t nFirst,
                             std::size_t nStep) {
        DayWork tblWork;
        std::array<DayHour, 24> aHours;
        for (std::size_t i = nFirst; i < kPaths; i += nStep)
            PredictDay(tblWork, *pIono, tblFrequencies, aCircuits[i], DayParts::Cells, aHours,
                       std::span(aCells).subspan(i * nCells, nCells));
    };
    fnShare(aOne, 0, 1);
    std::thread thr(fnShare, std::ref(aTwo), 0, 2);
    fnShare(aTwo, 1, 2);
    thr.join();
    for (std::size_t i = 0; i < aOne.size(); ++i) ExpectSame(aOne[i], aTwo[i]);
}

// What the noise of a set gives is what its parts give.
TEST(DayNoise, SnrIsThatOfTheNoiseFiguresAdded)
{
    std::mt19937 rng(18);
    const Antenna tblAntenna = AntennaMake();
    const auto pIono = std::make_unique<Ionosphere>();
    const auto pPath = std::make_unique<Path>();
    const auto pHour = std::make_unique<Hour>();
    IonosphereFill(*pIono, Behaviour::Best, MapSet::Ccir, 2, 60.0);
    for (int n = 0; n < 200; ++n) {
        const Circuit tblCircuit = CircuitDraw(rng, tblAntenna);
        const double dFrequency = kMegahertz[static_cast<std::size_t>(n) % kMegahertz.size()];
        PathFill(*pPath, *pIono, tblCircuit);
        HourFill(*pHour, *pPath, 1 + n % 24);
        Prediction tbl;
        PredictionFill(tbl, *pHour, dFrequency);
        const Noise aNoise[]{
            NoiseAtmosphericGet(*pIono, pPath->tblNoise, pHour->nLabel, dFrequency),
            NoiseManMadeGet(tblCircuit.eNoise, tblCircuit.dNoiseLevel, dFrequency, false),
            NoiseGalacticGet(dFrequency)};
        double dSum = 0.0, dLow = 0.0, dHigh = 0.0;
        for (const Noise& c : aNoise) {
            dSum += std::pow(10.0, c.dFa / 10.0);
            dLow += std::pow(10.0, (c.dFa - c.dLower) / 10.0);
            dHigh += std::pow(10.0, (c.dFa + c.dUpper) / 10.0);
        }
        const SignalDeciles tblSignal =
            SignalDecilesGet(dFrequency / pHour->dMuf, pPath->bHighLatitude);
        EXPECT_NEAR(tbl.dSnr, tbl.dPower - 10.0 * std::log10(dSum) + 204.0, 1e-9);
        EXPECT_NEAR(
            tbl.dSnrUpper,
            std::sqrt(Square(10.0 * std::log10(dSum / dLow)) + Square(tblSignal.dUpper) + 25.0),
            1e-9);
        EXPECT_NEAR(
            tbl.dSnrLower,
            std::sqrt(Square(10.0 * std::log10(dHigh / dSum)) + Square(tblSignal.dLower) + 64.0),
            1e-9);
    }
}

TEST(DayWorks, PathStaysThatOfItsCircuit)
{
    const auto pIono = std::make_unique<Ionosphere>();
    IonosphereFill(*pIono, Behaviour::Best, MapSet::Mean, 4, 90.0);
    DayWork tblWork;
    DayHour tblHour;
    std::array<Prediction, 1> aCells;
    const auto fnPredict = [&](const Circuit& tbl) {
        const Frequencies tblFrequencies(*pIono, tbl, std::array{14.1});
        PredictHour(tblWork, *pIono, tblFrequencies, tbl, 12, tblHour, aCells);
    };
    fnPredict(CircuitOf(50.0, 0.0, 40.0, 10.0));
    const auto& tblFirst = tblWork.PathGet();
    const double dKm = tblFirst.tblWay.dKm;
    fnPredict(CircuitOf(50.0, 0.0, -40.0, 100.0));
    EXPECT_EQ(tblFirst.tblWay.dKm, dKm);
    EXPECT_EQ(tblFirst.tblCircuit.dRxLat, 40.0);
    EXPECT_GT(tblWork.PathGet().tblWay.dKm, dKm);
}

}  // namespace
