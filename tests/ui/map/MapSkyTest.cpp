#include <gtest/gtest.h>

#include "geo/SunLib.h"
#include "ui/map/MapSky.h"

namespace {

constexpr double kDegree = 180 / kPi;

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
