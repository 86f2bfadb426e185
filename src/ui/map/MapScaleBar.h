/// @file MapScaleBar.h
/// The scale bar of a close view: a round distance along the middle parallel.
///
/// Units:   nautical miles; pixels of the view's picture.
/// Tests:   tests/ui/map/MapScaleBarTest.cpp
#pragma once

#include <QPainter>
#include <QString>
#include <optional>

#include "ui/map/MapView.h"

struct ScaleBar {
    double dMiles = 0.0;  ///< 1, 2 or 5 times a power of ten
    double dPixels = 0.0;
    QString sLabel;  ///< "2 nmi"
};

/// The longest bar within a quarter of the picture; none if the larger span of the view is one
/// degree or more.
[[nodiscard]] std::optional<ScaleBar> ScaleBarGet(const MapView& view);

/// Paints the bar at the right end of the bottom edge, above the labels of the meridians.
void ScaleBarPaint(QPainter& painter, const MapView& view);
