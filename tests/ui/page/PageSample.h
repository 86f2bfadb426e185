/// @file PageSample.h
/// A page like a card: 24 hours, some frequencies, long names.
#pragma once

#include "ui/page/Page.h"

inline PageGrid SampleGrid(int nFrequencies)
{
    QStringList asColumn;
    std::vector<QStringList> aRow;
    for (int i = 0; i < nFrequencies; ++i) asColumn.append(QString::number(14000.5 + 1000 * i));
    for (int iHour = 0; iHour < 24; ++iHour)
        aRow.push_back({QStringLiteral("%1:00").arg(iHour, 2, 10, QLatin1Char('0')),
                        QStringLiteral("%1:30").arg((iHour + 5) % 24, 2, 10, QLatin1Char('0'))});
    PageGrid grid = PageGridMake({QStringLiteral("UTC"), QStringLiteral("Ship")}, asColumn, aRow);
    for (int iHour = 0; iHour < 24; ++iHour) {
        for (int i = 0; i < nFrequencies; ++i) {
            PageCell& cell = grid.CellGet(iHour, i);
            cell.sText = QString::number(100 * i + iHour - 50);
            cell.clrBack = QColor(0, 128 + iHour, 10 * i);
            cell.bStrong = (iHour + i) % 2 == 0;
        }
    }
    grid.CellGet(3, 0) = {QString(), QColor(), false, true};
    return grid;
}

inline Page SamplePage(int nFrequencies)
{
    Page page;
    page.sTitle =
        QStringLiteral("Llanfairpwllgwyngyllgogerychwyrndrobwllllantysiliogogoch to Friday Harbor");
    page.aBlock.push_back({QString(), QStringList{QStringLiteral("Receiver 24°18.50'N 110°24.20'W"),
                                                  QStringLiteral("Range 1041 nmi")}});
    page.aBlock.push_back({QStringLiteral("Table"), SampleGrid(nFrequencies)});
    page.aBlock.push_back(
        {QStringLiteral("Curves"), PagePicture{[](QPainter& painter, const QRectF& rct, PageLook) {
             painter.fillRect(rct, Qt::red);
         }}});
    page.sFoot = QStringLiteral(
        "dB in 1 Hz · 50 % of the days · short path · 100 W · REC533 (built-in) · "
        "November 2026 · SSN 62 (mean cycle)");
    return page;
}
