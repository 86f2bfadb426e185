/// @file MapSmooth.h
/// The overlay interpolated between its grid points, painted in the colours of the bands with thin
/// lines between bands.
///
/// Units:   degrees, dB, picture pixels.
/// Domain:  points in grid order: south to north, west to east in each row. If their number is not
///          the grid's, there are no values.
/// Errors:  none. There is no value beyond the grid (save for the deck's hundredths of a degree),
///          nor between points if one of them has no SNR.
/// Tests:   tests/ui/map/MapSmoothTest.cpp
#pragma once

#include <QImage>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "ui/map/MapOverlay.h"

/// The values of one box's grid; the points must outlive this object.
class SmoothGrid {
public:
    SmoothGrid(const AreaBox& box, int nGridSize, std::span<const AreaPoint> aPoints);

    [[nodiscard]] bool IsEmpty() const { return m_aPoints.empty(); }
    /// SNR at a position, with longitudes on any scale; none beyond the box.
    [[nodiscard]] std::optional<float> SnrGet(double dLat, double dLon) const;

    /// A place along one side of the grid: the index of the point before it, and the share of the
    /// way to the next, 0 to 1. Places beyond the side count as its end.
    struct Step {
        std::size_t iBefore = 0;
        float fPart = 0.0F;
    };
    [[nodiscard]] Step LatGetStep(double dLat) const;
    [[nodiscard]] Step LonGetStep(double dLon) const;
    /// The values at a latitude on the grid's meridians, from west to east; NaN where a point has
    /// none.
    void ParallelGet(const Step& stpLat, std::vector<float>& afSnr) const;

private:
    [[nodiscard]] float PointGetSnr(std::size_t iLat, std::size_t iLon) const;

    AreaBox m_box;
    std::size_t m_nSide = 2;
    std::span<const AreaPoint> m_aPoints;
};

/// What each pixel of a picture shows of a grid.
class SmoothRaster {
public:
    /// @param view  with the picture's size
    SmoothRaster(const MapView& view, const CellPaint& cell, std::span<const AreaPoint> aPoints);

    /// The pixels of the picture that the box covers.
    [[nodiscard]] const QRect& RectGet() const { return m_rct; }
    /// The bands of a row of the rectangle, as numbered by SnrBandsGet; -1 where nothing is shown.
    [[nodiscard]] const std::int8_t* RowGet(int nY) const
    {
        return m_aBand.data() + std::ptrdiff_t{nY - m_rct.top()} * m_rct.width();
    }
    [[nodiscard]] int BandGet(int nX, int nY) const { return RowGet(nY)[nX - m_rct.left()]; }
    /// For a pixel on a line, nWide pixels wide, between two bands: the band on the other side; -1
    /// for a pixel that is not on a line.
    [[nodiscard]] int LineGetBand(int nX, int nY, int nWide) const;

private:
    void RowFill(int nRow, const std::vector<float>& afSnr,
                 const std::vector<SmoothGrid::Step>& aSteps, float fMinSnr);

    QRect m_rct;
    std::vector<std::int8_t> m_aBand;
};

/// Paints a box's grid with the mask pen, as CellsPaint does. Lines are black or white, whichever
/// contrasts better with both of their bands.
void SmoothPaint(QImage& img, const MapView& view, const CellPaint& cell,
                 std::span<const AreaPoint> aPoints);
