#include "ui/map/MapOverlayGrid.h"

#include "geo/SphereLib.h"

const AreaPoint* GridFindNearest(std::span<const AreaPoint> aPoints, double dLat, double dLon)
{
    constexpr double kBestAtFirst = 180.0;
    double dBest = kBestAtFirst * kBestAtFirst;
    const AreaPoint* pBest = nullptr;
    for (const AreaPoint& pnt : aPoints) {
        const double dByLon = LonApart(pnt.dLon, dLon);
        const double dSquare = (dLat - pnt.dLat) * (dLat - pnt.dLat) + dByLon * dByLon;
        if (dSquare < dBest) {
            dBest = dSquare;
            pBest = &pnt;
        }
    }
    return pBest;
}

std::optional<float> GridGetNearest(std::span<const AreaPoint> aPoints, double dLat, double dLon)
{
    const AreaPoint* pNearest = GridFindNearest(aPoints, dLat, dLon);
    if (pNearest == nullptr)
        return {};
    return pNearest->fSnr;
}
