#include "engine/rec533/Muf.h"

namespace rec533 {

F2Layer F2LayerMake(double dFof2, double dM3, double dFoe, double dGyro)
{
    const double dX = std::max(dFof2 / dFoe, 2.0);
    F2Layer tbl{dFof2, dM3, dFoe, dGyro, 0.0, 0.0};
    tbl.dB = dM3 - 0.124 + (dM3 * dM3 - 4.0) * (0.0215 + 0.005 * std::sin(7.854 / dX - 1.9635));
    const double dX2 = 1.0 / (dX * dX);
    tbl.dRangeMost =
        4780.0
        + (12610.0 + dX2 * (2140.0 + dX2 * (-49720.0 + dX2 * 688900.0))) * (1.0 / tbl.dB - 0.303);
    return tbl;
}

double F2DistanceGet(double dHopKm, double dRangeMost)
{
    const double dZ = 1.0 - 2.0 * std::min(dHopKm, dRangeMost) / dRangeMost;
    return (((((0.096 * dZ + 0.181) * dZ + 0.088) * dZ - 0.090) * dZ - 0.424) * dZ - 0.591) * dZ
           + 0.74;
}

double F2MufGet(const F2Layer& tbl, double dHopKm, double dRangeMost)
{
    constexpr double kStandardHop = 3000.0;
    const double dRatio =
        F2DistanceGet(dHopKm, dRangeMost) / F2DistanceGet(kStandardHop, dRangeMost);
    return (1.0 + dRatio * (tbl.dB - 1.0)) * tbl.dFof2
           + tbl.dGyro / 2.0 * (1.0 - dHopKm / dRangeMost);
}

}  // namespace rec533
