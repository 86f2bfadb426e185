/// @file MapColors.h
/// The colours in which the map's picture is shown. The picture itself is always drawn in the
/// standard colours; a colour table is applied to the finished picture.
///
/// Units:   device pixels; pictures of Format_RGB32.
/// Tests:   tests/ui/map/MapColorsTest.cpp
#pragma once

#include <QImage>

#include "settings/Palette.h"

struct MapLook {
    bool bOverlay = false;  ///< outlines with the cells of the SNR; otherwise the plain map
    bool bDark = false;     ///< the plain map of dark desktops
    Palette ePalette = Palette::Standard;
    bool operator==(const MapLook&) const = default;
    /// True if the picture is shown unchanged.
    [[nodiscard]] bool PlainIs() const { return bOverlay ? ePalette == Palette::Standard : !bDark; }
};

/// The look for the screen: in Night and on dark desktops the plain map is dark.
[[nodiscard]] MapLook MapLookGet(bool bOverlay);

/// A picture in a look. Cells take the palette's colours. In Night their background is black and
/// lines are red, or black where they cross a bright cell. The plain map has a dark variant.
[[nodiscard]] QImage MapPictureShown(const QImage& img, const MapLook& look);

/// A colour of the picture in a look: of a cell, or of the background around the world.
[[nodiscard]] QRgb MapColorShown(QRgb nColor, const MapLook& look);
