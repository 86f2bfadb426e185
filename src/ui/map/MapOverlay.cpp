#include "ui/map/MapOverlay.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <system_error>
#include <utility>

#include "propagation/EngineLib.h"
#include "propagation/PropagationInput.h"
#include "system/NumberLib.h"
#include "system/PathLib.h"
#include "system/RunErrorText.h"
#include "ui/map/MapPaint.h"

namespace {

constexpr double kLatEnd = 89.9;
constexpr double kDateLine = 180.0;
constexpr double kCircle = 360.0;

/// The longitude as it lies inside or nearest to the box on the view's 0..360 scale.
double LonGetShift(const OverlayBox& box) { return box.dLeft < 0 ? kCircle : 0.0; }

/// The place on an even grid of nCount places from dFirst to dLast, where the value is one: engines
/// print their points in few digits, and cells placed by them would leave seams.
double PlaceSnap(double dValue, double dFirst, double dLast, int nCount)
{
    const double dStep = (dLast - dFirst) / (nCount - 1);
    const double dIndex = std::round((dValue - dFirst) / dStep);
    const double dPlace = dFirst + dIndex * dStep;
    const bool bOnGrid =
        dIndex >= 0 && dIndex < nCount && std::abs(dPlace - dValue) <= std::abs(dStep) / 4;
    return bOnGrid ? dPlace : dValue;
}

}  // namespace

std::vector<OverlayBox> OverlayGetBoxes(const MapBox& boxView)
{
    const double dTop = boxView.dTop >= 90 ? kLatEnd : std::min(boxView.dTop, kLatEnd);
    const double dBottom = boxView.dBottom <= -90 ? -kLatEnd : std::max(boxView.dBottom, -kLatEnd);
    const double dLeft = std::max(boxView.dLeft, 0.0);
    const double dRight = std::min(boxView.dRight, kCircle);
    if (!(dBottom < dTop && dLeft < dRight))
        return {};
    if (dLeft < kDateLine && dRight > kDateLine)
        return {{dBottom, dTop, dLeft, kDateLine}, {dBottom, dTop, -kDateLine, dRight - kCircle}};
    if (dLeft >= kDateLine)
        return {{dBottom, dTop, dLeft - kCircle, dRight - kCircle}};
    return {{dBottom, dTop, dLeft, dRight}};
}

Result<std::vector<GridPoint>> GridRead(AreaFile& file, std::size_t nMax)
{
    std::vector<GridPoint> aPoints;
    for (;;) {
        int iLat = 0;
        int iLon = 0;
        GridPoint pnt;
        const Result<bool> resRead =
            PropagationAreaReadPoint(file, iLat, iLon, pnt.dLat, pnt.dLon, pnt.fSnr);
        if (!resRead)
            return resRead.ErrorGet();
        if (!resRead.ValueGet())
            return aPoints;
        if (aPoints.size() == nMax)
            return RunError{kSubscriptOutOfRange};
        aPoints.push_back(pnt);
    }
}

std::optional<float> GridGetNearest(std::span<const GridPoint> aPoints, double dLat, double dLon)
{
    constexpr double kBestAtFirst = 180.0;
    double dBest = kBestAtFirst * kBestAtFirst;
    const GridPoint* pBest = nullptr;
    for (const GridPoint& pnt : aPoints) {
        const double dSquare =
            (dLat - pnt.dLat) * (dLat - pnt.dLat) + (dLon - pnt.dLon) * (dLon - pnt.dLon);
        if (dSquare < dBest) {
            dBest = dSquare;
            pBest = &pnt;
        }
    }
    if (pBest == nullptr)
        return {};
    return pBest->fSnr;
}

QRect CellGetRect(const MapView& view, const CellPaint& cell, const GridPoint& pnt)
{
    const double dLatHalf = (cell.m_box.dTop - cell.m_box.dBottom) / (cell.nGridSize - 1) / 2;
    const double dLonHalf = (cell.m_box.dRight - cell.m_box.dLeft) / (cell.nGridSize - 1) / 2;
    const double dLat = PlaceSnap(pnt.dLat, cell.m_box.dBottom, cell.m_box.dTop, cell.nGridSize);
    const double dLon = PlaceSnap(pnt.dLon, cell.m_box.dLeft, cell.m_box.dRight, cell.nGridSize);
    // A half cell beyond the box would be painted over the neighbouring box's cells at longitude
    // 180, and over the blank strip beside the world at longitude 0.
    const double dShift = LonGetShift(cell.m_box);
    const double dWest = std::max(dLon - dLonHalf, cell.m_box.dLeft) + dShift;
    const double dEast = std::min(dLon + dLonHalf, cell.m_box.dRight) + dShift;
    const auto RowGet = [&view](double dPlace) { return RoundHalfEven(view.LatGetY(dPlace)); };
    const int nTop = std::min(RowGet(dLat + dLatHalf), RowGet(dLat - dLatHalf));
    const int nBottom = std::max(RowGet(dLat + dLatHalf), RowGet(dLat - dLatHalf));
    const int nLeft = RoundHalfEven(view.LonGetX(dWest));
    const int nRight = RoundHalfEven(view.LonGetX(dEast));
    if (nLeft >= nRight || nTop >= nBottom)
        return {};
    return QRect(QPoint(nLeft, nTop), QPoint(nRight - 1, nBottom - 1)) & view.ImageGetRect();
}

void CellsPaint(QImage& img, const MapView& view, const CellPaint& cell,
                std::span<const GridPoint> aPoints)
{
    for (const GridPoint& pnt : aPoints)
        if (pnt.fSnr >= cell.fMinSnr)
            BoxMaskPen(img, CellGetRect(view, cell, pnt), PixelFromColour(cell.fnColour(pnt.fSnr)));
}

std::optional<GridCache::Stamp> GridCache::StampGet(int iModel)
{
    const Engine* pEngine = EngineFind(iModel);
    if (pEngine == nullptr)
        return {};
    Stamp stamp;
    stamp.sPath = PathToHost(std::string(kAreaFolder) + std::string(pEngine->sAreaGrid));
    const std::filesystem::path pthGrid(std::u8string(stamp.sPath.begin(), stamp.sPath.end()));
    std::error_code ec;
    stamp.nSize = std::filesystem::file_size(pthGrid, ec);
    if (ec)
        return {};
    stamp.nTime = std::filesystem::last_write_time(pthGrid, ec).time_since_epoch().count();
    if (ec)
        return {};
    return stamp;
}

void GridCache::Keep(int iModel, std::vector<GridPoint> aPoints)
{
    m_stamp = StampGet(iModel);
    m_aPoints = std::move(aPoints);
}

std::span<const GridPoint> GridCache::PointsGet(int iModel)
{
    const std::optional<Stamp> stamp = StampGet(iModel);
    if (!stamp)
        return {};
    if (stamp != m_stamp) {
        m_stamp = stamp;
        m_aPoints.clear();
        AreaFile file;
        if (!PropagationAreaOpenFile(iModel, file))
            return {};
        if (auto resPoints = GridRead(file, std::size_t{kGridSizeMax} * kGridSizeMax))
            m_aPoints = std::move(resPoints.ValueGet());
    }
    return m_aPoints;
}
