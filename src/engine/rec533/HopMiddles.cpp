#include <utility>

#include "engine/rec533/Path.h"

namespace rec533 {
namespace {

// Places of an order's middles; a bent way's second half is on its second arc.
void PlacesFill(HopMiddles& hopMiddles, const Way& way, int nHops, std::size_t nFirst)
{
    const double dHop = way.dAngle / nHops;
    for (int i = 0; i < nHops; ++i) {
        const double dAngle = (i + 0.5) * dHop;
        const double dCos = std::cos(dAngle);
        const double dSin = std::sin(dAngle);
        const auto& [aStart, aAhead] = WayArcGet(way, dAngle);
        const double dX = aStart[0] * dCos + aAhead[0] * dSin;
        const double dY = aStart[1] * dCos + aAhead[1] * dSin;
        const std::size_t nAt = nFirst + static_cast<std::size_t>(i);
        hopMiddles.aSinLat[nAt] = aStart[2] * dCos + aAhead[2] * dSin;
        hopMiddles.aCosLat[nAt] = std::max(std::sqrt(dX * dX + dY * dY), 1e-9);
        hopMiddles.aSinLon[nAt] = dY / hopMiddles.aCosLat[nAt];
        hopMiddles.aCosLon[nAt] = dX / hopMiddles.aCosLat[nAt];
    }
}

// Makes an order's middles for all hours that are needed, or for one hour UT if it is not kept.
void MiddlesMake(WayPath& wayPath, int nHops, int nHour)
{
    HopMiddles& middles = wayPath.middles;
    const bool bKept = nHops <= kHopsKept;
    if (bKept && std::exchange(middles.aMade[static_cast<std::size_t>(nHops)], true))
        return;
    const std::size_t nFirst = HopMiddles::FirstGet(nHops);
    PlacesFill(middles, wayPath.way, nHops, nFirst);
    std::array<double, kHopsMost + 4> aDip, aGyro;
    MagneticFieldsFill({&middles.aSinLat[nFirst], &middles.aCosLat[nFirst],
                        &middles.aSinLon[nFirst], &middles.aCosLon[nFirst], aDip.data(),
                        aGyro.data(), static_cast<std::size_t>(nHops)});
    const auto nCount = static_cast<std::size_t>(nHops);
    for (std::size_t i = nCount; i < aDip.size(); ++i) aDip[i] = 0.0;
    std::copy_n(aGyro.begin(), nCount, &middles.aGyro[nFirst]);
    MapRows aFof2, aM3;
    for (std::size_t t = 0; t < 24; ++t) {
        aFof2[t] = &middles.aFof2[t][nFirst];
        aM3[t] = &middles.aM3[t][nFirst];
    }
    const bool bAllHours = bKept && wayPath.nOnlyHour < 0;
    const int nHourFirst = bAllHours ? 0 : nHour;
    const int nHourLast = bAllHours ? 23 : nHour;
    MapPlacesFill(aFof2, aM3, wayPath.pIonosphere->maps,
                  {&middles.aCosLat[nFirst], &middles.aSinLon[nFirst], &middles.aCosLon[nFirst],
                   aDip.data(), nCount},
                  nHourFirst, nHourLast);
    for (int t = nHourFirst; t <= nHourLast; ++t) {
        for (std::size_t i = 0; i < nCount; ++i) {
            const auto nAt = static_cast<std::size_t>(t);
            aFof2[nAt][i] = std::max(aFof2[nAt][i], wayPath.pIonosphere->dFof2Least);
            aM3[nAt][i] = std::max(aM3[nAt][i], kM3Least);
        }
    }
}

template <class V>
HOPCAST_INLINE double WorstGet(const WayPath& wayPath, const FoeHour& foe, std::size_t nHour,
                               int nHops)
{
    const HopMiddles& middles = wayPath.middles;
    const std::size_t nFirst = HopMiddles::FirstGet(nHops);
    const std::size_t nEnd = nFirst + static_cast<std::size_t>(nHops);
    const double dHop = wayPath.way.dKm / nHops;
    double dWorst = 1e9;
    for (std::size_t i = nFirst; i < nEnd; i += kLanes<V>) {
        const V vSinLat = LaneLoad<V>(&middles.aSinLat[i]);
        const V vCosLat = LaneLoad<V>(&middles.aCosLat[i]);
        const V vSinLon = LaneLoad<V>(&middles.aSinLon[i]);
        const V vCosLon = LaneLoad<V>(&middles.aCosLon[i]);
        const V vFoe =
            FoeLanesGet<V>(foe, vSinLat, vCosLat, vSinLon, vCosLon,
                           SunZenithCosLanesGet<V>(*foe.pSun, vSinLat, vCosLat, vSinLon, vCosLon));
        const V vMuf = F2MufLanesGet<V>(LaneLoad<V>(&middles.aFof2[nHour][i]),
                                        LaneLoad<V>(&middles.aM3[nHour][i]), vFoe,
                                        LaneLoad<V>(&middles.aGyro[i]), dHop);
        for (std::size_t k = 0; k < std::min<std::size_t>(kLanes<V>, nEnd - i); ++k)
            dWorst = std::min(dWorst, vMuf[k]);
    }
    return dWorst;
}

HOPCAST_WIDE double WorstWideGet(const WayPath& wayPath, const FoeHour& foe, std::size_t nHour,
                                 int nHops)
{
    return WorstGet<Lanes4>(wayPath, foe, nHour, nHops);
}

}  // namespace

double PathWorstMufGet(WayPath& wayPath, const FoeHour& foe, int nLabel, int nHops)
{
    MiddlesMake(wayPath, nHops, MapHourGet(nLabel));
    const auto nHour = static_cast<std::size_t>(MapHourGet(nLabel));
    return LanesWideIs() ? WorstWideGet(wayPath, foe, nHour, nHops)
                         : WorstGet<Lanes2>(wayPath, foe, nHour, nHops);
}

}  // namespace rec533
