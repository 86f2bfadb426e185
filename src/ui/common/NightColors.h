/// @file NightColors.h
/// The reds of Night, which keep eyes dark-adapted. Even a little green or blue light ends the
/// adaptation for half an hour, so no pixel of Night has more of either than kNightMost.
///
/// Units:   colours with 8 bits per channel.
/// Tests:   tests/ui/common/NightColorsTest.cpp
#pragma once

#include <QColor>
#include <QImage>

inline constexpr int kNightMost = 24;                       ///< green and blue
inline constexpr QRgb kNightInk = qRgb(0xFF, 0x18, 0x00);   ///< 5.4:1 on black
inline constexpr QRgb kNightEdge = qRgb(0x85, 0x00, 0x00);  ///< frames and lines

/// The red for a pixel. Reds stay as they are. Any other colour becomes the red of its lightness,
/// and never darker than its own red.
/// @param nPixel  may be premultiplied by its alpha, which is kept
[[nodiscard]] QRgb NightRed(QRgb nPixel);
/// Applies NightRed to every pixel; converts the picture to 32 bits per pixel first.
void NightReds(QImage& img);

/// The red of the opposite lightness: black for white.
[[nodiscard]] QRgb NightNegative(QRgb nPixel);
/// A picture for dark-adapted eyes. A picture with colours other than reds becomes its negative, so
/// that white paper is black; a picture in reds is left as it is.
[[nodiscard]] QImage NightNegative(const QImage& img);
