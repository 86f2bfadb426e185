#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>

#include "ui/map/MapView.h"

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kHuge = 1e300;

MapView ViewMake(int nMapWidth, int nMapHeight, int nImgWidth = kImgWidth,
                 int nImgHeight = kImgHeight)
{
    MapView view;
    view.m_nMapWidth = nMapWidth;
    view.m_nMapHeight = nMapHeight;
    view.m_nImgWidth = nImgWidth;
    view.m_nImgHeight = nImgHeight;
    return view;
}

MapView ViewOf(int nMapWidth, int nMapHeight, const MapBox& box)
{
    MapView view = ViewMake(nMapWidth, nMapHeight);
    view.ZoomSet(view.BoxGetZoom(box));
    return view;
}

void BoxExpect(const MapBox& box, double dTop, double dLeft, double dBottom, double dRight)
{
    EXPECT_NEAR(box.dTop, dTop, 1e-9);
    EXPECT_NEAR(box.dLeft, dLeft, 1e-9);
    EXPECT_NEAR(box.dBottom, dBottom, 1e-9);
    EXPECT_NEAR(box.dRight, dRight, 1e-9);
}

bool SeesPoint(const MapView& view, const LatLon& pos)
{
    return QRect(0, 0, view.m_nMapWidth, view.m_nMapHeight)
        .contains(view.LatLonGetPoint(pos.dLat, pos.dLon));
}

// Expected numbers: from a separate calculation of the projection's formulas in Python.
struct OrdinateCase {
    const char* sName;
    int nImgWidth, nImgHeight;
    double dLat, dOrdinate;
};
std::ostream& operator<<(std::ostream& stm, const OrdinateCase& c) { return stm << c.sName; }
class MapViewOrdinate : public testing::TestWithParam<OrdinateCase> {};

TEST_P(MapViewOrdinate, ThereAndBack)
{
    const OrdinateCase& c = GetParam();
    const MapView view = ViewMake(100, 100, c.nImgWidth, c.nImgHeight);
    EXPECT_NEAR(view.LatGetOrdinate(c.dLat), c.dOrdinate, 1e-9);
    if (std::abs(c.dOrdinate) < 90 || std::abs(c.dLat) >= 90) {
        EXPECT_NEAR(view.OrdinateGetLat(c.dOrdinate), c.dLat, 1e-9);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Latitudes, MapViewOrdinate,
    testing::Values(OrdinateCase{"equator", kImgWidth, kImgHeight, 0, 0},
                    OrdinateCase{"one_degree", kImgWidth, kImgHeight, 1, 0.5325714178064423},
                    OrdinateCase{"baja", kImgWidth, kImgHeight, 24, 13.172104906834715},
                    OrdinateCase{"bay_area", kImgWidth, kImgHeight, 38, 21.90764130280115},
                    OrdinateCase{"south", kImgWidth, kImgHeight, -60, -40.18373749183136},
                    OrdinateCase{"arctic", kImgWidth, kImgHeight, 84, 89.97234962919984},
                    OrdinateCase{"beyond_image", kImgWidth, kImgHeight, 89, 144.67061884711444},
                    OrdinateCase{"pole_is_itself", kImgWidth, kImgHeight, 90, 90},
                    OrdinateCase{"south_pole", kImgWidth, kImgHeight, -90, -90},
                    OrdinateCase{"no_latitude", kImgWidth, kImgHeight, 120, 120},
                    OrdinateCase{"square_image", 720, 720, 60, 37.72806464510833},
                    OrdinateCase{"square_south", 720, 720, -75, -58.08615822725894}));

TEST(MapView, OrdinateNinetyIsTheImagesEdge)
{
    // For a square image the edge is the latitude where web maps end.
    const MapView view = ViewMake(100, 100, 720, 720);
    EXPECT_NEAR(view.OrdinateGetLat(89.99999), 85.05112705447168, 1e-9);
    EXPECT_DOUBLE_EQ(view.OrdinateGetLat(90), 90.0);
    EXPECT_DOUBLE_EQ(view.OrdinateGetLat(-95.5), -95.5);
}

TEST(MapView, AnOrdinateOfLatitudeIsAnOrdinateOfLongitudeOnTheEquator)
{
    // True Mercator: a small square on the equator has as many pixels across as down.
    MapView view = ViewOf(800, 800, {5, 100, -5, 110});
    const QPoint ptNorth = view.LatLonGetPoint(1, 105);
    const QPoint ptEast = view.LatLonGetPoint(0, 106);
    const QPoint ptMiddle = view.LatLonGetPoint(0, 105);
    EXPECT_NEAR(ptMiddle.y() - ptNorth.y(), ptEast.x() - ptMiddle.x(), 1);
}

TEST(MapView, ZoomOffShowsTheWholeImageInAWideWindow)
{
    const MapView view = ViewOf(1200, 700, {90, 0, -90, 360});
    EXPECT_NEAR(view.m_dScale, 482.85714285714283, 1e-9);
    EXPECT_EQ(view.m_rctSource, QRect(-109714, 0, 579429, 338000));
    BoxExpect(view.m_box, 90, -109.714, -90, 469.715);
    EXPECT_TRUE(view.IsBeyondImage());
    EXPECT_EQ(view.ImageGetRect(), QRect(227, 0, 746, 700));
}

TEST(MapView, ZoomOffShowsTheWholeImageInAHighWindow)
{
    const MapView view = ViewOf(600, 600, {90, 0, -90, 360});
    EXPECT_NEAR(view.m_dScale, 600, 1e-9);
    EXPECT_EQ(view.m_rctSource, QRect(0, -11000, 360000, 360000));
    // Ordinates beyond the edge serve as latitudes.
    BoxExpect(view.m_box, 95.85798816568047, 0, -95.85798816568047, 360);
    EXPECT_TRUE(view.IsBeyondImage());
}

TEST(MapView, BoxFitsByItsLatitudesAroundTheirPlainMean)
{
    const MapView view = ViewOf(1200, 700, {60, -130, 10, -60});
    EXPECT_NEAR(view.m_dScale, 93.43567090512376, 1e-9);
    EXPECT_EQ(view.m_rctSource, QRect(208938, 98893, 112123, 65405));
    BoxExpect(view.m_box, 57.21541433008576, 208.938, 4.696731087831404, 321.061);
    EXPECT_FALSE(view.IsBeyondImage());
}

TEST(MapView, BoxFitsByItsLongitudes)
{
    const MapView view = ViewOf(900, 500, {52, 5, 48, 30});
    EXPECT_NEAR(view.m_dScale, 27.77777777777778, 1e-9);
    EXPECT_EQ(view.m_rctSource, QRect(5000, 104148, 25000, 13889));
    BoxExpect(view.m_box, 54.258634918497926, 5, 45.32716749395313, 30);
}

TEST(MapView, PixelsRoundHalfToEven)
{
    MapView view = ViewMake(101, 99, 720, 720);
    view.ZoomSet({0.5, 0, 0.75});  // 50.5 and 49.5 pixels; left edge 1.5 - 25
    EXPECT_EQ(view.m_rctSource, QRect(-24, 335, 50, 50));
    view.ZoomSet({0.5, 0, 1.25});  // 2.5 - 25 = -22.5
    EXPECT_EQ(view.m_rctSource.left(), -22);
    view = ViewMake(103, 99, 720, 720);
    view.ZoomSet({0.5, 0, 1.75});  // 51.5 becomes 52; 3.5 - 26 = -22.5
    EXPECT_EQ(view.m_rctSource, QRect(-22, 335, 52, 50));
}

TEST(MapView, CenterIsTheMiddleInOrdinatesNotInLatitudes)
{
    const MapView view = ViewOf(1200, 700, {60, -130, 10, -60});
    const LatLon center = view.CenterGet();
    EXPECT_NEAR(center.dLon, 265, 1e-3);
    EXPECT_NEAR(center.dLat, 35, 1e-3);  // what ZoomSet was given, not (57.2 + 4.7) / 2 = 30.96
}

TEST(MapView, ZoomInTwiceAndOutTwiceKeepsTheSpan)
{
    MapView view = ViewOf(1000, 600, {10, 200, -10, 250});
    const double dSpan = view.m_box.dRight - view.m_box.dLeft;
    for (const double dFactor : {0.5, 0.5, 2.0, 2.0})
        view.ZoomSet(view.BoxGetZoom(BoxAround(view.CenterGet(), view.m_box, dFactor)));
    EXPECT_NEAR(view.m_box.dRight - view.m_box.dLeft, dSpan, dSpan * 0.02);
}

TEST(MapView, ScaleIsNeverZeroNegativeOrNotANumber)
{
    const MapBox aBoxes[] = {{38, -122, 38, -122},      {38, 50, 50, 10},
                             {10, 10, 20, 350},         {90, 0, 87, 1},
                             {kNan, kNan, kNan, kNan},  {kHuge, kHuge, -kHuge, kHuge},
                             {-kHuge, 0, kHuge, 1e-12}, {89.99, 0, 89.98, 1e-9}};
    for (const MapBox& box : aBoxes) {
        const MapView view = ViewOf(1200, 700, box);
        EXPECT_GE(view.m_dScale, kScaleMin);
        EXPECT_LE(view.m_dScale, kImgWidth);
        EXPECT_GT(view.m_rctSource.width(), 0);
        EXPECT_GT(view.m_rctSource.height(), 0);
        EXPECT_GT(view.m_box.dRight, view.m_box.dLeft);
        EXPECT_TRUE(std::isfinite(view.m_box.dTop) && std::isfinite(view.m_box.dBottom));
    }
}

TEST(MapView, SmallestAndLargestMapKeepWithinIntegers)
{
    for (const int nSide : {1, 7680}) {
        MapView view = ViewMake(nSide, nSide);
        for (const double dScale : {0.0, -1.0, kNan, kHuge}) {
            view.ZoomSet({dScale, kNan, kHuge});
            EXPECT_GT(view.m_box.dRight, view.m_box.dLeft);
            view.ZoomSet({dScale, -kHuge, -kHuge});
            EXPECT_GT(view.m_box.dRight, view.m_box.dLeft);
        }
    }
}

TEST(MapView, PositionsOnTheFourKindsOfControl)
{
    MapView view = ViewMake(360, 338, 360, 338);
    view.ZoomSet({1, 0, 180});
    BoxExpect(view.m_box, 90, 0, -90, 360);
    view.m_nOffsetX = 7;
    view.m_nOffsetY = 5;
    const LatLon posMap = view.PointGetLatLon(MapControl::Map, 90, 169);
    EXPECT_NEAR(posMap.dLat, 0, 1e-9);
    EXPECT_NEAR(posMap.dLon, 90, 1e-9);
    const LatLon posFrame = view.PointGetLatLon(MapControl::Frame, 97, 174);
    EXPECT_NEAR(posFrame.dLat, 0, 1e-9);
    EXPECT_NEAR(posFrame.dLon, 90, 1e-9);
    // The middle of the marker, wherever the mouse is: ordinate 90 - 84.5 * 180 / 338 = 45.
    const LatLon posMarker =
        view.PointGetLatLon(MapControl::Marker, 999, 999, QRect(260, 80, 20, 9));
    EXPECT_NEAR(posMarker.dLat, 64.22251997100287, 1e-9);
    EXPECT_NEAR(posMarker.dLon, -90, 1e-9);
    const LatLon posOther = view.PointGetLatLon(MapControl::Other, 90, 100);
    EXPECT_EQ(posOther.dLat, 0);
    EXPECT_EQ(posOther.dLon, 0);
}

TEST(MapView, LongitudesOfPointsLieInHalfOpenCircle)
{
    MapView view = ViewMake(360, 338, 360, 338);
    view.ZoomSet({1, 0, 180});
    EXPECT_DOUBLE_EQ(view.PointGetLatLon(MapControl::Map, 180, 0).dLon, 180);
    EXPECT_NEAR(view.PointGetLatLon(MapControl::Map, 180.1, 0).dLon, -179.9, 1e-9);
    EXPECT_DOUBLE_EQ(view.PointGetLatLon(MapControl::Map, -20, 0).dLon, -20);
    EXPECT_DOUBLE_EQ(LonWrap(180), 180);
    EXPECT_DOUBLE_EQ(LonWrap(-180), 180);
    EXPECT_DOUBLE_EQ(LonWrap(540), 180);
    EXPECT_DOUBLE_EQ(LonWrap(600), -120);
}

TEST(MapView, PointAndPositionAreInverse)
{
    const MapView view = ViewOf(1000, 700, {55, 150, 10, 230});
    for (const LatLon pos : {LatLon{40, 170}, LatLon{20, -150}, LatLon{52, 180}}) {
        const QPoint pt = view.LatLonGetPoint(pos.dLat, pos.dLon);
        const LatLon posBack = view.PointGetLatLon(MapControl::Map, pt.x(), pt.y());
        const double dPixel = (view.m_box.dRight - view.m_box.dLeft) / 1000;
        EXPECT_NEAR(posBack.dLat, pos.dLat, dPixel);
        EXPECT_NEAR(posBack.dLon, pos.dLon, dPixel);
    }
}

TEST(MapView, WestLongitudesLieInTheRightHalf)
{
    MapView view = ViewMake(360, 338, 360, 338);
    view.ZoomSet({1, 0, 180});
    EXPECT_EQ(view.LatLonGetPoint(0, -90), QPoint(270, 169));
    EXPECT_EQ(view.LatLonGetPoint(0, 90), QPoint(90, 169));
    EXPECT_EQ(view.LatLonGetPoint(0, 180.5), QPoint(180, 169));  // halves round to even
    EXPECT_EQ(view.LatLonGetPoint(0, 181.5), QPoint(182, 169));
    EXPECT_EQ(view.LatLonGetPoint(90, 0), QPoint(0, 0));
}

TEST(MapBox, AFullCircleBecomesTheWholeWidth)
{
    BoxExpect(BoxPutInOrder({90, -200, -90, 160}), 90, 0, -90, 360);
    BoxExpect(BoxPutInOrder({90, 300, -90, -60}), 90, 0, -90, 360);
    BoxExpect(BoxPutInOrder({50, 10, 40, 369.9}), 50, 10, 40, 369.9);
}

TEST(MapBox, NegativeLongitudesGetTheCircleAndLatitudesEndAtThePoles)
{
    BoxExpect(BoxPutInOrder({95, -20, -99, -10}), 90, 340, -90, 350);
    BoxExpect(BoxPutInOrder({50, 170, 40, -170}), 50, 170, 40, 190);
}

TEST(MapBox, WrongOrderIsPutRight)
{
    BoxExpect(BoxPutInOrder({10, 50, 40, 20}), 40, 20, 10, 50);
    BoxExpect(BoxPutInOrder({50, -10, 40, 10}), 50, 10, 40, 350);
}

TEST(MapBox, ZeroSpanBecomesOneDegree)
{
    BoxExpect(BoxPutInOrder({38, -122, 38, -122}), 38.5, 237.5, 37.5, 238.5);
}

TEST(MapBox, BoxAroundPointHasPartOfTheViewsSpans)
{
    BoxExpect(BoxAround({10, 20}, {60, 100, 20, 180}, 0.5), 20, 0, 0, 40);
    BoxExpect(BoxAround({10, 20}, {60, 100, 20, 180}, 1), 30, -20, -10, 60);
    BoxExpect(BoxAround({10, 20}, {60, 100, 20, 180}, 2), 50, -60, -30, 100);
}

TEST(MapBox, BoxOverLongitudeZeroMovesToTheSideOfItsCentre)
{
    BoxExpect(BoxKeepWhole({50, -10, 40, 30}), 50, 0, 40, 40);
    BoxExpect(BoxKeepWhole({50, -30, 40, 10}), 50, 320, 40, 360);
    BoxExpect(BoxKeepWhole({50, -30, 40, -10}), 50, -30, 40, -10);
    BoxExpect(BoxKeepWhole({50, 300, 40, 400}), 50, 260, 40, 360);
    BoxExpect(BoxKeepWhole({50, -20, 40, 0}), 50, 340, 40, 360);
    BoxExpect(BoxKeepWhole({90, -100, -90, 300}), 90, -100, -90, 300);
}

TEST(MapBox, PathGetsATenthOfItsSpansAsMargin)
{
    // 14 degrees of latitude, 12 of longitude.
    BoxExpect(BoxOfPath({24, -110}, {38, -122}), 39.4, 236.8, 22.6, 251.2);
    BoxExpect(BoxOfPath({38, -122}, {24, -110}), 39.4, 236.8, 22.6, 251.2);
    BoxExpect(BoxOfPath({0, 10}, {0, 30}), 0, 8, 0, 32);
}

TEST(MapBox, BothEndsOfAnyPathAreSeen)
{
    const LatLon aEnds[] = {{51, -1},   {-37, 175}, {24, -110}, {38, -122}, {48, 3},
                            {55, 60},   {0, 0},     {40, -140}, {40, 140},  {-30, 20},
                            {60, -170}, {10, 5},    {45, -3},   {36, 180}};
    for (const LatLon& one : aEnds)
        for (const LatLon& other : aEnds) {
            const MapBox box = BoxPutInOrder(BoxOfPath(one, other));
            for (const LatLon& pos : {one, other}) {
                const double dLon = pos.dLon < 0 ? pos.dLon + 360 : pos.dLon;
                EXPECT_GE(dLon, box.dLeft) << one.dLon << " to " << other.dLon;
                EXPECT_LE(dLon, box.dRight) << one.dLon << " to " << other.dLon;
            }
        }
}

TEST(MapView, PathOverTheDateLineIsSeenFromEndToEnd)
{
    const MapView view = ViewOf(1000, 600, BoxOfPath({35, 140}, {38, -122}));
    EXPECT_TRUE(SeesPoint(view, {35, 140}));
    EXPECT_TRUE(SeesPoint(view, {38, -122}));
}

TEST(MapView, WheelKeepsThePositionBelowThePointer)
{
    MapView view = ViewOf(1000, 700, {50, 200, 20, 250});
    const LatLon posBefore = view.PointGetLatLon(MapControl::Map, 200, 500);
    view.ZoomSet(view.WheelGetZoom(200, 500, 0.5));
    const LatLon posAfter = view.PointGetLatLon(MapControl::Map, 200, 500);
    const double dPixel = (view.m_box.dRight - view.m_box.dLeft) / 1000;
    EXPECT_NEAR(posAfter.dLat, posBefore.dLat, dPixel);
    EXPECT_NEAR(posAfter.dLon, posBefore.dLon, dPixel);
}

TEST(MapView, WheelKeepsThePositionAtTheEndsOfTheWorld)
{
    // With the whole image shown, near its left, right, upper and lower edges.
    for (const QPoint pt : {QPoint(235, 350), QPoint(965, 350), QPoint(600, 8), QPoint(600, 690)}) {
        MapView view = ViewOf(1200, 700, {90, 0, -90, 360});
        const LatLon posBefore = view.PointGetLatLon(MapControl::Map, pt.x(), pt.y());
        for (const double dFactor : {0.5, 0.5, 2.0, 2.0}) {
            view.ZoomSet(view.WheelGetZoom(pt.x(), pt.y(), dFactor));
            const LatLon posAfter = view.PointGetLatLon(MapControl::Map, pt.x(), pt.y());
            EXPECT_NEAR(posAfter.dLat, posBefore.dLat, 0.01) << pt.x() << " " << pt.y();
            EXPECT_NEAR(std::remainder(posAfter.dLon - posBefore.dLon, 360.0), 0, 0.01)
                << pt.x() << " " << pt.y();
        }
        EXPECT_NEAR(view.m_box.dLeft, -109.714, 0.01);
    }
}

TEST(MapView, WheelOverTheBlankStripKeepsTheImagesEdge)
{
    MapView view = ViewOf(1200, 700, {90, 0, -90, 360});
    const double dX = view.LonGetX(0);
    for (int i = 0; i < 6; ++i) view.ZoomSet(view.WheelGetZoom(20, 350, 0.5));
    EXPECT_FALSE(view.ImageGetRect().isEmpty());
    EXPECT_LT(view.LonGetX(0), dX);
    EXPECT_GE(view.LonGetX(0), 20);
}

TEST(MapView, WheelEndsAtTheWholeImagesScaleAndAtTheClosest)
{
    MapView view = ViewOf(1200, 700, {52, 1, 48, 8});
    for (int i = 0; i < 20; ++i) view.ZoomSet(view.WheelGetZoom(10, 350, 2.0));
    EXPECT_NEAR(view.m_dScale, 338000.0 / 700, 1e-9);
    for (int i = 0; i < 40; ++i) view.ZoomSet(view.WheelGetZoom(600, 350, 0.5));
    EXPECT_NEAR(view.m_dScale, kScaleMin, 1e-12);
}

// A world that begins at the meridian 180.

TEST(MapViewEdge, WholeImageHasGreenwichInTheMiddle)
{
    MapView view = ViewMake(1200, 700);
    view.m_dEdge = kEdgeDateLine;
    view.ZoomSet(view.BoxGetZoom(view.BoxGetWhole()));
    BoxExpect(view.m_box, 90, -289.714, -90, 289.715);
    EXPECT_EQ(view.ImageGetRect(), QRect(227, 0, 746, 700));
    EXPECT_EQ(view.LatLonGetPoint(0, 0).x(), 600);
    EXPECT_EQ(view.LatLonGetPoint(0, -180).x(), 227);
    EXPECT_EQ(view.LatLonGetPoint(0, 180).x(), 973);
    EXPECT_NEAR(view.PointGetLatLon(MapControl::Map, 300, 350).dLon, -144.8, 0.1);
}

TEST(MapViewEdge, BoxesCountFromIt)
{
    BoxExpect(BoxPutInOrder({50, -10, 40, 10}, kEdgeDateLine), 50, -10, 40, 10);
    BoxExpect(BoxPutInOrder({90, -200, -90, 160}, kEdgeDateLine), 90, -180, -90, 180);
    BoxExpect(BoxPutInOrder({50, -190, 40, -185}, kEdgeDateLine), 50, 170, 40, 175);
    BoxExpect(BoxKeepWhole({50, -10, 40, 10}, kEdgeDateLine), 50, -10, 40, 10);
    BoxExpect(BoxKeepWhole({50, -190, 40, -150}, kEdgeDateLine), 50, -180, 40, -140);
    BoxExpect(BoxKeepWhole({50, 150, 40, 190}, kEdgeDateLine), 50, 140, 40, 180);
}

TEST(MapViewEdge, PathTakesTheEdgeThatItsShorterWayDoesNotCross)
{
    struct Case {
        double dOne, dOther, dEdge, dExpected;
    };
    for (const Case& c : {Case{-0.1, 13.4, 0, -180}, Case{-0.1, 13.4, -180, -180},
                          Case{140, -122, -180, 0}, Case{140, -122, 0, 0}, Case{-5, -1, 0, 0},
                          Case{-90, 90, 0, 0}, Case{-67, 18, 0, -180}, Case{180, -175, -180, 0}})
        EXPECT_EQ(EdgeOfPath({10, c.dOne}, {20, c.dOther}, c.dEdge), c.dExpected)
            << c.dOne << " to " << c.dOther << " at " << c.dEdge;
    BoxExpect(BoxOfPath({51.5, -0.1}, {52.5, 13.4}, kEdgeDateLine), 52.6, -1.45, 51.4, 14.75);
}

TEST(MapViewEdge, AnotherEdgeKeepsTheCentreWhereTheImageReaches)
{
    MapView view = ViewOf(1000, 600, {50, 100, 20, 140});
    MapZoom zoom = view.EdgeGetZoom(kEdgeDateLine);
    EXPECT_NEAR(zoom.dCenterLon, 120, 0.001);
    EXPECT_NEAR(zoom.dCenterLat, view.CenterGet().dLat, 1e-9);
    EXPECT_EQ(zoom.dScale, view.m_dScale);
    view = ViewOf(1000, 600, {50, 165, 20, 205});  // across 180, so moved to the image's end
    const double dHalf = (view.m_box.dRight - view.m_box.dLeft) / 2;
    zoom = view.EdgeGetZoom(kEdgeDateLine);
    EXPECT_NEAR(zoom.dCenterLon, -180 + dHalf, 1e-6);
}

TEST(MapView, PaintedAgainWithScaleAndCentreItIsTheSame)
{
    MapView view = ViewOf(983, 577, {71.3, 199.1, -33.3, 288.8});
    const QRect rct = view.m_rctSource;
    for (int i = 0; i < 100; ++i)
        view.ZoomSet({view.m_dScale, view.CenterGet().dLat, view.CenterGet().dLon});
    EXPECT_EQ(view.m_rctSource, rct);
}

TEST(MapView, ABoxBeyondTheImagesEndIsMovedOntoIt)
{
    for (const MapBox& box : {MapBox{90, 100, 83, 102}, MapBox{-86, 100, -88, 102}}) {
        MapView view = ViewMake(1000, 600);
        const MapZoom zoom = view.BoxGetZoom(box);
        view.ZoomSet(zoom);
        EXPECT_TRUE(view.ImageGetRect().isEmpty());
        view.ZoomSet(view.ZoomKeepSeen(zoom));
        EXPECT_EQ(view.m_dScale, zoom.dScale);
        EXPECT_FALSE(view.ImageGetRect().isEmpty());
        EXPECT_EQ(view.CenterGet().dLat > 0, box.dTop > 0);
    }
    const MapView view = ViewMake(1000, 600);
    const MapZoom zoom = view.BoxGetZoom({60, 100, 40, 140});
    EXPECT_EQ(view.ZoomKeepSeen(zoom).dCenterLat, zoom.dCenterLat);  // otherwise unchanged
}

TEST(MapView, PanMovesThePictureByItsPixels)
{
    MapView view = ViewOf(1000, 600, {50, 165, 20, 205});
    const QPointF ptBefore(view.LonGetX(180), view.LatGetY(35));
    view.ZoomSet(view.PanGetZoom(40, -25));
    EXPECT_NEAR(view.LonGetX(180), ptBefore.x() + 40, 0.1);
    EXPECT_NEAR(view.LatGetY(35), ptBefore.y() - 25, 0.1);
    view.ZoomSet(view.PanGetZoom(1e6, 1e6));
    EXPECT_NEAR(view.CenterGet().dLon, 0, 0.01);  // no further than the edges
    EXPECT_NEAR(view.LatGetOrdinate(view.CenterGet().dLat), 90, 0.1);
}

}  // namespace
