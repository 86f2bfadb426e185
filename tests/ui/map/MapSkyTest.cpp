#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <set>
#include <utility>

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

TEST(MapSky, DarknessStepsAtTheHorizonAndTheEndsOfTheTwilights)
{
    const std::pair<double, int> aSteps[] = {{90, 0},     {0.01, 0},   {-0.01, 1},  {-5.99, 1},
                                             {-6.01, 2},  {-11.99, 2}, {-12.01, 3}, {-17.99, 3},
                                             {-18.01, 4}, {-90, 4}};
    for (const auto& [dAltitude, nDarkness] : aSteps)
        EXPECT_EQ(DarknessGet(std::sin(dAltitude / kDegree)), nDarkness) << dAltitude;
}

TEST(MapSky, ShadeOfEachPixelIsThatOfItsPlace)
{
    for (const double dEdge : {kEdgeGreenwich, kEdgeDateLine}) {
        MapView view;
        view.m_dEdge = dEdge;
        view.m_nMapWidth = 400;
        view.m_nMapHeight = 300;  // wider than the image: blank strips on both sides
        view.ZoomSet(view.BoxGetZoom(view.BoxGetWhole()));
        const LatLon sun = SunGetPosition(11, 6);
        const QImage img = NightGetShade(view, sun);
        ASSERT_EQ(img.size(), QSize(400, 300));
        const QRect rct = view.ImageGetRect();
        std::array<std::set<int>, 5> aAlpha;  // for each darkness
        for (int nY = 0; nY < 300; nY += 3)
            for (int nX = 0; nX < 400; nX += 3) {
                const int nAlpha = qAlpha(img.pixel(nX, nY));
                if (!rct.contains(nX, nY)) {
                    EXPECT_EQ(nAlpha, 0) << "beside the world";
                    continue;
                }
                const LatLon pos = view.PointGetLatLon(MapControl::Map, nX + 0.5, nY + 0.5);
                const double dAltitude =
                    90 - GreatCircleAngle(sun.dLat, sun.dLon, pos.dLat, pos.dLon) * kDegree;
                if (std::abs(dAltitude / 6 - std::round(dAltitude / 6)) < 1e-4)
                    continue;  // exactly at a limit
                const int nDarkness = dAltitude > 0     ? 0
                                      : dAltitude > -6  ? 1
                                      : dAltitude > -12 ? 2
                                      : dAltitude > -18 ? 3
                                                        : 4;
                aAlpha[static_cast<std::size_t>(nDarkness)].insert(nAlpha);
            }
        for (std::size_t n = 0; n < aAlpha.size(); ++n) {
            ASSERT_EQ(aAlpha[n].size(), 1u) << n;
            const int nBefore = n > 0 ? *aAlpha[n - 1].begin() : -1;
            EXPECT_GT(*aAlpha[n].begin(), nBefore) << "darker with each step";
        }
        EXPECT_EQ(*aAlpha[0].begin(), 0) << "nothing by day";
        EXPECT_LT(*aAlpha[4].begin(), 128) << "what lies below can be read";
    }
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
    // Both pieces reach beyond the edge, so that nothing is missing there.
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
