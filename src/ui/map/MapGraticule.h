/// @file MapGraticule.h
/// Parallels and meridians of a view: which, where and how labelled.
///
/// Units:   whole degrees, and whole minutes where the larger span is below one degree; pixels of
///          the view's picture. Lines are painted at the picture's own density.
/// Tests:   tests/ui/map/MapGraticuleTest.cpp
#pragma once

#include <QImage>
#include <QString>
#include <vector>

#include "ui/map/MapView.h"

/// Behind labels, and where the picture shows no image.
inline constexpr QRgb kMapBackground = qRgb(0xF0, 0xF0, 0xF0);

struct GraticuleLine {
    int nDegrees = 0;  ///< latitude -90..90, or longitude on the view's scale
    int nPixel = 0;    ///< row of a parallel, column of a meridian; may lie beyond the picture
    QString sLabel;    ///< "45N", "0S", "90E", "90W"; of a line between two degrees "38°30'N"
};

/// Step in degrees for a view whose larger span is dSpan. The jump from 10 to 45 keeps the
/// world's picture clear of lines.
[[nodiscard]] int GraticuleGetStep(double dSpan);
/// Step of this view.
[[nodiscard]] int GraticuleGetStep(const MapBox& box);

[[nodiscard]] std::vector<GraticuleLine> ParallelsGet(const MapView& view);
[[nodiscard]] std::vector<GraticuleLine> MeridiansGet(const MapView& view);

/// Step in minutes of the finer lines; 0 (no such lines) for a span of one degree and more.
[[nodiscard]] int MinutesGetStep(double dSpan);
/// The finer lines, those at whole degrees left out; nDegrees is the degree towards zero.
[[nodiscard]] std::vector<GraticuleLine> MinuteParallelsGet(const MapView& view);
[[nodiscard]] std::vector<GraticuleLine> MinuteMeridiansGet(const MapView& view);

/// Grey lines, black ones while the overlay is shown, and the labels.
void GraticulePaint(QImage& img, const MapView& view, bool bOverlay, const QFont& font);
/// The labels alone: at the left edge and at the bottom edge, each on a box of the background's
/// colour, centred on its line but never cut by the picture's edge.
void GraticuleLabelsPaint(QImage& img, const MapView& view, const QFont& font);
