#include "ui/map/MapView.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geo/MathLib.h"
#include "system/NumberLib.h"

namespace {

constexpr double kTop = 90.0;  // ordinate of the image's top edge
constexpr double kCircle = 360.0;
constexpr double kFarLon = 1080.0;  // no view is further from the image than this
constexpr double kFarOrdinate = 540.0;

/// Kept within limits; not-a-number becomes 0.
double Tame(double dValue, double dLimit)
{
    return std::isnan(dValue) ? 0.0 : std::clamp(dValue, -dLimit, dLimit);
}

double ScaleTame(double dScale, int nImgWidth)
{
    return dScale >= kScaleMin ? std::min(dScale, static_cast<double>(nImgWidth)) : kScaleMin;
}

/// Mercator height per map degree, times 90.
double KGet(const MapView& view)
{
    return view.m_nImgHeight * (kPi / 2) / (view.m_nImgWidth / 2.0);
}

/// The middle kept where a stretch of dSpan stays within dLow..dHigh; of a larger one the middle.
double MiddleKeep(double dMiddle, double dSpan, double dLow, double dHigh)
{
    if (dSpan >= dHigh - dLow)
        return (dLow + dHigh) / 2;
    return std::clamp(dMiddle, dLow + dSpan / 2, dHigh - dSpan / 2);
}

}  // namespace

double MapView::LatGetOrdinate(double dLat) const
{
    if (std::abs(dLat) >= kTop)
        return dLat;
    const double dOrdinate = MercatorY(std::abs(dLat)) * 90 / KGet(*this);
    return dLat < 0 ? -dOrdinate : dOrdinate;
}

double MapView::OrdinateGetLat(double dOrdinate) const
{
    if (std::abs(dOrdinate) >= kTop)
        return dOrdinate;
    const double dLat = MercatorLatitude(std::abs(dOrdinate) * KGet(*this) / 90);
    return dOrdinate < 0 ? -dLat : dLat;
}

MapZoom MapView::BoxGetZoom(const MapBox& box) const
{
    const MapBox boxShown = BoxPutInOrder(box);
    // Near a pole the ordinates of top and bottom may lie the other way round, because a pole is
    // its own ordinate.
    const double dOrdinates =
        std::abs(LatGetOrdinate(boxShown.dTop) - LatGetOrdinate(boxShown.dBottom));
    const double dLatRatio = dOrdinates * m_nImgHeight / 180 / m_nMapHeight;
    const double dLonRatio =
        (boxShown.dRight - boxShown.dLeft) * m_nImgWidth / kCircle / m_nMapWidth;
    return {ScaleTame(Max(dLatRatio, dLonRatio), m_nImgWidth),
            (boxShown.dTop + boxShown.dBottom) / 2, (boxShown.dLeft + boxShown.dRight) / 2};
}

void MapView::ZoomSet(const MapZoom& zoom)
{
    const double dScale = ScaleTame(zoom.dScale, m_nImgWidth);
    const double dOrdinate = Tame(LatGetOrdinate(zoom.dCenterLat), kFarOrdinate);
    const double dLon = Tame(zoom.dCenterLon, kFarLon);
    const int nWidth = std::max(RoundHalfEven(m_nMapWidth * dScale), 1);
    const int nHeight = std::max(RoundHalfEven(m_nMapHeight * dScale), 1);
    const int nLeft = RoundHalfEven(m_nImgWidth * dLon / kCircle - nWidth / 2.0);
    const int nTop = RoundHalfEven((90 - dOrdinate) * m_nImgHeight / 180 - nHeight / 2.0);
    m_rctSource = QRect(nLeft, nTop, nWidth, nHeight);
    m_dScale = dScale;
    m_box.dTop = OrdinateGetLat(90 - nTop * 180.0 / m_nImgHeight);
    m_box.dBottom = OrdinateGetLat(90 - (static_cast<double>(nTop) + nHeight) * 180 / m_nImgHeight);
    m_box.dLeft = nLeft * kCircle / m_nImgWidth;
    m_box.dRight = (static_cast<double>(nLeft) + nWidth) * kCircle / m_nImgWidth;
}

bool MapView::IsBeyondImage() const
{
    return !QRect(0, 0, m_nImgWidth, m_nImgHeight).contains(m_rctSource);
}

QRect MapView::ImageGetRect() const
{
    const double dTopOrdinate = LatGetOrdinate(m_box.dTop);
    const double dOrdinates = dTopOrdinate - LatGetOrdinate(m_box.dBottom);
    const QPoint ptTopLeft(RoundHalfEven(LonGetX(0)),
                           RoundHalfEven((dTopOrdinate - 90) * m_nMapHeight / dOrdinates));
    const QPoint ptEnd(RoundHalfEven(LonGetX(kCircle)),
                       RoundHalfEven((dTopOrdinate + 90) * m_nMapHeight / dOrdinates));
    return QRect(ptTopLeft, ptEnd - QPoint(1, 1)) & QRect(0, 0, m_nMapWidth, m_nMapHeight);
}

LatLon MapView::CenterGet() const
{
    return {OrdinateGetLat((LatGetOrdinate(m_box.dTop) + LatGetOrdinate(m_box.dBottom)) / 2),
            (m_box.dLeft + m_box.dRight) / 2};
}

LatLon MapView::PointGetLatLon(MapControl eControl, double dX, double dY,
                               const QRect& rctMarker) const
{
    switch (eControl) {
        case MapControl::Map:
            break;
        case MapControl::Frame:
            dX -= m_nOffsetX;
            dY -= m_nOffsetY;
            break;
        case MapControl::Marker:
            dX = rctMarker.x() + rctMarker.width() / 2.0;
            dY = rctMarker.y() + rctMarker.height() / 2.0;
            break;
        case MapControl::Other:
            return {};
    }
    const double dTopOrdinate = LatGetOrdinate(m_box.dTop);
    const double dOrdinates = dTopOrdinate - LatGetOrdinate(m_box.dBottom);
    const double dLon = m_box.dLeft + (m_box.dRight - m_box.dLeft) * dX / m_nMapWidth;
    return {OrdinateGetLat(dTopOrdinate - dOrdinates * dY / m_nMapHeight), LonWrap(dLon)};
}

QPoint MapView::LatLonGetPoint(double dLat, double dLon) const
{
    return {RoundHalfEven(LonGetX(dLon < 0 ? dLon + kCircle : dLon)), RoundHalfEven(LatGetY(dLat))};
}

double MapView::LonGetX(double dLon) const
{
    return (dLon - m_box.dLeft) * m_nMapWidth / (m_box.dRight - m_box.dLeft);
}

double MapView::LatGetY(double dLat) const
{
    const double dTopOrdinate = LatGetOrdinate(m_box.dTop);
    return (dTopOrdinate - LatGetOrdinate(dLat)) * m_nMapHeight
           / (dTopOrdinate - LatGetOrdinate(m_box.dBottom));
}

MapZoom MapView::WheelGetZoom(double dX, double dY, double dFactor) const
{
    const double dWhole = Max(static_cast<double>(m_nImgHeight) / m_nMapHeight,
                              static_cast<double>(m_nImgWidth) / m_nMapWidth);
    const double dScale = std::min(ScaleTame(m_dScale * dFactor, m_nImgWidth), dWhole);
    const double dReal = dScale / m_dScale;  // less than asked for at both ends of the zoom
    const double dTopOrdinate = LatGetOrdinate(m_box.dTop);
    const double dOrdinates = dTopOrdinate - LatGetOrdinate(m_box.dBottom);
    const double dPointOrdinate = dTopOrdinate - dOrdinates * dY / m_nMapHeight;
    const double dPointLon = m_box.dLeft + (m_box.dRight - m_box.dLeft) * dX / m_nMapWidth;
    const double dOrdinate =
        dPointOrdinate + (dTopOrdinate - dOrdinates / 2 - dPointOrdinate) * dReal;
    const double dLon = dPointLon + (CenterGet().dLon - dPointLon) * dReal;
    return {dScale, OrdinateGetLat(MiddleKeep(dOrdinate, dOrdinates * dReal, -90, 90)),
            MiddleKeep(dLon, (m_box.dRight - m_box.dLeft) * dReal, 0, kCircle)};
}

MapBox BoxPutInOrder(const MapBox& box)
{
    MapBox boxOrder = box;
    if (!(std::abs(box.dRight - box.dLeft) < kCircle)) {  // not-a-number, too
        boxOrder.dLeft = 0;
        boxOrder.dRight = kCircle;
    } else {
        if (boxOrder.dLeft < 0)
            boxOrder.dLeft += kCircle;
        if (boxOrder.dRight < 0)
            boxOrder.dRight += kCircle;
    }
    boxOrder.dTop = std::isnan(box.dTop) ? 90.0 : std::clamp(box.dTop, -90.0, 90.0);
    boxOrder.dBottom = std::isnan(box.dBottom) ? -90.0 : std::clamp(box.dBottom, -90.0, 90.0);
    if (boxOrder.dLeft > boxOrder.dRight)
        std::swap(boxOrder.dLeft, boxOrder.dRight);
    if (boxOrder.dTop < boxOrder.dBottom)
        std::swap(boxOrder.dTop, boxOrder.dBottom);
    if (boxOrder.dLeft == boxOrder.dRight) {
        boxOrder.dLeft -= 0.5;
        boxOrder.dRight += 0.5;
    }
    if (boxOrder.dTop == boxOrder.dBottom) {
        boxOrder.dTop += 0.5;
        boxOrder.dBottom -= 0.5;
    }
    return boxOrder;
}

MapBox BoxAround(const LatLon& center, const MapBox& boxView, double dFactor)
{
    const double dLatHalf = (boxView.dTop - boxView.dBottom) * dFactor / 2;
    const double dLonHalf = (boxView.dRight - boxView.dLeft) * dFactor / 2;
    return {center.dLat + dLatHalf, center.dLon - dLonHalf, center.dLat - dLatHalf,
            center.dLon + dLonHalf};
}

MapBox BoxKeepWhole(const MapBox& box)
{
    const double dSpan = box.dRight - box.dLeft;
    if (!(box.dLeft < 0 && box.dRight > 0 && dSpan < kCircle))
        return box;
    const bool bWest = box.dLeft + box.dRight < 0;
    return {box.dTop, bWest ? kCircle - dSpan : 0.0, box.dBottom, bWest ? kCircle : dSpan};
}

MapBox BoxOfPath(const LatLon& one, const LatLon& other)
{
    MapBox box{Max(one.dLat, other.dLat), Min(one.dLon, other.dLon), Min(one.dLat, other.dLat),
               Max(one.dLon, other.dLon)};
    const double dLatMargin = std::abs(box.dTop - box.dBottom) / 10;
    const double dLonMargin = std::abs(box.dLeft - box.dRight) / 10;
    box.dTop += dLatMargin;
    box.dBottom -= dLatMargin;
    if (box.dRight - box.dLeft + 2 * dLonMargin >= kCircle) {
        box.dLeft = 0;
        box.dRight = kCircle;
        return box;
    }
    // On the image the west end of a path over longitude 0 lies right of the east end.
    const double dWest = box.dLeft < 0 ? box.dLeft + kCircle : box.dLeft;
    const double dEast = box.dRight < 0 ? box.dRight + kCircle : box.dRight;
    box.dLeft = std::max(Min(dWest, dEast) - dLonMargin, 0.0);
    box.dRight = std::min(Max(dWest, dEast) + dLonMargin, kCircle);
    return box;
}

double LonWrap(double dLon)
{
    if (dLon > -180 && dLon <= 180)
        return dLon;
    const double dRest = std::remainder(dLon, kCircle);  // [-180, 180]
    return dRest <= -180 ? 180.0 : dRest;
}
