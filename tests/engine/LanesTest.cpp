// Functions of several numbers at once compared with those of one.

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>

#include "engine/ReferenceData.h"

namespace {

using namespace rec533;  // NOLINT(google-build-using-namespace)

TEST(Lanes, LogarithmAndExponentialAreThoseOfOneNumber)
{
    std::mt19937 rng(2);
    std::uniform_real_distribution<double> draw(-690.0, 690.0);
    for (int i = 0; i < 20000; ++i) {
        const double dX = draw(rng);
        const double dNear = 1.0 + dX / 1e4;
        const Lanes4 vPower = LaneExp<Lanes4>(Lanes4{dX, dX / 100.0, 0.0, -dX});
        EXPECT_NEAR(vPower[0] / std::exp(dX), 1.0, 5e-16);
        EXPECT_NEAR(vPower[1] / std::exp(dX / 100.0), 1.0, 5e-16);
        EXPECT_EQ(vPower[2], 1.0);
        EXPECT_NEAR(vPower[3] / std::exp(-dX), 1.0, 5e-16);
        const Lanes2 vLog = LaneLog<Lanes2>(Lanes2{vPower[0], dNear});
        EXPECT_NEAR(vLog[0], dX, 1e-15 + 4e-16 * std::abs(dX));
        EXPECT_NEAR(vLog[1], std::log(dNear), 4e-16 * std::abs(std::log(dNear)));
    }
    EXPECT_EQ(LaneLog<Lanes2>(Lanes2{1.0, 1.0})[0], 0.0);
}

TEST(Lanes, SineIsThatOfOneNumber)
{
    for (double dX = -2.0; dX <= 2.0; dX += 1.0 / 512.0)
        EXPECT_NEAR(LaneSin<Lanes4>(Lanes4{dX, 0.0, 1.0, -dX})[0], std::sin(dX), 5e-16) << dX;
    EXPECT_EQ(LaneSin<Lanes2>(Lanes2{0.0, 1.0})[0], 0.0);
}

TEST(Lanes, ExponentialStaysANumberFarOut)
{
    const Lanes4 v = LaneExp<Lanes4>(Lanes4{-1e300, -5000.0, 5000.0, 1e300});
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(std::isfinite(v[i]));
        EXPECT_GT(v[i], 0.0);
    }
    EXPECT_LT(v[0], 1e-300);
    EXPECT_GT(v[3], 1e300);
}

TEST(Lanes, AnyLaneCounts)
{
    const Lanes4 v{1.0, 2.0, 3.0, 4.0};
    EXPECT_TRUE(LaneAny(v > 3.5));
    EXPECT_FALSE(LaneAny(v > 4.5));
    EXPECT_EQ(LaneSelect(v > 2.5, v, -v)[1], -2.0);
    EXPECT_EQ(LaneSelect(v > 2.5, v, -v)[2], 3.0);
}

// The shortcut for deep night must not change the result. It is not taken when the floor is next to
// 0.
TEST(Foe, DeepNightHasTheFloorThatTheWholeFormulaGives)
{
    std::mt19937 rng(3);
    std::uniform_real_distribution<double> draw(-1.0, 1.0);
    const auto pIono = std::make_unique<Ionosphere>();
    int nFloor = 0;
    for (int nMonth = 1; nMonth <= 12; ++nMonth) {
        for (const Behaviour eBehaviour : {Behaviour::Best, Behaviour::Reference}) {
            IonosphereFill(*pIono, eBehaviour, MapSet::Ccir, nMonth, 100.0 + 100.0 * draw(rng));
            for (int i = 0; i < 2000; ++i) {
                const Place place = PlaceFromDegrees(90.0 * draw(rng), 180.0 * draw(rng));
                const FoeHour hour = FoeHourGet(*pIono, 1 + i % 24);
                FoeHour whole = hour;
                whole.dFloor = 1e-300;
                const double dCos = SunZenithCosGet(*hour.pSun, place);
                const double dFloor = std::sqrt(std::sqrt(hour.dFloor));
                const double dFoe = FoeGet(hour, place, dCos);
                EXPECT_EQ(dFoe, std::max(FoeGet(whole, place, dCos), dFloor))
                    << place.dLat << " " << dCos;
                nFloor += dFoe == dFloor ? 1 : 0;
            }
        }
    }
    EXPECT_GT(nFloor, 5000);
}

}  // namespace
