#include <gtest/gtest.h>

#include "ui/map/MapScaleBar.h"

namespace {

MapView ViewMake(double dLat, double dScale)
{
    MapView view;
    view.m_nMapWidth = 1000;
    view.m_nMapHeight = 600;
    view.ZoomSet({dScale, dLat, 200});
    return view;
}

TEST(MapScaleBar, IsAsLongAsItsDistanceOnTheMiddleParallel)
{
    // A pixel is 0.5 image pixels or 0.0005 degrees: 0.03 nautical miles on the equator, half of
    // that at 60.
    const auto bar = ScaleBarGet(ViewMake(0, 0.5));
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->dMiles, 5);
    EXPECT_NEAR(bar->dPixels, 5 / 0.03, 0.5);
    EXPECT_EQ(bar->sLabel, QStringLiteral("5 nmi"));
    const auto barNorth = ScaleBarGet(ViewMake(60, 0.5));
    ASSERT_TRUE(barNorth);
    EXPECT_EQ(barNorth->dMiles, 2);
    EXPECT_NEAR(barNorth->dPixels, 2 / 0.015, 0.5);
}

TEST(MapScaleBar, IsRoundAndAQuarterOfThePictureAtMost)
{
    for (double dScale = kScaleMin; dScale < 0.99; dScale += 0.01)
        for (const double dLat : {0.0, 47.0, -82.0}) {
            const auto bar = ScaleBarGet(ViewMake(dLat, dScale));
            ASSERT_TRUE(bar);
            EXPECT_LE(bar->dPixels, 250.01);
            EXPECT_GT(bar->dPixels, 90);
        }
    EXPECT_EQ(ScaleBarGet(ViewMake(60, kScaleMin))->sLabel, QStringLiteral("0.5 nmi"));
}

TEST(MapScaleBar, StandsOnlyWhereTheLargerSpanIsBelowOneDegree)
{
    EXPECT_TRUE(ScaleBarGet(ViewMake(0, 0.99)));
    EXPECT_FALSE(ScaleBarGet(ViewMake(0, 1.01)));
    EXPECT_FALSE(ScaleBarGet(ViewMake(0, 300)));
}

}  // namespace
