/// @file MapOverlay.h
/// The SNR overlay, independent of its window: the boxes in which a view is predicted, and the
/// cells painted for a grid's points.
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

/// The predictions for a view: none if it shows no part of the world, two if it crosses longitude
/// 180, else one. Latitudes end at 89.9, longitudes at the image's edges (the blank strips beside
/// the world do not belong to it).
[[nodiscard]] std::vector<AreaBox> OverlayGetBoxes(const MapBox& boxView,
                                                   double dEdge = kEdgeGreenwich);

/// What is the same for all cells of a box.
struct CellPaint {
    AreaBox m_box;        ///< bounds of the grid, as the deck prints them
    AreaBox m_boxWanted;  ///< bounds of the picture, to which the outermost cells extend
    int nGridSize = 2;    ///< points per side
    float fMinSnr = 0.0F;
    std::function<std::uint32_t(float fSnr)> fnColor;
};

/// A box of the overlay in the picture.
struct OverlayShown {
    CellPaint cell;
    std::vector<AreaPoint> aPoints;
};

/// What must be added to a box's longitudes for the view's scale: 0 or a full turn.
[[nodiscard]] double BoxGetShift(const MapView& view, const CellPaint& cell);

/// The rectangle in the picture of a point's cell, clipped to its box and the image. Cells are
/// centred on their points and meet without gap or overlap.
[[nodiscard]] QRect CellGetRect(const MapView& view, const CellPaint& cell, const AreaPoint& pnt);

/// Paints the cells of all points at or above the minimum with the mask pen, in order. The picture
/// may be denser than the view's.
void CellsPaint(QImage& img, const MapView& view, const CellPaint& cell,
                std::span<const AreaPoint> aPoints);
