/// @file MapReach.h
/// The answers of "Who Can I Reach" on the map. Stations in them have the colour of their SNR at
/// the hour shown, as long as the settings still ask for that; the tip of a station gives range and
/// bearing, its best frequency and when it is open.
///
/// Tests:   tests/ui/map/MapReachTest.cpp
#pragma once

#include <QObject>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "propagation/Engine.h"
#include "studies/reach/Reach.h"
#include "ui/map/MapOverlayMenu.h"
#include "ui/map/MapStations.h"

class MapReach final : public QObject {
    Q_OBJECT
public:
    using EngineFn = std::function<std::shared_ptr<const Engine>(int iModel)>;

    MapReach(const MapForm& form, MapStations& stations, MainWindowHost& host,
             const MapOverlayMenu& menu);

    /// Engines for stations that are in no answer yet. Only an engine in this process is used,
    /// since it answers before the tip is shown.
    void EnginesSet(EngineFn fnEngine) { m_fnEngine = std::move(fnEngine); }
    /// Colours all stations in the answers; the others keep the colour of their list.
    void Show();

private:
    using Hours = std::array<ReachHour, kReachHours>;

    [[nodiscard]] int HourGet() const;
    [[nodiscard]] bool BoardIs() const;
    [[nodiscard]] std::optional<Hours> BoardGet(const MapStation& station) const;
    [[nodiscard]] std::optional<Hours> Predict(const MapStation& station);
    [[nodiscard]] QString WayText(const MapStation& station) const;
    [[nodiscard]] QString OpeningText(const Hours& aHours, int iHour) const;
    void TipShow(std::size_t iStation);

    const MapForm& m_form;
    MapStations& m_stations;
    MainWindowHost& m_host;
    const MapOverlayMenu& m_menu;
    EngineFn m_fnEngine;
    std::map<std::string, std::optional<Hours>> m_aPredicted;  ///< by engine and request
};
