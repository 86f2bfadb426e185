#include <gtest/gtest.h>

#include <QRegularExpression>

#include "ui/common/PaletteShown.h"
#include "ui/page/PageGrid.h"
#include "ui/page/PageSample.h"

namespace {

/// A reader of comma-separated values (RFC 4180), independent of the writer.
std::vector<QStringList> CsvRead(const QString& sText)
{
    std::vector<QStringList> aLine(1);
    QString sCell;
    bool bQuoted = false;
    for (qsizetype i = 0; i < sText.size(); ++i) {
        const QChar ch = sText[i];
        if (ch == QLatin1Char('"') && bQuoted && i + 1 < sText.size() && sText[i + 1] == ch) {
            sCell += sText[++i];
        } else if (ch == QLatin1Char('"')) {
            bQuoted = !bQuoted;
        } else if (!bQuoted && (ch == QLatin1Char(',') || ch == QLatin1Char('\r'))) {
            aLine.back().append(std::exchange(sCell, QString()));
        } else if (!bQuoted && ch == QLatin1Char('\n')) {
            aLine.emplace_back();
        } else {
            sCell += ch;
        }
    }
    aLine.pop_back();
    return aLine;
}

/// The texts of a grid, headers first.
std::vector<QStringList> TextsGet(const PageGrid& grid)
{
    std::vector<QStringList> aLine{grid.asCorner + grid.asColumn};
    for (int iRow = 0; iRow < grid.RowsGet(); ++iRow) {
        aLine.push_back(grid.aRow[static_cast<std::size_t>(iRow)]);
        for (int iCol = 0; iCol < grid.ColsGet(); ++iCol)
            aLine.back().append(grid.CellGet(iRow, iCol).sText);
    }
    return aLine;
}

TEST(PageGrid, CsvReadBackGivesTheTable)
{
    PageGrid grid = SampleGrid(15);
    grid.aRow[5][0] = QStringLiteral("a \"quoted\", long\r\nhead");
    grid.CellGet(2, 2).sText = QStringLiteral("ä;\t'");
    EXPECT_EQ(CsvRead(PageGridCsv(grid)), TextsGet(grid));
    EXPECT_TRUE(PageGridCsv(grid).startsWith(QStringLiteral("UTC,Ship,14000.5,15000.5,")));
}

TEST(PageGrid, TabsReadBackGiveTheTable)
{
    const PageGrid grid = SampleGrid(3);
    std::vector<QStringList> aLine;
    for (const QString& sLine : PageGridTabs(grid).split(QLatin1Char('\n')))
        aLine.push_back(sLine.split(QLatin1Char('\t')));
    EXPECT_EQ(aLine, TextsGet(grid));
}

TEST(PageGrid, ATabOrLineEndInATextMovesNoCell)
{
    PageGrid grid = SampleGrid(2);
    grid.CellGet(0, 0).sText = QStringLiteral("a\tb\nc");
    const QStringList asLine = PageGridTabs(grid).split(QLatin1Char('\n'));
    ASSERT_EQ(asLine.size(), 25);
    EXPECT_EQ(asLine[1].split(QLatin1Char('\t'))[2], QStringLiteral("a b c"));
}

TEST(PageGrid, HtmlHasEveryCellWithItsColourAndReadableText)
{
    const PageGrid grid = SampleGrid(7);
    const QString sHtml = PageGridHtml(grid);
    EXPECT_EQ(sHtml.count(QStringLiteral("<td")), 24 * 7);
    EXPECT_EQ(sHtml.count(QStringLiteral("<tr>")), 25);
    EXPECT_TRUE(
        sHtml.contains(QStringLiteral("<td style=\"background:#00830a;color:#ffffff\">53</td>")))
        << sHtml.toStdString();
    EXPECT_TRUE(sHtml.contains(QStringLiteral("<td></td>"))) << "no value, no colour";
}

TEST(PageGrid, HtmlHasThePalettesColoursAndInNightTheStandardOnes)
{
    PageGrid grid = PageGridMake({}, {QStringLiteral("h")}, {QStringList()});
    grid.CellGet(0, 0) = {QStringLiteral("52"), QColor(0, 0, 255)};
    const auto Cell = [&grid](Palette ePalette) {
        PaletteShow(ePalette);
        const QString sHtml = PageGridHtml(grid);
        PaletteShow(Palette::Standard);
        return sHtml.mid(sHtml.indexOf(QStringLiteral("background")), 32);
    };
    EXPECT_EQ(Cell(Palette::Standard), QStringLiteral("background:#0000ff;color:#ffffff"));
    EXPECT_EQ(Cell(Palette::Safe), QStringLiteral("background:#6c6e72;color:#ffffff"));
    EXPECT_EQ(Cell(Palette::Print), QStringLiteral("background:#afafaf;color:#000000"));
    EXPECT_EQ(Cell(Palette::Night), Cell(Palette::Standard));
}

TEST(PageGrid, HtmlEscapesTexts)
{
    PageGrid grid =
        PageGridMake({QStringLiteral("<b>")}, {QStringLiteral("&")}, {{QStringLiteral("\"")}});
    grid.CellGet(0, 0).sText = QStringLiteral("</td>");
    EXPECT_EQ(PageGridHtml(grid),
              QStringLiteral("<table><tr><th>&lt;b&gt;</th><th>&amp;</th></tr>\n"
                             "<tr><th>&quot;</th><td>&lt;/td&gt;</td></tr></table>"));
}

TEST(PageGrid, TurnedItsRowsAreColumnsAndItsHeadsLinesOfTitles)
{
    const PageGrid grid = SampleGrid(3);
    const PageGrid turned = PageGridTurned(grid);
    ASSERT_EQ(turned.RowsGet(), 3);
    ASSERT_EQ(turned.ColsGet(), 24);
    EXPECT_EQ(turned.asCorner, QStringList(QStringLiteral("UTC")));
    EXPECT_EQ(turned.asColumn[2], QStringLiteral("02:00"));
    ASSERT_EQ(turned.aTitle.size(), 1U);
    EXPECT_EQ(turned.aTitle[0].mid(0, 2),
              QStringList({QStringLiteral("Ship"), QStringLiteral("05:30")}));
    EXPECT_EQ(turned.aRow[1], QStringList(grid.asColumn[1]));
    for (int iRow = 0; iRow < 24; ++iRow)
        for (int iCol = 0; iCol < 3; ++iCol)
            EXPECT_EQ(turned.CellGet(iCol, iRow).sText, grid.CellGet(iRow, iCol).sText);
    const QStringList asLine = PageGridTabs(turned).split(QLatin1Char('\n'));
    ASSERT_EQ(asLine.size(), 5);
    EXPECT_TRUE(asLine[1].startsWith(QStringLiteral("Ship\t05:30\t06:30")));
    EXPECT_EQ(PageGridHtml(turned).count(QStringLiteral("<th>")), 2 * 25 + 3);
}

}  // namespace
