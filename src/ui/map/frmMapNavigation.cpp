// View, zoom and scroll of the map window.
#include <QPainter>
#include <QSignalBlocker>
#include <algorithm>
#include <array>

#include "geo/SunLib.h"
#include "system/NumberLib.h"
#include "ui/map/MapEdgeArrow.h"
#include "ui/map/MapGraticule.h"
#include "ui/map/MapLegend.h"
#include "ui/map/MapScaleBar.h"
#include "ui/map/MapSky.h"
#include "ui/map/WorldImage.h"
#include "ui/map/frmMap.h"

namespace {

constexpr double kStepShare = 1.0 / 20;  // of the view, that a bar's arrow moves
constexpr double kPageShare = 1.0 / 2;

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
    ZoomSet(m_view.ZoomKeepSeen(m_view.BoxGetZoom(box)));
}

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
    ViewPaint();
}

/// Paints the view as it is, so that repeating it moves nothing.
void frmMap::ViewPaint()
{
    m_rctBand = QRect();
    m_grid.Clear();
    OverlayFailedSet({});
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
    WorldImagePaint(pctMap->m_img, m_view.m_rctSource, m_view.m_dEdge);
}

void frmMap::ScrollBarsSet()
{
    constexpr double kTenths = 10.0;  // the bars' unit, of a degree
    const LatLon center = ViewGetCenter();
    const QSignalBlocker blkX(hscMap);
    const QSignalBlocker blkY(vscMap);
    hscMap->setRange(RoundHalfEven(m_view.m_dEdge * kTenths),
                     RoundHalfEven((m_view.m_dEdge + 360) * kTenths));
    const auto StepsSet = [](QScrollBar* pBar, double dSpan) {
        pBar->setSingleStep(std::max(RoundHalfEven(dSpan * kTenths * kStepShare), 1));
        pBar->setPageStep(std::max(RoundHalfEven(dSpan * kTenths * kPageShare), 1));
    };
    StepsSet(hscMap, m_view.m_box.dRight - m_view.m_box.dLeft);
    StepsSet(vscMap, m_view.m_box.dTop - m_view.m_box.dBottom);
    hscMap->setValue(RoundHalfEven(center.dLon * kTenths));
    vscMap->setValue(RoundHalfEven(-(center.dLat * kTenths)));
}

/// What is painted above the picture and never becomes part of it.
void frmMap::LayersPaint(QPainter& painter)
{
    if (!m_bActivated)
        return;
    LinesLayerPaint(painter);
    ScaleBarPaint(painter, m_view);
    if (LegendIsShown())
        LegendLayerPaint(painter);
    ArrowsLayerPaint(painter);
}

void frmMap::LinesLayerPaint(QPainter& painter)
{
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
}

void frmMap::LegendLayerPaint(QPainter& painter)
{
    const float fMinSnr = m_host.SettingsGet().m_fMapOverlayMinSnr;
    m_rctLegend = LegendRectGet(painter.fontMetrics());
    LegendPaint(painter, m_rctLegend, LegendRowsGet(), fMinSnr);
}

std::vector<LegendRow> frmMap::LegendRowsGet() const
{
    return LegendGetRows(m_host.SettingsGet().m_fMapOverlayMinSnr,
                         [this](float fSnr) { return m_host.SnrGetColor(fSnr); });
}

QRect frmMap::LegendRectGet(const QFontMetrics& metrics) const
{
    return LegendGetRect(metrics, pctMap->rect(), LegendRowsGet(),
                         m_host.SettingsGet().m_fMapOverlayMinSnr,
                         std::array{lblRc->geometry(), lblTx->geometry()}, m_rctPointer);
}

/// A marker outside the view is pointed to.
void frmMap::ArrowsLayerPaint(QPainter& painter)
{
    for (const MarkerLabel* pMarker : {lblRc, lblTx}) {
        const LatLon& pos = pMarker == lblRc ? m_posRc : m_posTx;
        const QPointF ptMarker(m_view.LonGetX(m_view.LonGetOnScale(pos.dLon)),
                               m_view.LatGetY(pos.dLat));
        if (const auto arrow = EdgeArrowGet(pctMap->rect(), ptMarker))
            EdgeArrowPaint(painter, *arrow, pMarker->TextGet(), pMarker->FillGetColor(),
                           pMarker->TextGetColor());
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
    ViewSet(BoxKeepWhole(BoxAround(middle, m_view.m_box, dFactor), m_view.m_dEdge));
}

void frmMap::cmdZoomInClick() { ZoomAroundMiddle(0.5); }

void frmMap::cmdZoomOutClick() { ZoomAroundMiddle(2.0); }

// Unlike the other buttons this one and the popup items keep the overlay's item checked: the view
// becomes an outline map without cells.
void frmMap::cmdZoomOffClick()
{
    m_view.m_dEdge = m_dEdgeSetting;
    ViewSet(m_view.BoxGetWhole());
}

void frmMap::cmdZoomTxRcClick()
{
    mnuOverlayDraw->setChecked(false);
    // Until Zoom Off the world begins where the shorter way is whole.
    m_view.m_dEdge = EdgeOfPath(m_posRc, m_posTx, m_view.m_dEdge);
    ViewSet(BoxOfPath(m_posRc, m_posTx, m_view.m_dEdge));
}

void frmMap::mnuMapZoom(double dFactor)
{
    const LatLon center = PointGetLatLon(m_pPopupSource, m_ptPopup.x(), m_ptPopup.y());
    ViewSet(BoxKeepWhole(BoxAround(center, m_view.m_box, dFactor), m_view.m_dEdge));
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

/// The bars' arrows and the room beside their sliders move by shares of the view, which tenths of a
/// degree are too coarse for near the ground.
void frmMap::BarAct(QScrollBar* pBar, int nAction)
{
    if (!pBar->hasFocus())
        return;
    double dShare = 0;
    switch (nAction) {
        case QAbstractSlider::SliderSingleStepAdd:
            dShare = kStepShare;
            break;
        case QAbstractSlider::SliderSingleStepSub:
            dShare = -kStepShare;
            break;
        case QAbstractSlider::SliderPageStepAdd:
            dShare = kPageShare;
            break;
        case QAbstractSlider::SliderPageStepSub:
            dShare = -kPageShare;
            break;
        default:
            return;  // the slider itself was moved
    }
    ViewShift(pBar == hscMap ? dShare : 0, pBar == vscMap ? dShare : 0);
}

/// The wheel over a bar moves the map along.
bool frmMap::BarWheel(QScrollBar* pBar, QWheelEvent* pEvent)
{
    constexpr double kNotch = 120;  // eighths of a degree
    constexpr double kLines = 3;    // arrow clicks that a notch is worth
    pBar->setFocus(Qt::MouseFocusReason);
    const QPoint ptAngle = pEvent->angleDelta();
    const int nAngle = std::abs(ptAngle.x()) > std::abs(ptAngle.y()) ? ptAngle.x() : ptAngle.y();
    const double dShare = -nAngle / kNotch * kLines * kStepShare;
    ViewShift(pBar == hscMap ? dShare : 0, pBar == vscMap ? dShare : 0);
    pEvent->accept();
    return true;
}

bool frmMap::eventFilter(QObject* pObject, QEvent* pEvent)
{
    for (QScrollBar* pBar : {hscMap, vscMap})
        if (pObject == pBar && pEvent->type() == QEvent::Wheel)
            return BarWheel(pBar, static_cast<QWheelEvent*>(pEvent));
    return QWidget::eventFilter(pObject, pEvent);
}

/// Moves the view by shares of its width and height, east and south positive.
void frmMap::ViewShift(double dShareX, double dShareY)
{
    mnuOverlayDraw->setChecked(false);
    m_bAskedBox = false;
    ZoomSet(m_view.PanGetZoom(-dShareX * m_view.m_nMapWidth, -dShareY * m_view.m_nMapHeight));
}
