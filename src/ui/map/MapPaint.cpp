#include "ui/map/MapPaint.h"

namespace {

constexpr QRgb kRgbMask = 0x00FFFFFF;
constexpr QRgb kAlpha = 0xFF000000;
constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kBlack = kAlpha;

bool IsPainted(const QImage& img) { return img.format() == QImage::Format_RGB32; }

QRgb* RowGet(QImage& img, int nRow) { return reinterpret_cast<QRgb*>(img.scanLine(nRow)); }

bool IsBlack(QRgb nPixel) { return (nPixel & kRgbMask) == 0; }

bool Differs(QRgb nPixel, QRgb nNeighbour)
{
    return ((nPixel ^ nNeighbour) & kRgbMask) != 0 && !IsBlack(nNeighbour);
}

void SpanInvert(QImage& img, const QRect& rct)
{
    const QRect rctInside = rct & img.rect();
    for (int nRow = rctInside.top(); nRow <= rctInside.bottom(); ++nRow) {
        QRgb* pRow = RowGet(img, nRow);
        for (int nColumn = rctInside.left(); nColumn <= rctInside.right(); ++nColumn)
            pRow[nColumn] ^= kRgbMask;
    }
}

}  // namespace

void ImageEdges(QImage& img)
{
    if (!IsPainted(img))
        return;
    for (int nRow = 1; nRow < img.height(); ++nRow) {
        const QRgb* pAbove = RowGet(img, nRow - 1);
        QRgb* pRow = RowGet(img, nRow);
        for (int nColumn = 1; nColumn < img.width(); ++nColumn)
            if (Differs(pRow[nColumn], pRow[nColumn - 1])
                || Differs(pRow[nColumn], pAbove[nColumn]))
                pRow[nColumn] = kBlack;
    }
}

void ImageBleach(QImage& img)
{
    if (!IsPainted(img))
        return;
    for (int nRow = 0; nRow < img.height(); ++nRow) {
        QRgb* pRow = RowGet(img, nRow);
        for (int nColumn = 0; nColumn < img.width(); ++nColumn)
            pRow[nColumn] = IsBlack(pRow[nColumn]) ? kBlack : kWhite;
    }
}

void ImageOutline(QImage& img)
{
    ImageEdges(img);
    ImageBleach(img);
}

void BoxMaskPen(QImage& img, const QRect& rct, QRgb nColor)
{
    if (!IsPainted(img))
        return;
    const QRect rctInside = rct & img.rect();
    for (int nRow = rctInside.top(); nRow <= rctInside.bottom(); ++nRow) {
        QRgb* pRow = RowGet(img, nRow);
        for (int nColumn = rctInside.left(); nColumn <= rctInside.right(); ++nColumn)
            pRow[nColumn] = (pRow[nColumn] & nColor) | kAlpha;
    }
}

void RowMaskPen(QImage& img, int nLeft, int nRow, std::span<const QRgb> anColor)
{
    const QRect rctInside =
        QRect(nLeft, nRow, static_cast<int>(anColor.size()), anColor.empty() ? 0 : 1) & img.rect();
    if (!IsPainted(img) || rctInside.isEmpty())
        return;
    QRgb* pRow = RowGet(img, nRow);
    for (int nColumn = rctInside.left(); nColumn <= rctInside.right(); ++nColumn)
        pRow[nColumn] =
            (pRow[nColumn] & anColor[static_cast<std::size_t>(nColumn - nLeft)]) | kAlpha;
}

void RectInvert(QImage& img, const QRect& rct)
{
    if (!IsPainted(img) || rct.isEmpty())
        return;
    SpanInvert(img, QRect(rct.left(), rct.top(), rct.width(), 1));
    if (rct.height() > 1)
        SpanInvert(img, QRect(rct.left(), rct.bottom(), rct.width(), 1));
    if (rct.height() < 3)
        return;
    SpanInvert(img, QRect(rct.left(), rct.top() + 1, 1, rct.height() - 2));
    if (rct.width() > 1)
        SpanInvert(img, QRect(rct.right(), rct.top() + 1, 1, rct.height() - 2));
}
