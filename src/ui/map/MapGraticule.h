/// @file MapGraticule.h
/// Parallels and meridians of a view: which ones, where, and their labels.
///
/// Units:   whole degrees, or whole minutes where the larger span is below one degree; pixels of
///          the view's picture. Lines are painted at the picture's own pixel density.
/// Tests:   tests/ui/map/MapGraticuleTest.cpp
#pragma once

#include <QImage>
#include <QString>
#include <vector>

#include "ui/map/MapView.h"

/// Behind labels, and beyond the image.
inline constexpr QRgb kMapBackground = qRgb(0xF0, 0xF0, 0xF0);

struct GraticuleLine {
    int nDegrees = 0;  ///< latitude -90..90, or longitude on the view's scale
    int nPixel = 0;    ///< row of a parallel, column of a meridian; may lie beyond the picture
    QString sLabel;    ///< "45N", "0S", "90E", "90W"; between two degrees "38°30'N"
};

/// Step in degrees for a view whose larger span is dSpan. It goes from 10 straight to 45, so that
/// the whole world has few lines.
[[nodiscard]] int GraticuleGetStep(double dSpan);
/// Step of this view.
[[nodiscard]] int GraticuleGetStep(const MapBox& box);

[[nodiscard]] std::vector<GraticuleLine> ParallelsGet(const MapView& view);
[[nodiscard]] std::vector<GraticuleLine> MeridiansGet(const MapView& view);

/// Step of the finer lines in minutes; 0 (no such lines) for a span of one degree or more.
[[nodiscard]] int MinutesGetStep(double dSpan);
/// The finer lines, except at whole degrees; nDegrees is the degree towards zero.
[[nodiscard]] std::vector<GraticuleLine> MinuteParallelsGet(const MapView& view);
[[nodiscard]] std::vector<GraticuleLine> MinuteMeridiansGet(const MapView& view);

/// Paints the lines, grey or with the overlay black, and the labels.
void GraticulePaint(QImage& img, const MapView& view, bool bOverlay, const QFont& font);
/// Paints only the labels, at the left and bottom edges: each on a box in the background's colour,
/// centred on its line but never cut by the picture's edge.
void GraticuleLabelsPaint(QImage& img, const MapView& view, const QFont& font);
