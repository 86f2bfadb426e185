#include "ui/map/MapMouse.h"

#include <QMouseEvent>
#include <QToolTip>
#include <cmath>

#include "ui/map/MapLayers.h"
#include "ui/map/MapMarkers.h"
#include "ui/map/MapNavigation.h"

namespace {

constexpr int kNotch = 120;  // of a wheel, in eighths of a degree

}  // namespace

MapMouse::MapMouse(MapForm& form, MapNavigation& navigation, MapMarkers& markers,
                   const MapLayers& layers)
    : m_form(form), m_navigation(navigation), m_markers(markers), m_layers(layers), m_band(form)
{
    connect(form.pctMap, &PctMap::MouseDown, this, &MapMouse::pctMapMouseDown);
    connect(form.pctMap, &PctMap::MouseMove, this, &MapMouse::pctMapMouseMove);
    connect(form.pctMap, &PctMap::MouseUp, this, &MapMouse::pctMapMouseUp);
    connect(form.pctMap, &PctMap::Wheel, this, &MapMouse::pctMapWheel);
}

bool MapMouse::IsBusy() const { return m_band.IsOn() || m_bPan || m_markers.IsDragging(); }

bool MapMouse::Leave()
{
    if (m_band.IsOn())
        m_band.Leave();
    else if (m_bPan)
        PanLeave();
    else if (m_markers.IsDragging())
        m_markers.DragLeave();
    else
        return m_markers.KeysLeave();
    return true;
}

void MapMouse::pctMapMouseDown(const QMouseEvent* pEvent)
{
    m_band.DownSet(pEvent->position());
    if (pEvent->button() == Qt::LeftButton && !m_bPan)
        m_band.Begin();
    if (pEvent->button() == Qt::MiddleButton && !m_band.IsOn()) {
        m_bPan = true;
        m_ptPan = pEvent->position();
        m_viewPan = m_form.m_view;
    }
}

void MapMouse::pctMapMouseMove(const QMouseEvent* pEvent)
{
    if (m_bPan) {
        const QPointF ptBy = pEvent->position() - m_ptPan;
        m_navigation.ZoomRequest(m_viewPan.PanGetZoom(ptBy.x(), ptBy.y()));
    } else if (pEvent->buttons() & Qt::LeftButton) {
        if (m_band.IsOn())
            m_band.Draw(pEvent->position());
    } else if (pEvent->buttons() == Qt::NoButton) {
        TipShow(pEvent);
    }
}

void MapMouse::pctMapMouseUp(const QMouseEvent* pEvent)
{
    if (pEvent->button() == Qt::RightButton)
        m_navigation.mnuMapShow(m_form.pctMap, pEvent);
    if (pEvent->button() == Qt::MiddleButton)
        PanLeave();
    if (pEvent->button() == Qt::LeftButton && m_band.IsOn())
        BandEnd(pEvent->position());
}

void MapMouse::BandEnd(const QPointF& pt)
{
    const std::optional<MapBox> box = m_band.End(pt);
    if (!box)
        return;
    m_form.mnuOverlayDraw->setChecked(false);
    m_navigation.ViewSet(*box);
}

void MapMouse::PanLeave()
{
    if (m_bPan)
        Q_EMIT ViewMoved();
    m_bPan = false;
}

void MapMouse::pctMapWheel(QWheelEvent* pEvent)
{
    pEvent->accept();
    if (IsBusy())
        return;
    m_nWheel += pEvent->angleDelta().y();
    while (std::abs(m_nWheel) >= kNotch) {
        const bool bIn = m_nWheel > 0;
        m_nWheel += bIn ? -kNotch : kNotch;
        m_navigation.ZoomRequest(m_form.m_view.WheelGetZoom(
            pEvent->position().x(), pEvent->position().y(), bIn ? 0.5 : 2.0));
        Q_EMIT ViewMoved();
    }
}

void MapMouse::TipShow(const QMouseEvent* pEvent)
{
    PctMap* pMap = m_form.pctMap;
    const QPointF pt = pEvent->position();
    m_layers.PointerMove(pt.toPoint());
    pMap->setToolTip(m_layers.TipGet(m_form.PointGetLatLon(pMap, pt.x(), pt.y())));
    // A tip that is already shown follows the pointer.
    if (QToolTip::isVisible())
        QToolTip::showText(pEvent->globalPosition().toPoint(), pMap->toolTip(), pMap);
}
