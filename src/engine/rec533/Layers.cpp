#include "engine/rec533/Layers.h"

namespace rec533 {

double MirrorHeightSimpleGet(double dM3) { return std::min(1490.0 / dM3 - 176.0, 500.0); }

MirrorLayer MirrorLayerMake(double dFof2, double dFoe, double dM3, double dSsn, bool bNoTerm)
{
    const double dX = dFof2 / dFoe;
    const double dY = std::max(dX, 1.8);
    const double dDelta = 0.18 / (dY - 1.4) + 0.096 * (dSsn - 25.0) / 150.0;
    MirrorLayer mirrorLayer;
    mirrorLayer.dFof2 = dFof2;
    mirrorLayer.dH = 1490.0 / (dM3 + dDelta) - 316.0;
    mirrorLayer.bThick = dX > 3.33;
    if (mirrorLayer.bThick) {
        // The ITU program omits the linear term; with it G is continuous at 3.7.
        mirrorLayer.dLinear = bNoTerm ? 0.0 : 90.47;
        return mirrorLayer;
    }
    const double dJ = ((-0.7126 * dY + 5.863) * dY - 16.13) * dY + 16.07;
    mirrorLayer.dBase = 115.0 + mirrorLayer.dH * dJ;
    mirrorLayer.dPerKm = 8e-5 * (mirrorLayer.dH - 80.0) * (1.0 + 11.0 * std::pow(dY, -2.2))
                         + 1.2e-3 * mirrorLayer.dH * std::pow(dY, -3.6);
    return mirrorLayer;
}

}  // namespace rec533
