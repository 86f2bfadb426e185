#include <gtest/gtest.h>

#include <QImage>

#include "ui/page/Page.h"
#include "ui/page/PageSample.h"

namespace {

constexpr int kAround = 60;  // an empty margin round the page

QImage Painted(const Page& page, QSize size, PageLook eLook)
{
    QImage image(size + QSize(2 * kAround, 2 * kAround), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PagePaint(painter, QRectF(QPointF(kAround, kAround), QSizeF(size)), page, eLook);
    return image;
}

/// The smallest rectangle that contains everything not white.
QRect InkGet(const QImage& image)
{
    QRect rct;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) != QColor(Qt::white))
                rct |= QRect(x, y, 1, 1);
    return rct;
}

class PageOnPaper : public testing::TestWithParam<QSize> {};

TEST_P(PageOnPaper, NothingIsPaintedBeyondThePage)
{
    for (const int nFrequencies : {1, 7, 15}) {
        const QImage image = Painted(SamplePage(nFrequencies), GetParam(), PageLook::Colour);
        const QRect rctPage(QPoint(kAround, kAround), GetParam());
        // Half of a frame's line is outside.
        EXPECT_TRUE(rctPage.adjusted(-1, -1, 1, 1).contains(InkGet(image))) << nFrequencies;
        EXPECT_GT(InkGet(image).height(), rctPage.height() * 9 / 10) << "the foot is at the bottom";
    }
}

TEST_P(PageOnPaper, ThePictureGetsTheRoomThatIsLeft)
{
    Page page = SamplePage(3);
    std::vector<QRectF> aRect;
    std::get<PagePicture>(page.aBlock.back().body).fnPaint =
        [&aRect](QPainter&, const QRectF& rct, PageLook) { aRect.push_back(rct); };
    (void)Painted(page, GetParam(), PageLook::Colour);
    ASSERT_EQ(aRect.size(), 1U);
    EXPECT_NEAR(aRect[0].width(), GetParam().width(), 1e-6);
    EXPECT_GT(aRect[0].height(), 80.0);
}

// A4 and Letter, portrait and landscape, at 100 dots per inch without their margins; and a small
// preview.
INSTANTIATE_TEST_SUITE_P(Papers, PageOnPaper,
                         testing::Values(QSize(732, 1074), QSize(1074, 732), QSize(756, 1006),
                                         QSize(1006, 756), QSize(380, 540)));

TEST(Page, LettersTooLargeForTheRoomAreMadeSmallerNotCut)
{
    Page page;
    page.aBlock.push_back({QString(), SampleGrid(40)});
    const QImage image = Painted(page, QSize(300, 200), PageLook::Colour);
    EXPECT_TRUE(QRect(kAround - 1, kAround - 1, 302, 202).contains(InkGet(image)));
}

TEST(Page, AWordLongerThanALineIsMadeSmallerNotCut)
{
    Page page;
    page.sTitle = QString(200, QLatin1Char('W'));
    const QImage image = Painted(page, QSize(500, 700), PageLook::Colour);
    const QRect rctInk = InkGet(image);
    EXPECT_TRUE(QRect(kAround - 1, kAround - 1, 502, 702).contains(rctInk));
    EXPECT_GT(rctInk.width(), 400);
}

TEST(Page, ATableThatTurnsLiesOnAWidePage)
{
    Page page;
    PageGrid grid = SampleGrid(2);
    page.aBlock.push_back({QString(), grid});
    const auto Shape = [&page](QSize size) {
        return InkGet(Painted(page, size, PageLook::Colour)).size();
    };
    EXPECT_GT(Shape(QSize(1000, 700)).height(), 600) << "25 lines";
    std::get<PageGrid>(page.aBlock[0].body).bTurns = true;
    EXPECT_LT(Shape(QSize(1000, 700)).height(), 300) << "4 lines";
    EXPECT_GT(Shape(QSize(700, 1000)).height(), 600) << "upright it stays";
}

TEST(Page, CellsHaveTheirColours)
{
    Page page;
    PageGrid grid =
        PageGridMake({QStringLiteral("UTC")}, {QStringLiteral("14200")}, {{QStringLiteral("00")}});
    grid.CellGet(0, 0) = {QStringLiteral("5"), QColor(10, 20, 200), false, false};
    page.aBlock.push_back({QString(), grid});
    const auto Count = [&page](PageLook eLook, const QColor& clr) {
        const QImage image = Painted(page, QSize(600, 800), eLook);
        int nPixels = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                nPixels += image.pixelColor(x, y) == clr ? 1 : 0;
        return nPixels;
    };
    EXPECT_GT(Count(PageLook::Colour, QColor(10, 20, 200)), 300);
    EXPECT_EQ(Count(PageLook::BlackWhite, QColor(10, 20, 200)), 0);
}

/// The part of the picture with the number of the only cell.
QImage NumberGet(const PageCell& cell)
{
    Page page;
    PageGrid grid = PageGridMake({QStringLiteral("UTC")}, {QStringLiteral("14200 kHz")},
                                 {{QStringLiteral("00")}});
    grid.CellGet(0, 0) = cell;
    page.aBlock.push_back({QString(), grid});
    QRect rctNumber;
    {
        Page pageBare = page;
        std::get<PageGrid>(pageBare.aBlock[0].body).CellGet(0, 0) = {cell.sText, QColor(), true,
                                                                     false};
        Page pageEmpty = page;
        std::get<PageGrid>(pageEmpty.aBlock[0].body).CellGet(0, 0) = {QString(), QColor(), true,
                                                                      false};
        const QImage imageBare = Painted(pageBare, QSize(600, 800), PageLook::BlackWhite);
        const QImage imageEmpty = Painted(pageEmpty, QSize(600, 800), PageLook::BlackWhite);
        for (int y = 0; y < imageBare.height(); ++y)
            for (int x = 0; x < imageBare.width(); ++x)
                if (imageBare.pixel(x, y) != imageEmpty.pixel(x, y))
                    rctNumber |= QRect(x, y, 1, 1);
    }
    return Painted(page, QSize(600, 800), PageLook::BlackWhite).copy(rctNumber);
}

int DarkCount(const QImage& image)
{
    int nDark = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) nDark += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
    return nDark;
}

TEST(Page, HatchingStandsRoundANumberNeverBehindIt)
{
    const PageCell strong{QStringLiteral("1"), QColor(), true, false};
    const PageCell weak{QStringLiteral("1"), QColor(), false, false};
    // The thin number is no darker than the bold one, so no line crosses it.
    EXPECT_LE(DarkCount(NumberGet(weak)), DarkCount(NumberGet(strong)));
    EXPECT_GT(DarkCount(NumberGet(weak)), 0);

    Page page;
    PageGrid grid = PageGridMake({QStringLiteral("UTC")}, {QStringLiteral("14200 kHz")},
                                 {{QStringLiteral("00")}});
    page.aBlock.push_back({QString(), grid});
    PageCell& cell = std::get<PageGrid>(page.aBlock[0].body).CellGet(0, 0);
    cell = weak;
    const int nWeak = DarkCount(Painted(page, QSize(600, 800), PageLook::BlackWhite));
    cell = strong;
    EXPECT_GT(nWeak, DarkCount(Painted(page, QSize(600, 800), PageLook::BlackWhite)) + 50)
        << "what misses the need is hatched";
}

}  // namespace
