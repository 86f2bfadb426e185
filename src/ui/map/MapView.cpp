#include "ui/map/MapView.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geo/MathLib.h"
#include "system/NumberLib.h"

namespace {

constexpr double kTop = 90.0;       // ordinate of the image's top edge
constexpr double kFarLon = 1080.0;  // no view is further from the image than this
constexpr double kFarOrdinate = 540.0;

/// Limits a value; NaN becomes 0.
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

/// Limits a middle so that a stretch of dSpan is within dLow..dHigh; for a larger one, their
/// middle.
double MiddleKeep(double dMiddle, double dSpan, double dLow, double dHigh)
{
    if (dSpan >= dHigh - dLow)
        return (dLow + dHigh) / 2;
    return std::clamp(dMiddle, dLow + dSpan / 2, dHigh - dSpan / 2);
}

double OnScale(double dLon, double dEdge) { return dLon < dEdge ? dLon + kFullCircle : dLon; }

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
    const MapBox boxShown = BoxPutInOrder(box, m_dEdge);
    // Near a pole, top and bottom may have their ordinates in reverse order, because a pole is its
    // own ordinate.
    const double dOrdinates =
        std::abs(LatGetOrdinate(boxShown.dTop) - LatGetOrdinate(boxShown.dBottom));
    const double dLatRatio = dOrdinates * m_nImgHeight / 180 / m_nMapHeight;
    const double dLonRatio =
        (boxShown.dRight - boxShown.dLeft) * m_nImgWidth / kFullCircle / m_nMapWidth;
    return {ScaleTame(Max(dLatRatio, dLonRatio), m_nImgWidth),
            (boxShown.dTop + boxShown.dBottom) / 2, (boxShown.dLeft + boxShown.dRight) / 2};
}

MapZoom MapView::ZoomKeepSeen(const MapZoom& zoom) const
{
    MapView view = *this;
    view.ZoomSet(zoom);
    if (!view.ImageGetRect().isEmpty())
        return zoom;
    const double dEdgeLat = MercatorLatitude(KGet(*this));
    return {zoom.dScale, std::clamp(Tame(zoom.dCenterLat, kFarOrdinate), -dEdgeLat, dEdgeLat),
            std::clamp(Tame(zoom.dCenterLon, kFarLon), m_dEdge, m_dEdge + kFullCircle)};
}

void MapView::ZoomSet(const MapZoom& zoom)
{
    const double dScale = ScaleTame(zoom.dScale, m_nImgWidth);
    const double dOrdinate = Tame(LatGetOrdinate(zoom.dCenterLat), kFarOrdinate);
    const double dLon = Tame(zoom.dCenterLon, kFarLon);
    const int nWidth = std::max(RoundHalfEven(m_nMapWidth * dScale), 1);
    const int nHeight = std::max(RoundHalfEven(m_nMapHeight * dScale), 1);
    const int nLeft = RoundHalfEven(m_nImgWidth * (dLon - m_dEdge) / kFullCircle - nWidth / 2.0);
    const int nTop = RoundHalfEven((90 - dOrdinate) * m_nImgHeight / 180 - nHeight / 2.0);
    m_rctSource = QRect(nLeft, nTop, nWidth, nHeight);
    m_dScale = dScale;
    m_box.dTop = OrdinateGetLat(90 - nTop * 180.0 / m_nImgHeight);
    m_box.dBottom = OrdinateGetLat(90 - (static_cast<double>(nTop) + nHeight) * 180 / m_nImgHeight);
    m_box.dLeft = nLeft * kFullCircle / m_nImgWidth + m_dEdge;
    m_box.dRight = (static_cast<double>(nLeft) + nWidth) * kFullCircle / m_nImgWidth + m_dEdge;
}

bool MapView::IsBeyondImage() const
{
    return !QRect(0, 0, m_nImgWidth, m_nImgHeight).contains(m_rctSource);
}

QRect MapView::ImageGetRect() const
{
    const double dTopOrdinate = LatGetOrdinate(m_box.dTop);
    const double dOrdinates = dTopOrdinate - LatGetOrdinate(m_box.dBottom);
    const QPoint ptTopLeft(RoundHalfEven(LonGetX(m_dEdge)),
                           RoundHalfEven((dTopOrdinate - 90) * m_nMapHeight / dOrdinates));
    const QPoint ptEnd(RoundHalfEven(LonGetX(m_dEdge + kFullCircle)),
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
    return {RoundHalfEven(LonGetX(LonGetOnScale(dLon))), RoundHalfEven(LatGetY(dLat))};
}

double MapView::LonGetOnScale(double dLon) const { return OnScale(dLon, m_dEdge); }

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
    const double dScale =
        std::min(ScaleTame(m_dScale * dFactor, m_nImgWidth), std::max(dWhole, m_dScale));
    const double dReal = dScale / m_dScale;  // less than asked for at the ends of the zoom range
    const double dTopOrdinate = LatGetOrdinate(m_box.dTop);
    const double dOrdinates = dTopOrdinate - LatGetOrdinate(m_box.dBottom);
    const double dPointOrdinate =
        std::clamp(dTopOrdinate - dOrdinates * dY / m_nMapHeight, -kTop, kTop);
    const double dPointLon =
        std::clamp(m_box.dLeft + (m_box.dRight - m_box.dLeft) * dX / m_nMapWidth, m_dEdge,
                   m_dEdge + kFullCircle);
    const double dOrdinate =
        dPointOrdinate + (dTopOrdinate - dOrdinates / 2 - dPointOrdinate) * dReal;
    const double dLon = dPointLon + (CenterGet().dLon - dPointLon) * dReal;
    return {dScale, OrdinateGetLat(dOrdinate), dLon};
}

MapZoom MapView::PanGetZoom(double dByX, double dByY) const
{
    const double dTopOrdinate = LatGetOrdinate(m_box.dTop);
    const double dOrdinates = dTopOrdinate - LatGetOrdinate(m_box.dBottom);
    const double dOrdinate = dTopOrdinate - dOrdinates * (0.5 - dByY / m_nMapHeight);
    const double dLon = CenterGet().dLon - (m_box.dRight - m_box.dLeft) * dByX / m_nMapWidth;
    return {m_dScale, OrdinateGetLat(std::clamp(dOrdinate, -kTop, kTop)),
            std::clamp(dLon, m_dEdge, m_dEdge + kFullCircle)};
}

MapZoom MapView::EdgeGetZoom(double dEdge) const
{
    const LatLon center = CenterGet();
    return {m_dScale, center.dLat,
            MiddleKeep(OnScale(LonWrap(center.dLon), dEdge), m_box.dRight - m_box.dLeft, dEdge,
                       dEdge + kFullCircle)};
}

MapView MapView::SizedGet(int nWidth, int nHeight) const
{
    MapView view = *this;
    view.m_nMapWidth = nWidth;
    view.m_nMapHeight = nHeight;
    return view;
}

MapBox BoxPutInOrder(const MapBox& box, double dEdge)
{
    MapBox boxOrder = box;
    if (!(std::abs(box.dRight - box.dLeft) < kFullCircle)) {  // NaN, too
        boxOrder.dLeft = dEdge;
        boxOrder.dRight = dEdge + kFullCircle;
    } else {
        boxOrder.dLeft = OnScale(boxOrder.dLeft, dEdge);
        boxOrder.dRight = OnScale(boxOrder.dRight, dEdge);
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

MapBox BoxKeepWhole(const MapBox& box, double dEdge)
{
    const double dSpan = box.dRight - box.dLeft;
    if (!(dSpan < kFullCircle))
        return box;
    const double dMiddle = (box.dLeft + box.dRight) / 2;
    const bool bWestEnd = box.dLeft < dEdge && box.dRight >= dEdge;
    const bool bEastEnd = box.dLeft < dEdge + kFullCircle && box.dRight > dEdge + kFullCircle;
    if (!bWestEnd && !bEastEnd)
        return box;
    const double dCut = bWestEnd ? dEdge : dEdge + kFullCircle;
    const double dLeft = dMiddle < dCut ? dEdge + kFullCircle - dSpan : dEdge;
    return {box.dTop, dLeft, box.dBottom, dLeft + dSpan};
}

MapBox BoxOfPath(const LatLon& one, const LatLon& other, double dEdge)
{
    // On the image, a path over its edge has its west end to the right of its east end.
    const double dLonOne = OnScale(LonWrap(one.dLon), dEdge);
    const double dLonOther = OnScale(LonWrap(other.dLon), dEdge);
    MapBox box{Max(one.dLat, other.dLat), Min(dLonOne, dLonOther), Min(one.dLat, other.dLat),
               Max(dLonOne, dLonOther)};
    const double dLatMargin = std::abs(box.dTop - box.dBottom) / 10;
    const double dLonMargin = std::abs(box.dLeft - box.dRight) / 10;
    box.dTop += dLatMargin;
    box.dBottom -= dLatMargin;
    box.dLeft = std::max(box.dLeft - dLonMargin, dEdge);
    box.dRight = std::min(box.dRight + dLonMargin, dEdge + kFullCircle);
    return box;
}

double EdgeOfPath(const LatLon& one, const LatLon& other, double dEdge)
{
    const double dOne = OnScale(LonWrap(one.dLon), dEdge);
    const double dOther = OnScale(LonWrap(other.dLon), dEdge);
    if (!(std::abs(dOne - dOther) > kFullCircle / 2))
        return dEdge;
    return dEdge == kEdgeGreenwich ? kEdgeDateLine : kEdgeGreenwich;
}
