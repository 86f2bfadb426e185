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
    double dAngle = 0.0;  ///< direction of the marker, degrees clockwise from the right
};

/// The point where the line from the middle of the map to the marker crosses the edge.
/// @return nothing for a marker inside the map
[[nodiscard]] std::optional<EdgeArrow> EdgeArrowGet(const QRect& rctMap, const QPointF& ptMarker);

/// Paints an arrow with its marker's letters.
void EdgeArrowPaint(QPainter& painter, const EdgeArrow& arrow, const QString& sText,
                    const QColor& clrFill, const QColor& clrText);
