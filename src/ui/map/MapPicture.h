/// @file MapPicture.h
/// The overlay of an area as a picture, without a window: map, cells, legend, receiver, and a
/// caption that says what it shows.
///
/// Units:   degrees, dB, pixels.
/// Domain:  what is beyond the image's edges at about 84 degrees is not shown.
/// Tests:   tests/ui/map/MapPictureTest.cpp
#pragma once

#include <QFont>
#include <QImage>
#include <QString>
#include <vector>

#include "ui/map/MapOverlay.h"

struct MapPictureInput {
    AreaBox area;  ///< crosses longitude 180 if its east bound is west of the west bound
    std::vector<OverlayShown> aBoxes;
    LatLon posRc;
    QString sCaption;
};

/// The view of an area. Its picture is as large as fits a screen of 1280 x 960, and large enough
/// for a legend.
[[nodiscard]] MapView MapPictureView(const AreaBox& area);

/// REQUIRES: a QGuiApplication, for its fonts.
[[nodiscard]] QImage MapPictureGet(const MapPictureInput& input, const QFont& font);

/// Puts a map above its caption, which also becomes the image's description.
[[nodiscard]] QImage CaptionAdd(const QImage& imgMap, const QString& sCaption, const QFont& font);
