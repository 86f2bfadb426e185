#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <set>

#include "ui/map/WorldImage.h"

namespace {

constexpr double kPi = 3.14159265358979;
constexpr QRgb kPaper = qRgb(255, 0, 255);  // not a colour of the map

int LonGetX(double dLon)
{
    return int(std::lround((dLon < 0 ? dLon + 360 : dLon) * kImgWidth / 360));
}

/// By the map's ordinates: +-90 where the Mercator height is that of half the image.
int LatGetY(double dLat)
{
    const double dK = kImgHeight * (kPi / 2) / (kImgWidth / 2.0);
    const double dOrdinate = std::log(std::tan(kPi / 4 + dLat * kPi / 360)) * 90 / dK;
    return int(std::lround((90 - dOrdinate) * kImgHeight / 180));
}

QImage PaperMake(int nWidth, int nHeight)
{
    QImage img(nWidth, nHeight, QImage::Format_RGB32);
    img.fill(kPaper);
    return img;
}

QImage ViewPaint(const QRect& rct, int nWidth, int nHeight)
{
    QImage img = PaperMake(nWidth, nHeight);
    EXPECT_TRUE(WorldImagePaint(img, rct));
    return img;
}

/// A view with the proportions 12 : 7, dSpan degrees of longitude wide.
QRect ViewGet(double dLat, double dLon, double dSpan)
{
    const int nWidth = LonGetX(dSpan);
    const int nHeight = nWidth * 7 / 12;
    return {LonGetX(dLon) - nWidth / 2, LatGetY(dLat) - nHeight / 2, nWidth, nHeight};
}

QRgb PlaceGetColor(double dLat, double dLon)
{
    return ViewPaint({LonGetX(dLon), LatGetY(dLat), 1, 1}, 1, 1).pixel(0, 0);
}

QRgb CountryGetColor(const char* sName)
{
    for (const MapCountry& cty : WorldMapGet().m_aCountries)
        if (cty.m_sName == sName)
            return kLandColors[std::size_t(cty.m_nColor)];
    ADD_FAILURE() << sName;
    return kPaper;
}

struct Place {
    const char* sName;
    double dLat;
    double dLon;
    const char* sCountry;  ///< nullptr: sea
};
std::ostream& operator<<(std::ostream& stm, const Place& plc) { return stm << plc.sName; }

class WorldImagePlace : public testing::TestWithParam<Place> {};

}  // namespace

TEST_P(WorldImagePlace, HasTheColourOfItsCountry)
{
    const Place& plc = GetParam();
    EXPECT_EQ(PlaceGetColor(plc.dLat, plc.dLon),
              plc.sCountry == nullptr ? kSeaColor : CountryGetColor(plc.sCountry));
}

// Positions from an atlas, some way inland or offshore.
// clang-format off
INSTANTIATE_TEST_SUITE_P(Atlas, WorldImagePlace, testing::Values(
    Place{"London", 51.5, -0.12, "United Kingdom"},
    Place{"Greenwich", 51.478, 0.0, "United Kingdom"},
    Place{"WestOfGreenwich", 51.478, -0.01, "United Kingdom"},
    Place{"EastOfGreenwich", 51.478, 0.01, "United Kingdom"},
    Place{"SpainOnMeridian", 40.9, 0.0, "Spain"},
    Place{"GhanaOnMeridian", 7.0, 0.0, "Ghana"},
    Place{"GhanaWest", 7.0, -0.5, "Ghana"},
    Place{"GhanaEast", 7.0, 0.3, "Ghana"},
    Place{"AlgeriaOnMeridian", 28.0, 0.0, "Algeria"},
    Place{"VitiLevu", -17.8, 178.0, "Fiji"},
    Place{"Suva", -18.08, 178.4, "Fiji"},
    Place{"VanuaLevu", -16.65, 179.2, "Fiji"},
    Place{"TaveuniWest", -16.88, 179.97, "Fiji"},
    Place{"TaveuniOn180", -16.88, 180.0, "Fiji"},
    Place{"TaveuniEast", -16.88, -179.97, "Fiji"},
    Place{"ChukotkaWest", 68.0, 179.0, "Russia"},
    Place{"ChukotkaOn180", 68.0, 180.0, "Russia"},
    Place{"ChukotkaEast", 67.0, -179.0, "Russia"},
    Place{"WrangelWest", 71.2, 179.5, "Russia"},
    Place{"WrangelEast", 71.2, -179.5, "Russia"},
    Place{"Alaska", 65.0, -150.0, "United States of America"},
    Place{"Hawaii", 19.6, -155.5, "United States of America"},
    Place{"Lesotho", -29.5, 28.3, "Lesotho"},
    Place{"SouthAfrica", -29.0, 24.0, "South Africa"},
    Place{"Vatican", 41.902, 12.434, "Vatican"},
    Place{"Greenland", 75.0, -40.0, "Greenland"},
    Place{"AntarcticaEast", -83.9, 60.0, "Antarctica"},
    Place{"AntarcticaWest", -83.9, -100.0, "Antarctica"},
    Place{"AntarcticaOnMeridian", -83.9, 0.0, "Antarctica"},
    Place{"AntarcticaCorner", -84.0, -0.01, "Antarctica"},
    Place{"MidAtlantic", 30.0, -40.0, nullptr},
    Place{"GulfOfGuinea", 0.0, 0.0, nullptr},
    Place{"MidChannel", 50.2, -1.0, nullptr},
    Place{"PacificOn180", 0.0, 180.0, nullptr},
    Place{"KoroSea", -17.8, 179.9, nullptr},
    Place{"CaspianSea", 42.0, 51.0, nullptr},
    Place{"BeringStrait", 65.8, -168.6, nullptr},
    Place{"ArcticOcean", 83.9, 180.0, nullptr},
    Place{"DrakePassage", -59.0, -65.0, nullptr}),
    [](const auto& place) { return std::string(place.param.sName); });
// clang-format on

TEST(WorldImage, ReachesBeyond83Degrees)
{
    const double dK = kImgHeight * kPi / kImgWidth;
    const double dTop = 2 * (std::atan(std::exp(dK)) - kPi / 4) * 180 / kPi;
    EXPECT_GT(dTop, 83.7);  // all land is south of 83.63
    EXPECT_LT(dTop, 85.0);
}

TEST(WorldImage, ColoursAreDistinctAndNeitherBlackNorWhite)
{
    std::set<QRgb> setColors(kLandColors.begin(), kLandColors.end());
    setColors.insert(kSeaColor);
    EXPECT_EQ(setColors.size(), kLandColors.size() + 1);
    EXPECT_EQ(setColors.count(qRgb(0, 0, 0)), 0u);
    EXPECT_EQ(setColors.count(qRgb(255, 255, 255)), 0u);
    for (const QRgb nColor : setColors)
        EXPECT_GT(std::abs(qGray(nColor) - 128), 40) << "grey lines must show on every colour";
}

TEST(WorldImage, HasNoColourButTheFlatOnes)
{
    std::set<QRgb> setFlat(kLandColors.begin(), kLandColors.end());
    setFlat.insert(kSeaColor);
    for (const double dSpan : {360.0, 120.0, 30.0, 5.0, 0.5}) {
        const QImage img = ViewPaint(ViewGet(46.2, 6.1 + dSpan / 2, dSpan), 600, 350);
        std::set<QRgb> setSeen;
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x) setSeen.insert(img.pixel(x, y));
        setSeen.erase(kPaper);
        EXPECT_TRUE(std::includes(setFlat.begin(), setFlat.end(), setSeen.begin(), setSeen.end()));
        EXPECT_GE(setSeen.size(), 2u) << dSpan;
    }
}

TEST(WorldImage, ChukotkaAndWrangelHaveNoSeamAt180)
{
    for (const double dSpan : {1.0, 3.0, 5.0, 40.0, 180.0})
        for (const double dLat : {66.5, 67.3, 68.4, 71.2}) {
            const QRect rct = ViewGet(dLat, 180.0, dSpan);
            const QImage img = ViewPaint(rct, 1200, 700);
            const int nHalf = std::min(20, int(0.3 / dSpan * 1200));  // Wrangel is 4 degrees wide
            for (int x = 600 - nHalf; x < 600 + nHalf; ++x)
                EXPECT_EQ(img.pixel(x, 350), CountryGetColor("Russia")) << dLat << " " << dSpan;
        }
}

TEST(WorldImage, TaveuniHasNoSeamAt180)
{
    // The source has this island in two pieces that meet at the meridian.
    for (const double dSpan : {0.3, 0.7, 2.0, 5.0}) {
        const QImage img = ViewPaint(ViewGet(-16.88, 180.0, dSpan), 1200, 700);
        const int nHalf = int(0.05 / dSpan * 1200);
        for (int x = 600 - nHalf; x < 600 + nHalf; ++x)
            EXPECT_EQ(img.pixel(x, 350), CountryGetColor("Fiji")) << x << " " << dSpan;
    }
}

TEST(WorldImage, CoastsMatchAtTheTwoEdges)
{
    constexpr int kRows = 3000;
    const QImage imgLeft = ViewPaint({0, 0, 1, kImgHeight}, 1, kRows);
    const QImage imgRight = ViewPaint({kImgWidth - 1, 0, 1, kImgHeight}, 1, kRows);
    int nDifferent = 0;
    int nLand = 0;
    int nBorders = 0;
    for (int y = 0; y < kRows; ++y) {
        nDifferent += imgLeft.pixel(0, y) != imgRight.pixel(0, y);
        nLand += imgLeft.pixel(0, y) != kSeaColor;
        nBorders += y > 0 && imgLeft.pixel(0, y) != imgLeft.pixel(0, y - 1);
    }
    EXPECT_LE(nDifferent, 1);  // a coast may pass between two rows
    EXPECT_GT(nLand, kRows / 4);
    EXPECT_GE(nBorders, 10);  // England, France, Spain, Algeria ... Ghana, Antarctica
}

TEST(WorldImage, EveryLevelOfDetailIsRightToAPixel)
{
    // Compares with the same view at three times the resolution: every pixel's colour must be found
    // there within one pixel.
    constexpr int kWidth = 600;
    constexpr int kHeight = 350;
    for (const double dSpan : {360.0, 200.0, 110.0, 56.0, 29.0, 14.5, 5.0, 2.0}) {
        const QRect rct = ViewGet(50.0, 2.0 + dSpan / 2, dSpan);
        const QImage img = ViewPaint(rct, kWidth, kHeight);
        const QImage imgFine = ViewPaint(rct, 3 * kWidth, 3 * kHeight);
        int nWrong = 0;
        for (int y = 1; y < kHeight - 1; ++y)
            for (int x = 1; x < kWidth - 1; ++x) {
                bool bFound = false;
                for (int i = 0; i < 81 && !bFound; ++i)
                    bFound = imgFine.pixel(3 * x - 3 + i % 9, 3 * y - 3 + i / 9) == img.pixel(x, y);
                nWrong += !bFound;
            }
        // Anything smaller than a pixel may be lost: rings are left out and states become dots.
        EXPECT_LE(nWrong, dSpan > 50.0 ? 20 : 0) << dSpan;
    }
}

TEST(WorldImage, ViewsOfOneScaleAreCutFromOnePicture)
{
    const QRect rct = ViewGet(38.0, 24.0, 20.0);
    const QImage img = ViewPaint(QRect(rct.topLeft(), QSize(20 * 600, 20 * 400)), 600, 400);
    const QImage imgMoved =
        ViewPaint(QRect(rct.x() + 20 * 37, rct.y() + 20 * 11, 20 * 500, 20 * 300), 500, 300);
    EXPECT_EQ(imgMoved, img.copy(37, 11, 500, 300));
}

TEST(WorldImage, WhatLiesOutsideStaysAsItWas)
{
    const QRect aCorners[] = {{-100, -100, 200, 200},
                              {kImgWidth - 100, -100, 200, 200},
                              {-100, kImgHeight - 100, 200, 200},
                              {kImgWidth - 100, kImgHeight - 100, 200, 200}};
    for (const QRect& rct : aCorners) {
        const QImage img = ViewPaint(rct, 200, 200);
        for (int y = 0; y < 200; ++y)
            for (int x = 0; x < 200; ++x) {
                const bool bInside =
                    QRect(0, 0, kImgWidth, kImgHeight).contains(rct.topLeft() + QPoint(x, y));
                ASSERT_EQ(img.pixel(x, y) != kPaper, bInside) << x << " " << y;
            }
    }
}

TEST(WorldImage, WholeImageLeavesStripsOfAWideWindowAlone)
{
    // At 338000 / 700 image pixels per pixel the image is 745.6 pixels wide, centred in 1200.
    const int nWidth = kImgHeight / 7 * 12;
    const QImage img = ViewPaint({kImgWidth / 2 - nWidth / 2, 0, nWidth, kImgHeight}, 1200, 700);
    for (const int y : {0, 350, 699}) {
        EXPECT_EQ(img.pixel(0, y), kPaper);
        EXPECT_EQ(img.pixel(226, y), kPaper);
        EXPECT_NE(img.pixel(228, y), kPaper);
        EXPECT_NE(img.pixel(971, y), kPaper);
        EXPECT_EQ(img.pixel(973, y), kPaper);
    }
}

TEST(WorldImage, ViewBesideTheImageChangesNothing)
{
    for (const QRect& rct : {QRect(kImgWidth + 5, 0, 100, 100), QRect(-2000, 0, 1500, 900),
                             QRect(0, kImgHeight, 100, 100), QRect(0, -101, 100, 100)})
        EXPECT_EQ(ViewPaint(rct, 30, 20), PaperMake(30, 20));
}

TEST(WorldImage, NoIslandStateIsLostInTheWholeWorld)
{
    const Place aStates[] = {
        {"Nauru", -0.53, 166.93, nullptr},  {"Niue", -19.05, -169.87, nullptr},
        {"Bermuda", 32.3, -64.77, nullptr}, {"St. Helena", -15.96, -5.71, nullptr},
        {"Malta", 35.89, 14.45, nullptr},   {"Mauritius", -20.28, 57.57, nullptr}};
    const QRect rct(0, 0, kImgWidth, kImgHeight);
    const QImage img = ViewPaint(rct, 720, 676);
    for (const Place& plc : aStates) {
        const QPoint ptn(LonGetX(plc.dLon) / 500, LatGetY(plc.dLat) / 500);
        int nLand = 0;
        for (int i = 0; i < 9; ++i)
            nLand += img.pixel(ptn.x() - 1 + i % 3, ptn.y() - 1 + i / 3) != kSeaColor;
        EXPECT_GE(nLand, 1) << plc.sName;
        EXPECT_LE(nLand, 6) << plc.sName;
    }
}

TEST(WorldImage, SameArgumentsGiveTheSamePixelsInEveryFormat)
{
    const QRect rct = ViewGet(18.0, -72.0, 30.0);
    const QImage img = ViewPaint(rct, 400, 300);
    EXPECT_EQ(img, ViewPaint(rct, 400, 300));
    for (const QImage::Format eFormat :
         {QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied}) {
        QImage imgAlpha(400, 300, eFormat);
        imgAlpha.fill(Qt::transparent);
        ASSERT_TRUE(WorldImagePaint(imgAlpha, rct));
        EXPECT_EQ(qAlpha(imgAlpha.pixel(200, 150)), 255);
        EXPECT_EQ(imgAlpha.convertToFormat(QImage::Format_RGB32), img);
    }
}

TEST(WorldImage, ArgumentsOfAnotherKindAreRefused)
{
    QImage imgNone;
    EXPECT_FALSE(WorldImagePaint(imgNone, {0, 0, 10, 10}));
    QImage imgBytes(10, 10, QImage::Format_Grayscale8);
    imgBytes.fill(7);
    const QImage imgOld = imgBytes.copy();
    EXPECT_FALSE(WorldImagePaint(imgBytes, {0, 0, 10, 10}));
    EXPECT_EQ(imgBytes, imgOld);
    QImage img = PaperMake(10, 10);
    EXPECT_FALSE(WorldImagePaint(img, {0, 0, 0, 10}));
    EXPECT_FALSE(WorldImagePaint(img, {0, 0, 10, -3}));
    EXPECT_EQ(img, PaperMake(10, 10));
}

TEST(WorldImage, ExtremeViewsAreHarmless)
{
    constexpr int kFar = 1 << 30;
    const QImage img = ViewPaint({-kFar, -kFar, kFar + kImgWidth, kFar + kImgHeight}, 9, 9);
    EXPECT_EQ(img.pixel(0, 0), kPaper);
    const QImage imgClose = ViewPaint({LonGetX(10.0), LatGetY(52.0), 1, 1}, 50, 50);
    EXPECT_EQ(imgClose.pixel(49, 49), CountryGetColor("Germany"));
}

TEST(WorldImage, BeginningAtLongitude180ItShowsTheSameWorldTurnedByHalf)
{
    const auto Differ = [](const QImage& img, const QImage& imgOther) {
        int nDiffer = 0;
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x)
                nDiffer += img.pixel(x, y) != imgOther.pixel(x, y) ? 1 : 0;
        return nDiffer;
    };
    constexpr int kHalf = kImgWidth / 2;
    const QImage img = ViewPaint({0, 0, kImgWidth, kImgHeight}, 720, 676);
    QImage imgTurned = PaperMake(720, 676);
    ASSERT_TRUE(WorldImagePaint(imgTurned, {0, 0, kImgWidth, kImgHeight}, -180));
    EXPECT_LT(Differ(imgTurned.copy(360, 0, 360, 676), img.copy(0, 0, 360, 676)), 50);
    EXPECT_LT(Differ(imgTurned.copy(0, 0, 360, 676), img.copy(360, 0, 360, 676)), 50);
    // Close up, and across Greenwich, where the other image ends.
    QImage imgClose = PaperMake(300, 200);
    ASSERT_TRUE(WorldImagePaint(imgClose, {kHalf - 9000, LatGetY(54.0), 18000, 12000}, -180));
    const QImage imgEast = ViewPaint({0, LatGetY(54.0), 9000, 12000}, 150, 200);
    const QImage imgWest = ViewPaint({kImgWidth - 9000, LatGetY(54.0), 9000, 12000}, 150, 200);
    EXPECT_LT(Differ(imgClose.copy(150, 0, 150, 200), imgEast), 20);
    EXPECT_LT(Differ(imgClose.copy(0, 0, 150, 200), imgWest), 20);
}
