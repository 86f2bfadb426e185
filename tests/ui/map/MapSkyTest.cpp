#include <gtest/gtest.h>

#include "geo/MathLib.h"
#include "ui/map/MapSky.h"

namespace {

constexpr double kDegree = 180 / kPi;

TEST(MapSky, PathRunsAlongTheGreatCircle)
{
    // San Francisco to Tokyo passes near the Aleutians: great-circle vertex by spherical
    // trigonometry cos(lat) = sin(azimuth) * cos(lat0).
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

TEST(MapSky, NoPathBetweenOnePointAndBetweenAntipodes)
{
    EXPECT_TRUE(PathGetPoints({10, 20}, {10, 20}).empty());
    EXPECT_TRUE(PathGetPoints({0, 0}, {0, 180}).empty());
}

TEST(MapSky, SunStandsWhereTheAlmanacPutsIt)
{
    // Mid-month declinations by the almanac, degrees.
    constexpr double kDeclinations[] = {-21.2, -12.8, -2.3, 9.6,  18.8,  23.3,
                                        21.6,  14.1,  3.2,  -8.4, -18.4, -23.2};
    for (int nMonth = 1; nMonth <= 12; ++nMonth)
        EXPECT_NEAR(SunGetPosition(nMonth, 12).dLat, kDeclinations[nMonth - 1], 0.5) << nMonth;
    // The almanac's equation of time: +14.2 minutes in mid-February, -16 at the end of October.
    EXPECT_NEAR(SunGetPosition(2, 12).dLon, 14.2 / 4, 0.5);
    EXPECT_NEAR(SunGetPosition(11, 12).dLon, -15.4 / 4, 0.5);
    EXPECT_NEAR(SunGetPosition(6, 18).dLon, -90, 0.5);
}

TEST(MapSky, MonthOutOfRangeIsNoCrash)
{
    EXPECT_EQ(SunGetPosition(13, 6).dLat, SunGetPosition(1, 6).dLat);
    EXPECT_EQ(SunGetPosition(0, 6).dLat, SunGetPosition(1, 6).dLat);
}

TEST(MapSky, NightLineIsAQuarterCircleFromTheSun)
{
    const LatLon sun = SunGetPosition(7, 3);
    for (const LatLon& pos : NightGetLine(sun))
        EXPECT_NEAR(GreatCircleAngle(sun.dLat, sun.dLon, pos.dLat, pos.dLon) * kDegree, 90, 1e-6);
}

TEST(MapSky, StrokesPointIntoTheNight)
{
    const LatLon sun = SunGetPosition(1, 15);
    const std::vector<LatLon> aStrokes = NightGetStrokes(sun);
    ASSERT_EQ(aStrokes.size() % 2, 0u);
    for (std::size_t i = 1; i < aStrokes.size(); i += 2)
        EXPECT_GT(
            GreatCircleAngle(sun.dLat, sun.dLon, aStrokes[i].dLat, aStrokes[i].dLon) * kDegree, 91);
}

TEST(MapSky, LinesBreakAtLongitudeZero)
{
    MapView view;
    view.m_nMapWidth = 360;
    view.m_nMapHeight = 338;
    view.ZoomSet(view.BoxGetZoom({90, 0, -90, 360}));
    const std::vector<QPolygonF> aLines = LinesGetPixels(view, PathGetPoints({40, -20}, {40, 20}));
    ASSERT_EQ(aLines.size(), 2u);
    for (const QPolygonF& lin : aLines) EXPECT_LT(lin.boundingRect().width(), 25);
    EXPECT_EQ(LinesGetPixels(view, PathGetPoints({40, 160}, {40, -160})).size(), 1u);
    // Both pieces reach over the edge, so that nothing is missing there.
    EXPECT_GT(aLines[0].boundingRect().right(), view.LonGetX(360) - 0.01);
    EXPECT_LT(aLines[1].boundingRect().left(), view.LonGetX(0) + 0.01);
}

TEST(MapSky, PathOverGreenwichIsWholeWhereTheWorldBeginsAt180)
{
    MapView view;
    view.m_nMapWidth = 360;
    view.m_nMapHeight = 338;
    view.m_dEdge = kEdgeDateLine;
    view.ZoomSet(view.BoxGetZoom(view.BoxGetWhole()));
    EXPECT_EQ(LinesGetPixels(view, PathGetPoints({40, -20}, {40, 20})).size(), 1u);
    EXPECT_EQ(LinesGetPixels(view, PathGetPoints({40, 160}, {40, -160})).size(), 2u);
}

}  // namespace
