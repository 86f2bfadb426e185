/// @file MapColors.h
/// The colours in which the map's picture is shown. The picture itself is always drawn in the
/// standard ones; when it is finished a table of colours is laid over it.
///
/// Units:   device pixels; pictures of Format_RGB32.
/// Tests:   tests/ui/map/MapColorsTest.cpp
#pragma once

#include <QImage>

#include "settings/Palette.h"

struct MapLook {
    bool bOverlay = false;  ///< outlines with the cells of the SNR, else the plain map
    bool bDark = false;     ///< the plain map of dark desktops
    Palette ePalette = Palette::Standard;
    bool operator==(const MapLook&) const = default;
    /// Nothing is laid over the picture.
    [[nodiscard]] bool PlainIs() const { return bOverlay ? ePalette == Palette::Standard : !bDark; }
};

/// How the screen in force wants it; of Night and dark desktops the plain map is dark.
[[nodiscard]] MapLook MapLookGet(bool bOverlay);

/// A picture as a look shows it. Cells take the palette's colours; in Night their ground is black
/// and lines are red, black only where they run over a bright cell. The plain map has a dark
/// variant.
[[nodiscard]] QImage MapPictureShown(const QImage& img, const MapLook& look);

/// A colour of the plain map in a look: of the ground round the world.
[[nodiscard]] QRgb MapColorShown(QRgb nColor, const MapLook& look);
