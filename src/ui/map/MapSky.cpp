#include "ui/map/MapSky.h"

#include <array>
#include <cmath>

namespace {

constexpr int kNightSteps = 720;                          // points of the night line
constexpr double kNightStep = kFullCircle / kNightSteps;  // degrees
constexpr int kStrokeEvery = 12;     // points of the night line from one stroke to the next
constexpr double kStrokeLong = 1.6;  // degrees

/// The point of the night line dAngle degrees along it.
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

int DarknessGet(double dSine)
{
    // The sines of 0, -6, -12 and -18 degrees.
    constexpr std::array kEnds{0.0, -0.104528463267653, -0.207911690817759, -0.309016994374947};
    int nDarkness = 0;
    for (const double dEnd : kEnds) nDarkness += dSine < dEnd ? 1 : 0;
    return nDarkness;
}

QImage NightGetShade(const MapView& view, const LatLon& sun)
{
    // Light, so that coasts, labels and the overlay's colours stay visible even under the darkest;
    // bluish, to differ from the grey of the weakest signals.
    constexpr std::array<int, 5> kAlpha{0, 32, 56, 80, 104};
    std::array<QRgb, 5> anShade{};
    for (std::size_t i = 0; i < anShade.size(); ++i)
        anShade[i] = qPremultiply(qRgba(0x0C, 0x1C, 0x78, kAlpha[i]));
    QImage img(view.m_nMapWidth, view.m_nMapHeight, QImage::Format_ARGB32_Premultiplied);
    img.fill(Qt::transparent);
    const QRect rct = view.ImageGetRect();
    // The sine of the sun's altitude, from its position and the place's.
    const double dSunSine = std::sin(sun.dLat * kRadiansPerDegree);
    const double dSunCosine = std::cos(sun.dLat * kRadiansPerDegree);
    std::vector<double> adWest;  // per column: cosine of the angle west of the sun
    for (int nX = rct.left(); nX <= rct.right(); ++nX) {
        const double dLon = view.PointGetLatLon(MapControl::Map, nX + 0.5, 0).dLon;
        adWest.push_back(dSunCosine * std::cos((sun.dLon - dLon) * kRadiansPerDegree));
    }
    for (int nY = rct.top(); nY <= rct.bottom(); ++nY) {
        const double dLat =
            view.PointGetLatLon(MapControl::Map, 0, nY + 0.5).dLat * kRadiansPerDegree;
        const double dSine = std::sin(dLat) * dSunSine;
        const double dCosine = std::cos(dLat);
        auto* const pRow = reinterpret_cast<QRgb*>(img.scanLine(nY)) + rct.left();
        for (std::size_t i = 0; i < adWest.size(); ++i)
            pRow[i] = anShade[static_cast<std::size_t>(DarknessGet(dSine + dCosine * adWest[i]))];
    }
    return img;
}

std::vector<QPolygonF> LinesGetPixels(const MapView& view, const std::vector<LatLon>& aPoints)
{
    constexpr double kNearPole = 89.0;  // off the image; beyond 90 ordinates turn back
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
            // Across the edge of the image: both pieces go on to the point beyond it.
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
