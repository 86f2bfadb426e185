/// @file MapSky.h
/// The line between day and night, and lines of positions (the great-circle path, too) in pixels of
/// the map.
///
/// Units:   degrees.
/// Tests:   tests/ui/map/MapSkyTest.cpp
#pragma once

#include <QPolygonF>
#include <vector>

#include "geo/SphereLib.h"
#include "ui/map/MapView.h"

/// The closed line on which the sun stands on the horizon, its centre, without refraction.
[[nodiscard]] std::vector<LatLon> NightGetLine(const LatLon& sun);

/// Short strokes from that line into the night, each of two positions.
[[nodiscard]] std::vector<LatLon> NightGetStrokes(const LatLon& sun);

/// Lines in picture pixels; broken where they run over the image's edge, a point beyond it on both
/// sides.
[[nodiscard]] std::vector<QPolygonF> LinesGetPixels(const MapView& view,
                                                    const std::vector<LatLon>& aPoints);
