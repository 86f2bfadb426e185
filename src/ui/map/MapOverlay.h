/// @file MapOverlay.h
/// The SNR overlay without its window: the boxes that a view is predicted in, the points of a grid
/// file, the cells that they paint, and the point nearest to a position.
///
/// Units:   degrees, dB, picture pixels; colours 0x00BBGGRR.
/// Errors:  told with each procedure.
/// Tests:   tests/ui/map/MapOverlayTest.cpp
#pragma once

#include <QImage>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "propagation/PropagationAreaLib.h"
#include "system/Result.h"
#include "ui/map/MapView.h"

/// A box of one area prediction, longitudes in -180..180.
struct OverlayBox {
    double dBottom = 0.0;
    double dTop = 0.0;
    double dLeft = 0.0;
    double dRight = 0.0;
    bool operator==(const OverlayBox&) const = default;
};

/// The predictions that the view takes: none where it shows no part of the world, two where it runs
/// over longitude 180, else one. Latitudes end at 89.9, longitudes at the image's edges (the blank
/// strips beside the world are no part of it).
[[nodiscard]] std::vector<OverlayBox> OverlayGetBoxes(const MapBox& boxView);

struct GridPoint {
    double dLat = 0.0;
    double dLon = 0.0;
    float fSnr = 0.0F;  ///< dB
};

/// Reads an opened grid to its end.
/// @param nMax  a file with more points is "Subscript out of range".
/// @return the points in the file's order, or the point reader's error.
Result<std::vector<GridPoint>> GridRead(AreaFile& file, std::size_t nMax);

/// SNR of the point nearest to a position, distances in plain degrees; of several points equally
/// near the first in order. Points 180 degrees away and more do not count.
[[nodiscard]] std::optional<float> GridGetNearest(std::span<const GridPoint> aPoints, double dLat,
                                                  double dLon);

/// What stays the same for all cells of one box.
struct CellPaint {
    OverlayBox m_box;
    int nGridSize = 2;  ///< points a side
    float fMinSnr = 0.0F;
    std::function<std::uint32_t(float fSnr)> fnColour;
};

/// The picture's rectangle of a point's cell, cut to its box and to the image. Cells are centred on
/// their points and meet without gap or overlap.
[[nodiscard]] QRect CellGetRect(const MapView& view, const CellPaint& cell, const GridPoint& pnt);

/// Paints the cells of all points at or above the minimum with the mask pen, in order.
void CellsPaint(QImage& img, const MapView& view, const CellPaint& cell,
                std::span<const GridPoint> aPoints);

/// The latest grid file of an engine, kept in memory and read again only when it has changed.
class GridCache {
public:
    /// Keeps points that have just been read from this engine's grid file.
    void Keep(int iModel, std::vector<GridPoint> aPoints);
    /// Points of the engine's grid file; empty when it cannot be opened or read, without a word
    /// more than once about the same file.
    [[nodiscard]] std::span<const GridPoint> PointsGet(int iModel);

private:
    struct Stamp {
        std::string sPath;
        long long nTime = 0;
        std::uintmax_t nSize = 0;
        bool operator==(const Stamp&) const = default;
    };
    [[nodiscard]] static std::optional<Stamp> StampGet(int iModel);

    std::optional<Stamp> m_stamp;
    std::vector<GridPoint> m_aPoints;
};
