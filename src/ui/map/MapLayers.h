/// @file MapLayers.h
/// What lies above the map's picture, layer by layer, and what is told of the place under the
/// pointer. A new layer is a class of its own and one line in frmMap::LayersAdd, which gives the
/// painting order.
///
/// Units:   degrees, pixels of the map picture.
/// Tests:   tests/ui/map/MapLayersTest.cpp
#pragma once

#include <QPainter>
#include <QPoint>
#include <QString>
#include <memory>
#include <vector>

#include "geo/SphereLib.h"

class MapLayer {
public:
    MapLayer() = default;
    MapLayer(const MapLayer&) = delete;
    MapLayer& operator=(const MapLayer&) = delete;
    virtual ~MapLayer() = default;

    /// Paints the layer; it never becomes part of the picture. The stack keeps the painter's state.
    virtual void Paint(QPainter& /*painter*/) {}
    /// What the layer adds to the map's tooltip at a position, the comma before it included.
    [[nodiscard]] virtual QString TipGet(const LatLon& /*pos*/) const { return {}; }
    /// The pointer has moved without a button.
    virtual void PointerMove(const QPoint& /*ptPointer*/) {}
};

/// The layers from the lowest up.
class MapLayers {
public:
    void Add(std::unique_ptr<MapLayer> pLayer) { m_apLayer.push_back(std::move(pLayer)); }
    void Paint(QPainter& painter) const;
    /// "Lat ..., Lon ..." and what the layers add, in their order.
    [[nodiscard]] QString TipGet(const LatLon& pos) const;
    void PointerMove(const QPoint& ptPointer) const;

private:
    std::vector<std::unique_ptr<MapLayer>> m_apLayer;
};

/// "Lat 38°30.00'N, Lon 121°30.00'W", as in the map's tips and in the read-out of a marker.
[[nodiscard]] QString PositionText(const LatLon& pos);
