#include "ui/page/PageGrid.h"

#include <cstddef>

#include "ui/common/Colors.h"
#include "ui/common/PaletteShown.h"

namespace {

/// The title lines, from the top.
std::vector<QStringList> TitlesGet(const PageGrid& grid)
{
    std::vector<QStringList> aLine{grid.asCorner + grid.asColumn};
    aLine.insert(aLine.end(), grid.aTitle.begin(), grid.aTitle.end());
    return aLine;
}

/// The table line by line, titles first.
std::vector<QStringList> LinesGet(const PageGrid& grid)
{
    std::vector<QStringList> aLine = TitlesGet(grid);
    for (int iRow = 0; iRow < grid.RowsGet(); ++iRow) {
        QStringList asLine = grid.aRow[static_cast<std::size_t>(iRow)];
        for (int iCol = 0; iCol < grid.ColsGet(); ++iCol)
            asLine.append(grid.CellGet(iRow, iCol).sText);
        aLine.push_back(asLine);
    }
    return aLine;
}

QString CsvQuote(QString sText)
{
    static const QString kSpecial = QStringLiteral(",\"\r\n");
    for (const QChar ch : sText) {
        if (kSpecial.contains(ch)) {
            sText.replace(QLatin1Char('"'), QStringLiteral("\"\""));
            return QLatin1Char('"') + sText + QLatin1Char('"');
        }
    }
    return sText;
}

QString TagsPut(const char* sTag, const QString& sText, const QString& sStyle = {})
{
    const QString sName = QLatin1String(sTag);
    const QString sHow = sStyle.isEmpty() ? sStyle : QStringLiteral(" style=\"%1\"").arg(sStyle);
    return QStringLiteral("<%1%2>%3</%1>").arg(sName, sHow, sText);
}

QString CellHtml(const PageCell& cell)
{
    QString sStyle;
    if (cell.clrBack.isValid()) {
        const QColor clrBack = ColorInPalette(cell.clrBack, PaletteOnPaper());
        sStyle = QStringLiteral("background:%1;color:%2")
                     .arg(clrBack.name(), TextColorOn(clrBack).name());
    }
    return TagsPut("td", cell.sText.toHtmlEscaped(), sStyle);
}

}  // namespace

const PageCell& PageGrid::CellGet(int iRow, int iCol) const
{
    return aCell[static_cast<std::size_t>(iRow) * static_cast<std::size_t>(asColumn.size())
                 + static_cast<std::size_t>(iCol)];
}

PageCell& PageGrid::CellGet(int iRow, int iCol)
{
    return const_cast<PageCell&>(std::as_const(*this).CellGet(iRow, iCol));
}

PageGrid PageGridMake(const QStringList& asCorner, const QStringList& asColumn,
                      const std::vector<QStringList>& aRow)
{
    PageGrid grid{asCorner, asColumn, aRow, {}};
    grid.aCell.resize(aRow.size() * static_cast<std::size_t>(asColumn.size()));
    return grid;
}

PageGrid PageGridTurned(const PageGrid& grid)
{
    const auto nHeads = static_cast<int>(grid.asCorner.size());
    std::vector<QStringList> aLine;  // of titles: a head's title, then that head of each row
    for (int iHead = 0; iHead < nHeads; ++iHead) {
        QStringList asLine{grid.asCorner[iHead]};
        for (const QStringList& asRow : grid.aRow) asLine.append(asRow.value(iHead));
        aLine.push_back(asLine);
    }
    std::vector<QStringList> aRow;
    for (const QString& sColumn : grid.asColumn) aRow.push_back({sColumn});
    if (aLine.empty())
        aLine.push_back(QStringList(grid.RowsGet() + 1));
    PageGrid turned = PageGridMake({aLine.front().front()}, aLine.front().mid(1), aRow);
    turned.aTitle.assign(aLine.begin() + 1, aLine.end());
    for (int iRow = 0; iRow < grid.RowsGet(); ++iRow)
        for (int iCol = 0; iCol < grid.ColsGet(); ++iCol)
            turned.CellGet(iCol, iRow) = grid.CellGet(iRow, iCol);
    return turned;
}

QString PageGridTabs(const PageGrid& grid)
{
    QStringList asLine;
    for (QStringList asText : LinesGet(grid)) {
        // A tab or line end inside a text would shift all that follows.
        for (QString& sText : asText)
            sText.replace(QLatin1Char('\t'), QLatin1Char(' '))
                .replace(QLatin1Char('\n'), QLatin1Char(' '));
        asLine.append(asText.join(QLatin1Char('\t')));
    }
    return asLine.join(QLatin1Char('\n'));
}

QString PageGridCsv(const PageGrid& grid)
{
    QString sText;
    for (QStringList asText : LinesGet(grid)) {
        for (QString& sCell : asText) sCell = CsvQuote(sCell);
        sText += asText.join(QLatin1Char(',')) + QStringLiteral("\r\n");
    }
    return sText;
}

QString PageGridHtml(const PageGrid& grid)
{
    QStringList asTitles;
    for (const QStringList& asLine : TitlesGet(grid)) {
        QString sTitles;
        for (const QString& sTitle : asLine) sTitles += TagsPut("th", sTitle.toHtmlEscaped());
        asTitles.append(TagsPut("tr", sTitles));
    }
    QString sRows = asTitles.join(QLatin1Char('\n'));
    for (int iRow = 0; iRow < grid.RowsGet(); ++iRow) {
        QString sRow;
        for (const QString& sHead : grid.aRow[static_cast<std::size_t>(iRow)])
            sRow += TagsPut("th", sHead.toHtmlEscaped());
        for (int iCol = 0; iCol < grid.ColsGet(); ++iCol)
            sRow += CellHtml(grid.CellGet(iRow, iCol));
        sRows += QLatin1Char('\n') + TagsPut("tr", sRow);
    }
    return TagsPut("table", sRows);
}
