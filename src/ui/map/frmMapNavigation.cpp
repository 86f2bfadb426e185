// View, zoom and scroll of the map window.
#include <QPainter>
#include <QSignalBlocker>
#include <algorithm>
#include <array>

#include "system/NumberLib.h"
#include "ui/map/MapGraticule.h"
#include "ui/map/MapLegend.h"
#include "ui/map/MapSky.h"
#include "ui/map/WorldImage.h"
#include "ui/map/frmMap.h"

namespace {

void LinesPaint(QPainter& painter, const std::vector<QPolygonF>& aLines, const QColor& clr)
{
    for (const auto& [clrPen, dWidth] :
         {std::pair(QColor(255, 255, 255, 200), 4.0), std::pair(clr, 2.0)}) {
        painter.setPen(QPen(clrPen, dWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        for (const QPolygonF& lin : aLines) painter.drawPolyline(lin);
    }
}

}  // namespace

void frmMap::ViewSet(const MapBox& box)
{
    m_bAskedBox = true;
    m_boxAsked = box;
    ZoomSet(m_view.BoxGetZoom(box));
}

/// Shows the current box again; a view that scrolling has brought over longitude 0 would otherwise
/// fall apart.
void frmMap::ViewRepaint() { ViewSet(BoxKeepWhole(m_view.m_box)); }

/// After the window's size has changed.
void frmMap::ViewRestore()
{
    if (m_bAskedBox)
        ViewSet(m_boxAsked);
    else
        ZoomSet({m_view.m_dScale, ViewGetCenter().dLat, ViewGetCenter().dLon});
}

void frmMap::ZoomSet(const MapZoom& zoom)
{
    m_view.ZoomSet(zoom);
    m_rctBand = QRect();
    PicturePaint();
    ScrollBarsSet();
    if (mnuOverlayDraw->isChecked())
        MapOutline();
    GraticulePaint(pctMap->m_img, m_view, mnuOverlayDraw->isChecked(), font());
    StationsDraw();
    DrawRc();
    DrawTx();
    setWindowTitle(QStringLiteral("Hopcast - World Map"));
    pctMap->update();
}

void frmMap::PicturePaint()
{
    pctMap->PictureSize();
    if (m_view.IsBeyondImage())
        pctMap->m_img.fill(kMapBackground);
    WorldImagePaint(pctMap->m_img, m_view.m_rctSource);
}

void frmMap::ScrollBarsSet()
{
    const LatLon center = ViewGetCenter();
    const QSignalBlocker blkX(hscMap);
    const QSignalBlocker blkY(vscMap);
    hscMap->setValue(RoundHalfEven(center.dLon * 10));
    vscMap->setValue(RoundHalfEven(-(center.dLat * 10)));
}

/// What is painted above the picture and never becomes part of it.
void frmMap::LayersPaint(QPainter& painter)
{
    if (!m_bActivated)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(m_view.ImageGetRect());
    if (chkNight->isChecked()) {
        const LatLon sun = SunGetPosition(m_host.SettingsGet().m_iPropagationMonth, m_iOverlayHour);
        const QColor clrNight(0x2A, 0x35, 0x5C);
        LinesPaint(painter, LinesGetPixels(m_view, NightGetLine(sun)), clrNight);
        const std::vector<LatLon> aStrokes = NightGetStrokes(sun);
        for (std::size_t i = 0; i + 1 < aStrokes.size(); i += 2)
            LinesPaint(painter, LinesGetPixels(m_view, {aStrokes[i], aStrokes[i + 1]}), clrNight);
    }
    if (chkPath->isChecked())
        LinesPaint(painter, LinesGetPixels(m_view, PathGetPoints(m_posTx, m_posRc)),
                   QColor(0xB0, 0x20, 0x20));
    painter.restore();
    if (mnuOverlayDraw->isChecked()) {
        const float fMinSnr = m_host.SettingsGet().m_fMapOverlayMinSnr;
        const auto ColourGet = [this](float fSnr) { return m_host.SnrGetColor(fSnr); };
        LegendPaint(painter, pctMap->rect(), LegendGetRows(fMinSnr, ColourGet), fMinSnr,
                    std::array{lblRc->geometry(), lblTx->geometry()});
    }
}

LatLon frmMap::ViewGetCenter() const { return m_view.CenterGet(); }

LatLon frmMap::PointGetLatLon(const QWidget* pControl, double dX, double dY) const
{
    if (pControl == pctMap)
        return m_view.PointGetLatLon(MapControl::Map, dX, dY);
    if (pControl == pctFrame)
        return m_view.PointGetLatLon(MapControl::Frame, dX, dY);
    if (pControl == lblRc || pControl == lblTx)
        return m_view.PointGetLatLon(MapControl::Marker, dX, dY, pControl->geometry());
    return m_view.PointGetLatLon(MapControl::Other, dX, dY);
}

QPoint frmMap::LatLonGetPoint(double dLat, double dLon) const
{
    // Windows cannot stand further away than this.
    constexpr int kFar = 30000;
    const QPoint pt = m_view.LatLonGetPoint(dLat, dLon);
    return {std::clamp(pt.x(), -kFar, kFar), std::clamp(pt.y(), -kFar, kFar)};
}

void frmMap::ZoomAroundMiddle(double dFactor)
{
    mnuOverlayDraw->setChecked(false);
    const LatLon middle = PointGetLatLon(pctFrame, m_view.m_nOffsetX + m_view.m_nMapWidth / 2.0,
                                         m_view.m_nOffsetY + m_view.m_nMapHeight / 2.0);
    ViewSet(BoxKeepWhole(BoxAround(middle, m_view.m_box, dFactor)));
}

void frmMap::cmdZoomInClick() { ZoomAroundMiddle(0.5); }

void frmMap::cmdZoomOutClick() { ZoomAroundMiddle(2.0); }

// Unlike the other buttons this one and the popup items keep the overlay's item checked: the view
// becomes an outline map without cells.
void frmMap::cmdZoomOffClick() { ViewSet({90, 0, -90, 360}); }

void frmMap::cmdZoomTxRcClick()
{
    mnuOverlayDraw->setChecked(false);
    ViewSet(BoxOfPath(m_posRc, m_posTx));
}

void frmMap::mnuMapZoom(double dFactor)
{
    const LatLon center = PointGetLatLon(m_pPopupSource, m_ptPopup.x(), m_ptPopup.y());
    ViewSet(BoxKeepWhole(BoxAround(center, m_view.m_box, dFactor)));
}

void frmMap::mnuMapShow(QWidget* pSource, const QMouseEvent* pEvent)
{
    m_pPopupSource = pSource;
    m_ptPopup = pEvent->position();
    mnuMap->popup(pEvent->globalPosition().toPoint());
}

// The bars act only for the user, who has the focus on them.
void frmMap::hscMapChange()
{
    if (!hscMap->hasFocus())
        return;
    mnuOverlayDraw->setChecked(false);
    m_bAskedBox = false;
    ZoomSet({m_view.m_dScale, ViewGetCenter().dLat, hscMap->value() / 10.0});
}

void frmMap::vscMapChange()
{
    if (!vscMap->hasFocus())
        return;
    mnuOverlayDraw->setChecked(false);
    m_bAskedBox = false;
    ZoomSet({m_view.m_dScale, -vscMap->value() / 10.0, ViewGetCenter().dLon});
}

void frmMap::ScrollByKey(QScrollBar* pBar, bool bForward)
{
    pBar->setFocus(Qt::ShortcutFocusReason);
    pBar->triggerAction(bForward ? QAbstractSlider::SliderSingleStepAdd
                                 : QAbstractSlider::SliderSingleStepSub);
}
