/// @file MapSky.h
/// Two lines that the map can show besides its graticule: the great-circle path between the ends,
/// and the line between day and night.
///
/// Units:   degrees; hours UT.
/// Accuracy: half a degree; the sun's place is that of the middle of the month.
/// Tests:   tests/ui/map/MapSkyTest.cpp
#pragma once

#include <QPolygonF>
#include <vector>

#include "ui/map/MapView.h"

/// Positions along the shorter arc, both ends included, evenly spaced. Empty for the same point and
/// for antipodes, between which no arc is the shortest.
[[nodiscard]] std::vector<LatLon> PathGetPoints(const LatLon& from, const LatLon& to);

/// Where the sun stands in the zenith, in the middle of a month (1..12; another counts as 1).
[[nodiscard]] LatLon SunGetPosition(int nMonth, double dHour);

/// The closed line on which the sun stands on the horizon, its centre, without refraction.
[[nodiscard]] std::vector<LatLon> NightGetLine(const LatLon& sun);

/// Short strokes from that line into the night, each of two positions.
[[nodiscard]] std::vector<LatLon> NightGetStrokes(const LatLon& sun);

/// Lines in picture pixels; broken where they run over the image's edge, a point beyond it on both
/// sides.
[[nodiscard]] std::vector<QPolygonF> LinesGetPixels(const MapView& view,
                                                    const std::vector<LatLon>& aPoints);
