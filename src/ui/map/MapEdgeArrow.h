/// @file MapEdgeArrow.h
/// The arrow at the map's edge that points to a marker outside the view.
///
/// Units:   pixels of the map picture.
/// Tests:   tests/ui/map/MapEdgeArrowTest.cpp
#pragma once

#include <QPainter>
#include <QPointF>
#include <QRect>
#include <optional>

struct EdgeArrow {
    QPointF m_ptTip;      ///< at the edge
    double dAngle = 0.0;  ///< degrees clockwise from the right, the direction of the marker
};

/// Where the line from the middle of the map to the marker meets the edge.
/// @return nothing for a marker inside the map.
[[nodiscard]] std::optional<EdgeArrow> EdgeArrowGet(const QRect& rctMap, const QPointF& ptMarker);

/// Paints it with its marker's letters.
void EdgeArrowPaint(QPainter& painter, const EdgeArrow& arrow, const QString& sText,
                    const QColor& clrFill, const QColor& clrText);
