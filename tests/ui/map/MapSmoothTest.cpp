#include <gtest/gtest.h>

#include <cmath>

#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"
#include "ui/map/MapSmooth.h"

namespace {

constexpr int kSide = 5;
constexpr float kNone = -999.0F;

using SnrFn = std::function<double(double dLat, double dLon)>;

std::vector<AreaPoint> PointsMake(const AreaBox& box, const SnrFn& fnSnr, int nSide = kSide)
{
    std::vector<AreaPoint> aPoints;
    for (int iLat = 0; iLat < nSide; ++iLat)
        for (int iLon = 0; iLon < nSide; ++iLon) {
            const double dLat = box.dBottom + (box.dTop - box.dBottom) * iLat / (nSide - 1);
            const double dLon = box.dLeft + (box.dRight - box.dLeft) * iLon / (nSide - 1);
            aPoints.push_back({dLat, dLon, static_cast<float>(fnSnr(dLat, dLon))});
        }
    return aPoints;
}

CellPaint CellMake(const AreaBox& box, float fMinSnr = 20.0F)
{
    return {box, box, kSide, fMinSnr, [](float fSnr) { return SnrGetColor(fSnr); }};
}

MapView ViewMake(const MapBox& box, double dEdge = kEdgeGreenwich)
{
    MapView view;
    view.m_dEdge = dEdge;
    view.m_nMapWidth = 720;
    view.m_nMapHeight = 480;
    view.ZoomSet(view.BoxGetZoom(box));
    return view;
}

QImage White(const MapView& view)
{
    QImage img(view.m_nMapWidth, view.m_nMapHeight, QImage::Format_RGB32);
    img.fill(Qt::white);
    return img;
}

QRgb PixelAt(const QImage& img, const MapView& view, double dLat, double dLon)
{
    return img.pixel(static_cast<int>(view.LonGetX(view.LonGetOnScale(dLon))),
                     static_cast<int>(view.LatGetY(dLat)));
}

QRgb BandColor(float fSnr) { return ColorFromBgr(SnrGetColor(fSnr)).rgb(); }

/// The number of a band, from the best down.
int BandOf(float fSnr)
{
    const auto aBand = SnrBandsGet();
    return static_cast<int>(&SnrBandGet(fSnr) - aBand.data());
}

const AreaBox kBox{10, 50, 20, 60};

TEST(MapSmooth, PointsKeepTheirValuesAndBetweenThemItRunsEvenly)
{
    const auto aPoints = PointsMake(kBox, [](double dLat, double dLon) { return dLat + 2 * dLon; });
    const SmoothGrid grid(kBox, kSide, aPoints);
    for (const AreaPoint& pnt : aPoints)
        EXPECT_NEAR(grid.SnrGet(pnt.dLat, pnt.dLon).value_or(-1), pnt.fSnr, 1e-4);
    // This interpolation reproduces sums of terms in latitude, longitude and their product exactly.
    for (double dLat = 10; dLat <= 50; dLat += 3.7)
        for (double dLon = 20; dLon <= 60; dLon += 2.9)
            EXPECT_NEAR(grid.SnrGet(dLat, dLon).value_or(-1), dLat + 2 * dLon, 1e-3);
    const auto aTwisted =
        PointsMake(kBox, [](double dLat, double dLon) { return (dLat - 30) * (dLon - 40) / 10; });
    EXPECT_NEAR(SmoothGrid(kBox, kSide, aTwisted).SnrGet(43.3, 57.1).value_or(0), 13.3 * 17.1 / 10,
                1e-3);
}

TEST(MapSmooth, NothingIsToldBeyondTheGridOrBesideAPointWithoutSnr)
{
    auto aPoints = PointsMake(kBox, [](double, double) { return 50.0; });
    const SmoothGrid grid(kBox, kSide, aPoints);
    EXPECT_TRUE(grid.SnrGet(10, 20));
    EXPECT_TRUE(grid.SnrGet(50, 60));
    EXPECT_TRUE(grid.SnrGet(30, 400)) << "another scale of longitudes";
    for (const LatLon& pos : {LatLon{9.9, 30}, {50.1, 30}, {30, 19.9}, {30, 60.1}})
        EXPECT_FALSE(grid.SnrGet(pos.dLat, pos.dLon)) << pos.dLat << " " << pos.dLon;
    aPoints[2 * kSide + 2].fSnr = kNone;  // 30 N, 40 E
    for (const LatLon& pos : {LatLon{29, 39}, {29, 41}, {31, 39}, {31, 41}, {30, 40}})
        EXPECT_FALSE(grid.SnrGet(pos.dLat, pos.dLon)) << pos.dLat << " " << pos.dLon;
    EXPECT_TRUE(grid.SnrGet(19, 39));
    EXPECT_TRUE(grid.SnrGet(41, 41));
    aPoints.pop_back();
    EXPECT_FALSE(SmoothGrid(kBox, kSide, aPoints).SnrGet(30, 30)) << "not the grid's points";
}

TEST(MapSmooth, PixelsHaveTheColourOfTheValueAtTheirPlace)
{
    const MapView view = ViewMake({55, 15, 5, 65});
    const SnrFn fnSnr = [](double dLat, double dLon) { return dLat + dLon - 5; };  // 25 to 105
    const auto aPoints = PointsMake(kBox, fnSnr);
    const SmoothRaster raster(view, CellMake(kBox, 35.0F), aPoints);
    const QRect rct = raster.RectGet();
    EXPECT_EQ(rct.left(), std::lround(view.LonGetX(20)));
    EXPECT_EQ(rct.right(), std::lround(view.LonGetX(60)) - 1);
    EXPECT_EQ(rct.top(), std::lround(view.LatGetY(50)));
    EXPECT_EQ(rct.bottom(), std::lround(view.LatGetY(10)) - 1);
    int nSeen = 0;
    for (int nY = rct.top(); nY <= rct.bottom(); nY += 5)
        for (int nX = rct.left(); nX <= rct.right(); nX += 7) {
            const LatLon pos = view.PointGetLatLon(MapControl::Map, nX + 0.5, nY + 0.5);
            const auto fSnr = static_cast<float>(fnSnr(pos.dLat, pos.dLon));
            if (std::abs(fSnr / 5 - std::round(fSnr / 5)) < 0.001)
                continue;  // at the edge of a band
            EXPECT_EQ(raster.BandGet(nX, nY), fSnr >= 35 ? BandOf(fSnr) : -1) << fSnr;
            ++nSeen;
        }
    EXPECT_GT(nSeen, 3000);
}

TEST(MapSmooth, LinesStandWhereTheThresholdsAre)
{
    const MapView view = ViewMake({55, 15, 5, 65});
    const auto aPoints = PointsMake(kBox, [](double, double dLon) { return dLon; });  // 20 to 60
    const SmoothRaster raster(view, CellMake(kBox), aPoints);
    const int nY = raster.RectGet().center().y();
    std::vector<int> anLine;
    for (int nX = raster.RectGet().left(); nX <= raster.RectGet().right(); ++nX)
        if (raster.LineGetBand(nX, nY, 1) >= 0)
            anLine.push_back(nX);
    ASSERT_EQ(anLine.size(), 4u) << "40, 45, 50 and 55; nothing but the picture ends at 60";
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(anLine[static_cast<std::size_t>(i)], view.LonGetX(40 + 5 * i), 1.01);
    const auto aWide = [&] {
        int nLine = 0;
        for (int nX = raster.RectGet().left(); nX <= raster.RectGet().right(); ++nX)
            nLine += raster.LineGetBand(nX, nY, 2) >= 0 ? 1 : 0;
        return nLine;
    }();
    EXPECT_EQ(aWide, 8);
}

TEST(MapSmooth, WhereValuesEndNoLineIsDrawn)
{
    const MapView view = ViewMake({55, 15, 5, 65});
    const auto aPoints =
        PointsMake(kBox, [](double, double dLon) { return dLon < 35 ? -999 : 50; });
    const SmoothRaster raster(view, CellMake(kBox), aPoints);
    for (int nX = raster.RectGet().left(); nX <= raster.RectGet().right(); ++nX)
        EXPECT_EQ(raster.LineGetBand(nX, raster.RectGet().center().y(), 1), -1) << nX;
}

TEST(MapSmooth, LinesReadOnBothOfTheirBandsAndBlackStaysBlack)
{
    const MapView view = ViewMake({55, 15, 5, 65});
    const auto aPoints =
        PointsMake(kBox, [](double, double dLon) { return 35 + (dLon - 20); });  // 35 to 75
    QImage img = White(view);
    const int nCoast = static_cast<int>(view.LatGetY(20));
    for (int nX = 0; nX < img.width(); ++nX) img.setPixel(nX, nCoast, qRgb(0, 0, 0));
    SmoothPaint(img, view, CellMake(kBox), aPoints);
    const SmoothRaster raster(view, CellMake(kBox), aPoints);
    const QRect& rct = raster.RectGet();
    const int nY = rct.center().y();
    const auto BgrOf = [](QRgb nRgb) {
        return static_cast<std::uint32_t>(qRed(nRgb) | qGreen(nRgb) << 8 | qBlue(nRgb) << 16);
    };
    int nLines = 0;
    for (int nX = rct.left(); nX <= rct.right(); ++nX) {
        EXPECT_EQ(img.pixel(nX, nCoast), qRgb(0, 0, 0));
        const int iBand = raster.BandGet(nX, nY);
        const int iOther = raster.LineGetBand(nX, nY, 1);
        ASSERT_GE(iBand, 0);
        const auto ColorOf = [](int i) {
            return SnrBandsGet()[static_cast<std::size_t>(i)].nColor;
        };
        if (iOther < 0) {
            EXPECT_EQ(img.pixel(nX, nY), ColorFromBgr(ColorOf(iBand)).rgb());
            continue;
        }
        ++nLines;
        for (const int i : {iBand, iOther})
            EXPECT_GE(ColorContrast(BgrOf(img.pixel(nX, nY)), ColorOf(i)), 3.0) << i;
    }
    EXPECT_EQ(nLines, 7) << "at 40 to 70";
}

TEST(MapSmooth, BothBoxesOfTheDateLineMeetWithoutASeam)
{
    const SnrFn fnSnr = [](double dLat, double dLon) {
        return 50 + dLat / 4 + (dLon < 0 ? dLon + 360 - 180 : dLon - 180) / 4;
    };
    for (const double dEdge : {kEdgeGreenwich, kEdgeDateLine}) {
        const MapView view = dEdge == kEdgeGreenwich ? ViewMake({30, 150, -30, 210})
                                                     : ViewMake({80, -180, -80, 180}, dEdge);
        QImage img = White(view);
        for (const AreaBox& box : {AreaBox{-20, 20, 160, 180}, AreaBox{-20, 20, -180, -160}})
            SmoothPaint(img, view, CellMake(box), PointsMake(box, fnSnr));
        for (const double dLat : {-17.3, -3.1, 11.4})
            for (const double dLon : {161.0, 171.5, 179.4, 180.6, 188.4, 198.6})
                EXPECT_EQ(PixelAt(img, view, dLat, dLon > 180 ? dLon - 360 : dLon),
                          BandColor(static_cast<float>(fnSnr(dLat, dLon))))
                    << dEdge << ": " << dLat << " " << dLon;
        EXPECT_EQ(PixelAt(img, view, 0, 159), qRgb(255, 255, 255)) << "beside the boxes";
        EXPECT_EQ(PixelAt(img, view, 0, -159), qRgb(255, 255, 255));
    }
}

TEST(MapSmooth, NoPixelIsLeftOutBetweenTheBoxes)
{
    const MapView view = ViewMake({30, 150, -30, 210});
    QImage img = White(view);
    for (const AreaBox& box : {AreaBox{-20, 20, 160, 180}, AreaBox{-20, 20, -180, -160}})
        SmoothPaint(img, view, CellMake(box), PointsMake(box, [](double, double) { return 52; }));
    const int nX = static_cast<int>(view.LonGetX(180));
    for (int nY = static_cast<int>(view.LatGetY(20)) + 1; nY < view.LatGetY(-20) - 1; ++nY)
        for (int n = -3; n <= 3; ++n) EXPECT_EQ(img.pixel(nX + n, nY), BandColor(52)) << nY;
}

TEST(MapSmooth, AnEmptyGridPaintsNothing)
{
    const MapView view = ViewMake({55, 15, 5, 65});
    QImage img = White(view);
    SmoothPaint(img, view, CellMake(kBox), {});
    EXPECT_EQ(img, White(view));
}

}  // namespace
