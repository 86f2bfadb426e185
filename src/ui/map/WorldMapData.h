/// @file WorldMapData.h
/// The countries of the world as outlines in levels of detail: what the world image is painted
/// from.
///
/// Units:   pixels of the world image: x from longitude 0 eastwards, y from the top edge down.
/// Domain:  a ring starts in [0, image width) and runs on past the right edge where it crosses
///          longitude 0, so x is below twice the width and there is no cut at 180 degrees. y below
///          the image height is off the map; the ring of Antarctica is closed there.
/// Errors:  data that is cut short or has a value out of its range is refused whole.
/// Source:  assets/map/world.map, made by tools/worldmap from Natural Earth (assets/README.md).
/// Tests:   tests/ui/map/WorldMapDataTest.cpp
///
/// Layout of the data. Numbers are unsigned, seven bits a byte, lowest first, the top bit set on
/// all but the last byte; signed ones are 2n, or -2n - 1 when negative; a text is its length and
/// UTF-8.
///     "HCWM", the byte 1, image width, image height, number of levels L, L tolerances,
///     number of countries, then for each country, the largest first:
///         name, colour, then for each level: number of rings, then for each ring:
///             number of points, then signed x and y, each less that of the point before
/// The first ring of a country is its largest, and stays in every level.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "system/Result.h"

inline constexpr int kMapColors = 6;  ///< colour numbers 0 to 5, the last one for ice

struct MapPoint {
    int nX;
    int nY;
};

/// A closed line, first point not repeated. One or two points: a country too small for its level.
struct MapRing {
    std::vector<MapPoint> m_aPoints;
    MapPoint m_ptLow{};   ///< smallest x and y
    MapPoint m_ptHigh{};  ///< largest x and y
};

struct MapCountry {
    std::string m_sName;
    int m_nColor = 0;  ///< 0 to kMapColors - 1; no two neighbours alike
    std::vector<std::vector<MapRing>>
        m_aLevels;  ///< rings, islands and holes alike (even-odd rule)
};

struct WorldMap {
    int m_nImgWidth = 0;
    int m_nImgHeight = 0;
    std::vector<int> m_aTolerances;  ///< how far the lines of each level may be off, rising from 0
    std::vector<MapCountry> m_aCountries;
};

/// The map in the bytes, or "Type mismatch" when they are not one.
[[nodiscard]] Result<WorldMap> WorldMapRead(std::span<const unsigned char> aBytes);

/// The map that is built in, read on the first call.
[[nodiscard]] const WorldMap& WorldMapGet();
