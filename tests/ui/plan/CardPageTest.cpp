#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>

#include "CardSample.h"
#include "propagation/SnrScale.h"
#include "support/ProgramRun.h"
#include "support/TempFolder.h"
#include "ui/common/Colors.h"
#include "ui/page/PageFile.h"

namespace {

std::string Squeezed(const std::string& sText)
{
    std::string sOut;
    std::copy_if(sText.begin(), sText.end(), std::back_inserter(sOut),
                 [](char c) { return c != ' ' && c != '\n' && c != '\f'; });
    return sOut;
}

TEST(CardPage, HasARowForEachHourAndACellForEachFrequency)
{
    const PropagationTable table = CardTable(7);
    const PageGrid grid = CardGridGet(table, CardInputGet());
    ASSERT_EQ(grid.RowsGet(), 24);
    ASSERT_EQ(grid.ColsGet(), 7);
    EXPECT_EQ(grid.asColumn.front(), QStringLiteral("2900"));
    EXPECT_EQ(grid.aRow[0].mid(0, 2), QStringList({QStringLiteral("00"), QStringLiteral("05:30")}));
    for (int iHour = 1; iHour <= 24; ++iHour) {
        for (int i = 1; i <= 7; ++i) {
            const PageCell& cell = grid.CellGet(iHour - 1, i - 1);
            EXPECT_EQ(cell.bHatched, i == 4);
            if (i == 4) {
                EXPECT_TRUE(cell.sText.isEmpty());
                continue;
            }
            const float fSnr = SnrShownGet(table.fSnr(iHour, i));
            EXPECT_EQ(cell.sText.toFloat(), fSnr);
            EXPECT_EQ(cell.clrBack, ColorFromBgr(SnrGetColor(fSnr)));
            EXPECT_EQ(cell.bStrong, fSnr >= 40.0F);
        }
    }
}

TEST(CardPage, NamesTheBestFrequencyOfEachHourThatHasOne)
{
    const PropagationTable table = CardTable(7);
    const PageGrid grid = CardGridGet(table, CardInputGet());
    for (int iHour = 1; iHour <= 24; ++iHour) {
        int iBest = 0;
        for (int i = 1; i <= 7; ++i)
            if (i != 4 && (iBest == 0 || table.fSnr(iHour, i) > table.fSnr(iHour, iBest)))
                iBest = i;
        const QString sBest = iHour == 5 ? QStringLiteral("-") : grid.asColumn[iBest - 1];
        EXPECT_EQ(grid.aRow[static_cast<std::size_t>(iHour) - 1].at(2), sBest) << iHour;
    }
}

TEST(CardPage, ShipsHoursComeFirstUnderLocalTime)
{
    CardInput input = CardInputGet();
    input.iTimeCode = kTimeLocal;
    const PageGrid grid = CardGridGet(CardTable(3), input);
    EXPECT_EQ(grid.asCorner.mid(0, 2),
              QStringList({QStringLiteral("Ship"), QStringLiteral("UTC")}));
    EXPECT_EQ(grid.aRow[2].mid(0, 2), QStringList({QStringLiteral("07:30"), QStringLiteral("02")}));
}

TEST(CardPage, TellsEndsRangeBearingsAndWhatTheNumbersAre)
{
    CardInput input = CardInputGet();
    const Page page = CardPageGet(CardTable(), input);
    EXPECT_EQ(page.sTitle.toStdString(),
              "WHV382 - Friday Harbor to 15\xC2\xB0"
              "22.50'N 132\xC2\xB0"
              "41.25'W");
    const QString sLines = std::get<QStringList>(page.aBlock[0].body).join(u'\n');
    for (const char* sPart : {"48\u00B032.50'N 123\u00B000.75'W", "Range 2052 nmi",
                              "to the transmitter 013\u00B0", "from the transmitter 198\u00B0"})
        EXPECT_TRUE(sLines.contains(QString::fromUtf8(sPart))) << sLines.toStdString();
    EXPECT_EQ(page.sFoot.toStdString(),
              "dB in 1 Hz \u00B7 50 % of the days \u00B7 short path \u00B7 100 W \u00B7 "
              "REC533 (built-in) \u00B7 November 2026 \u00B7 SSN 62 (typed) \u00B7 "
              "need: E-mail, normal, 40 dB");
    input.bOld = true;
    EXPECT_TRUE(CardPageGet(CardTable(), input).sFoot.endsWith(QStringLiteral("earlier update")));
    input.sTx.clear();
    EXPECT_TRUE(CardPageGet(CardTable(), input)
                    .sTitle.startsWith(QString::fromUtf8("48\u00B032.50'N 123\u00B000.75'W to ")));
}

class CardOnPaper : public testing::TestWithParam<
                        std::tuple<QPageSize::PageSizeId, QPageLayout::Orientation, PageLook>> {};

TEST_P(CardOnPaper, EverythingOfFifteenFrequenciesALongNameAndAHalfHourZoneStandsOnOnePage)
{
    const TempFolder folder;
    PageForm form;
    std::tie(form.ePaper, form.eOrientation, form.eLook) = GetParam();
    CardInput input = CardInputGet();
    input.sTx = QStringLiteral(
        "WHV382 - Llanfairpwllgwyngyllgogerychwyrndrobwllllantysiliogogogoch, the upper station "
        "on the hill behind the harbour of Friday Harbor, San Juan Island, Washington");
    input.need.sName = "A need with a long name of forty letters";
    const Page page = CardPageGet(CardTable(), input);
    const std::string sFile = folder.Path("card.pdf");
    const auto res = PageExport(page, form, QString::fromStdString(sFile));
    ASSERT_TRUE(res) << res.TextGet();
    const ProgramResult text = ProgramRun({"/usr/bin/pdftotext", "-layout", sFile, "-"});
    ASSERT_EQ(text.nStatus, 0) << text.sError;
    EXPECT_EQ(std::count(text.sOut.begin(), text.sOut.end(), '\f'), 1) << "one page";
    const std::string sText = Squeezed(text.sOut);
    for (const QString& sPart : {page.sTitle, page.sFoot, page.aBlock[1].sHeading})
        EXPECT_NE(sText.find(Squeezed(sPart.toStdString())), std::string::npos) << text.sOut;
    PageGrid grid = CardGridGet(CardTable(), input);
    if (form.eOrientation == QPageLayout::Landscape)
        grid = PageGridTurned(grid);
    for (int iRow = 0; iRow < grid.RowsGet(); ++iRow) {
        QString sRow = grid.aRow[static_cast<std::size_t>(iRow)].join(QString());
        for (int iCol = 0; iCol < grid.ColsGet(); ++iCol) sRow += grid.CellGet(iRow, iCol).sText;
        EXPECT_NE(sText.find(sRow.toStdString()), std::string::npos) << sRow.toStdString();
    }

    const ProgramResult boxes = ProgramRun({"/usr/bin/pdftotext", "-bbox", sFile, "-"});
    static const std::regex kPage(R"(page width="([0-9.]+)\" height="([0-9.]+)\")");
    static const std::regex kWord(
        "word xMin=\"([-0-9.]+)\" yMin=\"([-0-9.]+)\" xMax=\"([-0-9.]+)\" yMax=\"([-0-9.]+)\"");
    std::smatch match;
    ASSERT_TRUE(std::regex_search(boxes.sOut, match, kPage)) << boxes.sOut;
    constexpr double kMargin = 12.0 / 25.4 * 72.0 - 1.0;  // points, less a rounding error
    const double dWidth = std::stod(match[1]);
    const double dHeight = std::stod(match[2]);
    EXPECT_EQ(dWidth > dHeight, form.eOrientation == QPageLayout::Landscape);
    int nWords = 0;
    for (std::sregex_iterator it(boxes.sOut.begin(), boxes.sOut.end(), kWord), itEnd; it != itEnd;
         ++it, ++nWords) {
        const std::smatch& word = *it;
        EXPECT_GE(std::stod(word[1]), kMargin);
        EXPECT_GE(std::stod(word[2]), kMargin);
        EXPECT_LE(std::stod(word[3]), dWidth - kMargin);
        EXPECT_LE(std::stod(word[4]), dHeight - kMargin + 2.0) << "below the letters is some room";
    }
    EXPECT_GT(nWords, 24 * 14);
}

INSTANTIATE_TEST_SUITE_P(Papers, CardOnPaper,
                         testing::Combine(testing::Values(QPageSize::A4, QPageSize::Letter),
                                          testing::Values(QPageLayout::Portrait,
                                                          QPageLayout::Landscape),
                                          testing::Values(PageLook::Colour, PageLook::BlackWhite)));

std::set<QRgb> ColoursGet(const QImage& image)
{
    std::set<QRgb> aColour;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) aColour.insert(image.pixel(x, y) & RGB_MASK);
    return aColour;
}

TEST(CardPage, WithoutATableItSaysSo)
{
    const Page page = CardPageGet(PropagationTable(), CardInputGet());
    EXPECT_FALSE(page.sTitle.isEmpty());
    EXPECT_TRUE(page.aBlock.empty());
    EXPECT_TRUE(page.sFoot.isEmpty());
}

TEST(CardPage, APictureHasTheColoursOfItsCells)
{
    const TempFolder folder;
    const QString sFile = QString::fromStdString(folder.Path("card.png"));
    const Page page = CardPageGet(CardTable(), CardInputGet());
    ASSERT_TRUE(PageExport(page, {}, sFile));
    const std::set<QRgb> aColour = ColoursGet(QImage(sFile).convertToFormat(QImage::Format_RGB32));
    std::set<QRgb> aWanted;
    for (const PageCell& cell : std::get<PageGrid>(page.aBlock[1].body).aCell)
        if (!cell.bHatched)
            aWanted.insert(cell.clrBack.rgb() & RGB_MASK);
    EXPECT_EQ(aWanted.size(), SnrBandsGet().size());
    for (const QRgb rgb : aWanted) EXPECT_TRUE(aColour.contains(rgb)) << rgb;
}

TEST(CardPage, BlackAndWhiteHasNoOtherInkSoTheContrastIsAtLeastSevenToOne)
{
    Page page = CardPageGet(CardTable(), CardInputGet());
    for (const QSize& size : {QSize(1100, 1500), QSize(1500, 1100)}) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QFont font = painter.font();
        font.setStyleStrategy(QFont::NoAntialias);
        painter.setFont(font);
        // Curves are antialiased: only the edges of their lines are between black and white.
        PagePaint(painter, QRectF(QPointF(0, 0), QSizeF(size)), page, PageLook::BlackWhite);
        for (const QRgb rgb : ColoursGet(image))
            EXPECT_TRUE(qRed(rgb) == qGreen(rgb) && qGreen(rgb) == qBlue(rgb)) << std::hex << rgb;
        painter.fillRect(image.rect(), Qt::white);
        Page pageWords = page;
        pageWords.aBlock.pop_back();
        PagePaint(painter, QRectF(QPointF(0, 0), QSizeF(size)), pageWords, PageLook::BlackWhite);
        const std::set<QRgb> aColour = ColoursGet(image);
        ASSERT_GT(aColour.size(), 1U);
        for (const QRgb rgb1 : aColour)
            for (const QRgb rgb2 : aColour)
                if (rgb1 != rgb2) {
                    EXPECT_GE(ColorContrast(rgb1, rgb2), 7.0) << std::hex << rgb1 << " " << rgb2;
                }
    }
}

TEST(CardPage, ItsCsvReadBackIsTheTable)
{
    const TempFolder folder;
    const PropagationTable table = CardTable(9);
    ASSERT_TRUE(PageExport(CardPageGet(table, CardInputGet()),
                           {QPageSize::A4, QPageLayout::Landscape, PageLook::Colour},
                           QString::fromStdString(folder.Path("card.csv"))));
    const QStringList asLine = QString::fromStdString(BytesRead(folder.Path("card.csv")))
                                   .split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    ASSERT_EQ(asLine.size(), 25);
    for (int iHour = 1; iHour <= 24; ++iHour) {
        const QStringList asCell = asLine[iHour].split(u',');
        ASSERT_EQ(asCell.size(), 3 + 9);
        for (int i = 1; i <= 9; ++i) {
            if (table.PresentIs(i)) {
                EXPECT_EQ(asCell[2 + i].toFloat(), SnrShownGet(table.fSnr(iHour, i)));
            } else {
                EXPECT_TRUE(asCell[2 + i].isEmpty());
            }
        }
    }
}

}  // namespace
