/// @file MapPicture.h
/// An area's overlay as a picture, without a window: map, cells, legend, the receiver, and a line
/// below that says what it is.
///
/// Units:   degrees, dB, pixels.
/// Domain:  what lies beyond the image's edges at about 84 degrees is not shown.
/// Tests:   tests/ui/map/MapPictureTest.cpp
#pragma once

#include <QFont>
#include <QImage>
#include <QString>
#include <vector>

#include "ui/map/MapOverlay.h"

struct MapPictureAsked {
    AreaBox area;  ///< to be shown; an east bound west of the west bound crosses longitude 180
    std::vector<OverlayShown> aBoxes;
    LatLon posRc;
    QString sCaption;
};

/// The view of an area, its picture as large as fits a screen of 1280 x 960 and no smaller than a
/// legend needs.
[[nodiscard]] MapView MapPictureView(const AreaBox& area);

/// REQUIRES: the toolkit's fonts, so a QGuiApplication.
[[nodiscard]] QImage MapPictureGet(const MapPictureAsked& asked, const QFont& font);

/// A map above its caption, which is kept in the image as its description, too.
[[nodiscard]] QImage CaptionAdd(const QImage& imgMap, const QString& sCaption, const QFont& font);
