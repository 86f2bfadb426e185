#include <gtest/gtest.h>

#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"
#include "ui/common/NightColors.h"

namespace {

bool DarkIs(QRgb n) { return qGreen(n) <= kNightMost && qBlue(n) <= kNightMost; }

TEST(NightRed, HasNoOtherLightForAnyColour)
{
    for (int nRed = 0; nRed < 256; nRed += 5)
        for (int nGreen = 0; nGreen < 256; nGreen += 5)
            for (int nBlue = 0; nBlue < 256; nBlue += 5)
                ASSERT_TRUE(DarkIs(NightRed(qRgb(nRed, nGreen, nBlue))))
                    << nRed << " " << nGreen << " " << nBlue;
}

TEST(NightRed, LeavesTheColoursOfNightAsTheyAre)
{
    for (const SnrBand& band : SnrBandsGet(Palette::Night)) {
        const QRgb nColor = ColorFromBgr(band.nColor).rgb();
        EXPECT_EQ(NightRed(nColor), nColor);
    }
    EXPECT_EQ(NightRed(kNightInk), kNightInk);
    EXPECT_EQ(NightRed(qRgb(0, 0, 0)), qRgb(0, 0, 0));
}

TEST(NightRed, TakesTheLightnessAndLosesNoRed)
{
    EXPECT_EQ(NightRed(qRgb(255, 255, 255)), qRgb(255, 24, 0));
    EXPECT_EQ(qRed(NightRed(qRgb(128, 128, 128))), 128);
    EXPECT_EQ(qRed(NightRed(qRgb(200, 25, 0))), 200) << "no step beside the reds that stay";
    EXPECT_LT(qRed(NightRed(qRgb(0, 0, 255))), 64) << "blue is dark on white";
    EXPECT_EQ(qAlpha(NightRed(qRgba(90, 90, 90, 100))), 100);
}

TEST(NightReds, ChangeEveryPixelOfAnyPicture)
{
    QImage img(3, 2, QImage::Format_RGB888);
    img.fill(Qt::white);
    NightReds(img);
    EXPECT_EQ(img.depth(), 32);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 3; ++x) EXPECT_EQ(img.pixel(x, y), kNightInk);
}

TEST(NightNegative, TurnsPaperBlackAndInkRed)
{
    QImage img(2, 1, QImage::Format_RGB32);
    img.setPixel(0, 0, qRgb(255, 255, 255));
    img.setPixel(1, 0, qRgb(0, 0, 0));
    const QImage imgNight = NightNegative(img);
    EXPECT_EQ(imgNight.pixel(0, 0), qRgb(0, 0, 0));
    EXPECT_EQ(imgNight.pixel(1, 0), kNightInk);
    img.setPixel(0, 0, kNightInk);
    EXPECT_EQ(NightNegative(img).pixel(0, 0), kNightInk) << "red on black already";
    EXPECT_EQ(NightNegative(img).pixel(1, 0), qRgb(0, 0, 0));
}

}  // namespace
