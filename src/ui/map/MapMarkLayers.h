/// @file MapMarkLayers.h
/// Aids at the map's edges: the scale bar of a close view, and arrows to markers outside the view.
///
/// Tests:   tests/ui/map/MapScaleBarTest.cpp, MapEdgeArrowTest.cpp, MapMarkersTest.cpp
#pragma once

#include "ui/map/MapForm.h"
#include "ui/map/MapLayers.h"

class ScaleBarLayer final : public MapLayer {
public:
    explicit ScaleBarLayer(const MapView& view) : m_view(view) {}
    void Paint(QPainter& painter) override;

private:
    const MapView& m_view;
};

class EdgeArrowLayer final : public MapLayer {
public:
    explicit EdgeArrowLayer(const MapForm& form) : m_form(form) {}
    void Paint(QPainter& painter) override;

private:
    const MapForm& m_form;
};
