#include "ui/reach/ReachGrid.h"

#include <QObject>
#include <algorithm>
#include <cmath>

#include "propagation/SnrScale.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

constexpr int kColumns = kReachRange + 1;
constexpr std::size_t kStationLetters = 34;

QString Text(const std::string& sText) { return QString::fromStdString(TextForMessage(sText)); }

QString Whole(double dValue) { return QString::fromStdString(NumberFormat(dValue, "0")); }

/// The texts of a row's columns, other than the hours.
struct RowTexts {
    QString sChannel;
    QString sNow;
    QString sMargin;
    QString sOpen;
    QString sBearing;
    QString sRange;
};

QString OpenText(const Reach& reach, const ReachRow& row, const HourLabels& asHour)
{
    if (row.eState == ReachState::Waiting)
        return QStringLiteral("...");
    if (row.eState == ReachState::Failed)
        return QObject::tr("failed");
    return QString::fromStdString(ReachOpeningText(
        row.opening, reach.InputGet().iFrom,
        [&asHour](int iHour) { return asHour.at(static_cast<std::size_t>(iHour)).toStdString(); }));
}

RowTexts TextsOf(const Reach& reach, const ReachRow& row, const HourLabels& asHour)
{
    const QString sNone = QStringLiteral("-");
    const float fChannel = ReachChannelGet(reach, row);
    const float fNow = row.aHours.at(static_cast<std::size_t>(reach.InputGet().iFrom)).fSnr;
    RowTexts texts;
    texts.sChannel = fChannel > 0.0F ? QString::fromStdString(NumberToText(fChannel)) : sNone;
    texts.sNow = std::isnan(fNow) ? sNone : Whole(fNow);
    texts.sMargin = std::isnan(row.fMargin)
                        ? sNone
                        : (row.fMargin >= 0 ? QStringLiteral("+") : QString()) + Whole(row.fMargin);
    texts.sOpen = OpenText(reach, row, asHour);
    texts.sBearing = QString::fromStdString(NumberFormat(row.dBearing, "000"));
    texts.sRange = Whole(row.dRange);
    return texts;
}

QString StationText(const Place& place)
{
    std::string sText = place.sKey;
    if (!place.sDescription.empty())
        sText += "  " + place.sDescription;
    return Text(sText);
}

/// A title beside the rank, shortened if it is long; the tooltip has the full title.
QString HeadText(std::size_t iRank, const Place& place)
{
    QString sStation = StationText(place);
    if (sStation.size() > static_cast<int>(kStationLetters))
        sStation = sStation.left(kStationLetters - 1) + QChar(0x2026);
    return QStringLiteral("%1  %2").arg(iRank).arg(sStation);
}

void CellSet(GridControl& grd, int iRow, int iCol, const QString& sText)
{
    grd.TextSet(iRow, iCol, sText);
    grd.ColorSet(iRow, iCol, {}, {});
    grd.HatchSet(iRow, iCol, false);
    grd.MetSet(iRow, iCol, false);
}

void HourSet(GridControl& grd, int iRow, int iCol, const ReachHour& hour, float fNeed)
{
    if (!(hour.fFrequency > 0.0F))
        return CellSet(grd, iRow, iCol, {});
    const SnrBand& band = SnrBandOfCell(hour.fSnr);
    grd.TextSet(iRow, iCol, Whole(hour.fSnr));
    grd.ColorSet(iRow, iCol, ColorFromBgr(band.nColor), ColorFromBgr(band.nText));
    grd.MetSet(iRow, iCol, hour.OpenIs(fNeed));
    grd.HatchSet(iRow, iCol, false);
}

}  // namespace

void ReachGridLayout(GridControl& grd, const HourLabels& asHour)
{
    const QFontMetrics metrics = grd.fontMetrics();
    const auto Width = [&metrics](const char* sWidest) {
        return metrics.horizontalAdvance(QString::fromLatin1(sWidest));
    };
    const bool bMinutes = asHour.front().contains(u':');
    grd.ColsSet(kColumns);
    grd.TextSet(0, kReachStation, QObject::tr("station"));
    grd.AlignmentSet(0, kReachStation, Qt::AlignLeft | Qt::AlignVCenter);
    const auto Column = [&grd](int iCol, const QString& sTitle, int nWidth) {
        grd.TextSet(0, iCol, sTitle);
        grd.AlignmentSet(0, iCol, Qt::AlignCenter);
        grd.ColWidthSet(iCol, nWidth);
    };
    Column(kReachChannel, QObject::tr("kHz"), Width("-30000.0-"));
    Column(kReachNow, QObject::tr("now"), Width("-now-"));
    Column(kReachMargin, QObject::tr("margin"), Width("-margin-"));
    for (int i = 0; i < kReachHours; ++i)
        Column(kReachHour + i, asHour.at(static_cast<std::size_t>(i)),
               Width(bMinutes ? "-00:00" : "-00-"));
    Column(kReachOpen, QObject::tr("open"), Width(bMinutes ? "-from 00:00-" : "-from 00-"));
    Column(kReachBearing, QObject::tr("bearing"), Width("-bearing-"));
    Column(kReachRange, QObject::tr("nmi"), Width("-10000-"));
}

void ReachGridFill(GridControl& grd, const Reach& reach, const std::vector<std::size_t>& aRows,
                   const HourLabels& asHour)
{
    grd.RedrawSet(false);
    grd.RowsSet(static_cast<int>(aRows.size()) + 1);
    const QFontMetrics metrics = grd.fontMetrics();
    int nWidest = metrics.horizontalAdvance(QStringLiteral("-000  WWWWWW-"));
    for (std::size_t n = 0; n < aRows.size(); ++n) {
        const ReachRow& row = reach.RowsGet()[aRows[n]];
        const int iRow = static_cast<int>(n) + 1;
        const RowTexts texts = TextsOf(reach, row, asHour);
        const QString sHead = HeadText(n + 1, reach.PlacesGet()[aRows[n]]);
        nWidest = std::max(nWidest, metrics.horizontalAdvance(sHead + u'-'));
        grd.TextSet(iRow, kReachStation, sHead);
        grd.AlignmentSet(iRow, kReachStation, Qt::AlignLeft | Qt::AlignVCenter);
        CellSet(grd, iRow, kReachChannel, texts.sChannel);
        CellSet(grd, iRow, kReachNow, texts.sNow);
        CellSet(grd, iRow, kReachMargin, texts.sMargin);
        for (int i = 0; i < kReachHours; ++i)
            HourSet(grd, iRow, kReachHour + i, row.aHours.at(static_cast<std::size_t>(i)),
                    reach.InputGet().fNeed);
        CellSet(grd, iRow, kReachOpen, texts.sOpen);
        CellSet(grd, iRow, kReachBearing, texts.sBearing);
        CellSet(grd, iRow, kReachRange, texts.sRange);
    }
    grd.ColWidthSet(kReachStation, nWidest);
    grd.RedrawSet(true);
}

PageGrid ReachPageGrid(const Reach& reach, const std::vector<std::size_t>& aRows,
                       const HourLabels& asHour)
{
    QStringList asColumn{QObject::tr("kHz"), QObject::tr("now"), QObject::tr("margin")};
    for (const QString& sHour : asHour) asColumn.append(sHour);
    asColumn << QObject::tr("open") << QObject::tr("bearing") << QObject::tr("nmi");
    std::vector<QStringList> aHead;
    for (std::size_t n = 0; n < aRows.size(); ++n) {
        const Place& place = reach.PlacesGet()[aRows[n]];
        aHead.push_back({QString::number(n + 1), Text(place.sKey), Text(place.sDescription)});
    }
    PageGrid grid = PageGridMake({QStringLiteral("#"), QObject::tr("station"), QObject::tr("name")},
                                 asColumn, aHead);
    for (std::size_t n = 0; n < aRows.size(); ++n) {
        const ReachRow& row = reach.RowsGet()[aRows[n]];
        const RowTexts texts = TextsOf(reach, row, asHour);
        const int iRow = static_cast<int>(n);
        int iCol = 0;
        for (const QString& sText : {texts.sChannel, texts.sNow, texts.sMargin})
            grid.CellGet(iRow, iCol++).sText = sText;
        for (const ReachHour& hour : row.aHours) {
            PageCell& cell = grid.CellGet(iRow, iCol++);
            if (!(hour.fFrequency > 0.0F))
                continue;
            cell.sText = Whole(hour.fSnr);
            cell.clrBack = ColorFromBgr(SnrBandOfCell(hour.fSnr).nColor);
            cell.bStrong = hour.OpenIs(reach.InputGet().fNeed);
        }
        for (const QString& sText : {texts.sOpen, texts.sBearing, texts.sRange})
            grid.CellGet(iRow, iCol++).sText = sText;
    }
    return grid;
}

std::optional<int> ReachHourOf(int iCol)
{
    if (iCol < kReachHour || iCol >= kReachOpen)
        return {};
    return iCol - kReachHour;
}

std::optional<ReachOrder> ReachOrderOf(int iCol)
{
    switch (iCol) {
        case kReachStation:
            return ReachOrder::Station;
        case kReachChannel:
            return ReachOrder::Frequency;
        case kReachNow:
            return ReachOrder::Now;
        case kReachMargin:
            return ReachOrder::Margin;
        case kReachOpen:
            return ReachOrder::Open;
        case kReachBearing:
            return ReachOrder::Bearing;
        case kReachRange:
            return ReachOrder::Range;
        default:
            return {};
    }
}

QString ReachCellText(const Reach& reach, std::size_t iRow, int iCol, const HourLabels& asHour,
                      const QString& sZone)
{
    const ReachRow& row = reach.RowsGet()[iRow];
    const QString sStation = StationText(reach.PlacesGet()[iRow]);
    if (row.eState == ReachState::Failed)
        return sStation + QStringLiteral(": ") + Text(row.sFailure);
    if (const auto iHour = ReachHourOf(iCol)) {
        const ReachHour& hour = row.aHours.at(static_cast<std::size_t>(*iHour));
        const QString sValue =
            hour.fFrequency > 0.0F
                ? QObject::tr("%1 kHz, %2 dB")
                      .arg(QString::fromStdString(NumberToText(hour.fFrequency)), Whole(hour.fSnr))
                : QObject::tr("no value");
        return QStringLiteral("%1, %2 %3: %4")
                   .arg(sStation, asHour.at(static_cast<std::size_t>(*iHour)), sZone, sValue)
               + (hour.OpenIs(reach.InputGet().fNeed) ? QObject::tr(", meets the need")
                                                      : QString());
    }
    const RowTexts texts = TextsOf(reach, row, asHour);
    switch (iCol) {
        case kReachChannel:
            return QObject::tr("%1: frequency to try, %2 kHz").arg(sStation, texts.sChannel);
        case kReachNow:
            return QObject::tr("%1: now %2 dB").arg(sStation, texts.sNow);
        case kReachMargin:
            return QObject::tr("%1: %2 dB against the need now").arg(sStation, texts.sMargin);
        case kReachOpen:
            return QObject::tr("%1: open %2").arg(sStation, texts.sOpen);
        case kReachBearing:
            return QObject::tr("%1: bearing %2\u00B0 from here").arg(sStation, texts.sBearing);
        case kReachRange:
            return QObject::tr("%1: %2 nautical miles").arg(sStation, texts.sRange);
        default:
            return sStation;
    }
}
