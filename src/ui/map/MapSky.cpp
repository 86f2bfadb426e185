#include "ui/map/MapSky.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geo/MathLib.h"

namespace {

constexpr double kRadian = kPi / 180;
constexpr double kPathStep = 0.5;                   // degrees between points of the path
constexpr int kNightSteps = 720;                    // points of the night line
constexpr double kNightStep = 360.0 / kNightSteps;  // degrees
constexpr int kStrokeEvery = 12;                    // points of the night line between two strokes
constexpr double kStrokeLong = 1.6;                 // degrees

struct Vector3 {
    double dX, dY, dZ;
};

Vector3 VectorFrom(const LatLon& pos)
{
    const double dLat = pos.dLat * kRadian;
    const double dLon = pos.dLon * kRadian;
    return {std::cos(dLat) * std::cos(dLon), std::cos(dLat) * std::sin(dLon), std::sin(dLat)};
}

LatLon PositionOf(const Vector3& vec)
{
    return {std::atan2(vec.dZ, std::hypot(vec.dX, vec.dY)) / kRadian,
            LonWrap(std::atan2(vec.dY, vec.dX) / kRadian)};
}

Vector3 Mix(const Vector3& vecOne, double dOne, const Vector3& vecTwo, double dTwo)
{
    return {vecOne.dX * dOne + vecTwo.dX * dTwo, vecOne.dY * dOne + vecTwo.dY * dTwo,
            vecOne.dZ * dOne + vecTwo.dZ * dTwo};
}

/// Point of the night line, dAngle degrees along it.
Vector3 NightPoint(const LatLon& sun, double dAngle)
{
    const Vector3 vecEast = VectorFrom({0.0, sun.dLon + 90});
    const Vector3 vecNorth = VectorFrom({sun.dLat + 90, sun.dLon});
    return Mix(vecEast, std::cos(dAngle * kRadian), vecNorth, std::sin(dAngle * kRadian));
}

}  // namespace

std::vector<LatLon> PathGetPoints(const LatLon& from, const LatLon& to)
{
    const double dAngle = GreatCircleAngle(from.dLat, from.dLon, to.dLat, to.dLon);
    const double dSin = std::sin(dAngle);
    if (!(std::abs(dSin) > 1e-9))
        return {};
    const Vector3 vecFrom = VectorFrom(from);
    const Vector3 vecTo = VectorFrom(to);
    const int nSteps = std::max(1, static_cast<int>(std::ceil(dAngle / kRadian / kPathStep)));
    std::vector<LatLon> aPoints;
    for (int i = 0; i <= nSteps; ++i) {
        const double dPart = static_cast<double>(i) / nSteps;
        aPoints.push_back(PositionOf(Mix(vecFrom, std::sin((1 - dPart) * dAngle) / dSin, vecTo,
                                         std::sin(dPart * dAngle) / dSin)));
    }
    return aPoints;
}

LatLon SunGetPosition(int nMonth, double dHour)
{
    constexpr std::array<int, 12> kMiddle{15,  46,  74,  105, 135, 166,
                                          196, 227, 258, 288, 319, 349};  // days of the year
    const bool bMonth = nMonth >= 1 && nMonth <= 12;
    const int nDay = kMiddle[static_cast<std::size_t>(bMonth ? nMonth - 1 : 0)];
    // The Astronomical Almanac, section C, "Low-precision formulas for the Sun", in the year 2025.
    // Years differ by no more than a quarter of a degree.
    constexpr double kDaysToYear = 9130.5;  // days from noon of 2000-01-01 to the year's day 0
    constexpr double kObliquity = 23.439 * kRadian;
    const double dDays = kDaysToYear + nDay;
    const double dMean = 280.460 + 0.9856474 * dDays;
    const double dAnomaly = (357.528 + 0.9856003 * dDays) * kRadian;
    const double dLongitude =
        (dMean + 1.915 * std::sin(dAnomaly) + 0.020 * std::sin(2 * dAnomaly)) * kRadian;
    const double dDeclination = std::asin(std::sin(kObliquity) * std::sin(dLongitude));
    const double dAscension =
        std::atan2(std::cos(kObliquity) * std::sin(dLongitude), std::cos(dLongitude));
    const double dEquationOfTime = dMean - dAscension / kRadian;  // degrees
    return {dDeclination / kRadian, LonWrap((12 - dHour) * 15 - dEquationOfTime)};
}

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
        aPoints.push_back(PositionOf(Mix(vecLine, std::cos(kStrokeLong * kRadian), vecSun,
                                         -std::sin(kStrokeLong * kRadian))));
    }
    return aPoints;
}

std::vector<QPolygonF> LinesGetPixels(const MapView& view, const std::vector<LatLon>& aPoints)
{
    constexpr double kNearPole = 89.0;  // off the image, and beyond it ordinates turn back
    constexpr double kCircle = 360.0;
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
        if (std::abs(dLon - dLonBefore) > kCircle / 2) {
            // Over the edge of the image: both pieces run on to the point beyond it.
            const double dTurn = dLon < dLonBefore ? kCircle : -kCircle;
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
