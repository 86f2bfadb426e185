#include "ui/days/DaysGrid.h"

#include <QObject>

#include "system/NumberLib.h"
#include "ui/common/Colors.h"

namespace {

QString Whole(float fValue) { return QString::fromStdString(NumberFormat(fValue, "0")); }

}  // namespace

QColor DaysColor(int nDays)
{
    constexpr double kMost = 10.0;
    return ShareColor(nDays / kMost);
}

QString DaysRowText(const DaysTable& days, int iFrequency)
{
    return Whole(days.table.request.FrequencyGet(iFrequency));
}

void DaysGridFill(GridControl& grd, const DaysTable& days)
{
    grd.RedrawSet(false);
    grd.RowsSet(days.table.nData + 1);
    for (int i = 1; i <= days.table.nData; ++i) {
        grd.TextSet(i, 0, DaysRowText(days, i));
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            const int nDays = days.aCells(iHour, i).DaysInTenGet();
            const QColor clr = nDays < 0 ? QColor() : DaysColor(nDays);
            grd.TextSet(i, iHour, nDays < 0 ? QString() : QString::number(nDays));
            grd.ColorSet(i, iHour, clr, nDays < 0 ? QColor() : TextColorOn(clr));
            grd.HatchSet(i, iHour, nDays < 0);
        }
    }
    grd.RedrawSet(true);
}

PageGrid DaysPageGrid(const DaysTable& days, const HourLabels& asHour)
{
    QStringList asColumn;
    for (const QString& sHour : asHour) asColumn.append(sHour);
    std::vector<QStringList> aRow;
    for (int i = 1; i <= days.table.nData; ++i) aRow.push_back({DaysRowText(days, i)});
    PageGrid grid = PageGridMake({QObject::tr("kHz")}, asColumn, aRow);
    constexpr int kMost = 9;  // plans count on nine days in ten: bold
    for (int i = 1; i <= days.table.nData; ++i) {
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            const int nDays = days.aCells(iHour, i).DaysInTenGet();
            PageCell& cell = grid.CellGet(i - 1, iHour - 1);
            cell.bHatched = nDays < 0;
            if (nDays < 0)
                continue;
            cell.sText = QString::number(nDays);
            cell.clrBack = DaysColor(nDays);
            cell.bStrong = nDays >= kMost;
        }
    }
    return grid;
}

QString DaysCellText(const DaysTable& days, int iHour, int iFrequency, const HourLabels& asHour)
{
    const DaysCell& cell = days.aCells(iHour, iFrequency);
    const QString& sHour = asHour.at(static_cast<std::size_t>(iHour) - 1);
    if (cell.DaysInTenGet() < 0)
        return QObject::tr("%1 h: no value").arg(sHour);
    const QString sDays = cell.DaysInTenGet() == 1
                              ? QObject::tr("1 day in ten")
                              : QObject::tr("%1 days in ten").arg(cell.DaysInTenGet());
    return QObject::tr("%1 h: %2, on a bad day %3, on a good day %4; %5")
        .arg(sHour, Whole(cell.fMedian), Whole(cell.fBad), Whole(cell.fGood), sDays);
}

QString DaysAbsentText(const DaysTable& days)
{
    QStringList asAbsent;
    for (int i = 1; i <= days.table.nData; ++i) {
        bool bAny = false;
        for (int iHour = 1; iHour <= kHourCount; ++iHour)
            bAny = bAny || days.aCells(iHour, i).DaysInTenGet() >= 0;
        if (!bAny)
            asAbsent.append(DaysRowText(days, i));
    }
    return asAbsent.join(QStringLiteral(", "));
}
