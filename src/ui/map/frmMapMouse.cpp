// Mouse on the map picture and on the markers.
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "geo/MathLib.h"
#include "system/NumberLib.h"
#include "ui/map/MapPaint.h"
#include "ui/map/frmMap.h"

namespace {

constexpr double kClick = 20.0;    // a drag of so many pixels either way is still a click
constexpr int kNotch = 120;        // of a wheel, eighths of a degree
constexpr double kMinutes = 60.0;  // nautical miles in a degree of arc

QString PositionText(const LatLon& pos)
{
    return QString::fromStdString("Lat " + LatitudeToText(pos.dLat) + ", Lon "
                                  + LongitudeToText(pos.dLon));
}

double RangeGetMiles(const LatLon& one, const LatLon& other)
{
    return GreatCircleAngle(one.dLat, one.dLon, other.dLat, other.dLon) / kRadiansPerDegree
           * kMinutes;
}

}  // namespace

void frmMap::pctMapMouseDown(QMouseEvent* pEvent)
{
    m_ptDown = pEvent->position();
    if (pEvent->button() == Qt::LeftButton && !m_bPan)
        m_bBand = true;
    if (pEvent->button() == Qt::MiddleButton && !m_bBand) {
        m_bPan = true;
        m_ptPan = m_ptDown;
        m_viewPan = m_view;
    }
}

void frmMap::pctMapMouseMove(QMouseEvent* pEvent)
{
    if (m_bPan) {
        const QPointF ptBy = pEvent->position() - m_ptPan;
        m_bAskedBox = false;
        ZoomSet(m_viewPan.PanGetZoom(ptBy.x(), ptBy.y()));
    } else if (pEvent->buttons() & Qt::LeftButton) {
        if (m_bBand)
            BandDraw(pEvent->position());
    } else if (pEvent->buttons() == Qt::NoButton) {
        MapTipShow(pEvent);
    }
}

void frmMap::pctMapMouseUp(QMouseEvent* pEvent)
{
    if (pEvent->button() == Qt::RightButton)
        mnuMapShow(pctMap, pEvent);
    if (pEvent->button() == Qt::MiddleButton)
        PanLeave();
    if (pEvent->button() != Qt::LeftButton || !m_bBand)
        return;
    const QPointF pt = pEvent->position();
    const MapBox box = BandGetBox(pt);
    BandLeave();
    if (std::abs(pt.x() - m_ptDown.x()) <= kClick || std::abs(pt.y() - m_ptDown.y()) <= kClick
        || box.dLeft == box.dRight)
        return;
    mnuOverlayDraw->setChecked(false);
    ViewSet(box);
}

/// The box of a band from the mouse-down point. Its ends are kept on the image: the same longitude
/// lies at both edges, and a band that begins in the blank strip beside the world would be turned
/// inside out.
MapBox frmMap::BandGetBox(const QPointF& ptEnd) const
{
    const double dFirst = m_view.LonGetX(m_view.m_dEdge);
    const double dLast =
        m_view.LonGetX(m_view.m_dEdge + 360) - 1 / m_view.m_dScale;  // the last image pixel
    const auto KeepX = [&](double dX) { return std::max(std::min(dX, dLast), dFirst); };
    const QRect rctImage = m_view.ImageGetRect();
    const auto KeepY = [&](double dY) {
        return std::max(std::min(dY, rctImage.bottom() + 0.5), rctImage.top() + 0.5);
    };
    const LatLon posDown = PointGetLatLon(pctMap, KeepX(m_ptDown.x()), KeepY(m_ptDown.y()));
    const LatLon posUp = PointGetLatLon(pctMap, KeepX(ptEnd.x()), KeepY(ptEnd.y()));
    return {posDown.dLat, posDown.dLon, posUp.dLat, posUp.dLon};
}

void frmMap::BandDraw(const QPointF& pt)
{
    BandErase();
    m_rctBand = QRect(m_ptDown.toPoint(), pt.toPoint()).normalized();
    BandInvert();
    pctMap->update();
}

/// The band's line is a pixel of the picture wide.
void frmMap::BandInvert()
{
    const double dDensity = pctMap->m_img.devicePixelRatio();
    const auto Dense = [dDensity](QPoint pt) {
        return QPoint(RoundHalfEven(pt.x() * dDensity), RoundHalfEven(pt.y() * dDensity));
    };
    if (!m_rctBand.isEmpty())
        RectInvert(pctMap->m_img, {Dense(m_rctBand.topLeft()), Dense(m_rctBand.bottomRight())});
}

void frmMap::BandErase()
{
    BandInvert();
    m_rctBand = QRect();
}

void frmMap::BandLeave()
{
    m_bBand = false;
    BandErase();
    pctMap->update();
}

void frmMap::PanLeave()
{
    if (m_bPan)
        OverlayLater();
    m_bPan = false;
}

void frmMap::pctMapWheel(QWheelEvent* pEvent)
{
    pEvent->accept();
    if (m_bBand || m_bPan || m_pDragged != nullptr)
        return;
    m_nWheel += pEvent->angleDelta().y();
    while (std::abs(m_nWheel) >= kNotch) {
        const bool bIn = m_nWheel > 0;
        m_nWheel += bIn ? -kNotch : kNotch;
        m_bAskedBox = false;
        ZoomSet(
            m_view.WheelGetZoom(pEvent->position().x(), pEvent->position().y(), bIn ? 0.5 : 2.0));
        OverlayLater();
    }
}

QString frmMap::MapTipGet(const LatLon& pos)
{
    QString sTip = PositionText(pos);
    if (!mnuOverlayDraw->isChecked())
        return sTip;
    if (const std::optional<float> fSnr = OverlayGetSnr(pos.dLat, pos.dLon))
        sTip += QString::fromStdString(", Snr " + NumberFormat(*fSnr, "0.0") + " dB, Rng "
                                       + NumberFormat(RangeGetMiles(m_posRc, pos), "0"));
    return sTip;
}

void frmMap::MapTipShow(const QMouseEvent* pEvent)
{
    const QPointF pt = pEvent->position();
    LegendDodge(pt.toPoint());
    pctMap->setToolTip(MapTipGet(PointGetLatLon(pctMap, pt.x(), pt.y())));
    // A tip that is already there follows the pointer.
    if (QToolTip::isVisible())
        QToolTip::showText(pEvent->globalPosition().toPoint(), pctMap->toolTip(), pctMap);
}

/// The legend stands where the pointer is not.
void frmMap::LegendDodge(const QPoint& ptPointer)
{
    constexpr int kNear = 12;
    m_rctPointer = QRect(ptPointer, QSize(1, 1)).adjusted(-kNear, -kNear, kNear, kNear);
    if (LegendIsShown() && LegendRectGet(pctMap->fontMetrics()) != m_rctLegend)
        pctMap->update();
}

void frmMap::MarkerMouseDown(MarkerLabel* pMarker, const LatLon& pos, const QMouseEvent* pEvent)
{
    if (pEvent->button() != Qt::LeftButton && pEvent->button() != Qt::RightButton)
        return;
    m_ptDown = pEvent->position();
    if (pEvent->button() != Qt::LeftButton)
        return;
    m_pDragged = pMarker;
    m_posDragged = pos;
    MarkerTextShow(pMarker, pos);
    txtCursor->show();
}

void frmMap::MarkerMouseMove(MarkerLabel* pMarker, LatLon& pos, const QMouseEvent* pEvent)
{
    if (pEvent->buttons() & Qt::LeftButton && m_pDragged == pMarker) {
        const QPointF ptBy = pEvent->position() - m_ptDown;
        pMarker->move(RoundHalfEven(pMarker->x() + ptBy.x()),
                      RoundHalfEven(pMarker->y() + ptBy.y()));
        pos = PointGetLatLon(pMarker, pEvent->position().x(), pEvent->position().y());
        pctMap->update();  // the path follows, the legend gives way
    }
    MarkerTextShow(pMarker, pos);
}

void frmMap::MarkerTextShow(MarkerLabel* pMarker, const LatLon& pos)
{
    const QString sText =
        (pMarker == lblRc ? QStringLiteral("Receiver, ") : QStringLiteral("Transmitter, "))
        + PositionText(pos);
    pMarker->setToolTip(sText);
    txtCursor->setText(sText);
}

void frmMap::MarkerMouseUp(MarkerLabel* pMarker, const LatLon& pos, const QMouseEvent* pEvent)
{
    txtCursor->hide();
    if (pEvent->button() == Qt::RightButton)
        mnuMapShow(pMarker, pEvent);
    if (pEvent->button() != Qt::LeftButton || m_pDragged == nullptr)
        return;
    m_pDragged = nullptr;
    // The overlay is that of the receiver; the transmitter does not change it.
    const bool bMoved = pos.dLat != m_posDragged.dLat || pos.dLon != m_posDragged.dLon;
    if (pMarker == lblRc && bMoved && mnuOverlayDraw->isChecked())
        OverlayAgain();
}

/// Puts the dragged marker back to where it was.
void frmMap::MarkerDragLeave()
{
    LatLon& pos = m_pDragged == lblRc ? m_posRc : m_posTx;
    pos = m_posDragged;
    m_pDragged = nullptr;
    txtCursor->hide();
    DrawRc();
    DrawTx();
    pctMap->update();
}

void frmMap::MarkerPlace(MarkerLabel* pMarker, const LatLon& pos)
{
    const QPoint pt = LatLonGetPoint(pos.dLat, pos.dLon);
    pMarker->move(pt.x() - pMarker->width() / 2, pt.y() - pMarker->height() / 2);
}

void frmMap::DrawRc() { MarkerPlace(lblRc, m_posRc); }

void frmMap::DrawTx() { MarkerPlace(lblTx, m_posTx); }
