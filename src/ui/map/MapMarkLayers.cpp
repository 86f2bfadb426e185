#include "ui/map/MapMarkLayers.h"

#include "ui/map/MapEdgeArrow.h"
#include "ui/map/MapScaleBar.h"

void ScaleBarLayer::Paint(QPainter& painter) { ScaleBarPaint(painter, m_view); }

void EdgeArrowLayer::Paint(QPainter& painter)
{
    const MapView& view = m_form.m_view;
    for (const MarkerLabel* pMarker : {m_form.lblRc, m_form.lblTx}) {
        const LatLon& pos = pMarker == m_form.lblRc ? m_form.m_posRc : m_form.m_posTx;
        const QPointF ptMarker(view.LonGetX(view.LonGetOnScale(pos.dLon)), view.LatGetY(pos.dLat));
        if (const auto arrow = EdgeArrowGet(m_form.pctMap->rect(), ptMarker))
            EdgeArrowPaint(painter, *arrow, pMarker->TextGet(), pMarker->FillGetColor(),
                           pMarker->TextGetColor());
    }
}
