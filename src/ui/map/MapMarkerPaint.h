/// @file MapMarkerPaint.h
/// The look of the map's markers: a flag with a text on a pin, whose foot is the place.
///
/// Units:   pixels.
/// Tests:   tests/ui/map/MapMarkersTest.cpp, MapPictureTest.cpp
#pragma once

#include <QFontMetrics>
#include <QPainter>
#include <QString>

/// Length of the pin below the flag.
inline constexpr int kMarkerPinLong = 9;
inline constexpr int kMarkerPinRadius = 2;

/// The marker's size. The place is in its middle; the part below is empty.
[[nodiscard]] QSize MarkerGetSize(const QString& sText, const QFontMetrics& metrics);
/// The flag of a marker with this size.
[[nodiscard]] QRect MarkerGetFlag(const QSize& size);

/// The receiver's marker is dark.
[[nodiscard]] QColor MarkerGetFill(bool bDark);
[[nodiscard]] QColor MarkerGetTextColor(bool bDark);

/// Paints a marker of this size at the painter's origin, in the painter's font.
void MarkerPaint(QPainter& painter, const QSize& size, const QString& sText, bool bDark);
