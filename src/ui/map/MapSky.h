/// @file MapSky.h
/// The line between day and night, the shade of the night, and lines of positions, such as the
/// great-circle path, in pixels of the map.
///
/// Units:   degrees.
/// Tests:   tests/ui/map/MapSkyTest.cpp
#pragma once

#include <QImage>
#include <QPolygonF>
#include <vector>

#include "geo/SphereLib.h"
#include "ui/map/MapView.h"

/// The closed line on which the sun's centre is on the horizon, without refraction.
[[nodiscard]] std::vector<LatLon> NightGetLine(const LatLon& sun);

/// Short strokes from that line into the night, two positions each.
[[nodiscard]] std::vector<LatLon> NightGetStrokes(const LatLon& sun);

/// How dark it is: 0 with the sun above the horizon; 1, 2 and 3 in civil, nautical and astronomical
/// twilight, which end with the sun 6, 12 and 18 degrees below it; 4 at night.
/// @param dSine  of the sun's altitude
[[nodiscard]] int DarknessGet(double dSine);

/// A shade for a picture of the view, transparent by day and darker with each step of DarknessGet;
/// transparent beyond the image.
/// @param view  with the picture's size
[[nodiscard]] QImage NightGetShade(const MapView& view, const LatLon& sun);

/// Lines in picture pixels. A line that crosses the image's edge is broken there, both pieces
/// ending one point beyond it.
[[nodiscard]] std::vector<QPolygonF> LinesGetPixels(const MapView& view,
                                                    const std::vector<LatLon>& aPoints);
