/// @file MapReach.h
/// The stations on the map in the colours of their SNR at the hour shown, once "Who Can I Reach"
/// has asked for them.
///
/// Tests:   tests/ui/map/MapReachTest.cpp
#pragma once

#include <QObject>

#include "ui/map/MapOverlayMenu.h"
#include "ui/map/MapStations.h"

class MapReach final : public QObject {
    Q_OBJECT
public:
    MapReach(const MapForm& form, MapStations& stations, MainWindowHost& host,
             const MapOverlayMenu& menu);

    /// Colours every station that was asked for; the others keep the colour of their list.
    void Show();

private:
    [[nodiscard]] int HourGet() const;

    const MapForm& m_form;
    MapStations& m_stations;
    MainWindowHost& m_host;
    const MapOverlayMenu& m_menu;
};
