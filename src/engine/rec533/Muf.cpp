#include "engine/rec533/Muf.h"

namespace rec533 {

F2Layer F2LayerMake(double dFof2, double dM3, double dFoe, double dGyro)
{
    const double dX = std::max(dFof2 / dFoe, 2.0);
    F2Layer f2Layer{dFof2, dM3, dFoe, dGyro, F2RatioGet<double>(dX, dM3), 0.0};
    f2Layer.dRangeMost = F2RangeGet<double>(dX, f2Layer.dB);
    return f2Layer;
}

double F2MufGet(const F2Layer& f2Layer, double dHopKm, double dRangeMost)
{
    return F2MufOf<double>(f2Layer.dFof2, f2Layer.dB, f2Layer.dGyro, dHopKm, dRangeMost);
}

}  // namespace rec533
