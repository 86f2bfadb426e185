#include "engine/rec533/Ionosphere.h"

namespace rec533 {
namespace {

constexpr double kSsnMapsMost = 160.0;
constexpr double kActivityLeast = -15.0;
constexpr double kActivityMost = 160.0;

}  // namespace

double ActivityOfSsn(double dSsn)
{
    const double dR = std::min(dSsn, kSsnMapsMost);
    return std::max(kActivityLeast, -12.349 + (1.4683 - 0.002677 * dR) * dR);
}

void IonosphereFill(Ionosphere& ionosphere, Behaviour eBehaviour, MapSet eMaps, int nMonth,
                    double dSsn, std::optional<double> dMeasured)
{
    constexpr double kFof2Least = 0.1;  // maps for sunspot numbers do not come near this
    constexpr double kFof2LeastOfIndex = 0.5;
    const bool bBest = eBehaviour == Behaviour::Best;
    ionosphere.eBehaviour = eBehaviour;
    ionosphere.quirks = QuirksOf(eBehaviour);
    ionosphere.nMonth = nMonth;
    ionosphere.dSsn = std::clamp(dSsn, 0.0, kSsnMost);
    ionosphere.dSsnLimited = std::min(ionosphere.dSsn, kSsnMapsMost);
    ionosphere.dActivity = !bBest      ? ionosphere.dSsnLimited
                           : dMeasured ? std::clamp(*dMeasured, kActivityLeast, kActivityMost)
                                       : ActivityOfSsn(ionosphere.dSsn);
    ionosphere.dFof2Least = bBest ? kFof2LeastOfIndex : kFof2Least;
    MapHoursFill(ionosphere.maps, eMaps, nMonth, ionosphere.dActivity, ionosphere.dSsnLimited);
    ionosphere.sun = SunDayMake(nMonth);
    ionosphere.noise = FiguresNoise(nMonth);
}

}  // namespace rec533
