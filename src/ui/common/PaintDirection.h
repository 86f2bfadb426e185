/// @file PaintDirection.h
/// Painted texts in right-to-left windows. There Qt would paint "-8" with the sign behind the
/// number, because a text takes the direction of its window.
///
/// Tests:   tests/ui/program/DirectionTest.cpp
#pragma once

#include <QPainter>
#include <QStyle>
#include <QWidget>

/// From here on, in a mirrored window, each text has its own direction and left stays left.
inline void PaintDirectionOfText(QPainter& painter)
{
    if (painter.layoutDirection() == Qt::RightToLeft)
        painter.setLayoutDirection(Qt::LayoutDirectionAuto);
}

/// The same for a widget in a window that may be mirrored.
/// @return the alignment as the window's direction places it
[[nodiscard]] inline Qt::Alignment PaintDirectionOfText(QPainter& painter, const QWidget& widget,
                                                        Qt::Alignment eAlignment)
{
    PaintDirectionOfText(painter);
    return QStyle::visualAlignment(widget.layoutDirection(), eAlignment);
}
