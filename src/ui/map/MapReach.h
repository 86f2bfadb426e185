/// @file MapReach.h
/// What the stations on the map tell of themselves: in the colours of their SNR at the hour shown,
/// once "Who Can I Reach" has asked for them; in the tip of the one under the pointer the way to
/// it, its best frequency and when it is open.
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

    /// Engines for stations that nobody has asked for yet. Only one of this process is taken: its
    /// answer is there before the tip.
    void EnginesSet(EngineFn fnEngine) { m_fnEngine = std::move(fnEngine); }
    /// Colours every station that was asked for; the others keep the colour of their list.
    void Show();

private:
    using Hours = std::array<ReachHour, kReachHours>;

    [[nodiscard]] int HourGet() const;
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
