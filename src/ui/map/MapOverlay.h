/// @file MapOverlay.h
/// The SNR overlay without its window: the boxes that a view is predicted in, and the cells that
/// the points of a grid paint.
///
/// Units:   degrees, dB, picture pixels; colours 0x00BBGGRR.
/// Errors:  none.
/// Tests:   tests/ui/map/MapOverlayTest.cpp
#pragma once

#include <QImage>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "propagation/AreaBoxes.h"
#include "ui/map/MapOverlayGrid.h"
#include "ui/map/MapView.h"

/// The predictions that the view takes: none where it shows no part of the world, two where it runs
/// over longitude 180, else one. Latitudes end at 89.9, longitudes at the image's edges (the blank
/// strips beside the world are no part of it).
[[nodiscard]] std::vector<AreaBox> OverlayGetBoxes(const MapBox& boxView,
                                                   double dEdge = kEdgeGreenwich);

/// What stays the same for all cells of one box.
struct CellPaint {
    AreaBox m_box;        ///< bounds as the deck prints them: those of the grid
    AreaBox m_boxWanted;  ///< bounds of the picture, up to which the outermost cells reach
    int nGridSize = 2;    ///< points a side
    float fMinSnr = 0.0F;
    std::function<std::uint32_t(float fSnr)> fnColor;
};

/// A box of the overlay that a picture shows.
struct OverlayShown {
    CellPaint cell;
    std::vector<AreaPoint> aPoints;
};

/// What takes the longitudes of a box to the view's scale: 0, or a full turn.
[[nodiscard]] double BoxGetShift(const MapView& view, const CellPaint& cell);

/// The picture's rectangle of a point's cell, cut to its box and to the image. Cells are centred on
/// their points and meet without gap or overlap.
[[nodiscard]] QRect CellGetRect(const MapView& view, const CellPaint& cell, const AreaPoint& pnt);

/// Paints the cells of all points at or above the minimum with the mask pen, in order. The picture
/// may be denser than the view's.
void CellsPaint(QImage& img, const MapView& view, const CellPaint& cell,
                std::span<const AreaPoint> aPoints);
