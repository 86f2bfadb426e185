/// @file WorldMapData.h
/// The outlines of the world's countries in several levels of detail, from which the world image is
/// painted.
///
/// Units:   pixels of the world image: x from longitude 0 eastwards, y from the top edge down.
/// Domain:  a ring starts in [0, image width) and goes on past the right edge if it crosses
///          longitude 0, so x is below twice the width and nothing is cut at 180 degrees. A y below
///          the image height is off the map; the ring of Antarctica is closed there.
/// Errors:  data that is cut short or has a value out of range is refused as a whole.
/// Source:  assets/map/world.map, made by tools/worldmap from Natural Earth (assets/README.md).
/// Tests:   tests/ui/map/WorldMapDataTest.cpp
///
/// Layout of the data. Numbers are unsigned, seven bits to a byte, lowest first, with the top bit
/// set in all but the last byte; signed ones are 2n, or -2n - 1 if negative; a text is its length
/// and its UTF-8.
///     "HCWM", the byte 1, image width, image height, number of levels L, L tolerances,
///     number of countries, then for each country, the largest first:
///         name, colour, then for each level: number of rings, then for each ring:
///             number of points, then signed x and y, each less that of the point before
/// The first ring of a country is its largest and is in every level.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "system/Result.h"

inline constexpr int kMapColors = 6;  ///< colour numbers 0 to 5, the last for ice

struct MapPoint {
    int nX;
    int nY;
};

/// A closed line whose first point is not repeated. One or two points: a country too small for its
/// level.
struct MapRing {
    std::vector<MapPoint> m_aPoints;
    MapPoint m_ptLow{};   ///< smallest x and y
    MapPoint m_ptHigh{};  ///< largest x and y
};

struct MapCountry {
    std::string m_sName;
    int m_nColor = 0;  ///< 0 to kMapColors - 1; neighbours differ
    std::vector<std::vector<MapRing>>
        m_aLevels;  ///< rings, of islands and holes alike (even-odd rule)
};

struct WorldMap {
    int m_nImgWidth = 0;
    int m_nImgHeight = 0;
    std::vector<int> m_aTolerances;  ///< largest error of the lines in each level, rising from 0
    std::vector<MapCountry> m_aCountries;
};

/// The map in the bytes, or "Type mismatch" if there is none.
[[nodiscard]] Result<WorldMap> WorldMapRead(std::span<const unsigned char> aBytes);

/// The built-in map, read on the first call.
[[nodiscard]] const WorldMap& WorldMapGet();
