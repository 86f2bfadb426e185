/// @file WorldImage.h
/// The world image: a Mercator picture in flat colours, far too large to hold in memory. Any
/// rectangle of it is painted from outlines on demand.
///
/// Units:   pixels; image pixels count eastwards from the left edge, at longitude 0 or another, and
///          down from the top edge.
/// Domain:  the whole image spans 360 degrees of longitude and map ordinates +90 to -90. With the
///          size below that is latitude 84.005 north to south, and one image pixel is a thousandth
///          of a degree of longitude (111 m at the equator), fine enough for a view to snap to.
/// Errors:  reported by false; the target is then unchanged.
/// Tests:   tests/ui/map/WorldImageTest.cpp, speed in bench/MapBench.cpp
#pragma once

#include <QImage>
#include <QRect>
#include <array>

#include "ui/map/WorldMapData.h"

inline constexpr int kImgWidth = 360000;
inline constexpr int kImgHeight = 338000;

// The only colours of the image: flat, so that outlines can be found at their borders, and neither
// black nor white, which the outlines are made of. Pale, so that lines and labels stand out.
inline constexpr QRgb kSeaColor = qRgb(0xBC, 0xD7, 0xE8);
inline constexpr std::array<QRgb, kMapColors> kLandColors{
    qRgb(0xF3, 0xE4, 0xAC),  // sand
    qRgb(0xBF, 0xD8, 0xA0),  // meadow
    qRgb(0xED, 0xBF, 0xA5),  // clay
    qRgb(0xD0, 0xBE, 0xDE),  // heather
    qRgb(0xD7, 0xC2, 0x96),  // straw
    qRgb(0xF2, 0xF4, 0xF3),  // ice
};

/// Paints the rectangle of the image stretched over the whole target: each target pixel takes the
/// colour of the image at its centre. Target pixels beyond the image are left unchanged. The same
/// arguments give the same pixels on every machine.
/// @param imgTarget  Format_RGB32, Format_ARGB32 or Format_ARGB32_Premultiplied, not null
/// @param rctSource  image pixels; may extend beyond the image; width and height at least 1
/// @param dEdge      longitude of the image's left edge, 0 or -180
/// @return false if an argument is invalid or there is no map; nothing is painted then
bool WorldImagePaint(QImage& imgTarget, const QRect& rctSource, double dEdge = 0.0);
