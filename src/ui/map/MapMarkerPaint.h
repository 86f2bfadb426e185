/// @file MapMarkerPaint.h
/// How a marker of the map looks: a flag with its text on a pin, whose foot is the place.
///
/// Units:   pixels.
/// Tests:   tests/ui/map/MapMarkersTest.cpp, MapPictureTest.cpp
#pragma once

#include <QFontMetrics>
#include <QPainter>
#include <QString>

/// The pin's length below the flag.
inline constexpr int kMarkerPinLong = 9;
inline constexpr int kMarkerPinRadius = 2;

/// The marker's size, its place in the middle: what lies below is empty.
[[nodiscard]] QSize MarkerGetSize(const QString& sText, const QFontMetrics& metrics);
/// The flag of a marker of that size.
[[nodiscard]] QRect MarkerGetFlag(const QSize& size);

/// The receiver's marker is dark.
[[nodiscard]] QColor MarkerGetFill(bool bDark);
[[nodiscard]] QColor MarkerGetTextColor(bool bDark);

/// Paints a marker of a size at the painter's origin, in the painter's font.
void MarkerPaint(QPainter& painter, const QSize& size, const QString& sText, bool bDark);
