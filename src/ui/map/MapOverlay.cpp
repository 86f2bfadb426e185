#include "ui/map/MapOverlay.h"

#include <algorithm>
#include <cmath>

#include "system/NumberLib.h"
#include "ui/common/Colors.h"
#include "ui/map/MapPaint.h"

namespace {

constexpr double kLatEnd = 89.9;

/// The value moved to the nearest of nCount even steps from dFirst to dLast, if it is meant to be
/// one. Engines print positions with few digits, and cells placed at them would leave gaps.
double PlaceSnap(double dValue, double dFirst, double dLast, int nCount)
{
    const double dStep = (dLast - dFirst) / (nCount - 1);
    if (!(dStep > 0))
        return dFirst;
    const double dIndex = std::round((dValue - dFirst) / dStep);
    const double dPlace = dFirst + dIndex * dStep;
    const bool bOnGrid =
        dIndex >= 0 && dIndex < nCount && std::abs(dPlace - dValue) <= std::abs(dStep) / 4;
    return bOnGrid ? dPlace : dValue;
}

}  // namespace

std::vector<AreaBox> OverlayGetBoxes(const MapBox& boxView, double dEdge)
{
    const double dTop = boxView.dTop >= 90 ? kLatEnd : std::min(boxView.dTop, kLatEnd);
    const double dBottom = boxView.dBottom <= -90 ? -kLatEnd : std::max(boxView.dBottom, -kLatEnd);
    return AreaBoxesGet({dBottom, dTop, std::max(boxView.dLeft, dEdge),
                         std::min(boxView.dRight, dEdge + kFullCircle)});
}

double BoxGetShift(const MapView& view, const CellPaint& cell)
{
    // The box is on the view's scale, or a full turn west of it.
    return cell.m_boxWanted.dRight <= view.m_dEdge ? kFullCircle : 0.0;
}

QRect CellGetRect(const MapView& view, const CellPaint& cell, const AreaPoint& pnt)
{
    const AreaBox& box = cell.m_box;
    const double dLatHalf = (box.dTop - box.dBottom) / (cell.nGridSize - 1) / 2;
    const double dLonHalf = (box.dRight - box.dLeft) / (cell.nGridSize - 1) / 2;
    const double dLat = PlaceSnap(pnt.dLat, box.dBottom, box.dTop, cell.nGridSize);
    const double dLon = PlaceSnap(pnt.dLon, box.dLeft, box.dRight, cell.nGridSize);
    // Half a cell beyond the box would be painted over the neighbouring box's cells at longitude
    // 180, or over the blank strip beside the world. The deck's rounded bounds may be inside the
    // picture's: the outermost cells extend to the latter.
    double dSouth = dLat - dLatHalf;
    double dNorth = dLat + dLatHalf;
    if (!(dSouth > box.dBottom))
        dSouth = std::min(dSouth, cell.m_boxWanted.dBottom);
    if (!(dNorth < box.dTop))
        dNorth = std::max(dNorth, cell.m_boxWanted.dTop);
    const double dWest = dLon - dLonHalf > box.dLeft ? dLon - dLonHalf : cell.m_boxWanted.dLeft;
    const double dEast = dLon + dLonHalf < box.dRight ? dLon + dLonHalf : cell.m_boxWanted.dRight;
    const double dShift = BoxGetShift(view, cell);
    const auto RowGet = [&view](double dPlace) { return RoundHalfEven(view.LatGetY(dPlace)); };
    const int nTop = std::min(RowGet(dNorth), RowGet(dSouth));
    const int nBottom = std::max(RowGet(dNorth), RowGet(dSouth));
    const int nLeft = RoundHalfEven(view.LonGetX(dWest + dShift));
    const int nRight = RoundHalfEven(view.LonGetX(dEast + dShift));
    if (nLeft >= nRight || nTop >= nBottom)
        return {};
    return QRect(QPoint(nLeft, nTop), QPoint(nRight - 1, nBottom - 1)) & view.ImageGetRect();
}

void CellsPaint(QImage& img, const MapView& view, const CellPaint& cell,
                std::span<const AreaPoint> aPoints)
{
    const MapView viewImg = view.SizedGet(img.width(), img.height());
    for (const AreaPoint& pnt : aPoints)
        if (pnt.fSnr >= cell.fMinSnr)
            BoxMaskPen(img, CellGetRect(viewImg, cell, pnt),
                       ColorFromBgr(cell.fnColor(pnt.fSnr)).rgb());
}
