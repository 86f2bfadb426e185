#include "ui/map/MapReach.h"

#include "propagation/SnrScale.h"
#include "system/ClockLib.h"
#include "system/NumberLib.h"
#include "ui/common/Colors.h"
#include "ui/common/MainWindowHost.h"

MapReach::MapReach(const MapForm& form, MapStations& stations, MainWindowHost& host,
                   const MapOverlayMenu& menu)
    : m_form(form), m_stations(stations), m_host(host), m_menu(menu)
{
    connect(&host.ReachBoardGet(), &ReachBoard::Renewed, this, &MapReach::Show);
    connect(&host.SettingsSignalGet(), &SettingsSignal::CellSelected, this, &MapReach::Show);
    connect(&menu, &MapOverlayMenu::Chosen, this, &MapReach::Show);
    connect(&stations, &MapStations::Loaded, this, &MapReach::Show);
}

/// The overlay's where it is shown, else the selected cell's, else now; UTC.
int MapReach::HourGet() const
{
    if (m_form.mnuOverlayDraw->isChecked())
        return m_menu.ChoiceGet().iHour;
    const int iSelected = m_host.DataGetSelected().iHour;
    return iSelected >= 1 && iSelected <= kHourCount ? iSelected - 1 : UtcNow().nHour;
}

void MapReach::Show()
{
    const int iHour = HourGet();
    for (std::size_t n = 0; n < m_stations.StationsGet().size(); ++n) {
        const MapStation& station = m_stations.StationsGet()[n];
        const auto hour = m_host.ReachBoardGet().HourGet(station.sSystem, station.sKey, iHour);
        if (!hour) {
            m_stations.StationShow(n, {}, {});
            continue;
        }
        const QString sValue =
            hour->fFrequency > 0.0F
                ? tr("%1 kHz, %2 dB")
                      .arg(QString::fromStdString(NumberToText(hour->fFrequency)),
                           QString::fromStdString(NumberFormat(hour->fSnr, "0")))
                : tr("no value");
        m_stations.StationShow(n, ColorFromBgr(SnrBandOfCell(hour->fSnr).nColor),
                               tr("%1 UTC: %2").arg(OverlayHourText(iHour), sValue));
    }
}
