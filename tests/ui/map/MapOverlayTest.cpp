#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "propagation/SnrScale.h"
#include "ui/map/MapOverlay.h"

namespace {

using Boxes = std::vector<AreaBox>;

TEST(AreaBoxes, ViewOverTheDateLineIsSplit)
{
    EXPECT_EQ(OverlayGetBoxes({60, 150, 10, 230}),
              (Boxes{{10, 60, 150, 180}, {10, 60, -180, -130}}));
}

TEST(AreaBoxes, ViewEastOfTheDateLineIsOneBoxOfWestLongitudes)
{
    EXPECT_EQ(OverlayGetBoxes({60, 180, 10, 230}), (Boxes{{10, 60, -180, -130}}));
    EXPECT_EQ(OverlayGetBoxes({60, 237, 10, 251}), (Boxes{{10, 60, -123, -109}}));
}

TEST(AreaBoxes, ViewWestOfTheDateLineIsTakenAsItIs)
{
    EXPECT_EQ(OverlayGetBoxes({60, 20, 10, 180}), (Boxes{{10, 60, 20, 180}}));
}

TEST(AreaBoxes, LatitudesEndBeforeThePoles)
{
    EXPECT_EQ(OverlayGetBoxes({90, 0, -90, 360}),
              (Boxes{{-89.9, 89.9, 0, 180}, {-89.9, 89.9, -180, 0}}));
    EXPECT_EQ(OverlayGetBoxes({95.8, 10, -95.8, 20}), (Boxes{{-89.9, 89.9, 10, 20}}));
    EXPECT_EQ(OverlayGetBoxes({89.5, 10, -89.5, 20}), (Boxes{{-89.5, 89.5, 10, 20}}));
}

TEST(AreaBoxes, BlankStripsBesideTheWorldAreLeftOut)
{
    EXPECT_EQ(OverlayGetBoxes({90, -110, -90, 470}),
              (Boxes{{-89.9, 89.9, 0, 180}, {-89.9, 89.9, -180, 0}}));
    EXPECT_EQ(OverlayGetBoxes({50, -30, 10, 30}), (Boxes{{10, 50, 0, 30}}));
    EXPECT_EQ(OverlayGetBoxes({50, 330, 10, 390}), (Boxes{{10, 50, -30, 0}}));
    EXPECT_TRUE(OverlayGetBoxes({50, 370, 10, 390}).empty());
    EXPECT_TRUE(OverlayGetBoxes({140, 10, 95, 20}).empty());
}

TEST(AreaBoxesOfAView, WorldThatBeginsAtLongitude180IsOneBox)
{
    EXPECT_EQ(OverlayGetBoxes({90, -180, -90, 180}, kEdgeDateLine),
              (Boxes{{-89.9, 89.9, -180, 180}}));
    EXPECT_EQ(OverlayGetBoxes({60, -20, 40, 20}, kEdgeDateLine), (Boxes{{40, 60, -20, 20}}));
    EXPECT_EQ(OverlayGetBoxes({60, -200, 40, -150}, kEdgeDateLine), (Boxes{{40, 60, -180, -150}}));
}

const AreaPoint kPoints[] = {{10, 20, 1}, {10, 30, 2}, {20, 20, 3}, {20, 30, 4}};

TEST(OverlayNearest, TakesTheNearestInPlainDegrees)
{
    EXPECT_EQ(GridGetNearest(kPoints, 11, 29), 2.0F);
    EXPECT_EQ(GridGetNearest(kPoints, 90, 20), 3.0F);
}

TEST(OverlayNearest, FirstOfEquallyNearPointsWins)
{
    EXPECT_EQ(GridGetNearest(kPoints, 10, 25), 1.0F);
    EXPECT_EQ(GridGetNearest(kPoints, 15, 25), 1.0F);
    EXPECT_EQ(GridGetNearest(kPoints, 15, 30), 2.0F);
}

TEST(OverlayNearest, PointsHalfACircleAwayDoNotCount)
{
    const AreaPoint aPoints[] = {{0, -90, 7}};
    EXPECT_EQ(GridGetNearest(aPoints, 0, 89.9), 7.0F);
    EXPECT_FALSE(GridGetNearest(aPoints, 0, 90));
    EXPECT_FALSE(GridGetNearest({}, 0, 0));
}

TEST(OverlayNearest, LongitudesAreTakenTheShortWayRound)
{
    const AreaPoint aPoints[] = {{50, -170, 1}, {50, 0, 2}, {50, 170, 3}};
    EXPECT_EQ(GridGetNearest(aPoints, 50, 179), 3.0F);
    EXPECT_EQ(GridGetNearest(aPoints, 50, -179), 1.0F);
    EXPECT_EQ(GridGetNearest(aPoints, 50, 359), 2.0F);
}

TEST(OverlayNearest, PointsOfEveryBoxAreKept)
{
    OverlayGrid grid;
    EXPECT_TRUE(grid.IsEmpty());
    grid.Add(std::vector<AreaPoint>{{50, 10, 1}});
    grid.Add(std::vector<AreaPoint>{{50, -10, 2}});
    EXPECT_EQ(grid.SnrGet(52, 13), 1.0F);
    EXPECT_EQ(grid.SnrGet(52, -13), 2.0F);
    grid.Clear();
    EXPECT_FALSE(grid.SnrGet(52, 13));
}

class OverlayCells : public testing::Test {
protected:
    OverlayCells() : m_img(360, 338, QImage::Format_RGB32)
    {
        m_view.m_nMapWidth = 360;
        m_view.m_nMapHeight = 338;
        m_view.m_nImgWidth = 360;
        m_view.m_nImgHeight = 338;
        m_view.ZoomSet({1, 0, 180});  // one pixel per degree of longitude
        m_img.fill(Qt::white);
    }
    [[nodiscard]] CellPaint CellMake(const AreaBox& box, int nGridSize) const
    {
        return {box, box, nGridSize, 20.0F, SnrGetColor};
    }
    MapView m_view;
    QImage m_img;
};

TEST_F(OverlayCells, CellIsCentredOnItsPoint)
{
    const CellPaint cell = CellMake({-20, 20, 40, 80}, 5);  // a point every 10 degrees
    const QRect rct = CellGetRect(m_view, cell, {0, 60, 50});
    EXPECT_EQ(rct.left(), 55);
    EXPECT_EQ(rct.right(), 64);
    EXPECT_EQ(rct.top(), m_view.LatLonGetPoint(5, 60).y());
    EXPECT_EQ(rct.bottom(), m_view.LatLonGetPoint(-5, 60).y() - 1);
}

TEST_F(OverlayCells, WestLongitudesLieInTheRightHalf)
{
    const CellPaint cell = CellMake({-20, 20, -80, -40}, 5);
    EXPECT_EQ(CellGetRect(m_view, cell, {0, -60, 50}).left(), 295);
}

TEST_F(OverlayCells, EveryPixelOfTheWorldIsPaintedOnce)
{
    // Both boxes of the whole world, with points to four decimals as engines print them: no seam
    // and no overlap, not even at longitudes 0 and 180.
    QImage imgCount(m_img.size(), QImage::Format_Grayscale8);
    imgCount.fill(0);
    for (const AreaBox& box : OverlayGetBoxes(m_view.m_box)) {
        const CellPaint cell = CellMake(box, 40);
        for (int iLat = 0; iLat < 40; ++iLat)
            for (int iLon = 0; iLon < 40; ++iLon) {
                const auto Print = [](double dValue) { return std::round(dValue * 1e4) / 1e4; };
                const AreaPoint pnt{Print(box.dBottom + iLat * (box.dTop - box.dBottom) / 39),
                                    Print(box.dLeft + iLon * (box.dRight - box.dLeft) / 39), 50};
                const QRect rct = CellGetRect(m_view, cell, pnt);
                for (int y = rct.top(); y <= rct.bottom(); ++y)
                    for (int x = rct.left(); x <= rct.right(); ++x) ++imgCount.scanLine(y)[x];
            }
    }
    std::set<int> setCounts;
    for (int y = 0; y < imgCount.height(); ++y)
        for (int x = 0; x < imgCount.width(); ++x) setCounts.insert(imgCount.constScanLine(y)[x]);
    EXPECT_EQ(setCounts, std::set<int>{1});
}

TEST_F(OverlayCells, CloseViewHasNoStripes)
{
    // The deck's bounds are rounded to hundredths of a degree; the view's bounds and the cells are
    // finer.
    for (const LatLon center : {LatLon{38.4567, 122.4783}, LatLon{-54.8019, 180.0},
                                LatLon{83.2, 0.3}, LatLon{51.5, -0.0632}}) {
        MapView view;
        view.m_nMapWidth = 900;
        view.m_nMapHeight = 600;
        view.m_dEdge = center.dLon < 0 ? kEdgeDateLine : kEdgeGreenwich;
        view.ZoomSet({kScaleMin, center.dLat, center.dLon});
        QImage img(900, 600, QImage::Format_RGB32);
        img.fill(Qt::white);
        for (const AreaBox& boxWanted : OverlayGetBoxes(view.m_box, view.m_dEdge)) {
            const AreaBox box = AreaBoxPrinted(boxWanted);
            const CellPaint cell{box, boxWanted, 40, 20.0F, SnrGetColor};
            std::vector<AreaPoint> aPoints;
            for (int iLat = 0; iLat < 40; ++iLat)
                for (int iLon = 0; iLon < 40; ++iLon) {
                    const auto Print = [](double dValue) { return std::round(dValue * 1e4) / 1e4; };
                    aPoints.push_back({Print(box.dBottom + iLat * (box.dTop - box.dBottom) / 39),
                                       Print(box.dLeft + iLon * (box.dRight - box.dLeft) / 39),
                                       50});
                }
            CellsPaint(img, view, cell, aPoints);
        }
        int nWhite = 0;
        for (int y = 0; y < 600; ++y)
            for (int x = 0; x < 900; ++x) nWhite += img.pixel(x, y) == qRgb(255, 255, 255) ? 1 : 0;
        EXPECT_EQ(nWhite, 0) << center.dLat << " " << center.dLon;
    }
}

TEST_F(OverlayCells, DensePictureIsPaintedToItsOwnPixels)
{
    QImage img(720, 676, QImage::Format_RGB32);
    img.setDevicePixelRatio(2);
    img.fill(Qt::white);
    const AreaPoint aPoints[] = {{0, 60.3, 66.0F}};
    CellsPaint(img, m_view, CellMake({-20, 20, 40.3, 80.3}, 5), aPoints);
    EXPECT_EQ(img.pixel(110, 338), qRgb(255, 255, 255));  // the cell begins at 55.3 degrees
    EXPECT_EQ(img.pixel(111, 338), qRgb(255, 0, 255));
    EXPECT_EQ(img.pixel(130, 338), qRgb(255, 0, 255));
    EXPECT_EQ(img.pixel(131, 338), qRgb(255, 255, 255));
}

TEST_F(OverlayCells, PointAtTheMinimumIsPaintedAndOneBelowIsNot)
{
    const CellPaint cell = CellMake({-20, 20, 40, 80}, 5);
    const AreaPoint aPoints[] = {{0, 50, 20.0F}, {0, 70, 19.9F}};
    CellsPaint(m_img, m_view, cell, aPoints);
    EXPECT_EQ(m_img.pixel(50, 169), qRgb(128, 128, 128));
    EXPECT_EQ(m_img.pixel(70, 169), qRgb(255, 255, 255));
}

TEST_F(OverlayCells, NotANumberIsNotPainted)
{
    const CellPaint cell = CellMake({-20, 20, 40, 80}, 5);
    const AreaPoint aPoints[] = {{0, 50, std::nanf("")}};
    CellsPaint(m_img, m_view, cell, aPoints);
    EXPECT_EQ(m_img.pixel(50, 169), qRgb(255, 255, 255));
}

TEST_F(OverlayCells, BlackStaysBlack)
{
    m_img.setPixel(60, 169, qRgb(0, 0, 0));
    const AreaPoint aPoints[] = {{0, 60, 66.0F}};
    CellsPaint(m_img, m_view, CellMake({-20, 20, 40, 80}, 5), aPoints);
    EXPECT_EQ(m_img.pixel(60, 169), qRgb(0, 0, 0));
    EXPECT_EQ(m_img.pixel(61, 169), qRgb(255, 0, 255));
}

TEST_F(OverlayCells, PointOutsideTheWorldPaintsNothing)
{
    const AreaPoint aPoints[] = {
        {500, 60, 66.0F}, {0, 5000, 66.0F}, {-1e300, 1e300, 66.0F}, {0, 300, 66.0F}};
    const QImage imgBefore = m_img;
    CellsPaint(m_img, m_view, CellMake({-20, 20, 40, 80}, 5), aPoints);
    EXPECT_EQ(m_img, imgBefore);
}

TEST_F(OverlayCells, SmallestGridHasTwoPointsASide)
{
    const CellPaint cell = CellMake({-20, 20, 40, 80}, 2);
    EXPECT_EQ(CellGetRect(m_view, cell, {-20, 40, 50}).width(), 20);
    EXPECT_EQ(CellGetRect(m_view, cell, {20, 80, 50}).right(), 79);
}

}  // namespace
