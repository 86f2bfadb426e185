#include "ui/card/CardPage.h"

#include <QObject>
#include <cstddef>
#include <memory>

#include "propagation/RequestText.h"
#include "propagation/SnrScale.h"
#include "studies/curves/Curves.h"
#include "system/NumberLib.h"
#include "ui/common/Colors.h"
#include "ui/common/LocationText.h"
#include "ui/common/PaletteShown.h"
#include "ui/curves/CurvesPlot.h"

namespace {

QString Formatted(double dValue, const char* sPattern)
{
    return QString::fromStdString(NumberFormat(dValue, sPattern));
}

/// The frequency with the highest SNR of an hour, kHz; the first of equals.
QString BestGet(const PropagationTable& table, int iHour)
{
    int iBest = 0;
    float fBest = kSnrLeast;
    for (int i = 1; i <= table.nData; ++i) {
        if (table.PresentIs(i) && table.fSnr(iHour, i) > fBest) {
            fBest = table.fSnr(iHour, i);
            iBest = i;
        }
    }
    return iBest > 0 ? Formatted(table.request.FrequencyGet(iBest), "0") : QStringLiteral("-");
}

PageCell CellMake(const PropagationTable& table, int iHour, int iFrequency, float fNeed)
{
    PageCell cell;
    cell.bHatched = !table.PresentIs(iFrequency);
    if (cell.bHatched)
        return cell;
    const float fSnr = SnrShownGet(table.fSnr(iHour, iFrequency));
    cell.sText = Formatted(fSnr, "0");
    cell.clrBack = ColorFromBgr(SnrBandOfCell(fSnr).nColor);
    cell.bStrong = fSnr >= fNeed;
    return cell;
}

/// The hours in UTC and ship's time with their titles, in the order of the time setting.
struct Hours {
    QString sName;
    HourLabels asHour;
};

std::array<Hours, 2> HoursGet(const CardInput& input)
{
    const Hours utc{QObject::tr("UTC"), HourLabelsGet(kTimeZulu)};
    const Hours ship{QObject::tr("Ship"), input.asShip};
    return input.iTimeCode == kTimeLocal ? std::array{ship, utc} : std::array{utc, ship};
}

QStringList EndsGet(const PropagationTable& table, const CardInput& input)
{
    const Request& request = table.request;
    QStringList asLine;
    asLine
        << QObject::tr("Transmitter: %1%2")
               .arg(input.sTx.isEmpty() ? input.sTx : input.sTx + QStringLiteral(", "),
                    PositionToText(request.dTxLat, request.dTxLon))
        << QObject::tr("Receiver: %1").arg(PositionToText(request.dRcLat, request.dRcLon))
        << input.asNote
        << QObject::tr(
               "Range %1 nmi; bearing to the transmitter %2\u00B0, from the transmitter %3\u00B0")
               .arg(Formatted(table.fRange, "0"), Formatted(table.fAzimuthRcTx, "000"),
                    Formatted(table.fAzimuthTxRc, "000"));
    return asLine;
}

PagePicture CurvesGet(const PropagationTable& table, const CardInput& input)
{
    const auto pDay = std::make_shared<const DayCurves>(DayCurvesGet(table));
    CurvesView view;
    view.asHour = HoursGet(input).front().asHour;
    view.fNeed = input.need.fSnr;
    return {[pDay, view](QPainter& painter, const QRectF& rct, PageLook eLook) {
        CurvesView viewLook = view;
        viewLook.eLook = eLook;
        viewLook.ePalette = PaletteOnPaper();
        CurvesPlot(rct, QFontMetricsF(painter.font(), painter.device()), *pDay, viewLook)
            .Paint(painter);
    }};
}

}  // namespace

PageGrid CardGridGet(const PropagationTable& table, const CardInput& input)
{
    QStringList asColumn;
    for (int i = 1; i <= table.nData; ++i)
        asColumn.append(Formatted(table.request.FrequencyGet(i), "0"));
    const auto aHours = HoursGet(input);
    std::vector<QStringList> aRow;
    for (std::size_t n = 0; n < aHours.front().asHour.size(); ++n)
        aRow.push_back({aHours[0].asHour.at(n), aHours[1].asHour.at(n),
                        BestGet(table, static_cast<int>(n) + 1)});
    PageGrid grid =
        PageGridMake({aHours[0].sName, aHours[1].sName, QObject::tr("Best")}, asColumn, aRow);
    for (int iHour = 1; iHour <= kHourCount; ++iHour)
        for (int i = 1; i <= table.nData; ++i)
            grid.CellGet(iHour - 1, i - 1) = CellMake(table, iHour, i, input.need.fSnr);
    grid.bTurns = true;
    return grid;
}

Page CardPageGet(const PropagationTable& table, const CardInput& input)
{
    if (table.nData == 0)
        return {QObject::tr("There is no prediction yet."), {}, {}};
    const Request& request = table.request;
    const QString sTx =
        input.sTx.isEmpty() ? PositionToText(request.dTxLat, request.dTxLon) : input.sTx;
    Page page;
    page.sTitle = QObject::tr("%1 to %2").arg(sTx, PositionToText(request.dRcLat, request.dRcLon));
    page.aBlock.push_back({{}, EndsGet(table, input)});
    page.aBlock.push_back(
        {QObject::tr("Signal-to-noise ratio, dB in 1 Hz, by hour and frequency in kHz; bold is "
                     "enough for %1")
             .arg(QString::fromStdString(NeedFootText(input.need)).section(u' ', 1)),
         CardGridGet(table, input)});
    page.aBlock.push_back(
        {QObject::tr("Highest (MUF), best (FOT) and lowest (LUF) frequency, kHz, by %1; "
                     "day and night at receiver and transmitter")
             .arg(input.iTimeCode == kTimeLocal ? QObject::tr("ship's hour")
                                                : QObject::tr("hour UTC")),
         CurvesGet(table, input)});
    const std::string sOld =
        input.bOld ? kTextBetween + QObject::tr("from an earlier update").toStdString()
                   : std::string();
    page.sFoot = QString::fromStdString(RequestFootText(request, table.bBuiltIn, input.nYear)
                                        + kTextBetween + NeedFootText(input.need) + sOld);
    return page;
}
