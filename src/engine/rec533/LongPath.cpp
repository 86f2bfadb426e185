#include "engine/rec533/LongPath.h"

#include "engine/rec533/Absorption.h"

namespace rec533 {
namespace {

constexpr double kLowHop = 3000.0;    // longest hop of the lower limit, km
constexpr double kUpperHop = 4000.0;  // longest hop of the upper limit, km
constexpr double kElevationLeast = 3.0 * kRadians;

int HopsGet(double dKm, double dLongest)
{
    return std::max(1, static_cast<int>(std::ceil(dKm / dLongest)));
}

// Weights of K by the azimuth at mid-path: 0 east-west, 1 north-south.
double NorthSouthGet(double dBearing)
{
    double dA = dBearing * kDegrees;
    if (dA > 180.0)
        dA -= 180.0;
    return (dA >= 90.0 ? dA - 90.0 : 90.0 - dA) / 90.0;
}

// foF2 and M(3000)F2 of the two control points for all hours.
struct UpperMaps {
    std::array<std::array<double, 4>, 24> aFof2, aM3;
};

// The plain Recommendation has no minimum of foF2 here.
void UpperMapsFill(UpperMaps& upperMaps, const Ionosphere& iono,
                   const std::array<Place, 2>& aPlaces, const std::array<MagneticField, 2>& aFields)
{
    alignas(64) std::array<double, 4> aCosLat{1.0, 1.0, 1.0, 1.0}, aSinLon{}, aCosLon{}, aDip{};
    MapRows aFof2, aM3;
    for (std::size_t i = 0; i < aPlaces.size(); ++i) {
        aCosLat[i] = aPlaces[i].dCosLat;
        aSinLon[i] = aPlaces[i].dSinLon;
        aCosLon[i] = aPlaces[i].dCosLon;
        aDip[i] = aFields[i].dDip;
    }
    for (std::size_t t = 0; t < 24; ++t) {
        aFof2[t] = upperMaps.aFof2[t].data();
        aM3[t] = upperMaps.aM3[t].data();
    }
    MapPlacesFill(aFof2, aM3, iono.maps,
                  {aCosLat.data(), aSinLon.data(), aCosLon.data(), aDip.data(), aPlaces.size()}, 0,
                  23);
    if (iono.eBehaviour != Behaviour::Best)
        return;
    for (std::size_t t = 0; t < 24; ++t)
        for (std::size_t i = 0; i < aPlaces.size(); ++i)
            upperMaps.aFof2[t][i] = std::max(upperMaps.aFof2[t][i], iono.dFof2Least);
}

// The same on the grids of the ITU program.
void UpperGridsFill(UpperMaps& upperMaps, const Ionosphere& iono,
                    const std::array<Place, 2>& aPlaces,
                    const std::array<MagneticField, 2>& aFields)
{
    MapPlace map;
    for (std::size_t i = 0; i < aPlaces.size(); ++i) {
        MapPlaceFill(map, aPlaces[i], aFields[i], true);
        for (int t = 0; t < 24; ++t) {
            const auto nHour = static_cast<std::size_t>(t);
            upperMaps.aFof2[nHour][i] = MapFof2Get(iono.maps, map, t);
            upperMaps.aM3[nHour][i] = MapM3Get(iono.maps, map, t);
        }
    }
}

// The basic MUF and K of a control point for all hours.
void UpperPointFill(LongPath& longPath, std::size_t nPoint, const UpperMaps& maps,
                    const Place& place, double dGyro, double dHop, double dNorthSouth)
{
    longPath.dGyro += dGyro / 2.0;
    longPath.aLat[nPoint] = place.dLat;
    longPath.aLon[nPoint] = place.dLon;
    const double dFd =
        ((((((-2.40074637494790e-24 * dHop + 25.8520201885984e-21) * dHop - 92.4986988833091e-18)
                * dHop
            + 102.342990689362e-15)
               * dHop
           + 22.0776941764705e-12)
              * dHop
          + 87.4376851991085e-9)
             * dHop
         + 29.1996868566837e-6)
        * dHop;
    auto& aBasic = longPath.aBasic[nPoint];
    for (std::size_t i = 0; i < 24; ++i) {
        const double dFof2 = maps.aFof2[i][nPoint];
        const double dF4 = 1.1 * dFof2 * maps.aM3[i][nPoint];
        const double dZero = dFof2 + dGyro / 2.0;
        aBasic[i] = std::max(dZero + (dF4 - dZero) * dFd, 0.1);
    }
    const double dLeast = std::min(*std::min_element(aBasic.begin(), aBasic.end()), 100.0);
    const int nNoon = HourWrap(static_cast<int>(12.0 + kZoneBorder - place.dLon * kDegrees / 15.0));
    const double dNoon = aBasic[static_cast<std::size_t>(nNoon)];
    const double dW = 0.1 + 0.1 * dNorthSouth;
    const double dX = 1.2 - 1.0 * dNorthSouth;
    const double dY = 0.6 - 0.2 * dNorthSouth;
    for (std::size_t i = 0; i < 24; ++i)
        longPath.aRatio[nPoint][i] = 1.2 + dW * aBasic[i] / dNoon
                                     + dX * (std::cbrt(dNoon / aBasic[i]) - 1.0)
                                     + dY * Square(dLeast / dNoon);
}

void UpperFill(LongPath& longPath, const Ionosphere& ionosphere, const Way& way)
{
    int nHops = HopsGet(way.dKm, kUpperHop);
    if (ElevationGet(way.dKm / nHops, kHeightLong) < kElevationLeast)
        ++nHops;
    longPath.nHops = nHops;
    const double dHop = way.dKm / nHops;
    const double dElevation = ElevationGet(dHop, kHeightLong);
    longPath.dSlant = SlantRangeGet(way.dKm, nHops, dElevation);
    longPath.dSlantDb = 20.0 * std::log10(longPath.dSlant);
    constexpr double kGapMost = 15.0;
    const double dSin = std::max(std::abs(std::sin(way.dAngle)), 1e-12);
    longPath.dGap = std::min(DbFromPower(way.dAngle / dSin), kGapMost);
    const double dNorthSouth = NorthSouthGet(BearingGet(WayPlace(way, 0.5), way.placeTo));
    longPath.dGyro = 0.0;
    const double dHalf = 0.5 / nHops;
    const std::array<Place, 2> aPlaces{WayPlace(way, dHalf), WayPlace(way, 1.0 - dHalf)};
    const std::array<MagneticField, 2> aFields{MagneticFieldGet(aPlaces[0], FieldHeight::Maps),
                                               MagneticFieldGet(aPlaces[1], FieldHeight::Maps)};
    UpperMaps maps;
    if (ionosphere.quirks.bGriddedMaps)
        UpperGridsFill(maps, ionosphere, aPlaces, aFields);
    else
        UpperMapsFill(maps, ionosphere, aPlaces, aFields);
    for (std::size_t i = 0; i < aPlaces.size(); ++i)
        UpperPointFill(longPath, i, maps, aPlaces[i], aFields[i].dGyro, dHop, dNorthSouth);
}

// Winter anomaly factor Aw at mid-path.
double WinterGet(int nMonth, double dLat)
{
    constexpr double kNorth[12]{0.30, 0.15, 0.03, 0, 0, 0, 0, 0, 0, 0.03, 0.15, 0.30};
    const double dAt60 = kNorth[dLat >= 0.0 ? nMonth - 1 : (nMonth + 5) % 12];
    const double dAbs = std::abs(dLat) * kDegrees;
    return dAt60 * std::max(0.0, dAbs <= 60.0 ? (dAbs - 30.0) / 30.0 : (90.0 - dAbs) / 30.0);
}

// In the evening the lower limit falls slowly from hour to hour.
void DecayApply(std::array<double, 24>& aLower, double dNight)
{
    constexpr double kPerHour = 0.7945;
    for (std::size_t t = 0; t < 24; ++t) {
        const double dBefore = aLower[(t + 23) % 24];
        if (dBefore < 2.0 * dNight || aLower[t] > 2.0 * dNight)
            continue;
        const double dStep = dBefore - aLower[t];
        const double dQ = dStep > 0.0 ? (2.0 * dNight - aLower[t]) / dStep : 0.0;
        aLower[t] = kPerHour * dBefore * (0.2055 * dQ + kPerHour);
        for (std::size_t i = 1; i <= 3; ++i)
            aLower[(t + i) % 24] =
                std::max(kPerHour * aLower[(t + i - 1) % 24], aLower[(t + i) % 24]);
        return;
    }
}

// fL of all hours with a number of hops; the crossings stay in aLowPlaces.
void LowerFill(std::array<double, 24>& aLower, LongPath& longPath, const Ionosphere& ionosphere,
               const Way& way, int nHops)
{
    const double dHop = way.dKm / nHops;
    const double dElevation = ElevationGet(dHop, kHeightLong);
    const double dNear = CrossingKmGet(dElevation);
    std::array<double, 24> aSum{};
    for (int i = 0; i < 2 * nHops; ++i) {
        const int nHop = i / 2;
        const double dKm = i % 2 == 0 ? nHop * dHop + dNear : (nHop + 1) * dHop - dNear;
        const Place place = WayPlace(way, dKm / way.dKm);
        longPath.aLowPlaces[static_cast<std::size_t>(i)] = place;
        for (std::size_t t = 0; t < 24; ++t) {
            const double dCos = SunZenithCosGet(ionosphere.sun.aHours[t], place);
            aSum[t] += dCos > 0.0 && dCos < 1.0 ? std::sqrt(dCos) : 0.0;
        }
    }
    const double dScale =
        (1.0 + 0.009 * ionosphere.dSsn)
        / (IncidenceCosGet(dElevation, kHeightAbsorption) * std::log(9.5e6 / longPath.dSlant));
    const double dWinter = 1.0 + WinterGet(ionosphere.nMonth, WayPlace(way, 0.5).dLat);
    const double dNight = std::sqrt(way.dKm / kLowHop);
    for (std::size_t t = 0; t < 24; ++t)
        aLower[t] =
            std::max((5.3 * std::sqrt(dScale * aSum[t]) - longPath.dGyro) * dWinter, dNight);
    DecayApply(aLower, dNight);
}

// The number of hops steps at multiples of 3000 km, also at 9000 km. The long-path rule spreads the
// step over the next hundred kilometres.
void LowerEase(LongPath& longPath, const Ionosphere& ionosphere, const Way& way)
{
    constexpr double kEaseKm = 100.0;
    const double dPart = (way.dKm - kLowHop * (longPath.nLowHops - 1)) / kEaseKm;
    if (dPart >= 1.0)
        return;
    std::array<double, 24> aFewer;
    LowerFill(aFewer, longPath, ionosphere, way, longPath.nLowHops - 1);
    for (std::size_t t = 0; t < 24; ++t)
        longPath.aLower[t] = aFewer[t] + dPart * (longPath.aLower[t] - aFewer[t]);
}

}  // namespace

void LongPathFill(LongPath& longPath, const Ionosphere& ionosphere, const Way& way)
{
    UpperFill(longPath, ionosphere, way);
    longPath.nLowHops = HopsGet(way.dKm, kLowHop);
    LowerFill(longPath.aLower, longPath, ionosphere, way, longPath.nLowHops);
    if (ionosphere.eBehaviour == Behaviour::Best)
        LowerEase(longPath, ionosphere, way);
}

LongHour LongHourGet(const LongPath& longPath, int nLabel)
{
    const auto nHour = static_cast<std::size_t>(nLabel % 24);
    LongHour hour;
    const double dBasic1 = longPath.aBasic[0][nHour];
    const double dBasic2 = longPath.aBasic[1][nHour];
    hour.dK1 = longPath.aRatio[0][nHour];
    hour.dK2 = longPath.aRatio[1][nHour];
    hour.dUpper = std::min(hour.dK1 * dBasic1, hour.dK2 * dBasic2);
    hour.nSmaller = dBasic2 < dBasic1 ? 1 : 0;
    hour.dBasic = std::min(dBasic1, dBasic2);
    hour.dLower = longPath.aLower[nHour];
    return hour;
}

}  // namespace rec533
