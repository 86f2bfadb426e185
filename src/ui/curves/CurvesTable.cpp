#include "ui/curves/CurvesTable.h"

#include <QObject>
#include <cmath>

#include "propagation/SnrScale.h"
#include "system/NumberLib.h"
#include "ui/common/Colors.h"

namespace {

constexpr int kCurves = 3;

QString Whole(double dValue) { return QString::fromStdString(NumberFormat(dValue, "0")); }

QString FrequencyText(const CurveRibbon& ribbon)
{
    return QString::fromStdString(NumberToText(ribbon.fFrequency));
}

PageCell CurveCell(float fKilohertz)
{
    PageCell cell;
    cell.bHatched = std::isnan(fKilohertz);
    if (!cell.bHatched)
        cell.sText = Whole(fKilohertz);
    return cell;
}

PageCell SnrCell(float fSnr, float fNeed)
{
    PageCell cell;
    cell.bHatched = std::isnan(fSnr);
    if (cell.bHatched)
        return cell;
    cell.sText = Whole(fSnr);
    cell.clrBack = ColorFromBgr(SnrBandOfCell(fSnr).nColor);
    cell.bStrong = fSnr >= fNeed;
    return cell;
}

}  // namespace

PageGrid CurvesTableGet(const DayCurves& day, const HourLabels& asHour, const QString& sZone,
                        float fNeed)
{
    QStringList asColumn{QObject::tr("MUF"), QObject::tr("FOT"), QObject::tr("LUF")};
    for (const CurveRibbon& ribbon : day.aRibbons) asColumn.append(FrequencyText(ribbon));
    std::vector<QStringList> aRow;
    for (const QString& sHour : asHour) aRow.push_back({sHour});
    PageGrid grid = PageGridMake({sZone}, asColumn, aRow);
    for (std::size_t nHour = 0; nHour < kCurveHours; ++nHour) {
        const int iRow = static_cast<int>(nHour);
        grid.CellGet(iRow, 0) = CurveCell(day.afMuf.at(nHour));
        grid.CellGet(iRow, 1) = CurveCell(day.afFot.at(nHour));
        grid.CellGet(iRow, 2) = CurveCell(day.afLuf.at(nHour));
        for (std::size_t n = 0; n < day.aRibbons.size(); ++n)
            grid.CellGet(iRow, kCurves + static_cast<int>(n)) =
                SnrCell(day.aRibbons[n].afSnr.at(nHour), fNeed);
    }
    return grid;
}

QString CurvesCellText(const CurveRibbon& ribbon, int iHour, const HourLabels& asHour,
                       const QString& sZone)
{
    const auto nHour = static_cast<std::size_t>(iHour);
    const float fSnr = ribbon.afSnr.at(nHour);
    return QObject::tr("%1 kHz, %2 %3: %4")
        .arg(FrequencyText(ribbon), asHour.at(nHour), sZone,
             std::isnan(fSnr) ? QObject::tr("no value") : QObject::tr("%1 dB").arg(Whole(fSnr)));
}
