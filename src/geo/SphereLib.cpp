#include "geo/SphereLib.h"

#include <algorithm>
#include <cmath>

Vector3 VectorFrom(const LatLon& pos)
{
    const double dLat = pos.dLat * kRadiansPerDegree;
    const double dLon = pos.dLon * kRadiansPerDegree;
    return {std::cos(dLat) * std::cos(dLon), std::cos(dLat) * std::sin(dLon), std::sin(dLat)};
}

LatLon PositionOf(const Vector3& vec)
{
    return {std::atan2(vec.dZ, std::hypot(vec.dX, vec.dY)) / kRadiansPerDegree,
            LonWrap(std::atan2(vec.dY, vec.dX) / kRadiansPerDegree)};
}

Vector3 Mix(const Vector3& vecOne, double dOne, const Vector3& vecTwo, double dTwo)
{
    return {vecOne.dX * dOne + vecTwo.dX * dTwo, vecOne.dY * dOne + vecTwo.dY * dTwo,
            vecOne.dZ * dOne + vecTwo.dZ * dTwo};
}

double LonWrap(double dLon)
{
    if (dLon > -kLongitudeMost && dLon <= kLongitudeMost)
        return dLon;
    const double dRest = std::remainder(dLon, kFullCircle);  // [-180, 180]
    return dRest <= -kLongitudeMost ? kLongitudeMost : dRest;
}

double LonTurns(double dLon)
{
    return std::floor((dLon + kLongitudeMost) / kFullCircle) * kFullCircle;
}

double LonApart(double dFrom, double dTo) { return std::remainder(dTo - dFrom, kFullCircle); }

std::vector<LatLon> PathGetPoints(const LatLon& from, const LatLon& to)
{
    constexpr double kStep = 0.5;  // degrees
    const double dAngle = GreatCircleAngle(from.dLat, from.dLon, to.dLat, to.dLon);
    const double dSin = std::sin(dAngle);
    if (!(std::abs(dSin) > 1e-9))
        return {};
    const Vector3 vecFrom = VectorFrom(from);
    const Vector3 vecTo = VectorFrom(to);
    const int nSteps = std::max(1, static_cast<int>(std::ceil(dAngle / kRadiansPerDegree / kStep)));
    std::vector<LatLon> aPoints;
    for (int i = 0; i <= nSteps; ++i) {
        const double dPart = static_cast<double>(i) / nSteps;
        aPoints.push_back(PositionOf(Mix(vecFrom, std::sin((1 - dPart) * dAngle) / dSin, vecTo,
                                         std::sin(dPart * dAngle) / dSin)));
    }
    return aPoints;
}
