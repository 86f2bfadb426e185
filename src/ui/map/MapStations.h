/// @file MapStations.h
/// Airmail's stations on the map: loaded on the first click and shown by system. Each of them can
/// become receiver or transmitter; a click makes it the transmitter.
///
/// Tests:   tests/ui/map/MapStationsTest.cpp
#pragma once

#include <QObject>
#include <string>
#include <vector>

#include "system/Result.h"
#include "ui/map/MapForm.h"

class MapMarkers;
class QMouseEvent;

/// A station on the map; the lists are counted from 1.
struct MapStation {
    LatLon pos;
    int iSystem = 1;
    std::string sSystem;
    std::string sKey;
    QString sTip;
};

class MapStations final : public QObject {
    Q_OBJECT
public:
    MapStations(MapForm& form, MapMarkers& markers);
    /// Places the symbols and shows those whose system is checked.
    void StationsDraw();
    [[nodiscard]] const std::vector<MapStation>& StationsGet() const { return m_aStation; }
    /// Replaces the second part of a station's tip.
    void TipShow(std::size_t iStation, const QString& sMore);
    /// Shows a station's symbol in a colour, or with an invalid one in the colour of its list.
    /// @param iStation  from 0
    /// @param sMore     a second line of its tip; or empty
    void StationShow(std::size_t iStation, const QColor& clrSymbol, const QString& sMore);

Q_SIGNALS:
    void Loaded();
    /// The pointer is over a station's symbol, whose tip is needed; from 0.
    void Reached(std::size_t iStation);

private:
    void cmdStationsClick();
    Result<void> StationsLoad();
    Result<void> SystemLoad(const std::string& sSystem, int iSystem);
    void StationAdd(const MapStation& station);
    void imgStationMouseUp(int iStation, const QMouseEvent* pEvent);
    void mnuStationSet(MarkerLabel* pMarker);

    MapForm& m_form;
    MapMarkers& m_markers;
    int m_nSystem = 0;  // 0: not loaded yet
    std::vector<MapStation> m_aStation;
    int m_iStation = 0;  // selected one, from 1
};
