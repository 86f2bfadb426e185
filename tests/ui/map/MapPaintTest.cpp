#include <gtest/gtest.h>

#include <array>
#include <string>

#include "ui/map/MapPaint.h"

namespace {

/// The colours of a picture written as letters, one per pixel.
QRgb LetterGet(char cLetter)
{
    switch (cLetter) {
        case '#':
            return qRgb(0, 0, 0);
        case '.':
            return qRgb(255, 255, 255);
        case 's':
            return qRgb(0xBC, 0xD7, 0xE8);  // sea
        case 'l':
            return qRgb(0xF3, 0xE4, 0xAC);  // land
        case 'm':
            return qRgb(0xBF, 0xD8, 0xA0);  // other land
        case 'g':
            return qRgb(0x80, 0x80, 0x80);
        default:
            return qRgb(1, 2, 3);
    }
}

using Letters = std::array<std::string, 8>;

QImage PictureMake(const Letters& asRows)
{
    QImage img(8, 8, QImage::Format_RGB32);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            img.setPixel(x, y, LetterGet(asRows[std::size_t(y)][std::size_t(x)]));
    return img;
}

Letters PictureRead(const QImage& img)
{
    Letters asRows;
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x) {
            char cLetter = '?';
            for (const char c : std::string("#.slmg"))
                if (img.pixel(x, y) == LetterGet(c))
                    cLetter = c;
            asRows[std::size_t(y)] += cLetter;
        }
    return asRows;
}

const Letters kIsland{"ssssssss",  // no line is drawn in the first row
                      "sslllsss", "sslllsss", "lsllmmss", "ssllmmss",
                      "ssssssss", "sss.ssss", "sssssss#"};

TEST(MapPaint, EdgePassDrawsEachBorderOnce)
{
    QImage img = PictureMake(kIsland);
    ImageEdges(img);
    // Worked out by hand, pixel by pixel: a border is drawn on the pixel to the right or below,
    // unless the differing neighbour is black already.
    EXPECT_EQ(PictureRead(img), (Letters{"ssssssss", "ss###sss", "ss#ll#ss", "l#ll#m#s", "ss#l#m#s",
                                         "sss#s#ss", "sss#ssss", "sssssss#"}));
}

TEST(MapPaint, BleachPassLeavesBlackAndWhite)
{
    QImage img = PictureMake({"s.#sl.#m", "########", "........", "gggggggg", "slmgslmg",
                              "#s#s#s#s", ".l.l.l.l", "sm.#sm.#"});
    ImageBleach(img);
    EXPECT_EQ(PictureRead(img), (Letters{"..#...#.", "########", "........", "........", "........",
                                         "#.#.#.#.", "........", "...#...#"}));
}

TEST(MapPaint, OutlineHasNothingButBlackAndWhite)
{
    QImage img = PictureMake(kIsland);
    ImageOutline(img);
    QImage imgPasses = PictureMake(kIsland);
    ImageEdges(imgPasses);
    ImageBleach(imgPasses);
    EXPECT_EQ(PictureRead(img), PictureRead(imgPasses));
    for (const std::string& sRow : PictureRead(img))
        EXPECT_EQ(sRow.find_first_not_of("#."), std::string::npos);
}

TEST(MapPaint, FirstRowAndColumnStayWithoutLines)
{
    QImage img = PictureMake({"slslslsl", "ssssssss", "llllllll", "ssssssss", "llllllll",
                              "ssssssss", "llllllll", "ssssssss"});
    ImageEdges(img);
    for (int i = 0; i < 8; ++i) {
        EXPECT_NE(img.pixel(i, 0), LetterGet('#')) << i;
        EXPECT_NE(img.pixel(0, i), LetterGet('#')) << i;
    }
}

TEST(MapPaint, MaskPenKeepsBlackAndColoursWhite)
{
    QImage img = PictureMake({"..#.....", "..#.....", "########", "..#.....", "..#.gggg",
                              "........", "........", "........"});
    const QRgb nColor = qRgb(192, 0, 192);
    BoxMaskPen(img, QRect(1, 1, 5, 4), nColor);
    EXPECT_EQ(img.pixel(1, 1), nColor);
    EXPECT_EQ(img.pixel(2, 1), LetterGet('#'));
    EXPECT_EQ(img.pixel(4, 2), LetterGet('#'));
    EXPECT_EQ(img.pixel(5, 4), qRgb(128, 0, 128));  // 0x80 and 0xC0
    EXPECT_EQ(img.pixel(6, 4), LetterGet('g'));     // outside the box
    EXPECT_EQ(img.pixel(1, 5), LetterGet('.'));
    EXPECT_EQ(img.pixel(0, 1), LetterGet('.'));
}

TEST(MapPaint, MaskPenIsCutAtThePicture)
{
    QImage img = PictureMake({"........", "........", "........", "........", "........",
                              "........", "........", "........"});
    BoxMaskPen(img, QRect(-100, -100, 104, 101), LetterGet('g'));
    BoxMaskPen(img, QRect(20, 20, 5, 5), LetterGet('g'));
    BoxMaskPen(img, QRect(), LetterGet('g'));
    EXPECT_EQ(PictureRead(img)[0], "gggg....");
    EXPECT_EQ(PictureRead(img)[1], "........");
}

TEST(MapPaint, InvertedRectangleComesAndGoes)
{
    for (const QRect rct : {QRect(1, 1, 5, 4), QRect(-3, 2, 20, 3), QRect(2, 2, 1, 5),
                            QRect(2, 2, 5, 1), QRect(3, 3, 1, 1), QRect(1, 1, 2, 2)}) {
        QImage img = PictureMake(kIsland);
        RectInvert(img, rct);
        EXPECT_NE(PictureRead(img), kIsland);
        RectInvert(img, rct);
        EXPECT_EQ(PictureRead(img), kIsland);
    }
}

TEST(MapPaint, InvertedRectangleIsAOnePixelOutline)
{
    QImage img = PictureMake({"........", "........", "........", "........", "........",
                              "........", "........", "........"});
    RectInvert(img, QRect(1, 2, 5, 4));
    EXPECT_EQ(PictureRead(img), (Letters{"........", "........", ".#####..", ".#...#..", ".#...#..",
                                         ".#####..", "........", "........"}));
}

TEST(MapPaint, OtherFormatsStayAsTheyAre)
{
    QImage img(4, 4, QImage::Format_Grayscale8);
    img.fill(100);
    ImageOutline(img);
    BoxMaskPen(img, img.rect(), LetterGet('g'));
    RectInvert(img, img.rect());
    EXPECT_EQ(qRed(img.pixel(2, 2)), 100);
    QImage imgNone;
    ImageOutline(imgNone);
    RectInvert(imgNone, QRect(0, 0, 5, 5));
    EXPECT_TRUE(imgNone.isNull());
}

}  // namespace
