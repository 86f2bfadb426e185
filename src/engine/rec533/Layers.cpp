#include "engine/rec533/Layers.h"

namespace rec533 {

double MirrorHeightSimpleGet(double dM3) { return std::min(1490.0 / dM3 - 176.0, 500.0); }

MirrorLayer MirrorLayerMake(double dFof2, double dFoe, double dM3, double dSsn, bool bNoTerm)
{
    const double dX = dFof2 / dFoe;
    const double dY = std::max(dX, 1.8);
    const double dDelta = 0.18 / (dY - 1.4) + 0.096 * (dSsn - 25.0) / 150.0;
    MirrorLayer tbl;
    tbl.dFof2 = dFof2;
    tbl.dH = 1490.0 / (dM3 + dDelta) - 316.0;
    tbl.bThick = dX > 3.33;
    if (tbl.bThick) {
        // The ITU program leaves the linear term out; with it G is continuous at 3.7.
        tbl.dLinear = bNoTerm ? 0.0 : 90.47;
        return tbl;
    }
    const double dJ = ((-0.7126 * dY + 5.863) * dY - 16.13) * dY + 16.07;
    tbl.dBase = 115.0 + tbl.dH * dJ;
    tbl.dPerKm = 8e-5 * (tbl.dH - 80.0) * (1.0 + 11.0 * std::pow(dY, -2.2))
                 + 1.2e-3 * tbl.dH * std::pow(dY, -3.6);
    return tbl;
}

}  // namespace rec533
