#include "engine/rec533/Maps.h"

namespace rec533 {
namespace {

// Last index of the functions of each longitude order (P.1239, table of IKIM).
constexpr std::array kFof2Last{11, 35, 53, 63, 67, 69, 71, 73, 75};
constexpr std::array kM3Last{6, 22, 34, 40, 44, 46, 48};
constexpr std::size_t kPowers = 12;
constexpr std::size_t kOrders = 9;
constexpr double kLevels = 100.0;  // between the two levels of the figures

// The powers of the sine of the modified dip and the products with the longitude terms.
template <class V>
struct Functions {
    std::array<V, kPowers> aPower;
    std::array<V, kOrders> aCos, aSin;  // cos^m lat cos m lon, cos^m lat sin m lon
};

template <class V>
HOPCAST_INLINE Functions<V> FunctionsGet(const V& vCosLat, const V& vSinLon, const V& vCosLon,
                                         const V& vDip)
{
    const V vTan = vDip / LaneSqrt<V>(vCosLat);
    const V vSinX = vTan / LaneSqrt<V>(1.0 + vTan * vTan);
    Functions<V> functions;
    functions.aPower[0] = LaneAll<V>(1.0);
    for (std::size_t i = 1; i < kPowers; ++i) functions.aPower[i] = functions.aPower[i - 1] * vSinX;
    const V vC = vCosLat * vCosLon;
    const V vS = vCosLat * vSinLon;
    functions.aCos[0] = LaneAll<V>(1.0);
    functions.aSin[0] = LaneAll<V>(0.0);
    for (std::size_t m = 1; m < kOrders; ++m) {
        functions.aCos[m] = functions.aCos[m - 1] * vC - functions.aSin[m - 1] * vS;
        functions.aSin[m] = functions.aSin[m - 1] * vC + functions.aCos[m - 1] * vS;
    }
    return functions;
}

template <class V, std::size_t kOrderCount, std::size_t kCells>
HOPCAST_INLINE void FunctionsAdd(std::array<V, kCells>& aCells, const Functions<V>& functions,
                                 const std::array<int, kOrderCount>& aLast, double dWeight)
{
    const auto nFirst = static_cast<std::size_t>(aLast[0]);
    for (std::size_t i = 0; i <= nFirst; ++i) aCells[i] += dWeight * functions.aPower[i];
    for (std::size_t m = 1; m < kOrderCount; ++m) {
        std::size_t i = static_cast<std::size_t>(aLast[m - 1]) + 1;
        const V vCos = dWeight * functions.aCos[m];
        const V vSin = dWeight * functions.aSin[m];
        for (std::size_t q = 0; i <= static_cast<std::size_t>(aLast[m]); i += 2, ++q) {
            aCells[i] += vCos * functions.aPower[q];
            aCells[i + 1] += vSin * functions.aPower[q];
        }
    }
}

void MapPlaceAdd(MapPlace& map, const Place& place, double dDip, double dWeight)
{
    const auto functions = FunctionsGet<double>(place.dCosLat, place.dSinLon, place.dCosLon, dDip);
    FunctionsAdd<double>(map.aFof2, functions, kFof2Last, dWeight);
    FunctionsAdd<double>(map.aM3, functions, kM3Last, dWeight);
}

// The four grid places of the ITU program and their weights.
void GridAdd(MapPlace& map, const Place& place)
{
    constexpr double kStep = 1.5;  // degrees
    const double dLat = place.dLat * kDegrees / kStep;
    const double dLon = place.dLon * kDegrees / kStep;
    const int nLat = static_cast<int>(dLat);  // toward zero
    const int nLon = static_cast<int>(dLon);
    const double dR = std::abs(dLat) - std::abs(nLat);
    const double dC = std::abs(dLon) - std::abs(nLon);
    const int nSouth = place.dLat >= 0.0 ? nLat : nLat - 1;
    const int nWest = place.dLon >= 0.0 ? nLon : nLon - 1;
    for (int i = 0; i < 4; ++i) {
        const bool bNorth = i % 2 == 1;
        const bool bEast = i / 2 == 1;
        const double dWeight = (bNorth ? dR : 1.0 - dR) * (bEast ? dC : 1.0 - dC);
        if (dWeight == 0.0)
            continue;
        const int nRow = std::clamp(nSouth + (bNorth ? 1 : 0), -60, 60);
        const Place node = PlaceFromDegrees(kStep * nRow, kStep * (nWest + (bEast ? 1 : 0)));
        MapPlaceAdd(map, node, MagneticFieldGet(node, FieldHeight::Maps).dDip, dWeight);
    }
}

// The constant 1, then sin jT, cos jT of one hour.
template <std::size_t kCount>
std::array<double, kCount> HarmonicsGet(int nHour)
{
    std::array<double, kCount> aTerms;
    aTerms[0] = 1.0;
    const double dT = (15.0 * nHour - 180.0) * (kPi / 180.0);
    for (std::size_t j = 1; 2 * j < kCount; ++j) {
        aTerms[2 * j - 1] = std::sin(static_cast<double>(j) * dT);
        aTerms[2 * j] = std::cos(static_cast<double>(j) * dT);
    }
    return aTerms;
}

// Both levels mixed for the index, [k][i].
template <std::size_t kFunctions, std::size_t kHarmonics>
void SeriesFill(std::array<double, kFunctions * kHarmonics>& aSeries, const float* aLevels,
                double dIndex, double dWeight)
{
    const double dHigh = dWeight * dIndex / kLevels;
    const double dLow = dWeight - dHigh;
    for (std::size_t i = 0; i < aSeries.size(); ++i)
        aSeries[i] += dLow * static_cast<double>(aLevels[i])
                      + dHigh * static_cast<double>(aLevels[i + aSeries.size()]);
}

template <std::size_t kFunctions, std::size_t kHarmonics, std::size_t kCells>
void HourFill(std::array<double, kCells>& aCells,
              const std::array<double, kFunctions * kHarmonics>& aSeries, int nHour)
{
    const auto aTerms = HarmonicsGet<kHarmonics>(nHour);
    for (std::size_t k = 0; k < kFunctions; ++k) {
        double dSum = 0.0;
        for (std::size_t i = 0; i < kHarmonics; ++i)
            dSum += aSeries[k * kHarmonics + i] * aTerms[i];
        aCells[k] = dSum;
    }
}

// Two sums side by side, so that one addition does not wait for the other.
template <std::size_t kCount>
double ProductGet(const std::array<double, kCount>& aA, const std::array<double, kCount>& aB)
{
    static_assert(kCount % 2 == 0);
    double dEven = 0.0;
    double dOdd = 0.0;
    for (std::size_t i = 0; i < kCount; i += 2) {
        dEven += aA[i] * aB[i];
        dOdd += aA[i + 1] * aB[i + 1];
    }
    return dEven + dOdd;
}

// Several hours side by side, so that a place's functions are loaded once for all of them.
template <class V, std::size_t kHours, std::size_t kFunctions, std::size_t kCells>
HOPCAST_INLINE void PlacesHoursFill(const MapRows& aRows, std::size_t nAt, std::size_t nCount,
                                    const std::array<std::array<double, kCells>, 24>& aHours,
                                    const std::array<V, kFunctions>& aPlaces, std::size_t nHour)
{
    V aSums[kHours]{};
    for (std::size_t k = 0; k < kFunctions; ++k)
        for (std::size_t j = 0; j < kHours; ++j) aSums[j] += aHours[nHour + j][k] * aPlaces[k];
    for (std::size_t j = 0; j < kHours; ++j)
        for (std::size_t k = 0; k < nCount; ++k) aRows[nHour + j][nAt + k] = aSums[j][k];
}

template <class V>
HOPCAST_INLINE void PlacesLanesFill(const MapRows& aFof2, const MapRows& aM3, const MapHours& hours,
                                    const MapPlaces& places, int nFirst, int nLast)
{
    for (std::size_t i = 0; i < places.nCount; i += kLanes<V>) {
        const auto functions =
            FunctionsGet<V>(LaneLoad<V>(places.pCosLat + i), LaneLoad<V>(places.pSinLon + i),
                            LaneLoad<V>(places.pCosLon + i), LaneLoad<V>(places.pDip + i));
        std::array<V, kFof2Functions> aFof2Places{};
        std::array<V, kM3Functions> aM3Places{};
        FunctionsAdd<V>(aFof2Places, functions, kFof2Last, 1.0);
        FunctionsAdd<V>(aM3Places, functions, kM3Last, 1.0);
        const std::size_t nCount = std::min<std::size_t>(kLanes<V>, places.nCount - i);
        constexpr std::size_t kTogether = 6;
        auto t = static_cast<std::size_t>(nFirst);
        for (; t + kTogether <= static_cast<std::size_t>(nLast) + 1; t += kTogether) {
            PlacesHoursFill<V, kTogether>(aFof2, i, nCount, hours.aFof2, aFof2Places, t);
            PlacesHoursFill<V, kTogether>(aM3, i, nCount, hours.aM3, aM3Places, t);
        }
        for (; t <= static_cast<std::size_t>(nLast); ++t) {
            PlacesHoursFill<V, 1>(aFof2, i, nCount, hours.aFof2, aFof2Places, t);
            PlacesHoursFill<V, 1>(aM3, i, nCount, hours.aM3, aM3Places, t);
        }
    }
}

HOPCAST_WIDE void PlacesWideFill(const MapRows& aFof2, const MapRows& aM3, const MapHours& hours,
                                 const MapPlaces& places, int nFirst, int nLast)
{
    PlacesLanesFill<Lanes4>(aFof2, aM3, hours, places, nFirst, nLast);
}

}  // namespace

void MapPlacesFill(const MapRows& aFof2, const MapRows& aM3, const MapHours& hours,
                   const MapPlaces& places, int nFirst, int nLast)
{
    if (LanesWideIs())
        PlacesWideFill(aFof2, aM3, hours, places, nFirst, nLast);
    else
        PlacesLanesFill<Lanes2>(aFof2, aM3, hours, places, nFirst, nLast);
}

void MapHoursFill(MapHours& hours, MapSet eSet, int nMonth, double dActivity, double dSsn)
{
    std::array<double, std::size_t{kFof2Functions} * kFof2Harmonics> aFof2{};
    std::array<double, std::size_t{kM3Functions} * kM3Harmonics> aM3{};
    const double dCcir = eSet == MapSet::Ccir ? 1.0 : eSet == MapSet::Ursi ? 0.0 : 0.5;
    if (dCcir > 0.0)
        SeriesFill<kFof2Functions, kFof2Harmonics>(aFof2, FiguresFof2(false, nMonth).data(),
                                                   dActivity, dCcir);
    if (dCcir < 1.0)
        SeriesFill<kFof2Functions, kFof2Harmonics>(aFof2, FiguresFof2(true, nMonth).data(),
                                                   dActivity, 1.0 - dCcir);
    SeriesFill<kM3Functions, kM3Harmonics>(aM3, FiguresM3(nMonth).data(), dSsn, 1.0);
    for (int i = 0; i < 24; ++i) {
        const auto nAt = static_cast<std::size_t>(i);
        HourFill<kFof2Functions, kFof2Harmonics>(hours.aFof2[nAt], aFof2, i);
        HourFill<kM3Functions, kM3Harmonics>(hours.aM3[nAt], aM3, i);
        hours.aM3[nAt][kM3Functions] = 0.0;
    }
}

void MapPlaceFill(MapPlace& map, const Place& place, const MagneticField& field, bool bGrid)
{
    map.aFof2.fill(0.0);
    map.aM3.fill(0.0);
    if (bGrid)
        GridAdd(map, place);
    else
        MapPlaceAdd(map, place, field.dDip, 1.0);
}

double MapFof2Get(const MapHours& hours, const MapPlace& map, int nHour)
{
    return ProductGet(hours.aFof2[static_cast<std::size_t>(nHour)], map.aFof2);
}

double MapM3Get(const MapHours& hours, const MapPlace& map, int nHour)
{
    return ProductGet(hours.aM3[static_cast<std::size_t>(nHour)], map.aM3);
}

}  // namespace rec533
