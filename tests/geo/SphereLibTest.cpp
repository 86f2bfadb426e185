#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "geo/SphereLib.h"

namespace {

constexpr double kNoise = 1e-12;

TEST(SphereLib, PathRunsAlongTheGreatCircle)
{
    // San Francisco to Tokyo passes near the Aleutians; spherical trigonometry gives the
    // northernmost point of the great circle by cos(lat) = sin(azimuth) * cos(lat0).
    const LatLon from{37.62, -122.38};
    const LatLon to{35.77, 140.38};
    const std::vector<LatLon> aPoints = PathGetPoints(from, to);
    ASSERT_GT(aPoints.size(), 100u);
    EXPECT_NEAR(aPoints.front().dLat, from.dLat, 1e-9);
    EXPECT_NEAR(aPoints.back().dLon, to.dLon, 1e-9);
    double dHighest = 0;
    double dLength = 0;
    for (std::size_t i = 0; i < aPoints.size(); ++i) {
        dHighest = std::max(dHighest, aPoints[i].dLat);
        if (i > 0)
            dLength += GreatCircleAngle(aPoints[i - 1].dLat, aPoints[i - 1].dLon, aPoints[i].dLat,
                                        aPoints[i].dLon);
    }
    EXPECT_NEAR(dHighest, 48.45, 0.01);
    EXPECT_NEAR(dLength, GreatCircleAngle(from.dLat, from.dLon, to.dLat, to.dLon), 1e-9);
}

TEST(SphereLib, NoPathBetweenOnePointAndBetweenAntipodes)
{
    EXPECT_TRUE(PathGetPoints({10, 20}, {10, 20}).empty());
    EXPECT_TRUE(PathGetPoints({0, 0}, {0, 180}).empty());
}

TEST(SphereLib, PathHasAPointAtLeastEveryHalfDegree)
{
    const std::vector<LatLon> aPoints = PathGetPoints({0, 179}, {0, -179.75});
    ASSERT_EQ(aPoints.size(), 4u);  // 1.25 degrees in three steps
    EXPECT_NEAR(aPoints[1].dLon, 179 + 1.25 / 3, kNoise * 1000);
    EXPECT_NEAR(aPoints[3].dLon, -179.75, kNoise * 1000);
}

TEST(SphereLib, VectorsAndPositionsAreEachOthersInverse)
{
    for (const LatLon pos : {LatLon{0, 0}, LatLon{38.5, -122.25}, LatLon{-89, 179.5}}) {
        const Vector3 vec = VectorFrom(pos);
        EXPECT_NEAR(std::hypot(vec.dX, vec.dY, vec.dZ), 1.0, kNoise);
        const LatLon posBack = PositionOf(Mix(vec, 3.0, vec, -1.0));  // length does not matter
        EXPECT_NEAR(posBack.dLat, pos.dLat, 1e-9);
        EXPECT_NEAR(posBack.dLon, pos.dLon, 1e-9);
    }
    EXPECT_NEAR(VectorFrom({0, 90}).dY, 1.0, kNoise);
    EXPECT_NEAR(VectorFrom({90, 0}).dZ, 1.0, kNoise);
}

TEST(SphereLib, LongitudesAreTurnedIntoHalfOpenCircles)
{
    struct {
        double dLon, dWrapped, dTurns;
    } constexpr kCases[] = {{0, 0, 0},        {180, 180, 360},   {-180, 180, 0},
                            {181, -179, 360}, {-181, 179, -360}, {359.5, -0.5, 360},
                            {540, 180, 720},  {-540, 180, -360}, {-179.5, -179.5, 0},
                            {720, 0, 720},    {-725, -5, -720}};
    for (const auto& c : kCases) {
        EXPECT_DOUBLE_EQ(LonWrap(c.dLon), c.dWrapped) << c.dLon;
        EXPECT_DOUBLE_EQ(LonTurns(c.dLon), c.dTurns) << c.dLon;
    }
    EXPECT_TRUE(std::isnan(LonWrap(std::numeric_limits<double>::quiet_NaN())));
}

TEST(SphereLib, LongitudesAreApartTheShortWay)
{
    EXPECT_DOUBLE_EQ(LonApart(170, -170), 20);
    EXPECT_DOUBLE_EQ(LonApart(-170, 170), -20);
    EXPECT_DOUBLE_EQ(LonApart(10, 350), -20);
    EXPECT_DOUBLE_EQ(LonApart(5, 12.5), 7.5);
    EXPECT_DOUBLE_EQ(std::abs(LonApart(0, 180)), 180);
}

}  // namespace
