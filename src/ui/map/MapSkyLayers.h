/// @file MapSkyLayers.h
/// Layers that the user can switch on above the map: the line between day and night at the
/// overlay's hour, the shade of the night, and the great-circle path between the two places.
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

class TwilightLayer final : public MapLayer {
public:
    TwilightLayer(const MapForm& form, MainWindowHost& host, const MapOverlayMenu& menu)
        : m_form(form), m_host(host), m_menu(menu)
    {
    }
    void Paint(QPainter& painter) override;

private:
    const MapForm& m_form;
    MainWindowHost& m_host;
    const MapOverlayMenu& m_menu;

    // The last shade and its input, kept because every move of the pointer repaints the layers.
    QImage m_img;
    QRect m_rctSource;
    double m_dEdge = 0.0;
    LatLon m_sun;
};

class PathLayer final : public MapLayer {
public:
    explicit PathLayer(const MapForm& form) : m_form(form) {}
    void Paint(QPainter& painter) override;

private:
    const MapForm& m_form;
};
