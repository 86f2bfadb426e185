#include "geo/BearingLib.h"

#include <cmath>

#include "geo/MathLib.h"

double BearingGet(double dLat1, double dLon1, double dLat2, double dLon2)
{
    constexpr double kRadian = kPi / 180.0;
    constexpr double kCircle = 360.0;
    if (dLat1 == dLat2 && dLon1 == dLon2)
        return 0.0;
    const double dFrom = dLat1 * kRadian;
    const double dTo = dLat2 * kRadian;
    const double dEast = (dLon2 - dLon1) * kRadian;
    const double dX = std::sin(dEast) * std::cos(dTo);
    const double dY =
        std::cos(dFrom) * std::sin(dTo) - std::sin(dFrom) * std::cos(dTo) * std::cos(dEast);
    const double dBearing = std::atan2(dX, dY) / kRadian;
    const double dTurned = dBearing < 0.0 ? dBearing + kCircle : dBearing;
    return dTurned >= kCircle ? 0.0 : dTurned;
}
