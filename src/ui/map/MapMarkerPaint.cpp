#include "ui/map/MapMarkerPaint.h"

namespace {

constexpr int kFlagMargin = 4;

}  // namespace

QSize MarkerGetSize(const QString& sText, const QFontMetrics& metrics)
{
    // Odd, so that the centre is a whole pixel.
    const int nWidth = (metrics.horizontalAdvance(sText) + 2 * kFlagMargin) | 1;
    const int nFlagHeight = metrics.height() + 2;
    return {nWidth, 2 * (nFlagHeight + kMarkerPinLong) + 1};
}

QRect MarkerGetFlag(const QSize& size)
{
    return {0, 0, size.width(), size.height() / 2 - kMarkerPinLong};
}

QColor MarkerGetFill(bool bDark)
{
    return bDark ? QColor(0x0B, 0x2E, 0x6B) : QColor(0xFF, 0xC8, 0x1E);
}

QColor MarkerGetTextColor(bool bDark) { return bDark ? Qt::white : Qt::black; }

void MarkerPaint(QPainter& painter, const QSize& size, const QString& sText, bool bDark)
{
    const QColor clrFill = MarkerGetFill(bDark);
    const QColor clrText = MarkerGetTextColor(bDark);
    const QRect rctFlag = MarkerGetFlag(size);
    const QPoint ptPin(size.width() / 2, size.height() / 2);
    painter.fillRect(QRect(ptPin.x() - 1, rctFlag.bottom(), 3, kMarkerPinLong + 1), clrText);
    painter.fillRect(QRect(ptPin.x() - kMarkerPinRadius, ptPin.y() - kMarkerPinRadius,
                           2 * kMarkerPinRadius + 1, 2 * kMarkerPinRadius + 1),
                     clrText);
    painter.fillRect(QRect(ptPin.x(), rctFlag.bottom(), 1, kMarkerPinLong + 1), clrFill);
    painter.fillRect(QRect(ptPin - QPoint(1, 1), QSize(3, 3)), clrFill);
    painter.setPen(clrText);
    painter.setBrush(clrFill);
    painter.drawRect(rctFlag.adjusted(0, 0, -1, -1));
    painter.drawText(rctFlag, Qt::AlignCenter, sText);
}
