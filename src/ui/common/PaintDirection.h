/// @file PaintDirection.h
/// Texts that are painted, numbers with a sign above all, in windows that run from right to left:
/// there "-8" would get its sign behind it, as the window's direction became that of the number.
///
/// Tests:   tests/ui/program/DirectionTest.cpp
#pragma once

#include <QPainter>
#include <QStyle>
#include <QWidget>

/// From here on each text has its own direction where the window is mirrored, and left is left.
inline void PaintDirectionOfText(QPainter& painter)
{
    if (painter.layoutDirection() == Qt::RightToLeft)
        painter.setLayoutDirection(Qt::LayoutDirectionAuto);
}

/// The same in a window that is mirrored.
/// @return the alignment on the side where the window's direction has it
[[nodiscard]] inline Qt::Alignment PaintDirectionOfText(QPainter& painter, const QWidget& widget,
                                                        Qt::Alignment eAlignment)
{
    PaintDirectionOfText(painter);
    return QStyle::visualAlignment(widget.layoutDirection(), eAlignment);
}
