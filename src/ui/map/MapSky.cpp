#include "ui/map/MapSky.h"

#include <cmath>

namespace {

constexpr int kNightSteps = 720;                          // points of the night line
constexpr double kNightStep = kFullCircle / kNightSteps;  // degrees
constexpr int kStrokeEvery = 12;     // points of the night line between two strokes
constexpr double kStrokeLong = 1.6;  // degrees

/// Point of the night line, dAngle degrees along it.
Vector3 NightPoint(const LatLon& sun, double dAngle)
{
    const Vector3 vecEast = VectorFrom({0.0, sun.dLon + 90});
    const Vector3 vecNorth = VectorFrom({sun.dLat + 90, sun.dLon});
    return Mix(vecEast, std::cos(dAngle * kRadiansPerDegree), vecNorth,
               std::sin(dAngle * kRadiansPerDegree));
}

}  // namespace

std::vector<LatLon> NightGetLine(const LatLon& sun)
{
    std::vector<LatLon> aPoints;
    for (int i = 0; i <= kNightSteps; ++i)
        aPoints.push_back(PositionOf(NightPoint(sun, i * kNightStep)));
    return aPoints;
}

std::vector<LatLon> NightGetStrokes(const LatLon& sun)
{
    std::vector<LatLon> aPoints;
    const Vector3 vecSun = VectorFrom(sun);
    for (int i = 0; i < kNightSteps; i += kStrokeEvery) {
        const Vector3 vecLine = NightPoint(sun, i * kNightStep);
        aPoints.push_back(PositionOf(vecLine));
        aPoints.push_back(PositionOf(Mix(vecLine, std::cos(kStrokeLong * kRadiansPerDegree), vecSun,
                                         -std::sin(kStrokeLong * kRadiansPerDegree))));
    }
    return aPoints;
}

std::vector<QPolygonF> LinesGetPixels(const MapView& view, const std::vector<LatLon>& aPoints)
{
    constexpr double kNearPole = 89.0;  // off the image, and beyond it ordinates turn back
    std::vector<QPolygonF> aLines;
    const LatLon* pBefore = nullptr;
    for (const LatLon& pos : aPoints) {
        if (std::abs(pos.dLat) > kNearPole) {
            pBefore = nullptr;
            continue;
        }
        const double dLon = view.LonGetOnScale(pos.dLon);
        const QPointF pt(view.LonGetX(dLon), view.LatGetY(pos.dLat));
        const double dLonBefore = pBefore != nullptr ? view.LonGetOnScale(pBefore->dLon) : dLon;
        if (pBefore == nullptr)
            aLines.emplace_back();
        if (std::abs(dLon - dLonBefore) > kFullCircle / 2) {
            // Over the edge of the image: both pieces run on to the point beyond it.
            const double dTurn = dLon < dLonBefore ? kFullCircle : -kFullCircle;
            aLines.back().append(QPointF(view.LonGetX(dLon + dTurn), pt.y()));
            aLines.emplace_back();
            aLines.back().append(
                QPointF(view.LonGetX(dLonBefore - dTurn), view.LatGetY(pBefore->dLat)));
        }
        aLines.back().append(pt);
        pBefore = &pos;
    }
    return aLines;
}
