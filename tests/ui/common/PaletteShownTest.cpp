#include <gtest/gtest.h>

#include <QSignalSpy>
#include <set>

#include "propagation/SnrScale.h"
#include "ui/common/BandPaint.h"
#include "ui/common/GridControl.h"
#include "ui/common/NightColors.h"
#include "ui/common/PaletteShown.h"

namespace {

constexpr Palette kPalettes[] = {Palette::Standard, Palette::Safe, Palette::Night, Palette::Print};

class PaletteForce : public testing::TestWithParam<Palette> {
protected:
    PaletteForce() { PaletteShow(GetParam()); }
    ~PaletteForce() override { PaletteShow(Palette::Standard); }
};

std::string PaletteName(const testing::TestParamInfo<Palette>& param)
{
    constexpr const char* kNames[] = {"Standard", "Safe", "Night", "Print"};
    return kNames[static_cast<std::size_t>(param.param)];
}

INSTANTIATE_TEST_SUITE_P(Palettes, PaletteForce, testing::ValuesIn(kPalettes), PaletteName);

/// Fills a grid with one cell for each band, in the standard colours as windows do.
void BandsFill(GridControl& grd)
{
    grd.RowsSet(2);
    grd.ColsSet(9);
    for (int iCol = 1; iCol <= 8; ++iCol) {
        const SnrBand& band = SnrBandsGet()[static_cast<std::size_t>(iCol - 1)];
        grd.ColWidthSet(iCol, 60);
        grd.TextSet(1, iCol, QStringLiteral("58"));
        grd.ColorSet(1, iCol, ColorFromBgr(band.nColor), ColorFromBgr(band.nText));
    }
    grd.resize(grd.sizeHint().expandedTo({600, 120}));
}

/// Compares a number with the plate under it: of all pixels of the text the one with the most
/// contrast counts, and for the plate a pixel beside the letters.
TEST_P(PaletteForce, EveryNumberOfATableReadsAsItIsPainted)
{
    GridControl grd;
    BandsFill(grd);
    const QImage img = grd.grab().toImage();
    for (int iCol = 1; iCol <= 8; ++iCol) {
        const SnrBand& band = SnrBandsGet(GetParam())[static_cast<std::size_t>(iCol - 1)];
        const QRect rct = grd.PlaceRect({1, iCol});
        EXPECT_EQ(QColor(img.pixel(rct.left() + 3, rct.top() + rct.height() / 2)),
                  ColorFromBgr(band.nColor))
            << "rim of cell " << iCol;
        // A pixel of the plate, left of the first letter.
        const int nText = grd.fontMetrics().horizontalAdvance(QStringLiteral("58"));
        const QRgb nGround = img.pixel(rct.center().x() - nText / 2 - 1, rct.center().y());
        EXPECT_EQ(QColor(nGround), ColorFromBgr(band.nGround)) << iCol;
        double dMost = 1.0;
        for (int y = rct.top() + 2; y < rct.bottom() - 2; ++y)
            for (int x = rct.center().x() - nText / 2; x < rct.center().x() + nText / 2; ++x)
                dMost = std::max(dMost, ColorContrast(ColorToBgr(QColor(img.pixel(x, y))),
                                                      ColorToBgr(QColor(nGround))));
        EXPECT_GE(dMost, 4.5) << iCol;
    }
}

TEST_P(PaletteForce, ALegendsBoxHasTheBandsColours)
{
    for (std::size_t i = 0; i < 8; ++i) {
        const SnrBand& band = SnrBandsGet(GetParam())[i];
        BandLabel lbl(i, QStringLiteral("50"));
        lbl.resize(60, 24);
        const QImage img = lbl.grab().toImage();
        EXPECT_EQ(QColor(img.pixel(1, 1)), ColorFromBgr(band.nColor));
        const int nText = lbl.fontMetrics().horizontalAdvance(lbl.text());
        EXPECT_EQ(QColor(img.pixel(30 - nText / 2 - 1, 12)), ColorFromBgr(band.nGround));
    }
}

TEST_P(PaletteForce, OnPaperIsThatOfTheScreenAndNeverNight)
{
    EXPECT_EQ(PaletteShown(), GetParam());
    const bool bNight = GetParam() == Palette::Night;
    EXPECT_EQ(PaletteOnPaper(), bNight ? Palette::Standard : GetParam());
    {
        const PaletteForPaper paper;
        EXPECT_EQ(PaletteShown(), PaletteOnPaper());
        EXPECT_FALSE(PaletteNightIs());
    }
    EXPECT_EQ(PaletteNightIs(), bNight);
}

TEST(Palettes, ALegendsBoxOfItsOwnPaletteKeepsIt)
{
    BandLabel lbl(0, QStringLiteral("70"), Palette::Print);
    lbl.resize(60, 24);
    EXPECT_EQ(lbl.grab().toImage().pixel(1, 1), qRgb(0x40, 0x40, 0x40));
    lbl.PaletteSet(Palette::Safe);
    EXPECT_EQ(lbl.grab().toImage().pixel(1, 1), qRgb(0xFF, 0xF3, 0xA0));
}

TEST(Palettes, OfWhatIsNotOfTheScaleOnlyNightChangesColoursAndGivesItPlates)
{
    const QColor clr(0x62, 0xA2, 0xE8);
    for (const Palette ePalette : kPalettes) {
        const CellColors colors = CellColorsGet(clr, Qt::black, ePalette);
        EXPECT_EQ(ColorInPalette(clr, ePalette), clr);
        if (ePalette != Palette::Night) {
            EXPECT_EQ(colors.clrBack, clr);
            EXPECT_EQ(colors.clrGround, clr);
            EXPECT_EQ(colors.clrText, QColor(Qt::black));
            continue;
        }
        EXPECT_EQ(colors.clrBack, QColor(NightNegative(clr.rgb())));
        EXPECT_EQ(colors.clrGround, QColor(Qt::black));
        EXPECT_EQ(colors.clrText, QColor(kNightInk));
    }
}

TEST(Palettes, ABandIsHiddenOnAGroundOfItsColourAlone)
{
    EXPECT_TRUE(BandHiddenIs(Qt::black, Qt::black));
    EXPECT_TRUE(BandHiddenIs(Qt::white, Qt::white));
    EXPECT_FALSE(BandHiddenIs(Qt::black, Qt::white));
    // The next band is visible.
    EXPECT_FALSE(BandHiddenIs(ColorFromBgr(SnrBandsGet(Palette::Print)[6].nColor), Qt::white));
}

TEST(Palettes, AreToldOnceEach)
{
    QSignalSpy spy(&PaletteSignal::Get(), &PaletteSignal::Changed);
    PaletteShow(Palette::Safe);
    PaletteShow(Palette::Safe);
    EXPECT_EQ(spy.count(), 1);
    PaletteShow(Palette::Standard);
    EXPECT_EQ(spy.count(), 2);
}

}  // namespace
