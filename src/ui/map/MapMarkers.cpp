#include "ui/map/MapMarkers.h"

#include <QMouseEvent>
#include <cmath>
#include <utility>

#include "geo/MathLib.h"
#include "system/NumberLib.h"
#include "ui/map/MapLayers.h"

MapMarkers::MapMarkers(MapForm& form) : m_form(form)
{
    for (MarkerLabel* pMarker : {form.lblRc, form.lblTx}) {
        connect(pMarker, &MarkerLabel::MouseDown, this,
                [this, pMarker](QMouseEvent* pEvent) { MouseDown(pMarker, pEvent); });
        connect(pMarker, &MarkerLabel::MouseMove, this,
                [this, pMarker](QMouseEvent* pEvent) { MouseMove(pMarker, pEvent); });
        connect(pMarker, &MarkerLabel::MouseUp, this,
                [this, pMarker](QMouseEvent* pEvent) { MouseUp(pMarker, pEvent); });
        connect(pMarker, &MarkerLabel::KeyMove, this,
                [this, pMarker](int nByX, int nByY) { KeyMove(pMarker, nByX, nByY); });
        connect(pMarker, &MarkerLabel::FocusLeft, this, [this] {
            m_pKeyed = nullptr;
            m_form.txtCursor->hide();
        });
    }
}

LatLon& MapMarkers::PlaceOf(const MarkerLabel* pMarker)
{
    return pMarker == m_form.lblRc ? m_form.m_posRc : m_form.m_posTx;
}

void MapMarkers::MarkerPlace(MarkerLabel* pMarker)
{
    const LatLon& pos = PlaceOf(pMarker);
    const QPoint pt = m_form.LatLonGetPoint(pos.dLat, pos.dLon);
    pMarker->move(pt.x() - pMarker->width() / 2, pt.y() - pMarker->height() / 2);
    pMarker->setAccessibleName(TextGet(pMarker));  // screen readers announce a change
}

void MapMarkers::PlaceSet(MarkerLabel* pMarker, const LatLon& pos)
{
    PlaceOf(pMarker) = pos;
    DrawRc();
    DrawTx();
    m_form.pctMap->update();
    if (pMarker == m_form.lblRc)
        Q_EMIT ReceiverMoved();
}

bool MapMarkers::PlacesCheck()
{
    for (const MarkerLabel* pMarker : {m_form.lblRc, m_form.lblTx}) {
        const LatLon& pos = PlaceOf(pMarker);
        const bool bRc = pMarker == m_form.lblRc;
        if (PositionInRange(pos.dLat, pos.dLon))
            continue;
        const bool bLat = std::abs(pos.dLat) > kLatitudeMost;
        const QString sLat = bRc ? tr("Not set: latitude of receiver beyond 90°")
                                 : tr("Not set: latitude of transmitter beyond 90°");
        const QString sLon = bRc ? tr("Not set: longitude of receiver beyond 180°")
                                 : tr("Not set: longitude of transmitter beyond 180°");
        m_form.txtCursor->setText(bLat ? sLat : sLon);
        m_form.txtCursor->show();
        return false;
    }
    m_form.txtCursor->hide();
    return true;
}

void MapMarkers::MouseDown(MarkerLabel* pMarker, const QMouseEvent* pEvent)
{
    if (pEvent->button() != Qt::LeftButton && pEvent->button() != Qt::RightButton)
        return;
    m_ptDown = pEvent->position();
    if (pEvent->button() != Qt::LeftButton)
        return;
    m_pKeyed = nullptr;
    m_pDragged = pMarker;
    m_posDragged = PlaceOf(pMarker);
    TextShow(pMarker);
    m_form.txtCursor->show();
}

void MapMarkers::MouseMove(MarkerLabel* pMarker, const QMouseEvent* pEvent)
{
    if (pEvent->buttons() & Qt::LeftButton && m_pDragged == pMarker) {
        const QPointF ptBy = pEvent->position() - m_ptDown;
        pMarker->move(RoundHalfEven(pMarker->x() + ptBy.x()),
                      RoundHalfEven(pMarker->y() + ptBy.y()));
        PlaceOf(pMarker) =
            m_form.PointGetLatLon(pMarker, pEvent->position().x(), pEvent->position().y());
        m_form.pctMap->update();  // for the path and the legend
    }
    TextShow(pMarker);
}

void MapMarkers::MouseUp(MarkerLabel* pMarker, const QMouseEvent* pEvent)
{
    m_form.txtCursor->hide();
    if (pEvent->button() == Qt::RightButton)
        Q_EMIT MenuRequested(pMarker, pEvent);
    if (pEvent->button() != Qt::LeftButton || m_pDragged == nullptr)
        return;
    m_pDragged = nullptr;
    const LatLon& pos = PlaceOf(pMarker);
    const bool bMoved = pos.dLat != m_posDragged.dLat || pos.dLon != m_posDragged.dLon;
    if (pMarker == m_form.lblRc && bMoved)
        Q_EMIT ReceiverDropped();
}

/// An arrow key moves the focused flag as a drag would.
void MapMarkers::KeyMove(MarkerLabel* pMarker, int nByX, int nByY)
{
    if (m_pKeyed != pMarker)
        m_posKeyed = PlaceOf(pMarker);
    m_pKeyed = pMarker;
    pMarker->move(pMarker->x() + nByX, pMarker->y() + nByY);
    PlaceOf(pMarker) = m_form.PointGetLatLon(pMarker, 0, 0);
    m_form.txtCursor->show();
    TextShow(pMarker);
    m_form.pctMap->update();
    if (pMarker == m_form.lblRc)
        Q_EMIT ReceiverMoved();
}

bool MapMarkers::KeysLeave()
{
    if (m_pKeyed == nullptr)
        return false;
    MarkerLabel* const pMarker = std::exchange(m_pKeyed, nullptr);
    PlaceSet(pMarker, m_posKeyed);
    TextShow(pMarker);
    return true;
}

QString MapMarkers::TextGet(const MarkerLabel* pMarker)
{
    return (pMarker == m_form.lblRc ? tr("Receiver, %1") : tr("Transmitter, %1"))
        .arg(PositionText(PlaceOf(pMarker)));
}

void MapMarkers::TextShow(MarkerLabel* pMarker)
{
    const QString sText = TextGet(pMarker);
    pMarker->setToolTip(sText);
    pMarker->setAccessibleName(sText);
    m_form.txtCursor->setText(sText);
}

void MapMarkers::DragLeave()
{
    PlaceOf(m_pDragged) = m_posDragged;
    m_pDragged = nullptr;
    m_form.txtCursor->hide();
    DrawRc();
    DrawTx();
    m_form.pctMap->update();
}
