/// @file NightColors.h
/// The reds of the night: what keeps eyes used to the dark. Green and blue light, even a little,
/// ends that for half an hour, so no pixel of Night has more of them than kNightMost.
///
/// Units:   colours of 8 bits a channel.
/// Tests:   tests/ui/common/NightColorsTest.cpp
#pragma once

#include <QColor>
#include <QImage>

inline constexpr int kNightMost = 24;                       ///< green and blue
inline constexpr QRgb kNightInk = qRgb(0xFF, 0x18, 0x00);   ///< 5.4:1 on black
inline constexpr QRgb kNightEdge = qRgb(0x85, 0x00, 0x00);  ///< frames and lines

/// The red of a pixel. Reds stay as they are; any other colour becomes the red of its lightness,
/// and at least of its own share of red.
/// @param nPixel  may be premultiplied by its alpha, which stays
[[nodiscard]] QRgb NightRed(QRgb nPixel);
/// Every pixel of a picture; one without 32 bits a pixel becomes such.
void NightReds(QImage& img);

/// The red of the opposite lightness: black for white.
[[nodiscard]] QRgb NightNegative(QRgb nPixel);
/// A picture for eyes used to the dark: of one that has other colours than reds the negative, so
/// that white paper is black. A picture in reds stays as it is.
[[nodiscard]] QImage NightNegative(const QImage& img);
