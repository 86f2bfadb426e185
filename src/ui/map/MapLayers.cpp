#include "ui/map/MapLayers.h"

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
    return QString::fromStdString("Lat " + LatitudeToText(pos.dLat) + ", Lon "
                                  + LongitudeToText(pos.dLon));
}
