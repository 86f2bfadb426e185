/// @file MapSky.h
/// The line between day and night, the shade of the night, and lines of positions (the great-circle
/// path, too) in pixels of the map.
///
/// Units:   degrees.
/// Tests:   tests/ui/map/MapSkyTest.cpp
#pragma once

#include <QImage>
#include <QPolygonF>
#include <vector>

#include "geo/SphereLib.h"
#include "ui/map/MapView.h"

/// The closed line on which the sun stands on the horizon, its centre, without refraction.
[[nodiscard]] std::vector<LatLon> NightGetLine(const LatLon& sun);

/// Short strokes from that line into the night, each of two positions.
[[nodiscard]] std::vector<LatLon> NightGetStrokes(const LatLon& sun);

/// How far the sun is below the horizon: 0 not at all, 1 to 3 in civil, nautical and astronomical
/// twilight (which end at 6, 12 and 18 degrees), 4 at night.
/// @param dSine  of the sun's altitude
[[nodiscard]] int DarknessGet(double dSine);

/// A shade for a picture of the view, transparent by day and darker with each step of the darkness.
/// Nothing beyond the image.
/// @param view  with the picture's size
[[nodiscard]] QImage NightGetShade(const MapView& view, const LatLon& sun);

/// Lines in picture pixels; broken where they run over the image's edge, a point beyond it on both
/// sides.
[[nodiscard]] std::vector<QPolygonF> LinesGetPixels(const MapView& view,
                                                    const std::vector<LatLon>& aPoints);
