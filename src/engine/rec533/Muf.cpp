#include "engine/rec533/Muf.h"

namespace rec533 {

F2Layer F2LayerMake(double dFof2, double dM3, double dFoe, double dGyro)
{
    const double dX = std::max(dFof2 / dFoe, 2.0);
    F2Layer tbl{dFof2, dM3, dFoe, dGyro, F2RatioGet<double>(dX, dM3), 0.0};
    tbl.dRangeMost = F2RangeGet<double>(dX, tbl.dB);
    return tbl;
}

double F2MufGet(const F2Layer& tbl, double dHopKm, double dRangeMost)
{
    return F2MufOf<double>(tbl.dFof2, tbl.dB, tbl.dGyro, dHopKm, dRangeMost);
}

}  // namespace rec533
