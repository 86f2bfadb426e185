#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <filesystem>

#include "support/ProgramRun.h"
#include "support/TempFolder.h"
#include "ui/page/PageFile.h"
#include "ui/page/PageSample.h"

namespace fs = std::filesystem;

namespace {

std::string Squeezed(const std::string& sText)
{
    std::string sOut;
    for (const char c : sText)
        if (c != ' ' && c != '\n' && c != '\f')
            sOut += c;
    return sOut;
}

class PdfOnPaper
    : public testing::TestWithParam<std::tuple<QPageSize::PageSizeId, QPageLayout::Orientation>> {};

TEST_P(PdfOnPaper, HasEveryTextOnOnePage)
{
    const TempFolder folder;
    PageForm form;
    std::tie(form.ePaper, form.eOrientation) = GetParam();
    for (const PageLook eLook : {PageLook::Colour, PageLook::BlackWhite}) {
        form.eLook = eLook;
        const Page page = SamplePage(15);
        const std::string sFile = folder.Path("card.pdf");
        const auto res = PageExport(page, form, QString::fromStdString(sFile));
        ASSERT_TRUE(res) << res.TextGet();
        const ProgramResult text = ProgramRun({"/usr/bin/pdftotext", "-layout", sFile, "-"});
        ASSERT_EQ(text.nStatus, 0) << text.sError;
        EXPECT_EQ(std::count(text.sOut.begin(), text.sOut.end(), '\f'), 1) << "one page";
        const std::string sText = Squeezed(text.sOut);
        EXPECT_NE(sText.find(Squeezed(page.sTitle.toStdString())), std::string::npos) << text.sOut;
        EXPECT_NE(sText.find(Squeezed(page.sFoot.toStdString())), std::string::npos) << text.sOut;
        const PageGrid grid = SampleGrid(15);
        for (int iRow = 0; iRow < 24; ++iRow) {
            std::string sRow =
                grid.aRow[static_cast<std::size_t>(iRow)].join(QString()).toStdString();
            for (int iCol = 0; iCol < 15; ++iCol)
                sRow += grid.CellGet(iRow, iCol).sText.toStdString();
            EXPECT_NE(sText.find(sRow), std::string::npos) << sRow << "\n" << text.sOut;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Papers, PdfOnPaper,
                         testing::Combine(testing::Values(QPageSize::A4, QPageSize::Letter),
                                          testing::Values(QPageLayout::Portrait,
                                                          QPageLayout::Landscape)));

TEST(PageExport, PngIsTheSheetWithTheColoursOfItsCells)
{
    const TempFolder folder;
    const QString sFile = QString::fromStdString(folder.Path("card.PNG"));
    ASSERT_TRUE(PageExport(SamplePage(5), {}, sFile));
    const QImage image(sFile);
    EXPECT_EQ(image.size(), QSize(1240, 1754)) << "A4 at 150 dots per inch";
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    std::set<QRgb> aColour;
    for (int y = 0; y < rgb.height(); ++y)
        for (int x = 0; x < rgb.width(); ++x) aColour.insert(rgb.pixel(x, y));
    const PageGrid grid = SampleGrid(5);
    for (const PageCell& cell : grid.aCell) {
        if (cell.clrBack.isValid()) {
            EXPECT_TRUE(aColour.contains(cell.clrBack.rgb())) << cell.clrBack.name().toStdString();
        }
    }
}

TEST(PageExport, CsvIsTheFirstTable)
{
    const TempFolder folder;
    ASSERT_TRUE(PageExport(SamplePage(2), {}, QString::fromStdString(folder.Path("a.csv"))));
    EXPECT_EQ(BytesRead(folder.Path("a.csv")), PageGridCsv(SampleGrid(2)).toStdString());
}

TEST(PageExport, AnotherSuffixOrNoTableIsRefusedAndNothingIsWritten)
{
    const TempFolder folder;
    for (const char* sName : {"a.txt", "pdf", "a"}) {
        const auto res = PageExport(SamplePage(2), {}, QString::fromStdString(folder.Path(sName)));
        ASSERT_FALSE(res);
        EXPECT_EQ(res.TextGet(),
                  folder.Path(sName) + ": a name that ends in .csv, .png or .pdf is needed");
    }
    Page page;
    page.sTitle = QStringLiteral("words only");
    const auto res = PageExport(page, {}, QString::fromStdString(folder.Path("a.csv")));
    ASSERT_FALSE(res);
    EXPECT_EQ(res.TextGet(), folder.Path("a.csv") + ": there is no table to write");
    EXPECT_TRUE(fs::is_empty(folder.Path("")));
}

TEST(PageExport, AFileThatCannotBeWrittenIsToldByItsName)
{
    const TempFolder folder;
    folder.Write("file", "");
    const std::string sFile = folder.Path("file/a.pdf");
    const auto res = PageExport(SamplePage(2), {}, QString::fromStdString(sFile));
    ASSERT_FALSE(res);
    EXPECT_TRUE(res.TextGet().starts_with(sFile + ": ")) << res.TextGet();
}

TEST(PageExport, APictureThatHadNoMemoryIsToldAndTheOldFileStays)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("a.png", "before");
    const auto res = ImageSave(QImage(), QString::fromStdString(sFile));
    ASSERT_FALSE(res);
    EXPECT_EQ(res.TextGet(), sFile + ": Out of memory");
    EXPECT_EQ(BytesRead(sFile), "before");
}

TEST(PageGridCopy, TheClipboardHasTextAndTable)
{
    const PageGrid grid = SampleGrid(4);
    PageGridCopy(grid);
    const QMimeData* const pData = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(pData->text(), PageGridTabs(grid));
    EXPECT_EQ(pData->html(), PageGridHtml(grid));
}

Page PicturePage()
{
    PagePicture picture;
    picture.fnPaint = [](QPainter& painter, const QRectF& rct, PageLook) {
        painter.fillRect(rct, Qt::red);
    };
    picture.gridValues = SampleGrid(3);
    Page page;
    page.aBlock.push_back({{}, picture});
    return page;
}

TEST(PageCopy, APictureIsCopiedWithItsValues)
{
    PageCopy(PicturePage());
    const QMimeData* const pData = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(pData->text(), PageGridTabs(SampleGrid(3)));
    EXPECT_EQ(pData->html(), PageGridHtml(SampleGrid(3)));
    ASSERT_TRUE(pData->hasImage());
    const auto image = pData->imageData().value<QImage>();
    EXPECT_EQ(image.pixelColor(image.rect().center()), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::white));
}

TEST(PageCopy, ATableIsCopiedWithoutAPictureAndAPageOfWordsNotAtAll)
{
    Page page;
    page.aBlock.push_back({{}, SampleGrid(4)});
    PageCopy(page);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), PageGridTabs(SampleGrid(4)));
    EXPECT_FALSE(QGuiApplication::clipboard()->mimeData()->hasImage());
    page.aBlock = {{{}, QStringList{QStringLiteral("words")}}};
    PageCopy(page);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), PageGridTabs(SampleGrid(4)));
}

TEST(PageExport, TheValuesOfAPictureAreItsCsv)
{
    const TempFolder folder;
    const std::string sFile = folder.Path("a.csv");
    ASSERT_TRUE(PageExport(PicturePage(), {}, QString::fromStdString(sFile)));
    EXPECT_EQ(BytesRead(sFile), PageGridCsv(SampleGrid(3)).toStdString());
}

}  // namespace
