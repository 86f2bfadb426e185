#include "ui/map/MapRubberBand.h"

#include <algorithm>
#include <cmath>

#include "system/NumberLib.h"
#include "ui/map/MapPaint.h"

namespace {

constexpr double kClick = 20.0;  // a drag of up to this many pixels either way is a click

}  // namespace

void MapRubberBand::Draw(const QPointF& pt)
{
    Erase();
    m_rctBand = QRect(m_ptDown.toPoint(), pt.toPoint()).normalized();
    Invert();
    m_form.pctMap->update();
}

std::optional<MapBox> MapRubberBand::End(const QPointF& pt)
{
    const MapBox box = BoxGet(pt);
    Leave();
    if (std::abs(pt.x() - m_ptDown.x()) <= kClick || std::abs(pt.y() - m_ptDown.y()) <= kClick
        || box.dLeft == box.dRight)
        return {};
    return box;
}

void MapRubberBand::Leave()
{
    m_bOn = false;
    Erase();
    m_form.pctMap->update();
}

/// The box from the point of the mouse press. Its ends stay on the image: both edges are the same
/// longitude, and a band begun in the blank strip beside the world would be turned inside out.
MapBox MapRubberBand::BoxGet(const QPointF& ptEnd) const
{
    const MapView& view = m_form.m_view;
    const double dFirst = view.LonGetX(view.m_dEdge);
    const double dLast =
        view.LonGetX(view.m_dEdge + 360) - 1 / view.m_dScale;  // the last image pixel
    const QRect rctImage = view.ImageGetRect();
    const auto PlaceGet = [&](const QPointF& pt) {
        return m_form.PointGetLatLon(
            m_form.pctMap, std::max(std::min(pt.x(), dLast), dFirst),
            std::max(std::min(pt.y(), rctImage.bottom() + 0.5), rctImage.top() + 0.5));
    };
    const LatLon posDown = PlaceGet(m_ptDown);
    const LatLon posUp = PlaceGet(ptEnd);
    return {posDown.dLat, posDown.dLon, posUp.dLat, posUp.dLon};
}

/// The band's line is one pixel of the picture wide.
void MapRubberBand::Invert()
{
    QImage& img = m_form.pctMap->m_img;
    const double dDensity = img.devicePixelRatio();
    const auto Dense = [dDensity](QPoint pt) {
        return QPoint(RoundHalfEven(pt.x() * dDensity), RoundHalfEven(pt.y() * dDensity));
    };
    if (!m_rctBand.isEmpty())
        RectInvert(img, {Dense(m_rctBand.topLeft()), Dense(m_rctBand.bottomRight())});
}

void MapRubberBand::Erase()
{
    Invert();
    m_rctBand = QRect();
}
