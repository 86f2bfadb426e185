#include "ui/page/PageGrid.h"

#include <cstddef>

#include "ui/common/GridControl.h"

namespace {

/// The table line by line, the titles first.
std::vector<QStringList> LinesGet(const PageGrid& grid)
{
    std::vector<QStringList> aLine{grid.asCorner + grid.asColumn};
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
    if (cell.clrBack.isValid())
        sStyle = QStringLiteral("background:%1;color:%2")
                     .arg(cell.clrBack.name(), TextColorOn(cell.clrBack).name());
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

QString PageGridTabs(const PageGrid& grid)
{
    QStringList asLine;
    for (QStringList asText : LinesGet(grid)) {
        // A tab or a line end inside a text would move all that follows.
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
    QString sTitles;
    for (const QString& sTitle : grid.asCorner + grid.asColumn)
        sTitles += TagsPut("th", sTitle.toHtmlEscaped());
    QString sRows = TagsPut("tr", sTitles);
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
