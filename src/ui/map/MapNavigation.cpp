#include "ui/map/MapNavigation.h"

#include <QMouseEvent>

#include "settings/Settings.h"

namespace {

double EdgeOfSetting(const Settings& settings)
{
    return settings.m_iMapWorldBegins == -180 ? kEdgeDateLine : kEdgeGreenwich;
}

}  // namespace

MapNavigation::MapNavigation(MapForm& form) : m_form(form)
{
    connect(form.cmdZoomIn, &QPushButton::clicked, this, [this] { ZoomAroundMiddle(0.5); });
    connect(form.cmdZoomOut, &QPushButton::clicked, this, [this] { ZoomAroundMiddle(2.0); });
    connect(form.cmdZoomOff, &QPushButton::clicked, this, &MapNavigation::cmdZoomOffClick);
    connect(form.cmdZoomTxRc, &QPushButton::clicked, this, &MapNavigation::cmdZoomTxRcClick);
    connect(form.mnuMapCenter, &QAction::triggered, this, [this] { mnuMapZoom(1.0); });
    connect(form.mnuMapZoomIn, &QAction::triggered, this, [this] { mnuMapZoom(0.5); });
    connect(form.mnuMapZoomOut, &QAction::triggered, this, [this] { mnuMapZoom(2.0); });
}

void MapNavigation::ViewSet(const MapBox& box)
{
    m_bBoxRequested = true;
    m_boxRequested = box;
    ZoomSet(m_form.m_view.ZoomKeepSeen(m_form.m_view.BoxGetZoom(box)));
}

void MapNavigation::ViewRestore()
{
    const LatLon center = m_form.m_view.CenterGet();
    if (m_bBoxRequested)
        ViewSet(m_boxRequested);
    else
        ZoomSet({m_form.m_view.m_dScale, center.dLat, center.dLon});
}

void MapNavigation::ViewFit()
{
    MapView& view = m_form.m_view;
    if (m_rctFit != view.m_rctSource) {  // moved by another part
        const LatLon center = view.CenterGet();
        m_zoomFit = {view.m_dScale, center.dLat, center.dLon};
        m_bBoxRequested = false;
    }
    // A box is shown whole, as in a window of another size.
    view.ZoomSet(m_bBoxRequested ? view.ZoomKeepSeen(view.BoxGetZoom(m_boxRequested)) : m_zoomFit);
    m_rctFit = view.m_rctSource;
}

void MapNavigation::ZoomRequest(const MapZoom& zoom)
{
    m_bBoxRequested = false;
    ZoomSet(zoom);
}

void MapNavigation::ZoomSet(const MapZoom& zoom)
{
    m_form.m_view.ZoomSet(zoom);
    m_zoomFit = zoom;
    m_rctFit = m_form.m_view.m_rctSource;
    Q_EMIT ViewChanged();
}

void MapNavigation::ViewShift(double dShareX, double dShareY)
{
    const MapView& view = m_form.m_view;
    m_form.mnuOverlayDraw->setChecked(false);
    ZoomRequest(view.PanGetZoom(-dShareX * view.m_nMapWidth, -dShareY * view.m_nMapHeight));
}

void MapNavigation::WorldShow(const Settings& settings)
{
    m_dEdgeSetting = EdgeOfSetting(settings);
    cmdZoomOffClick();
}

void MapNavigation::EdgeFollowSetting(const Settings& settings)
{
    const double dEdge = EdgeOfSetting(settings);
    if (dEdge == m_dEdgeSetting)
        return;
    m_dEdgeSetting = dEdge;
    if (dEdge == m_form.m_view.m_dEdge)
        return;
    const MapZoom zoom = m_form.m_view.EdgeGetZoom(dEdge);
    m_form.m_view.m_dEdge = dEdge;
    m_form.m_view.ZoomSet(zoom);
    m_bBoxRequested = false;
}

void MapNavigation::ZoomAroundMiddle(double dFactor)
{
    const MapView& view = m_form.m_view;
    m_form.mnuOverlayDraw->setChecked(false);
    const LatLon middle =
        m_form.PointGetLatLon(m_form.pctFrame, view.m_nOffsetX + view.m_nMapWidth / 2.0,
                              view.m_nOffsetY + view.m_nMapHeight / 2.0);
    ViewSet(BoxKeepWhole(BoxAround(middle, view.m_box, dFactor), view.m_dEdge));
}

// Unlike the other buttons, this one and the popup items leave the overlay's item checked: the view
// becomes an outline map without cells.
void MapNavigation::cmdZoomOffClick()
{
    m_form.m_view.m_dEdge = m_dEdgeSetting;
    ViewSet(m_form.m_view.BoxGetWhole());
}

void MapNavigation::cmdZoomTxRcClick()
{
    MapView& view = m_form.m_view;
    m_form.mnuOverlayDraw->setChecked(false);
    // Until Zoom Off, the world begins at an edge that does not cut the shorter way.
    view.m_dEdge = EdgeOfPath(m_form.m_posRc, m_form.m_posTx, view.m_dEdge);
    ViewSet(BoxOfPath(m_form.m_posRc, m_form.m_posTx, view.m_dEdge));
}

void MapNavigation::mnuMapZoom(double dFactor)
{
    const MapView& view = m_form.m_view;
    const LatLon center = m_form.PointGetLatLon(m_pPopupSource, m_ptPopup.x(), m_ptPopup.y());
    ViewSet(BoxKeepWhole(BoxAround(center, view.m_box, dFactor), view.m_dEdge));
}

void MapNavigation::mnuMapShow(QWidget* pSource, const QMouseEvent* pEvent)
{
    mnuMapOpen(pSource, pEvent->position());
}

void MapNavigation::mnuMapOpen(QWidget* pSource, const QPointF& pt)
{
    m_pPopupSource = pSource;
    m_ptPopup = pt;
    m_form.mnuMap->popup(pSource->mapToGlobal(pt).toPoint());
}
