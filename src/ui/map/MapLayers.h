/// @file MapLayers.h
/// What is painted above the map's picture, layer by layer, and the tip for the place under the
/// pointer. A new layer is a class of its own and a line in frmMap::LayersAdd, which sets the order
/// of painting.
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

    /// Paints the layer, which never becomes part of the picture. MapLayers restores the painter's
    /// state.
    virtual void Paint(QPainter& /*painter*/) {}
    /// What the layer adds to the map's tooltip at a position, with a leading comma.
    [[nodiscard]] virtual QString TipGet(const LatLon& /*pos*/) const { return {}; }
    /// The pointer has moved with no button pressed.
    virtual void PointerMove(const QPoint& /*ptPointer*/) {}
};

/// The layers, the lowest first.
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

/// "Lat 38°30.00'N, Lon 121°30.00'W", for the map's tips and a marker's read-out.
[[nodiscard]] QString PositionText(const LatLon& pos);
