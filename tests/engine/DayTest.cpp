// A path's whole day equals its hours and frequencies computed one by one, on one thread or
// several.

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

// Unsorted, and more than one set holds.
constexpr std::array kMegahertz{14.1, 2.0,  30.0, 3.6,  5.35, 7.05, 10.1, 18.1, 21.2,
                                24.9, 28.3, 1.9,  12.0, 6.0,  9.0,  0.1,  45.0, 16.0};

void ExpectSame(const Prediction& one, const Prediction& other)
{
    EXPECT_EQ(one.nHops, other.nHops);
    EXPECT_EQ(one.bE, other.bE);
    EXPECT_EQ(one.dField, other.dField);
    EXPECT_EQ(one.dPower, other.dPower);
    EXPECT_EQ(one.dElevation, other.dElevation);
    EXPECT_EQ(one.dSnr, other.dSnr);
    EXPECT_EQ(one.dSnrUpper, other.dSnrUpper);
    EXPECT_EQ(one.dSnrLower, other.dSnrLower);
    EXPECT_EQ(one.dSnrExceeded, other.dSnrExceeded);
    EXPECT_EQ(one.dReliability, other.dReliability);
}

Circuit CircuitDraw(std::mt19937& rng, const Antenna& antenna)
{
    std::uniform_real_distribution<double> draw(-1.0, 1.0);
    Circuit circuit = CircuitOf(90 * draw(rng), 180 * draw(rng), 90 * draw(rng), 180 * draw(rng));
    circuit.bLongWay = draw(rng) > 0.8;
    circuit.dPowerKw = std::pow(10.0, 2.0 * draw(rng));
    circuit.dLeastElevation = std::max(0.0, 10.0 * draw(rng));
    circuit.dRequiredReliability = 50.0 + 45.0 * draw(rng);
    if (draw(rng) > 0.0)
        circuit.pTx = &antenna;
    if (draw(rng) > 0.0)
        circuit.pRx = &antenna;
    return circuit;
}

Antenna AntennaMake()
{
    Antenna antenna;
    for (std::size_t i = 0; i < antenna.aGain.size(); ++i)
        antenna.aGain[i] = 6.0 * std::sin(static_cast<double>(i) / 9.0) - 2.0;
    return antenna;
}

class Day : public testing::TestWithParam<Behaviour> {};

TEST_P(Day, EqualsItsHoursAndFrequenciesOneByOne)
{
    const Antenna antenna = AntennaMake();
    std::mt19937 rng(16);
    const auto pIono = std::make_unique<Ionosphere>();
    const auto pPath = std::make_unique<Path>();
    const auto pHour = std::make_unique<Hour>();
    const auto pWork = std::make_unique<PredictionWork>();
    DayWork work;
    std::array<DayHour, 24> aHours;
    std::vector<Prediction> aCells(24 * kMegahertz.size());
    IonosphereFill(*pIono, GetParam(), MapSet::Ursi, 4, 90.0);
    for (int n = 0; n < 12; ++n) {
        const Circuit circuit = CircuitDraw(rng, antenna);
        const Frequencies frequencies(*pIono, circuit, kMegahertz);
        PredictDay(work, *pIono, frequencies, circuit, DayParts::Page, aHours, aCells);
        for (std::size_t i = 0; i < 24; ++i) {
            PathFill(*pPath, *pIono, circuit);
            HourFill(*pHour, *pPath, i == 0 ? 24 : static_cast<int>(i));
            EXPECT_EQ(aHours[i].dMuf, pHour->dMuf);
            EXPECT_EQ(aHours[i].dFot, pHour->dOperational90);
            EXPECT_EQ(aHours[i].dLuf, LufGet(*pHour, *pWork));
            Prediction prediction;
            for (std::size_t k = 0; k < kMegahertz.size(); ++k) {
                PredictionFill(prediction, *pHour, kMegahertz[k]);
                ExpectSame(aCells[i * kMegahertz.size() + k], prediction);
            }
            ASSERT_EQ(aHours[i].bAtMuf, FrequencyUsable(pHour->dMuf));
            PredictionFill(prediction, *pHour, pHour->dMuf);
            ExpectSame(aHours[i].atMuf, prediction);
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
    const Circuit circuit = CircuitOf(-33.9, 151.2, 51.5, -0.1);
    const Frequencies frequencies(*pIono, circuit, kMegahertz);
    DayWork work;
    std::array<DayHour, 24> aHours;
    std::vector<Prediction> aCells(24 * kMegahertz.size()), aHour(kMegahertz.size());
    PredictDay(work, *pIono, frequencies, circuit, DayParts::Cells, aHours, aCells);
    for (int nHour = 0; nHour <= 24; ++nHour) {
        DayHour hour;
        PredictHour(work, *pIono, frequencies, circuit, nHour, hour, aHour);
        const auto nAt = static_cast<std::size_t>(nHour % 24);
        EXPECT_EQ(hour.dMuf, aHours[nAt].dMuf);
        for (std::size_t k = 0; k < kMegahertz.size(); ++k)
            ExpectSame(aHour[k], aCells[nAt * kMegahertz.size() + k]);
    }
}

// Two threads share one month's data and frequencies; each has its own DayWork.
TEST(DayThreads, GiveWhatOneThreadGives)
{
    constexpr std::size_t kPaths = 60;
    const Antenna antenna = AntennaMake();
    const auto pIono = std::make_unique<Ionosphere>();
    IonosphereFill(*pIono, Behaviour::Best, MapSet::Ursi, 8, 130.0);
    const Frequencies frequencies(*pIono, Circuit{}, kMegahertz);
    std::mt19937 rng(17);
    std::vector<Circuit> aCircuits;
    for (std::size_t i = 0; i < kPaths; ++i) aCircuits.push_back(CircuitDraw(rng, antenna));
    const std::size_t nCells = 24 * kMegahertz.size();
    std::vector<Prediction> aOne(kPaths * nCells), aTwo(kPaths * nCells);
    const auto fnShare = [&](std::vector<Prediction>& aCells, std::size_t nFirst,
                             std::size_t nStep) {
        DayWork work;
        std::array<DayHour, 24> aHours;
        for (std::size_t i = nFirst; i < kPaths; i += nStep)
            PredictDay(work, *pIono, frequencies, aCircuits[i], DayParts::Cells, aHours,
                       std::span(aCells).subspan(i * nCells, nCells));
    };
    fnShare(aOne, 0, 1);
    std::thread thr(fnShare, std::ref(aTwo), 0, 2);
    fnShare(aTwo, 1, 2);
    thr.join();
    for (std::size_t i = 0; i < aOne.size(); ++i) ExpectSame(aOne[i], aTwo[i]);
}

// A processor without AVX2 adds two numbers at a time, and must print the same.
TEST(DayLanes, TwoNumbersAtOnceGiveTheDigitsOfFour)
{
    struct Narrow {
        Narrow() { LanesNarrowGet() = true; }
        ~Narrow() { LanesNarrowGet() = false; }
    };
    const Antenna antenna = AntennaMake();
    const auto pIono = std::make_unique<Ionosphere>();
    std::mt19937 rng(20);
    DayWork work;
    std::array<DayHour, 24> aWide, aNarrow;
    std::vector<Prediction> aCellsWide(24 * kMegahertz.size()), aCellsNarrow(aCellsWide.size());
    for (int n = 0; n < 24; ++n) {
        IonosphereFill(*pIono, static_cast<Behaviour>(n % 3), MapSet::Mean, 1 + n % 12, 8.0 * n);
        const Circuit circuit = CircuitDraw(rng, antenna);
        const Frequencies frequencies(*pIono, circuit, kMegahertz);
        PredictDay(work, *pIono, frequencies, circuit, DayParts::Page, aWide, aCellsWide);
        {
            const Narrow narrow;
            PredictDay(work, *pIono, frequencies, circuit, DayParts::Page, aNarrow, aCellsNarrow);
        }
        for (std::size_t i = 0; i < 24; ++i) {
            EXPECT_EQ(aWide[i].dMuf, aNarrow[i].dMuf);
            EXPECT_EQ(aWide[i].dLuf, aNarrow[i].dLuf);
            EXPECT_EQ(aWide[i].dFot, aNarrow[i].dFot);
        }
        for (std::size_t i = 0; i < aCellsWide.size(); ++i)
            ExpectSame(aCellsWide[i], aCellsNarrow[i]);
        ASSERT_FALSE(HasFailure()) << n;
    }
}

// The noise of a set equals the sum of its parts.
TEST(DayNoise, SnrIsThatOfTheNoiseFiguresAdded)
{
    std::mt19937 rng(18);
    const Antenna antenna = AntennaMake();
    const auto pIono = std::make_unique<Ionosphere>();
    const auto pPath = std::make_unique<Path>();
    const auto pHour = std::make_unique<Hour>();
    IonosphereFill(*pIono, Behaviour::Best, MapSet::Ccir, 2, 60.0);
    for (int n = 0; n < 200; ++n) {
        const Circuit circuit = CircuitDraw(rng, antenna);
        const double dFrequency = kMegahertz[static_cast<std::size_t>(n) % kMegahertz.size()];
        PathFill(*pPath, *pIono, circuit);
        HourFill(*pHour, *pPath, 1 + n % 24);
        Prediction prediction;
        PredictionFill(prediction, *pHour, dFrequency);
        const Noise aNoise[]{
            NoiseAtmosphericGet(*pIono, pPath->noise, pHour->nLabel, dFrequency),
            NoiseManMadeGet(circuit.eNoise, circuit.dNoiseLevel, dFrequency, false),
            NoiseGalacticGet(dFrequency)};
        double dSum = 0.0, dLow = 0.0, dHigh = 0.0;
        for (const Noise& c : aNoise) {
            dSum += std::pow(10.0, c.dFa / 10.0);
            dLow += std::pow(10.0, (c.dFa - c.dLower) / 10.0);
            dHigh += std::pow(10.0, (c.dFa + c.dUpper) / 10.0);
        }
        const SignalDeciles signal =
            SignalDecilesGet(dFrequency / pHour->dMuf, pPath->bHighLatitude);
        EXPECT_NEAR(prediction.dSnr, prediction.dPower - 10.0 * std::log10(dSum) + 204.0, 1e-9);
        EXPECT_NEAR(
            prediction.dSnrUpper,
            std::sqrt(Square(10.0 * std::log10(dSum / dLow)) + Square(signal.dUpper) + 25.0), 1e-9);
        EXPECT_NEAR(
            prediction.dSnrLower,
            std::sqrt(Square(10.0 * std::log10(dHigh / dSum)) + Square(signal.dLower) + 64.0),
            1e-9);
    }
}

TEST(DayWorks, PathStaysThatOfItsCircuit)
{
    const auto pIono = std::make_unique<Ionosphere>();
    IonosphereFill(*pIono, Behaviour::Best, MapSet::Mean, 4, 90.0);
    DayWork work;
    DayHour hour;
    std::array<Prediction, 1> aCells;
    const auto fnPredict = [&](const Circuit& circuit) {
        const Frequencies frequencies(*pIono, circuit, std::array{14.1});
        PredictHour(work, *pIono, frequencies, circuit, 12, hour, aCells);
    };
    fnPredict(CircuitOf(50.0, 0.0, 40.0, 10.0));
    const auto& first = work.PathGet();
    const double dKm = first.way.dKm;
    fnPredict(CircuitOf(50.0, 0.0, -40.0, 100.0));
    EXPECT_EQ(first.way.dKm, dKm);
    EXPECT_EQ(first.circuit.dRxLat, 40.0);
    EXPECT_GT(work.PathGet().way.dKm, dKm);
}

}  // namespace
