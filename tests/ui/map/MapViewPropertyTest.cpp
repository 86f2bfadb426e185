/// What holds for every view: the conversions between latitudes and ordinates, between pixels and
/// positions, and between a box and its zoom are inverses of each other.
#include <gtest/gtest.h>

#include <cmath>

#include "support/PropertyRandom.h"
#include "ui/map/MapView.h"

namespace {

constexpr int kCases = 30000;
constexpr double kImageLat = 84.0;  // degrees, within the image

/// A view of a random box: any place and size, on pictures of any shape.
MapView ViewRandom(PropertyRandom& random)
{
    MapView view;
    view.m_nMapWidth = random.Whole(1, 4000);
    view.m_nMapHeight = random.Whole(1, 3000);
    const double dLatHalf = random.Real(0.0, kImageLat);
    const double dLonHalf = random.Real(0.0, 190.0) * std::pow(10.0, random.Whole(-4, 0));
    const double dLat = random.Real(-kImageLat, kImageLat);
    const double dLon = random.Real(-180.0, 360.0);
    view.ZoomSet(
        view.BoxGetZoom({dLat + dLatHalf, dLon - dLonHalf, dLat - dLatHalf, dLon + dLonHalf}));
    return view;
}

TEST(MapViewProperty, LatitudesComeBackFromTheirOrdinates)
{
    PropertyRandom random;
    const MapView view;
    for (int i = 0; i < kCases && !HasFailure(); ++i) {
        const PropertyCase place(i);
        const double dLat = random.Number(kImageLat);
        EXPECT_NEAR(view.OrdinateGetLat(view.LatGetOrdinate(dLat)), dLat, 1e-9);
        EXPECT_NEAR(view.LatGetOrdinate(-dLat), -view.LatGetOrdinate(dLat), 1e-9);
        const double dOrdinate = random.Number(500.0);
        EXPECT_NEAR(view.LatGetOrdinate(view.OrdinateGetLat(dOrdinate)), dOrdinate, 1e-9);
    }
}

TEST(MapViewProperty, PixelsComeBackFromTheirPositions)
{
    PropertyRandom random;
    int nCompared = 0;
    for (int i = 0; i < kCases && !HasFailure(); ++i) {
        const PropertyCase place(i);
        const MapView view = ViewRandom(random);
        const int nX = random.Whole(0, view.m_nMapWidth);
        const int nY = random.Whole(0, view.m_nMapHeight);
        const LatLon pos = view.PointGetLatLon(MapControl::Map, nX, nY);
        EXPECT_GT(pos.dLon, -180.0);
        EXPECT_LE(pos.dLon, 180.0);
        const double dOnImage = pos.dLon < 0 ? pos.dLon + 360.0 : pos.dLon;
        EXPECT_NEAR(view.LatGetY(pos.dLat), nY, 1e-4);
        const QPoint pt = view.LatLonGetPoint(pos.dLat, pos.dLon);
        EXPECT_EQ(pt.y(), nY);
        if (dOnImage < view.m_box.dLeft || dOnImage > view.m_box.dRight)
            continue;  // a view wider than the image shows the place twice, or beside the image
        // The seam: longitude 0 is always the left end of the image.
        if (std::abs(std::remainder(pos.dLon, 360.0)) < 1e-9)
            continue;
        if (view.m_box.dRight - view.m_box.dLeft > 360.0)
            continue;
        ++nCompared;
        EXPECT_NEAR(view.LonGetX(dOnImage), nX, 1e-4);
        EXPECT_EQ(pt.x(), nX);
    }
    EXPECT_GT(nCompared, kCases / 4);
}

TEST(MapViewProperty, TheViewIsShownAgainFromItsScaleAndCentre)
{
    PropertyRandom random;
    for (int i = 0; i < kCases && !HasFailure(); ++i) {
        const PropertyCase place(i);
        const MapView view = ViewRandom(random);
        MapView viewAgain = view;
        const LatLon center = view.CenterGet();
        viewAgain.ZoomSet({view.m_dScale, center.dLat, center.dLon});
        EXPECT_EQ(viewAgain.m_rctSource, view.m_rctSource);
        EXPECT_EQ(viewAgain.m_dScale, view.m_dScale);
        EXPECT_EQ(viewAgain.m_box.dTop, view.m_box.dTop);
        EXPECT_EQ(viewAgain.m_box.dLeft, view.m_box.dLeft);
        EXPECT_EQ(viewAgain.m_box.dBottom, view.m_box.dBottom);
        EXPECT_EQ(viewAgain.m_box.dRight, view.m_box.dRight);
    }
}

TEST(MapViewProperty, AnyBoxBecomesOneThatCanBeShown)
{
    PropertyRandom random;
    for (int i = 0; i < kCases && !HasFailure(); ++i) {
        const PropertyCase place(i);
        const MapBox box = BoxPutInOrder({random.Number(120.0), random.Number(360.0),
                                          random.Number(120.0), random.Number(360.0)});
        EXPECT_GT(box.dTop, box.dBottom);
        EXPECT_GT(box.dRight, box.dLeft);
        EXPECT_LE(box.dRight - box.dLeft, 360.0);
        MapView view;
        view.m_nMapWidth = random.Whole(1, 4000);
        view.m_nMapHeight = random.Whole(1, 3000);
        view.ZoomSet(view.BoxGetZoom(box));
        // Both spans fit, to within the image pixel that the view snaps to.
        EXPECT_GE(view.m_box.dRight - view.m_box.dLeft + 360.0 / kImgWidth, box.dRight - box.dLeft);
        EXPECT_GE(view.LatGetOrdinate(view.m_box.dTop) - view.LatGetOrdinate(view.m_box.dBottom)
                      + 180.0 / kImgHeight,
                  std::abs(view.LatGetOrdinate(box.dTop) - view.LatGetOrdinate(box.dBottom)));
    }
}

}  // namespace
