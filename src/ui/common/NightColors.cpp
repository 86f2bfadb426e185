#include "ui/common/NightColors.h"

#include <algorithm>

namespace {

bool RedIs(QRgb nPixel) { return qGreen(nPixel) <= kNightMost && qBlue(nPixel) <= kNightMost; }

QRgb RedGet(int nLight, int nAlpha) { return qRgba(nLight, nLight * kNightMost / 255, 0, nAlpha); }

/// Calls fnPixel with every pixel.
template <class Fn>
void PixelsChange(QImage& img, Fn fnPixel)
{
    if (img.depth() != 32)
        img = img.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int nRow = 0; nRow < img.height(); ++nRow) {
        auto* const pRow = reinterpret_cast<QRgb*>(img.scanLine(nRow));
        std::transform(pRow, pRow + img.width(), pRow, fnPixel);
    }
}

}  // namespace

QRgb NightRed(QRgb nPixel)
{
    if (RedIs(nPixel))
        return nPixel;
    return RedGet(std::max(qRed(nPixel), qGray(nPixel)), qAlpha(nPixel));
}

void NightReds(QImage& img) { PixelsChange(img, NightRed); }

QRgb NightNegative(QRgb nPixel) { return RedGet(255 - qGray(nPixel), qAlpha(nPixel)); }

QImage NightNegative(const QImage& img)
{
    QImage imgNight = img.convertToFormat(QImage::Format_ARGB32);
    bool bReds = true;
    for (int nRow = 0; bReds && nRow < imgNight.height(); ++nRow) {
        const auto* const pRow = reinterpret_cast<const QRgb*>(imgNight.constScanLine(nRow));
        bReds = std::all_of(pRow, pRow + imgNight.width(), RedIs);
    }
    if (!bReds)
        PixelsChange(imgNight, [](QRgb n) { return NightNegative(n); });
    return imgNight;
}
