#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPixmapCache>

#include "ui/map/MapControls.h"

namespace {

constexpr int kUnits = 20;  // side of a picture
constexpr int kSharpness = 4;

void OverlayPaint(QPainter& painter)
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    constexpr int kCell = 4;
    constexpr QRgb kColors[4][4] = {{0xFFFFFFFF, 0xFF808080, 0xFF000080, 0xFF808080},
                                    {0xFF808080, 0xFF0000C0, 0xFF800080, 0xFF0000FF},
                                    {0xFF000080, 0xFF800080, 0xFFFF00FF, 0xFFC000C0},
                                    {0xFFFFFFFF, 0xFF0000FF, 0xFFC000C0, 0xFF808080}};
    for (int nRow = 0; nRow < 4; ++nRow)
        for (int nColumn = 0; nColumn < 4; ++nColumn)
            painter.fillRect(2 + nColumn * kCell, 2 + nRow * kCell, kCell, kCell,
                             QColor(kColors[nRow][nColumn]));
    painter.setPen(Qt::black);
    painter.drawRect(QRectF(1.5, 1.5, 17, 17));
}

void StationsPaint(QPainter& painter)
{
    painter.setPen(QPen(QColor(0x40, 0x40, 0x40), 1.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(10, 8), QPointF(6, 19));
    painter.drawLine(QPointF(10, 8), QPointF(14, 19));
    painter.drawLine(QPointF(7.5, 15), QPointF(12.5, 15));
    painter.setPen(QPen(QColor(0x1F, 0x6F, 0xB5), 1.6, Qt::SolidLine, Qt::RoundCap));
    constexpr int kDegree = 16;  // Qt counts angles in sixteenths of a degree
    for (const double dRadius : {4.5, 8.0}) {
        const QRectF rct(10 - dRadius, 7 - dRadius, 2 * dRadius, 2 * dRadius);
        painter.drawArc(rct, -45 * kDegree, 90 * kDegree);
        painter.drawArc(rct, 135 * kDegree, 90 * kDegree);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xD5, 0x5E, 0x00));
    painter.drawEllipse(QPointF(10, 7), 2.2, 2.2);
}

void PathPaint(QPainter& painter)
{
    QPainterPath pth(QPointF(3, 15));
    pth.quadTo(10, -2, 17, 13);
    painter.setPen(QPen(QColor(0xB0, 0x20, 0x20), 1.8));
    painter.drawPath(pth);
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(QColor(0xFF, 0xC8, 0x1E));
    painter.drawEllipse(QPointF(3.5, 15), 2.5, 2.5);
    painter.setBrush(QColor(0x0B, 0x2E, 0x6B));
    painter.drawEllipse(QPointF(16.5, 13.5), 2.5, 2.5);
}

void NightPaint(QPainter& painter)
{
    constexpr int kDegree = 16;
    const QRectF rct(2, 2, 16, 16);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xFF, 0xD9, 0x5A));
    painter.drawEllipse(rct);
    painter.setBrush(QColor(0x2A, 0x35, 0x5C));
    painter.drawPie(rct, 60 * kDegree, 180 * kDegree);
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(rct);
}

void TwilightPaint(QPainter& painter)
{
    constexpr QRgb kColors[] = {0xFFFFD95A, 0xFFB9AA77, 0xFF7E7C86, 0xFF515A7C, 0xFF2A355C};
    const QRectF rct(2, 2, 16, 16);
    QPainterPath pth;
    pth.addEllipse(rct);
    painter.setClipPath(pth);
    constexpr double kStripe = 16.0 / 5;
    for (int i = 0; i < 5; ++i)
        painter.fillRect(QRectF(2 + i * kStripe, 2, kStripe + 0.2, 16), QColor(kColors[i]));
    painter.setClipping(false);
    painter.setPen(QPen(Qt::black, 1));
    painter.drawEllipse(rct);
}

using PaintFn = void (*)(QPainter&);

QPixmap PicturePaint(PaintFn fnPaint)
{
    QPixmap pix(kUnits * kSharpness, kUnits * kSharpness);
    pix.fill(Qt::transparent);
    QPainter painter(&pix);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(kSharpness, kSharpness);
    fnPaint(painter);
    return pix;
}

/// One picture for all windows: Qt caches scaled copies of every new one.
QIcon PictureKept(const QString& sKey, PaintFn fnPaint)
{
    const QString sName = QStringLiteral("MapPicture ") + sKey;
    QPixmap pix;
    if (!QPixmapCache::find(sName, &pix)) {
        pix = PicturePaint(fnPaint);
        QPixmapCache::insert(sName, pix);
    }
    return QIcon(pix);
}

}  // namespace

QIcon MapPictureGet(const QString& sKey)
{
    if (sKey == QStringLiteral("Overlay"))
        return PictureKept(sKey, OverlayPaint);
    if (sKey == QStringLiteral("Stations"))
        return PictureKept(sKey, StationsPaint);
    if (sKey == QStringLiteral("Path"))
        return PictureKept(sKey, PathPaint);
    if (sKey == QStringLiteral("Night"))
        return PictureKept(sKey, NightPaint);
    if (sKey == QStringLiteral("Twilight"))
        return PictureKept(sKey, TwilightPaint);
    return {};
}
