#include "ui/map/MapLayers.h"

#include <QObject>

#include "geo/MathLib.h"

void MapLayers::Paint(QPainter& painter) const
{
    for (const auto& pLayer : m_apLayer) {
        painter.save();
        pLayer->Paint(painter);
        painter.restore();
    }
}

QString MapLayers::TipGet(const LatLon& pos) const
{
    QString sTip = PositionText(pos);
    for (const auto& pLayer : m_apLayer) sTip += pLayer->TipGet(pos);
    return sTip;
}

void MapLayers::PointerMove(const QPoint& ptPointer) const
{
    for (const auto& pLayer : m_apLayer) pLayer->PointerMove(ptPointer);
}

QString PositionText(const LatLon& pos)
{
    return QObject::tr("Lat %1, Lon %2")
        .arg(QString::fromStdString(LatitudeToText(pos.dLat)),
             QString::fromStdString(LongitudeToText(pos.dLon)));
}
