/// @file MapOverlayGrid.h
/// The grid points of all boxes in the picture, kept for the tips: the engine's file holds only the
/// last box.
///
/// Units:   degrees, dB.
/// Tests:   tests/ui/map/MapOverlayTest.cpp, MapOverlayControlTest.cpp
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "propagation/Prediction.h"

/// The point nearest to a position, or its SNR. Distances are in plain degrees, longitudes the
/// shorter way round; of equally near points the first counts. Points 180 degrees away or more are
/// ignored.
[[nodiscard]] const AreaPoint* GridFindNearest(std::span<const AreaPoint> aPoints, double dLat,
                                               double dLon);
[[nodiscard]] std::optional<float> GridGetNearest(std::span<const AreaPoint> aPoints, double dLat,
                                                  double dLon);

class OverlayGrid {
public:
    /// To be called when the picture shows no overlay or a new one begins.
    void Clear() { m_aPoints.clear(); }
    /// Adds the points of one more box.
    void Add(std::span<const AreaPoint> aPoints)
    {
        m_aPoints.insert(m_aPoints.end(), aPoints.begin(), aPoints.end());
    }
    [[nodiscard]] bool IsEmpty() const { return m_aPoints.empty(); }
    [[nodiscard]] std::optional<float> SnrGet(double dLat, double dLon) const
    {
        return GridGetNearest(m_aPoints, dLat, dLon);
    }

private:
    std::vector<AreaPoint> m_aPoints;
};
