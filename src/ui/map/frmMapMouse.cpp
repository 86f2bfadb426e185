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
    return GreatCircleAngle(one.dLat, one.dLon, other.dLat, other.dLon) * 180 / kPi * kMinutes;
}

}  // namespace

void frmMap::pctMapMouseDown(QMouseEvent* pEvent)
{
    m_ptDown = pEvent->position();
    if (pEvent->button() == Qt::LeftButton)
        m_bBand = true;
}

void frmMap::pctMapMouseMove(QMouseEvent* pEvent)
{
    if (pEvent->buttons() & Qt::LeftButton) {
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

/// The box of a band from the mouse-down point. Its ends are kept on the image: longitude 0 lies at
/// both edges, and a band that begins in the blank strip beside the world would be turned inside
/// out.
MapBox frmMap::BandGetBox(const QPointF& ptEnd) const
{
    const double dFirst = m_view.LonGetX(0);
    const double dLast = m_view.LonGetX(360) - 1 / m_view.m_dScale;  // the last image pixel
    const auto KeepX = [&](double dX) { return std::max(std::min(dX, dLast), dFirst); };
    const LatLon posDown = PointGetLatLon(pctMap, KeepX(m_ptDown.x()), m_ptDown.y());
    const LatLon posUp = PointGetLatLon(pctMap, KeepX(ptEnd.x()), ptEnd.y());
    return {posDown.dLat, posDown.dLon, posUp.dLat, posUp.dLon};
}

void frmMap::BandDraw(const QPointF& pt)
{
    BandErase();
    m_rctBand = QRect(m_ptDown.toPoint(), pt.toPoint()).normalized();
    RectInvert(pctMap->m_img, m_rctBand);
    pctMap->update();
}

void frmMap::BandErase()
{
    RectInvert(pctMap->m_img, m_rctBand);
    m_rctBand = QRect();
}

void frmMap::BandLeave()
{
    m_bBand = false;
    BandErase();
    pctMap->update();
}

void frmMap::pctMapWheel(QWheelEvent* pEvent)
{
    pEvent->accept();
    if (m_bBand)
        return;
    m_nWheel += pEvent->angleDelta().y();
    while (std::abs(m_nWheel) >= kNotch) {
        const bool bIn = m_nWheel > 0;
        m_nWheel += bIn ? -kNotch : kNotch;
        m_bAskedBox = false;
        ZoomSet(
            m_view.WheelGetZoom(pEvent->position().x(), pEvent->position().y(), bIn ? 0.5 : 2.0));
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
    pctMap->setToolTip(MapTipGet(PointGetLatLon(pctMap, pt.x(), pt.y())));
    // A tip that is already there follows the pointer.
    if (QToolTip::isVisible())
        QToolTip::showText(pEvent->globalPosition().toPoint(), pctMap->toolTip(), pctMap);
}

void frmMap::MarkerMouseDown(const QMouseEvent* pEvent)
{
    if (pEvent->button() != Qt::LeftButton && pEvent->button() != Qt::RightButton)
        return;
    m_ptDown = pEvent->position();
    if (pEvent->button() == Qt::LeftButton)
        txtCursor->show();
}

void frmMap::MarkerMouseMove(MarkerLabel* pMarker, LatLon& pos, const QMouseEvent* pEvent)
{
    if (pEvent->buttons() & Qt::LeftButton) {
        const QPointF ptBy = pEvent->position() - m_ptDown;
        pMarker->move(RoundHalfEven(pMarker->x() + ptBy.x()),
                      RoundHalfEven(pMarker->y() + ptBy.y()));
        pos = PointGetLatLon(pMarker, pEvent->position().x(), pEvent->position().y());
        pctMap->update();  // the path follows, the legend gives way
    }
    const QString sText =
        (pMarker == lblRc ? QStringLiteral("Receiver, ") : QStringLiteral("Transmitter, "))
        + PositionText(pos);
    pMarker->setToolTip(sText);
    txtCursor->setText(sText);
}

void frmMap::MarkerMouseUp(MarkerLabel* pMarker, const QMouseEvent* pEvent)
{
    txtCursor->hide();
    if (pEvent->button() == Qt::RightButton)
        mnuMapShow(pMarker, pEvent);
}

void frmMap::MarkerPlace(MarkerLabel* pMarker, const LatLon& pos)
{
    const QPoint pt = LatLonGetPoint(pos.dLat, pos.dLon);
    pMarker->move(pt.x() - pMarker->width() / 2, pt.y() - pMarker->height() / 2);
}

void frmMap::DrawRc() { MarkerPlace(lblRc, m_posRc); }

void frmMap::DrawTx() { MarkerPlace(lblTx, m_posTx); }
