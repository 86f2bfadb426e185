#include "ui/map/MapSkyLayers.h"

#include <utility>

#include "geo/SunLib.h"
#include "ui/common/MainWindowHost.h"
#include "ui/map/MapOverlayMenu.h"
#include "ui/map/MapSky.h"

namespace {

constexpr QRgb kNightColor = qRgb(0x2A, 0x35, 0x5C);
constexpr QRgb kPathColor = qRgb(0xB0, 0x20, 0x20);

void LinesPaintBegin(QPainter& painter, const MapView& view)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(view.ImageGetRect());
}

/// Lines with a light edge, so that they show on every colour.
void LinesPaint(QPainter& painter, const std::vector<QPolygonF>& aLines, const QColor& clr)
{
    for (const auto& [clrPen, dWidth] :
         {std::pair(QColor(255, 255, 255, 200), 4.0), std::pair(clr, 2.0)}) {
        painter.setPen(QPen(clrPen, dWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        for (const QPolygonF& lin : aLines) painter.drawPolyline(lin);
    }
}

}  // namespace

void TwilightLayer::Paint(QPainter& painter)
{
    if (!m_form.chkTwilight->isChecked())
        return;
    const MapView& view = m_form.m_view;
    const LatLon sun =
        SunGetPosition(m_host.SettingsGet().m_iPropagationMonth, m_menu.ChoiceGet().iHour);
    const QSize size = m_form.pctMap->m_img.size();
    if (m_img.size() != size || m_rctSource != view.m_rctSource || m_dEdge != view.m_dEdge
        || m_sun.dLat != sun.dLat || m_sun.dLon != sun.dLon) {
        m_img = NightGetShade(view.SizedGet(size.width(), size.height()), sun);
        m_img.setDevicePixelRatio(m_form.pctMap->m_img.devicePixelRatio());
        m_rctSource = view.m_rctSource;
        m_dEdge = view.m_dEdge;
        m_sun = sun;
    }
    painter.drawImage(0, 0, m_img);
}

void NightLayer::Paint(QPainter& painter)
{
    if (!m_form.chkNight->isChecked())
        return;
    const MapView& view = m_form.m_view;
    const LatLon sun =
        SunGetPosition(m_host.SettingsGet().m_iPropagationMonth, m_menu.ChoiceGet().iHour);
    LinesPaintBegin(painter, view);
    LinesPaint(painter, LinesGetPixels(view, NightGetLine(sun)), kNightColor);
    const std::vector<LatLon> aStrokes = NightGetStrokes(sun);
    for (std::size_t i = 0; i + 1 < aStrokes.size(); i += 2)
        LinesPaint(painter, LinesGetPixels(view, {aStrokes[i], aStrokes[i + 1]}), kNightColor);
}

void PathLayer::Paint(QPainter& painter)
{
    if (!m_form.chkPath->isChecked())
        return;
    LinesPaintBegin(painter, m_form.m_view);
    LinesPaint(painter,
               LinesGetPixels(m_form.m_view, PathGetPoints(m_form.m_posTx, m_form.m_posRc)),
               kPathColor);
}
