/// @file MapPaint.h
/// The drawing modes of the map picture, pixel by pixel, so that every machine gives the same
/// picture.
///
/// Units:   pixels; colours are opaque, alpha is ignored.
/// Domain:  pictures of Format_RGB32; rectangles may extend beyond them.
/// Errors:  none; a picture of another format is left unchanged.
/// Tests:   tests/ui/map/MapPaintTest.cpp
#pragma once

#include <QImage>
#include <QRect>
#include <span>

/// Turns a picture into its outlines: borders between colours become black lines, all else white.
/// The first column and row have no neighbour to differ from and get no lines.
void ImageOutline(QImage& img);

/// First pass: a pixel that differs from its left or upper neighbour becomes black, unless that
/// neighbour is black. Neighbours count as this pass has left them, which keeps lines one pixel
/// wide.
void ImageEdges(QImage& img);
/// Second pass: every pixel that is neither black nor white becomes white.
void ImageBleach(QImage& img);

/// Mask pen: combines a filled box with the picture by bitwise AND, so that black lines stay black
/// and white takes the colour.
void BoxMaskPen(QImage& img, const QRect& rct, QRgb nColor);
/// The same for part of a row, with a colour for each pixel from nLeft on.
void RowMaskPen(QImage& img, int nLeft, int nRow, std::span<const QRgb> anColor);

/// Inverts the outline of a rectangle, one pixel wide; a second call restores the picture.
void RectInvert(QImage& img, const QRect& rct);
