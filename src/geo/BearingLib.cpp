#include "geo/BearingLib.h"

#include <cmath>

#include "geo/SphereLib.h"

double BearingGet(double dLat1, double dLon1, double dLat2, double dLon2)
{
    if (dLat1 == dLat2 && dLon1 == dLon2)
        return 0.0;
    const double dFrom = dLat1 * kRadiansPerDegree;
    const double dTo = dLat2 * kRadiansPerDegree;
    const double dEast = (dLon2 - dLon1) * kRadiansPerDegree;
    const double dX = std::sin(dEast) * std::cos(dTo);
    const double dY =
        std::cos(dFrom) * std::sin(dTo) - std::sin(dFrom) * std::cos(dTo) * std::cos(dEast);
    const double dBearing = std::atan2(dX, dY) / kRadiansPerDegree;
    const double dTurned = dBearing < 0.0 ? dBearing + kFullCircle : dBearing;
    return dTurned >= kFullCircle ? 0.0 : dTurned;
}
