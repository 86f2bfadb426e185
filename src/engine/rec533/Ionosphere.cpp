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

void IonosphereFill(Ionosphere& tbl, Behaviour eBehaviour, MapSet eMaps, int nMonth, double dSsn,
                    std::optional<double> dMeasured)
{
    constexpr double kFof2Least = 0.1;  // the maps of sunspot numbers do not come near it
    constexpr double kFof2LeastOfIndex = 0.5;
    const bool bBest = eBehaviour == Behaviour::Best;
    tbl.eBehaviour = eBehaviour;
    tbl.quirks = QuirksOf(eBehaviour);
    tbl.nMonth = nMonth;
    tbl.dSsn = std::clamp(dSsn, 0.0, kSsnMost);
    tbl.dSsnLimited = std::min(tbl.dSsn, kSsnMapsMost);
    tbl.dActivity = !bBest      ? tbl.dSsnLimited
                    : dMeasured ? std::clamp(*dMeasured, kActivityLeast, kActivityMost)
                                : ActivityOfSsn(tbl.dSsn);
    tbl.dFof2Least = bBest ? kFof2LeastOfIndex : kFof2Least;
    MapHoursFill(tbl.maps, eMaps, nMonth, tbl.dActivity, tbl.dSsnLimited);
    tbl.sun = SunDayMake(nMonth);
    tbl.noise = FiguresNoise(nMonth);
}

}  // namespace rec533
