/// @file MapSkyLayers.h
/// The lines that can be switched on above the map: day and night at the overlay's hour, and the
/// great-circle path between the two places.
///
/// Tests:   tests/ui/map/MapMarkersTest.cpp
#pragma once

#include "ui/map/MapForm.h"
#include "ui/map/MapLayers.h"

class MainWindowHost;
class MapOverlayMenu;

class NightLayer final : public MapLayer {
public:
    NightLayer(const MapForm& form, MainWindowHost& host, const MapOverlayMenu& menu)
        : m_form(form), m_host(host), m_menu(menu)
    {
    }
    void Paint(QPainter& painter) override;

private:
    const MapForm& m_form;
    MainWindowHost& m_host;
    const MapOverlayMenu& m_menu;
};

class PathLayer final : public MapLayer {
public:
    explicit PathLayer(const MapForm& form) : m_form(form) {}
    void Paint(QPainter& painter) override;

private:
    const MapForm& m_form;
};
