#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QPainter>
#include <QPalette>
#include <set>

#include "MapFakes.h"
#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"
#include "ui/common/NightColors.h"
#include "ui/common/PaletteShown.h"
#include "ui/map/MapColors.h"
#include "ui/map/MapGraticule.h"
#include "ui/map/MapLegend.h"
#include "ui/map/MapPaint.h"
#include "ui/map/WorldImage.h"

namespace {

constexpr QRgb kInk = qRgb(0, 0, 0);
constexpr QRgb kPaper = qRgb(255, 255, 255);

QImage RowMake(const std::vector<QRgb>& aPixel)
{
    QImage img(static_cast<int>(aPixel.size()), 1, QImage::Format_RGB32);
    for (std::size_t n = 0; n < aPixel.size(); ++n) img.setPixel(static_cast<int>(n), 0, aPixel[n]);
    return img;
}

QImage WorldMake()
{
    QImage img(400, 300, QImage::Format_RGB32);
    img.fill(kMapBackground);
    EXPECT_TRUE(WorldImagePaint(img, QRect(0, 0, kImgWidth, kImgHeight)));
    return img;
}

QRgb Band(std::size_t iBand, Palette ePalette)
{
    return ColorFromBgr(SnrBandsGet(ePalette)[iBand].nColor).rgb();
}

TEST(MapColors, TheStandardMapIsThePictureItself)
{
    const QImage img = WorldMake();
    EXPECT_EQ(MapPictureShown(img, {false, false, Palette::Safe}), img);
    EXPECT_EQ(MapPictureShown(img, {true, false, Palette::Standard}), img);
}

TEST(MapColors, CellsTakeThePalettesColoursAndLinesAndPaperStay)
{
    for (const Palette ePalette : {Palette::Safe, Palette::Print})
        for (std::size_t i = 0; i < 8; ++i)
            EXPECT_EQ(MapPictureShown(RowMake({kPaper, kInk, Band(i, Palette::Standard)}),
                                      {true, false, ePalette}),
                      RowMake({kPaper, kInk, Band(i, ePalette)}));
}

TEST(MapColors, TheGreyLinesOfThePlainMapAreNoCells)
{
    const QRgb nGrey = qRgb(128, 128, 128);
    EXPECT_EQ(MapPictureShown(RowMake({nGrey}), {false, false, Palette::Safe}), RowMake({nGrey}));
}

TEST(MapColors, ByNightLinesAreRedOnBlackAndBlackOnBrightCells)
{
    const MapLook look{true, false, Palette::Night};
    for (std::size_t i = 0; i < 8; ++i) {
        const QRgb nCell = Band(i, Palette::Night);
        const QImage img = MapPictureShown(
            RowMake({kInk, kPaper, kInk, Band(i, Palette::Standard), kInk, kPaper}), look);
        EXPECT_EQ(img.pixel(0, 0), kNightInk) << "at the edge";
        EXPECT_EQ(img.pixel(1, 0), kInk) << "no cell";
        EXPECT_EQ(img.pixel(2, 0), kNightInk);
        EXPECT_EQ(img.pixel(3, 0), nCell);
        EXPECT_EQ(img.pixel(4, 0), qRed(nCell) >= 0x85 ? kInk : kNightInk);
        EXPECT_GE(ColorContrast(ColorToBgr(QColor(img.pixel(4, 0))), ColorToBgr(QColor(nCell))),
                  1.9)
            << "a line on cell " << i;
    }
}

TEST(MapColors, ByNightALineFromSideToSideTakesTheGroundAboveIt)
{
    QImage img(4, 2, QImage::Format_RGB32);
    img.fill(kInk);
    for (const int x : {0, 1}) img.setPixel(x, 0, kPaper);
    for (const int x : {2, 3}) img.setPixel(x, 0, Band(0, Palette::Standard));
    const QImage imgNight = MapPictureShown(img, {true, false, Palette::Night});
    EXPECT_EQ(imgNight.pixel(1, 1), kNightInk);
    EXPECT_EQ(imgNight.pixel(2, 1), kInk);
}

TEST(MapColors, ByNightCellsOfOtherValuesAreTheDarkerTheLighterTheyAreAsInTables)
{
    const MapLook look{true, false, Palette::Night};
    int nBefore = -1;
    for (int nShare = 0; nShare <= 10; ++nShare) {
        const QRgb nCell = ShareColor(nShare / 10.0).rgb();
        const QRgb nShown = MapPictureShown(RowMake({nCell}), look).pixel(0, 0);
        EXPECT_GT(qRed(nShown), nBefore) << nShare;
        nBefore = qRed(nShown);
        EXPECT_LE(std::max(qGreen(nShown), qBlue(nShown)), kNightMost);
        EXPECT_EQ(nShown, CellColorsGet(QColor(nCell), Qt::black, Palette::Night).clrBack.rgb());
    }
}

TEST(MapColors, ALegendsSwatchIsTheCellAsItIsShown)
{
    for (const Palette ePalette : {Palette::Standard, Palette::Safe, Palette::Night}) {
        PaletteShow(ePalette);
        Legend legend{QStringLiteral("head"), {}, QStringLiteral("foot")};
        const std::vector<QRgb> aCells{ShareColor(0.0).rgb(), ShareColor(0.5).rgb(),
                                       Band(2, Palette::Standard)};
        for (const QRgb nCell : aCells) legend.aRows.push_back({QStringLiteral("x"), nCell, true});
        QImage img(300, 200, QImage::Format_RGB32);
        img.fill(Qt::white);
        QPainter painter(&img);
        const QRect rct = LegendGetRect(painter.fontMetrics(), img.rect(), legend, {});
        LegendPaint(painter, rct, legend);
        painter.end();
        std::set<QRgb> aSeen;
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x) aSeen.insert(img.pixel(x, y));
        for (const QRgb nCell : aCells) {
            const QRgb nShown = MapPictureShown(RowMake({nCell}), MapLookGet(true)).pixel(0, 0);
            EXPECT_TRUE(aSeen.contains(nShown)) << static_cast<int>(ePalette) << " " << nCell;
        }
    }
    PaletteShow(Palette::Standard);
}

TEST(MapColors, TheDarkVariantHasEveryBorderOfThePlainMap)
{
    const QImage img = WorldMake();
    const QImage imgDark = MapPictureShown(img, {false, true, Palette::Standard});
    std::set<QRgb> aDark;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x) {
            const QRgb n = imgDark.pixel(x, y);
            aDark.insert(n);
            ASSERT_LT(qGray(n), 128) << x << "," << y;
        }
    EXPECT_GE(aDark.size(), 6U);
    QImage imgLines = img;
    QImage imgDarkLines = imgDark;
    ImageOutline(imgLines);
    ImageOutline(imgDarkLines);
    EXPECT_EQ(imgLines, imgDarkLines);
}

TEST(MapColors, ByNightTheWorldAndItsLabelsAreReds)
{
    QImage img = WorldMake();
    img.setPixel(0, 0, kInk);  // a letter and its plate
    img.setPixel(1, 0, kMapBackground);
    const QImage imgNight = MapPictureShown(img, {false, true, Palette::Night});
    std::set<QRgb> aSeen;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x) {
            const QRgb n = imgNight.pixel(x, y);
            aSeen.insert(n);
            ASSERT_LE(std::max(qGreen(n), qBlue(n)), kNightMost);
        }
    EXPECT_GE(aSeen.size(), 6U);
    EXPECT_EQ(imgNight.pixel(0, 0), kNightInk);
    EXPECT_LT(qRed(imgNight.pixel(1, 0)), 64);
}

TEST(MapColors, ARubberBandIsSeenInTheDark)
{
    QImage img(20, 20, QImage::Format_RGB32);
    img.fill(kSeaColor);
    RectInvert(img, {5, 5, 10, 10});
    const QImage imgDark = MapPictureShown(img, {false, true, Palette::Standard});
    EXPECT_GE(ColorContrast(ColorToBgr(QColor(imgDark.pixel(5, 5))),
                            ColorToBgr(QColor(imgDark.pixel(1, 1)))),
              4.5);
}

/// Sets a desktop's window colour while the object exists.
class Desktop {
public:
    explicit Desktop(const QColor& clrWindow)
    {
        QPalette pal;
        pal.setColor(QPalette::Window, clrWindow);
        QApplication::setPalette(pal);
    }
    ~Desktop() { QApplication::setPalette(QPalette()); }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
};

TEST(MapLook, IsDarkOnDarkDesktopsAndByNightForThePlainMapAlone)
{
    {
        const Desktop desktop(QColor(0xEE, 0xEE, 0xEE));
        EXPECT_EQ(MapLookGet(false), (MapLook{false, false, Palette::Standard}));
        EXPECT_TRUE(MapLookGet(true).PlainIs());
    }
    {
        const Desktop desktop(QColor(0x22, 0x22, 0x22));
        EXPECT_TRUE(MapLookGet(false).bDark);
        EXPECT_TRUE(MapLookGet(true).PlainIs()) << "cells stand on white as ever";
        const PaletteForPaper paper;
        EXPECT_TRUE(MapLookGet(false).PlainIs()) << "what leaves the program is light";
    }
    const Desktop desktop(QColor(0xEE, 0xEE, 0xEE));
    PaletteShow(Palette::Night);
    EXPECT_TRUE(MapLookGet(false).bDark);
    PaletteShow(Palette::Standard);
}

class MapWindowColors : public MapWindow {
protected:
    ~MapWindowColors() override { PaletteShow(Palette::Standard); }
    EngineFake m_engine;
};

TEST_F(MapWindowColors, CellsAndLegendFollowThePaletteAtOnce)
{
    m_pMap->mnuOverlayDraw->trigger();
    const QImage imgDrawn = m_pMap->pctMap->m_img;
    const auto Pixels = [this](QRgb n) {
        const QImage img = m_pMap->pctMap->grab().toImage();
        int nPixels = 0;
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x) nPixels += img.pixel(x, y) == n ? 1 : 0;
        return nPixels;
    };
    for (const Palette ePalette :
         {Palette::Standard, Palette::Safe, Palette::Night, Palette::Print, Palette::Standard}) {
        PaletteShow(ePalette);
        EXPECT_GT(Pixels(Band(4, ePalette)), 10000) << static_cast<int>(ePalette) << ": cells";
        for (std::size_t i = 0; i < 7; ++i)
            EXPECT_GT(Pixels(Band(i, ePalette)), 50) << static_cast<int>(ePalette) << ": legend";
        EXPECT_EQ(m_pMap->pctMap->m_img, imgDrawn) << "the picture itself is the required one";
    }
}

TEST_F(MapWindowColors, WhatLeavesTheProgramIsNeverNight)
{
    m_pMap->mnuOverlayDraw->trigger();
    m_pMap->mnuMapCopy->trigger();
    const QImage imgDay = QGuiApplication::clipboard()->image();
    ASSERT_FALSE(imgDay.isNull());
    PaletteShow(Palette::Night);
    m_pMap->mnuMapCopy->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->image(), imgDay);
    PaletteShow(Palette::Safe);
    m_pMap->mnuMapCopy->trigger();
    EXPECT_NE(QGuiApplication::clipboard()->image(), imgDay);
}

}  // namespace
