#include "ui/map/MapDayPaint.h"

#include <QObject>
#include <algorithm>
#include <array>
#include <cmath>

#include "propagation/RequestText.h"
#include "system/NumberLib.h"
#include "ui/common/Colors.h"
#include "ui/common/Words.h"
#include "ui/map/MapOverlayMenu.h"

namespace {

constexpr int kDays = 10;
constexpr int kHoursAStep = 3;  // hours open with the same colour
constexpr int kHourSteps = kHourCount / kHoursAStep;

QString Text(float fValue, const char* sPattern = "0")
{
    return QString::fromStdString(NumberFormat(fValue, sPattern));
}

/// A rainbow with red for the longest waves; all its colours are light enough for black coastlines.
QColor RainbowColor(double dShare)
{
    static const std::array<QColor, 9> kStops{
        QColor(0xC8, 0x3C, 0x32), QColor(0xF0, 0x82, 0x28), QColor(0xFA, 0xC8, 0x3C),
        QColor(0xC8, 0xDC, 0x50), QColor(0x46, 0xAA, 0x5A), QColor(0x50, 0xD2, 0xC8),
        QColor(0x46, 0x8C, 0xE6), QColor(0x78, 0x5A, 0xC8), QColor(0xE6, 0x96, 0xDC)};
    const double dPlace = dShare * static_cast<double>(kStops.size() - 1);
    const auto iStop = std::min(static_cast<std::size_t>(dPlace), kStops.size() - 2);
    const double dOver = dPlace - static_cast<double>(iStop);
    const auto Part = [dOver](int nOne, int nOther) {
        return static_cast<int>(std::lround(nOne + (nOther - nOne) * dOver));
    };
    const QColor& clrOne = kStops.at(iStop);
    const QColor& clrOther = kStops.at(iStop + 1);
    return {Part(clrOne.red(), clrOther.red()), Part(clrOne.green(), clrOther.green()),
            Part(clrOne.blue(), clrOther.blue())};
}

/// By the order of the frequencies, so that neighbours in a band can be told apart.
QColor FrequencyColor(const std::vector<float>& afFrequency, std::size_t iFrequency)
{
    const float fKhz = afFrequency.at(iFrequency);
    const auto nLower = std::count_if(afFrequency.begin(), afFrequency.end(),
                                      [fKhz](float fOther) { return fOther < fKhz; });
    const double dMost = std::max(1.0, static_cast<double>(afFrequency.size()) - 1.0);
    return RainbowColor(static_cast<double>(nLower) / dMost);
}

/// A line without its first parts.
std::string PartsDrop(std::string sLine, int nParts)
{
    const std::string sBetween = kTextBetween;
    for (; nParts > 0; --nParts) {
        const std::size_t nAt = sLine.find(sBetween);
        sLine.erase(0, nAt == std::string::npos ? nAt : nAt + sBetween.size());
    }
    return sLine;
}

int HourStep(int nHours) { return (nHours + kHoursAStep - 1) / kHoursAStep; }

LegendRow RowMake(const QString& sText, const QColor& clr) { return {sText, clr.rgb(), true}; }

QString NeedText(const MapDayShown& shown)
{
    return QObject::tr("for %1, %2 dB")
        .arg(QString::fromStdString(shown.need.sName),
             QString::fromStdString(NumberToText(shown.need.fSnr)));
}

Legend FrequencyLegend(const MapDayShown& shown)
{
    Legend legend{
        QObject::tr("Best frequency (kHz)"),
        {},
        QObject::tr("drawn from %1 dB").arg(QString::fromStdString(NumberToText(shown.fMinSnr)))};
    std::vector<float> afSorted = shown.afFrequency;
    std::sort(afSorted.begin(), afSorted.end(), std::greater<>());
    afSorted.erase(std::unique(afSorted.begin(), afSorted.end()), afSorted.end());
    for (const float fKhz : afSorted) {
        const auto it = std::find(shown.afFrequency.begin(), shown.afFrequency.end(), fKhz);
        legend.aRows.push_back(RowMake(
            Text(fKhz), FrequencyColor(shown.afFrequency,
                                       static_cast<std::size_t>(it - shown.afFrequency.begin()))));
    }
    return legend;
}

Legend DaysLegend(const MapDayShown& shown)
{
    Legend legend{
        QObject::tr("Days in ten, %1 kHz").arg(Text(shown.afFrequency.at(shown.iFrequency))),
        {},
        NeedText(shown)};
    for (int nDays = kDays; nDays >= 0; --nDays)
        legend.aRows.push_back(
            RowMake(QString::number(nDays), ShareColor(nDays / static_cast<double>(kDays))));
    return legend;
}

Legend HoursLegend(const MapDayShown& shown)
{
    const auto nHours = static_cast<int>(shown.hours.count());
    Legend legend{nHours == kHourCount ? QObject::tr("Hours open a day")
                                       : QObject::tr("Hours open of %1").arg(nHours),
                  {},
                  NeedText(shown)};
    for (int n = kHourSteps; n >= 0; --n) {
        const QString sText =
            n == 0 ? QStringLiteral("0")
                   : QObject::tr("%1 to %2").arg((n - 1) * kHoursAStep + 1).arg(n * kHoursAStep);
        legend.aRows.push_back(RowMake(sText, ShareColor(n / static_cast<double>(kHourSteps))));
    }
    return legend;
}

}  // namespace

bool DayLayerHasFrequency(MapDayLayerKind eLayer)
{
    return eLayer == MapDayLayerKind::Snr || eLayer == MapDayLayerKind::DaysInTen;
}

std::optional<float> DayValueGet(const MapDayShown& shown, const AreaDay& day, std::size_t iPoint)
{
    switch (shown.eLayer) {
        case MapDayLayerKind::Snr: {
            const float fSnr = day.SnrGet(iPoint, shown.iHour, shown.iFrequency);
            return std::isnan(fSnr) ? std::nullopt : std::optional(fSnr);
        }
        case MapDayLayerKind::BestFrequency: {
            const auto best = AreaBestGet(day, iPoint, shown.iHour);
            return best && best->fSnr >= shown.fMinSnr
                       ? std::optional(static_cast<float>(best->iFrequency))
                       : std::nullopt;
        }
        case MapDayLayerKind::DaysInTen: {
            const auto nDays =
                AreaDaysInTenGet(day, iPoint, shown.iHour, shown.iFrequency, shown.need.fSnr);
            return nDays ? std::optional(static_cast<float>(*nDays)) : std::nullopt;
        }
        case MapDayLayerKind::HoursOpen:
            break;
    }
    return static_cast<float>(AreaHoursOpenGet(day, iPoint, shown.need.fSnr, shown.hours));
}

std::uint32_t DayColorGet(const MapDayShown& shown, float fValue)
{
    switch (shown.eLayer) {
        case MapDayLayerKind::Snr:
            return shown.fnSnrColor(fValue);
        case MapDayLayerKind::BestFrequency:
            return ColorToBgr(FrequencyColor(shown.afFrequency, static_cast<std::size_t>(fValue)));
        case MapDayLayerKind::DaysInTen:
            return ColorToBgr(ShareColor(fValue / double{kDays}));
        case MapDayLayerKind::HoursOpen:
            break;
    }
    return ColorToBgr(
        ShareColor(HourStep(static_cast<int>(fValue)) / static_cast<double>(kHourSteps)));
}

std::vector<AreaPoint> DayPointsGet(const MapDayShown& shown, const AreaDay& day)
{
    std::vector<AreaPoint> aPoints;
    aPoints.reserve(day.aPlaces.size());
    for (std::size_t i = 0; i < day.aPlaces.size(); ++i)
        aPoints.push_back({day.aPlaces[i].dLat, day.aPlaces[i].dLon,
                           DayValueGet(shown, day, i).value_or(PropagationTable::kNotPrinted)});
    return aPoints;
}

Legend DayLegendGet(const MapDayShown& shown)
{
    switch (shown.eLayer) {
        case MapDayLayerKind::Snr:
            return LegendOfSnr(LegendGetRows(shown.fMinSnr, shown.fnSnrColor), shown.fMinSnr);
        case MapDayLayerKind::BestFrequency:
            return FrequencyLegend(shown);
        case MapDayLayerKind::DaysInTen:
            return DaysLegend(shown);
        case MapDayLayerKind::HoursOpen:
            break;
    }
    return HoursLegend(shown);
}

QString DaySnrText(float fSnr) { return QObject::tr(", Snr %1 dB").arg(Text(fSnr, "0.0")); }

QString DayTipGet(const MapDayShown& shown, const AreaDay& day, std::size_t iPoint)
{
    const auto value = DayValueGet(shown, day, iPoint);
    switch (shown.eLayer) {
        case MapDayLayerKind::Snr:
            return value ? DaySnrText(*value) : QObject::tr(", no value");
        case MapDayLayerKind::BestFrequency: {
            const auto best = AreaBestGet(day, iPoint, shown.iHour);
            return best ? QObject::tr(", %1 kHz").arg(Text(shown.afFrequency.at(best->iFrequency)))
                              + DaySnrText(best->fSnr)
                        : QObject::tr(", no value");
        }
        case MapDayLayerKind::DaysInTen:
            return value ? QObject::tr(", %1 days in ten").arg(Text(*value))
                         : QObject::tr(", no value");
        case MapDayLayerKind::HoursOpen:
            break;
    }
    return QObject::tr(", %1 hours open").arg(Text(value.value_or(0.0F)));
}

QString DayTitleGet(const MapDayShown& shown)
{
    const QString sHour = OverlayHourText(shown.iHour);
    const QString sKhz = shown.iFrequency < shown.afFrequency.size()
                             ? Text(shown.afFrequency[shown.iFrequency], "0.0")
                             : QString();
    switch (shown.eLayer) {
        case MapDayLayerKind::Snr:
            return QObject::tr("Snr Overlay, %1KHz @ %2").arg(sKhz, sHour);
        case MapDayLayerKind::BestFrequency:
            return QObject::tr("Best Frequency @ %1").arg(sHour);
        case MapDayLayerKind::DaysInTen:
            return QObject::tr("Days in Ten, %1KHz @ %2").arg(sKhz, sHour);
        case MapDayLayerKind::HoursOpen:
            break;
    }
    return QObject::tr("Hours Open a Day");
}

std::string DayFootGet(const MapDayShown& shown, const std::string& sAreaFoot)
{
    const std::string sBetween = kTextBetween;
    const std::string sCount = NumberToText(static_cast<int>(shown.afFrequency.size()));
    switch (shown.eLayer) {
        case MapDayLayerKind::Snr:
            return sAreaFoot;
        case MapDayLayerKind::BestFrequency:
            return WordsPut(QObject::tr("best of %1 frequencies"), sCount) + sBetween
                   + PartsDrop(sAreaFoot, 1);
        case MapDayLayerKind::DaysInTen:
            return QObject::tr("days in ten").toStdString() + sBetween + sAreaFoot + sBetween
                   + NeedFootText(shown.need);
        case MapDayLayerKind::HoursOpen:
            break;
    }
    return WordsPut(QObject::tr("hours open a day on the best of %1 frequencies"), sCount)
           + sBetween + PartsDrop(sAreaFoot, 2) + sBetween + NeedFootText(shown.need);
}
