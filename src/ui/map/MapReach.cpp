#include "ui/map/MapReach.h"

#include "geo/BearingLib.h"
#include "geo/Earth.h"
#include "geo/MathLib.h"
#include "propagation/SnrScale.h"
#include "propagation/deck/DeckLayout.h"
#include "settings/Need.h"
#include "system/ClockLib.h"
#include "system/NumberLib.h"
#include "ui/common/Colors.h"
#include "ui/common/MainWindowHost.h"

namespace {

constexpr std::size_t kKeptMost = 1000;

QString ValueText(const ReachHour& hour, int iHour)
{
    const QString sValue = hour.fFrequency > 0.0F
                               ? MapReach::tr("%1 kHz, %2 dB")
                                     .arg(QString::fromStdString(NumberToText(hour.fFrequency)),
                                          QString::fromStdString(NumberFormat(hour.fSnr, "0")))
                               : MapReach::tr("no value");
    return MapReach::tr("%1 UTC: %2").arg(OverlayHourText(iHour), sValue);
}

}  // namespace

MapReach::MapReach(const MapForm& form, MapStations& stations, MainWindowHost& host,
                   const MapOverlayMenu& menu)
    : m_form(form), m_stations(stations), m_host(host), m_menu(menu)
{
    connect(&host.ReachBoardGet(), &ReachBoard::Renewed, this, &MapReach::Show);
    connect(&host.SettingsSignalGet(), &SettingsSignal::CellSelected, this, &MapReach::Show);
    connect(&host.SettingsSignalGet(), &SettingsSignal::TableRenewed, this, &MapReach::Show);
    connect(&menu, &MapOverlayMenu::Chosen, this, &MapReach::Show);
    connect(form.mnuOverlay, &QMenu::aboutToShow, this, &MapReach::Show);  // may take an hour
    connect(&stations, &MapStations::Loaded, this, &MapReach::Show);
    connect(&stations, &MapStations::Reached, this, &MapReach::TipShow);
}

/// The overlay's hour if it is shown, else the selected cell's, else the present one; UTC.
int MapReach::HourGet() const
{
    if (m_form.mnuOverlayDraw->isChecked())
        return m_menu.ChoiceGet().iHour;
    const int iSelected = m_host.DataGetSelected().iHour;
    return iSelected >= 1 && iSelected <= kHourCount ? iSelected - 1 : UtcNow().nHour;
}

/// True while the settings ask for what the last search asked for. The list of frequencies of a
/// station that was taken over from its answers is not the user's own.
bool MapReach::BoardIs() const
{
    return m_host.ReachBoardGet().Answers(RequestFromSettings(m_host.SettingsGet()),
                                          !m_host.TakenIs());
}

/// A station's day from the last search.
std::optional<MapReach::Hours> MapReach::BoardGet(const MapStation& station) const
{
    if (!BoardIs())
        return {};
    Hours aHours;
    for (int iHour = 0; iHour < kReachHours; ++iHour) {
        const auto hour = m_host.ReachBoardGet().HourGet(station.sSystem, station.sKey, iHour);
        if (!hour)
            return {};
        aHours[static_cast<std::size_t>(iHour)] = *hour;
    }
    return aHours;
}

/// A station's day, predicted with the settings for the receiver's flag.
std::optional<MapReach::Hours> MapReach::Predict(const MapStation& station)
{
    ReachInput input;
    input.base = RequestFromSettings(m_host.SettingsGet());
    input.base.dRcLat = m_form.m_posRc.dLat;
    input.base.dRcLon = m_form.m_posRc.dLon;
    const auto pEngine = m_fnEngine ? m_fnEngine(input.base.iModel) : nullptr;
    // An engine in this process takes a list of any length in one run.
    if (!pEngine || pEngine->LimitsGet().nFrequencies <= kChunkMax || pEngine->ObstacleGet())
        return {};
    Place place;
    place.dLat = station.pos.dLat;
    place.dLon = station.pos.dLon;
    const Request request = ReachRequestGet(input, place);
    const std::string sKey = pEngine->IdentityGet() + '\0' + RequestKey(request);
    if (const auto it = m_aPredicted.find(sKey); it != m_aPredicted.end())
        return it->second;
    if (m_aPredicted.size() >= kKeptMost)
        m_aPredicted.clear();
    const ReachRow row = ReachRowGet(input, place, pEngine->Predict(request, {}));
    return m_aPredicted[sKey] =
               row.eState == ReachState::Answered ? std::optional(row.aHours) : std::nullopt;
}

/// "1363 nmi, bearing 025°"
QString MapReach::WayText(const MapStation& station) const
{
    const LatLon& rc = m_form.m_posRc;
    const double dMiles = GreatCircleAngle(rc.dLat, rc.dLon, station.pos.dLat, station.pos.dLon)
                          * kEarthKm / kKmPerMile;
    const double dBearing = BearingGet(rc.dLat, rc.dLon, station.pos.dLat, station.pos.dLon);
    return tr("%1 nmi, bearing %2°")
        .arg(QString::fromStdString(NumberFormat(dMiles, "0")),
             QString::fromStdString(NumberFormat(dBearing, "000")));
}

/// "E-mail, normal (40 dB): open until 09:00 UTC"
QString MapReach::OpeningText(const Hours& aHours, int iHour) const
{
    const Settings& settings = m_host.SettingsGet();
    const Need need = NeedInForce(settings.m_aNeed, settings.m_sNeedSelected);
    const ReachOpening opening = ReachOpeningGet(aHours, need.fSnr, iHour, kReachHours);
    const auto HourText = [iHour](int nAfter) {
        return OverlayHourText((iHour + nAfter) % kReachHours);
    };
    QString sOpen;
    if (opening.nWait < 0)
        sOpen = tr("not open");
    else if (opening.nLength >= kReachHours)
        sOpen = tr("open all day");
    else if (opening.nWait == 0)
        sOpen = tr("open until %1 UTC").arg(HourText(opening.nLength));
    else
        sOpen = tr("opens at %1 UTC").arg(HourText(opening.nWait));
    return tr("%1 (%2 dB): %3")
        .arg(QString::fromStdString(need.sName), QString::fromStdString(NumberToText(need.fSnr)),
             sOpen);
}

/// Shows the tip of the station under the pointer. A station of the last search is described as it
/// is coloured, unless the receiver's flag has been moved since.
void MapReach::TipShow(std::size_t iStation)
{
    const MapStation& station = m_stations.StationsGet()[iStation];
    const int iHour = HourGet();
    const auto board = BoardGet(station);
    const Settings& settings = m_host.SettingsGet();
    const bool bMoved =
        m_form.m_posRc.dLat != settings.m_dRcLat || m_form.m_posRc.dLon != settings.m_dRcLon;
    const auto aHours = board && !bMoved ? board : Predict(station);
    QString sMore = WayText(station);
    if (aHours)
        sMore += u'\n' + ValueText((*aHours)[static_cast<std::size_t>(iHour)], iHour) + u'\n'
                 + OpeningText(*aHours, iHour);
    m_stations.TipShow(iStation, sMore);
}

void MapReach::Show()
{
    const int iHour = HourGet();
    const bool bBoard = BoardIs();
    for (std::size_t n = 0; n < m_stations.StationsGet().size(); ++n) {
        const MapStation& station = m_stations.StationsGet()[n];
        const auto hour = bBoard
                              ? m_host.ReachBoardGet().HourGet(station.sSystem, station.sKey, iHour)
                              : std::nullopt;
        if (hour)
            m_stations.StationShow(n, ColorFromBgr(SnrBandOfCell(hour->fSnr).nColor),
                                   ValueText(*hour, iHour));
        else
            m_stations.StationShow(n, {}, {});
    }
}
