/// @file MapDayMenu.h
/// The layers of the map's day in the overlay's menu, below the overlay's own items.
///
/// Tests:   tests/ui/map/MapDayMenuTest.cpp
#pragma once

#include <QObject>
#include <array>

#include "ui/map/MapDayPaint.h"
#include "ui/map/MapForm.h"

class MainWindowHost;
class MapDayControl;

class MapDayMenu final : public QObject {
    Q_OBJECT
public:
    MapDayMenu(MapForm& form, MainWindowHost& host, MapDayControl& day);

private:
    void mnuOverlayOpen();

    const MapForm& m_form;
    MainWindowHost& m_host;
    const MapDayControl& m_day;
    std::array<QAction*, kMapDayLayers> m_aItems{};
};
