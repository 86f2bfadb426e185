/// @file MapPaint.h
/// The drawing modes of the map picture, pixel by pixel, so that they give the same picture
/// everywhere.
///
/// Units:   pixels; colours are opaque, their alpha is of no account.
/// Domain:  pictures of Format_RGB32; rectangles may reach beyond them.
/// Errors:  none; a picture of another format is left as it is.
/// Tests:   tests/ui/map/MapPaintTest.cpp
#pragma once

#include <QImage>
#include <QRect>
#include <span>

/// Turns a picture into its outlines: colour borders become black lines, all else becomes white.
/// The first column and the first row have no neighbour to differ from and stay without lines.
void ImageOutline(QImage& img);

/// The first pass: a pixel whose colour differs from a left or upper neighbour that is not black
/// becomes black. Neighbours are taken as this very pass has left them, which keeps lines one pixel
/// wide.
void ImageEdges(QImage& img);
/// The second pass: every pixel that is neither black nor white becomes white.
void ImageBleach(QImage& img);

/// Mask pen: combines a filled box with what is there by bitwise AND, so that black lines stay
/// black and white takes the colour.
void BoxMaskPen(QImage& img, const QRect& rct, QRgb nColor);
/// The same for a piece of a row, a colour for each pixel from nLeft on.
void RowMaskPen(QImage& img, int nLeft, int nRow, std::span<const QRgb> anColor);

/// Inverts the one pixel wide outline of a rectangle; a second call restores the picture.
void RectInvert(QImage& img, const QRect& rct);
