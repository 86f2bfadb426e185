/// @file MapOverlayLayer.h
/// What the overlay shows above the picture while it has cells: the legend, which gives way to the
/// pointer, and the SNR in the tips.
///
/// Tests:   tests/ui/map/MapLegendPlaceTest.cpp, MapOverlayControlTest.cpp
#pragma once

#include <QRect>
#include <vector>

#include "ui/map/MapForm.h"
#include "ui/map/MapLayers.h"
#include "ui/map/MapLegend.h"

class MainWindowHost;
class MapOverlayControl;

class MapOverlayLayer final : public MapLayer {
public:
    MapOverlayLayer(const MapForm& form, MainWindowHost& host, const MapOverlayControl& overlay)
        : m_form(form), m_host(host), m_overlay(overlay)
    {
    }
    void Paint(QPainter& painter) override;
    [[nodiscard]] QString TipGet(const LatLon& pos) const override;
    void PointerMove(const QPoint& ptPointer) override;

private:
    [[nodiscard]] std::vector<LegendRow> LegendRowsGet() const;
    [[nodiscard]] QRect LegendRectGet(const QFontMetrics& metrics) const;

    const MapForm& m_form;
    MainWindowHost& m_host;
    const MapOverlayControl& m_overlay;
    QRect m_rctPointer;  // where the pointer is on the map
    QRect m_rctLegend;   // where the legend was last painted
};
