#include "engine/rec533/Absorption.h"

namespace rec533 {
namespace {

// P.533-14, figure 1: absorption factor at local noon for R12 = 0, by |latitude| in steps of 2.5
// degrees from 0 to 70; figure 3: exponent p of the diurnal factor, polynomials of the modified dip
// below and above the month's boundary.
// clang-format off
constexpr double kNoonFactor[9][29]{
    {323.9, 297.5, 274.5, 256.4, 244.2, 235, 229.5, 226.1, 226.8, 229, 232.5, 237, 243.4, 249.9, 258.1,
     267.5, 277.5, 283.3, 283.2, 273.1, 257, 232.1, 201.4, 171.5, 146, 123, 103.1, 83, 66.6},  // Jan, Dec
    {312.1, 285.1, 263.1, 251.8, 249.5, 250.9, 254.5, 260.3, 266.7, 272.3, 277.8, 280.3, 283.9, 284.5, 284.4,
     283, 278.6, 273, 265.7, 256.3, 244.8, 232, 218.1, 204.5, 189.9, 172.3, 155.3, 135.5, 116.2},  // Feb
    {347.7, 321.9, 302.5, 293.8, 291.4, 289.3, 292.1, 296.6, 304.3, 313, 321.7, 333.8, 342.6, 349.6, 355.2,
     355.6, 352.2, 341.7, 327.3, 308.4, 286, 265, 244.1, 223.8, 202.8, 181.8, 160.8, 141.6, 123.4},  // Mar
    {338, 313.2, 297, 290.2, 292.1, 299.4, 308, 320.4, 331.6, 340.7, 347.8, 353.8, 357, 360, 359.8,
     358.3, 355.8, 350.8, 344.5, 332.7, 316.4, 292.5, 266.1, 236.4, 214, 193.8, 177.5, 165, 155.9},  // Apr
    {328.1, 303.8, 287.7, 282.5, 284.4, 289.4, 294.8, 303.6, 312.9, 322.7, 332.3, 343.8, 350.6, 358.7, 364.3,
     365.8, 362.4, 356, 346.7, 333, 318.8, 299.7, 282.1, 260.5, 240.5, 220.6, 203.9, 186.3, 173},  // May, Aug
    {305.1, 288.5, 275.2, 273.7, 278.6, 288.9, 302.5, 319.3, 333.6, 346.3, 356.3, 364.7, 371.7, 373.6, 374.2,
     373.1, 370.5, 365.1, 358.5, 347.7, 335, 320.3, 299.1, 276.6, 253.2, 230.7, 214, 196.6, 185.3},  // Jun, Jul
    {345.4, 319.4, 298.7, 290.1, 290, 291.8, 296.3, 302.9, 312.1, 320.1, 327.8, 334.1, 340.2, 343.3, 345.7,
     346.5, 345.3, 341.1, 334.5, 321.7, 304.2, 286.8, 265.9, 244.8, 224.1, 204.5, 183.6, 164.1, 145.2},  // Sep
    {341.9, 314.8, 295.3, 277.9, 265, 258.2, 254.4, 255.8, 257.3, 262.9, 268.5, 279, 287.5, 295.2, 299.6,
     300.2, 298.9, 291.5, 279, 262.6, 245.7, 227, 203.6, 182.3, 163.2, 147.1, 133.9, 119.9, 110.8},  // Oct
    {318.8, 293.3, 268.3, 251.7, 240.4, 233.1, 229.4, 228.8, 230.5, 235.5, 239.7, 242.6, 245.4, 247.5, 248.9,
     249.9, 248.5, 244.4, 237.3, 225.6, 213.5, 195.2, 172.7, 151.3, 131.1, 113.1, 100.1, 89, 80},  // Nov
};

constexpr double kExponent[12][2][7]{
    {{1.51, -0.353, -0.09, 0.191, 0.133, -0.067, -0.053},
     {1.4, -0.365, -1.212, -0.049, 1.187, 0.119, -0.4}},  // Jan
    {{1.49, -0.348, -0.055, 0.164, 0.16, -0.041, -0.08},
     {1.45, -0.119, -0.913, -0.64, 0.347, 0.458, 0.107}},  // Feb
    {{1.52, -0.41, -0.138, 0.308, 0.267, -0.113, -0.133},
     {1.5, -0.492, -0.958, 0.216, 0.267, -0.029, 0.187}},  // Mar
    {{1.58, -0.129, -0.228, -0.192, 0.2, 0.116, -0.027},
     {1.53, -0.468, -1.312, 0.096, 0.973, 0.057, -0.187}},  // Apr
    {{1.59, 0.002, -0.102, -0.579, -0.467, 0.522, 0.613},
     {1.49, -0.937, -1.622, 1.365, 1.72, -0.873, -0.453}},  // May
    {{1.6, -0.06, -0.175, -0.037, 0.147, -0.008, -0.027},
     {1.46, -0.881, -1.595, 0.901, 2.133, -0.395, -0.933}},  // Jun
    {{1.6, -0.03, -0.135, -0.137, 0.053, 0.072, 0.027},
     {1.43, -0.902, -1.667, 0.905, 2.48, -0.383, -1.173}},  // Jul
    {{1.59, -0.032, -0.083, -0.119, 0, 0.031, 0.053},
     {1.46, -0.831, -1.653, 0.708, 2.32, -0.257, -1.067}},  // Aug
    {{1.59, -0.06, -0.18, -0.181, 0.267, 0.081, -0.107},
     {1.51, -0.809, -1.74, 0.75, 2.24, -0.301, -0.96}},  // Sep
    {{1.57, -0.189, -0.207, -0.005, 0.293, 0.004, -0.107},
     {1.52, -0.433, -1.015, -0.017, 0.44, 0.115, 0.08}},  // Oct
    {{1.55, -0.292, -0.275, 0.093, 0.427, -0.026, -0.187},
     {1.44, -0.279, -0.77, -0.266, 0.053, 0.245, 0.267}},  // Nov
    {{1.51, -0.347, -0.082, 0.16, 0.093, -0.048, -0.027},
     {1.4, -0.355, -1.212, -0.102, 1.187, 0.172, -0.4}},  // Dec
};

constexpr double kBoundary[12]{30, 30, 30, 27.5, 32.5, 35, 37.5, 35, 32.5, 30, 30, 30};  // degrees
// clang-format on
constexpr int kNoonRow[12]{0, 1, 2, 3, 4, 5, 5, 4, 6, 7, 8, 0};
constexpr double kDipMost = 70.0;  // degrees

// What all crossings in an hour have in common.
struct CrossingMonth {
    const double* pNoon;            // row of the noon factors
    const double* aExponent[2][2];  // north and south; below and above the boundary
    double aBoundary[2];
};

CrossingMonth CrossingMonthGet(int nMonth)
{
    CrossingMonth crossingMonth{};
    crossingMonth.pNoon = kNoonFactor[kNoonRow[nMonth - 1]];
    for (int nSouth = 0; nSouth < 2; ++nSouth) {
        const int nRow = nSouth == 1 ? (nMonth + 5) % 12 : nMonth - 1;
        crossingMonth.aBoundary[nSouth] = kBoundary[nRow];
        for (int nAbove = 0; nAbove < 2; ++nAbove)
            crossingMonth.aExponent[nSouth][nAbove] = kExponent[nRow][nAbove];
    }
    return crossingMonth;
}

// Arc tangent of numbers from 0 on within 3e-8, which is ample for a position in the tables.
template <class V>
HOPCAST_INLINE V ArcTanGet(const V& vX)
{
    constexpr double kTanEighth = 0.41421356237309503;
    const auto maskFar = vX > 1.0 / kTanEighth;
    const auto maskNear = vX <= kTanEighth;
    const V vBase = LaneSelect(maskFar, LaneAll<V>(kPi / 2.0),
                               LaneSelect(maskNear, LaneAll<V>(0.0), LaneAll<V>(kPi / 4.0)));
    const V vTop = LaneSelect(maskFar, LaneAll<V>(-1.0), LaneSelect(maskNear, vX, vX - 1.0));
    const V vT = vTop / LaneSelect(maskFar, vX, LaneSelect(maskNear, LaneAll<V>(1.0), vX + 1.0));
    const V vZ = vT * vT;
    const V vSeries = ((8.05374449538e-2 * vZ - 1.38776856032e-1) * vZ + 1.99777106478e-1) * vZ
                      - 3.33329491539e-1;
    return vBase + vT + vT * vZ * vSeries;
}

// Places as lanes.
template <class V>
struct PlaceLanes {
    V tSinLat, tCosLat, tSinLon, tCosLon;
};

template <class V>
HOPCAST_INLINE V NoonFactorGet(const CrossingMonth& crossingMonth, const PlaceLanes<V>& place)
{
    const V vLat = ArcTanGet<V>(LaneAbs(place.tSinLat) / place.tCosLat);
    const V vStep = LaneMin<V>(vLat * kDegrees, LaneAll<V>(69.99)) / 2.5;
    V vLow, vHigh, vPart;
    for (int i = 0; i < kLanes<V>; ++i) {
        const int nStep = static_cast<int>(vStep[i]);
        vLow[i] = crossingMonth.pNoon[nStep];
        vHigh[i] = crossingMonth.pNoon[nStep + 1];
        vPart[i] = vStep[i] - nStep;
    }
    return vLow + (vHigh - vLow) * vPart;
}

template <class V>
HOPCAST_INLINE V ExponentGet(const CrossingMonth& crossingMonth, const PlaceLanes<V>& place,
                             const V& vTanDip)
{
    const V vModified = ArcTanGet<V>(ArcTanGet<V>(LaneAbs(vTanDip)) / LaneSqrt(place.tCosLat));
    const V vX = LaneMin<V>(vModified * kDegrees, LaneAll<V>(kDipMost));
    const auto maskSouth = place.tSinLat < 0.0;
    const V vBoundary = LaneSelect(maskSouth, LaneAll<V>(crossingMonth.aBoundary[1]),
                                   LaneAll<V>(crossingMonth.aBoundary[0]));
    const auto maskLow = vX <= vBoundary;
    const V vS = LaneSelect(maskLow, 2.0 * vX, 2.0 * (vX - vBoundary))
                     / LaneSelect(maskLow, vBoundary, kDipMost - vBoundary)
                 - 1.0;
    V vSum{};
    for (int k = 6; k >= 0; --k) {
        const V vNorth = LaneSelect(maskLow, LaneAll<V>(crossingMonth.aExponent[0][0][k]),
                                    LaneAll<V>(crossingMonth.aExponent[0][1][k]));
        const V vSouth = LaneSelect(maskLow, LaneAll<V>(crossingMonth.aExponent[1][0][k]),
                                    LaneAll<V>(crossingMonth.aExponent[1][1][k]));
        vSum = vSum * vS + LaneSelect(maskSouth, vSouth, vNorth);
    }
    return vSum;
}

// ln of max(cos(0.881 chi)^p, 0.02) for a zenith angle up to 102 degrees; beyond that the floor
// applies. cos(0.881 arccos c) is a smooth function of c: a polynomial gives it within 5e-9.
template <class V>
HOPCAST_INLINE V DiurnalLogGet(const V& vCosChi, const V& vExponent)
{
    constexpr double kCos102 = -0.20791169081775934;
    constexpr double kLogFloor = -3.9120230054281460;
    constexpr double kTerms[]{4.87172856251e-06,  -1.2929048981e-05, 2.43015697095e-05,
                              -7.39122581582e-05, 0.000243831718371, -0.000825675038363,
                              0.00320643554998,   -0.0168759146882,  0.495316282667,
                              0.518992710864};
    const V vT = (LaneMax<V>(vCosChi, LaneAll<V>(kCos102)) - (1.0 + kCos102) / 2.0)
                 * (2.0 / (1.0 - kCos102));
    V vCos{};
    for (const double dTerm : kTerms) vCos = vCos * vT + dTerm;
    return LaneMax<V>(vExponent * LaneLog(vCos), LaneAll<V>(kLogFloor));
}

// The cosine of the sun's zenith angle at the places' local noon. The declination changes too
// slowly for the exact minute of noon to matter.
template <class V>
HOPCAST_INLINE V NoonCosGet(const SunDay& day, const SunHour& sun, const PlaceLanes<V>& place)
{
    V vSinDecl, vCosDecl;
    SunDeclinationAtNoonGet(day, sun, place.tSinLon, place.tCosLon, vSinDecl, vCosDecl);
    return place.tSinLat * vSinDecl + place.tCosLat * vCosDecl;
}

template <class V>
HOPCAST_INLINE void CrossingLanesGet(const AbsorptionHour& hour, const CrossingMonth& month,
                                     const Arc& arc, const FieldTrack& field, const V& vCos,
                                     const V& vSin, V& vFoe, V& vWeight)
{
    const auto& [aStart, aAhead] = arc;
    const V vX = aStart[0] * vCos + aAhead[0] * vSin;
    const V vY = aStart[1] * vCos + aAhead[1] * vSin;
    PlaceLanes<V> placeLanes;
    placeLanes.tSinLat = aStart[2] * vCos + aAhead[2] * vSin;
    placeLanes.tCosLat = LaneMax<V>(LaneSqrt<V>(vX * vX + vY * vY), LaneAll<V>(1e-9));
    placeLanes.tCosLon = vX / placeLanes.tCosLat;
    placeLanes.tSinLon = vY / placeLanes.tCosLat;
    const SunHour& sun = *hour.foe.pSun;
    const V vCosChi = SunZenithCosLanesGet<V>(sun, placeLanes.tSinLat, placeLanes.tCosLat,
                                              placeLanes.tSinLon, placeLanes.tCosLon);
    const V vCosNoon = NoonCosGet(hour.pIonosphere->sun, sun, placeLanes);
    const V vExponent = ExponentGet(month, placeLanes, FieldTrackDipTanGet(field, vCos, vSin));
    vFoe = FoeLanesGet(hour.foe, placeLanes.tSinLat, placeLanes.tCosLat, placeLanes.tSinLon,
                       placeLanes.tCosLon, vCosChi);
    vWeight = NoonFactorGet(month, placeLanes)
              * LaneExp<V>(DiurnalLogGet(vCosChi, vExponent) - DiurnalLogGet(vCosNoon, vExponent));
}

// Cosines and sines of the crossings' angles from the start.
struct CrossingAngles {
    alignas(64) std::array<double, kCrossingsOfMode> aCos, aSin;
};

void CrossingAnglesFill(CrossingAngles& crossingAngles, double dHopAngle, int nHops,
                        double dElevation)
{
    const double dSinE = std::sin(dElevation);
    const double dCosE = std::cos(dElevation);
    const double dSinI = kEarthKm * dCosE / (kEarthKm + kHeightAbsorption);
    const double dCosI = std::sqrt(1.0 - dSinI * dSinI);
    const double dCosNear = dSinE * dCosI + dCosE * dSinI;
    const double dSinNear = dCosE * dCosI - dSinE * dSinI;
    const double dCosHop = std::cos(dHopAngle);
    const double dSinHop = std::sin(dHopAngle);
    double dCos = 1.0, dSin = 0.0;  // of the angle of the hop's start
    for (std::size_t i = 0; i < static_cast<std::size_t>(nHops); ++i) {
        crossingAngles.aCos[2 * i] = dCos * dCosNear - dSin * dSinNear;
        crossingAngles.aSin[2 * i] = dSin * dCosNear + dCos * dSinNear;
        const double dNext = dCos * dCosHop - dSin * dSinHop;
        dSin = dSin * dCosHop + dCos * dSinHop;
        dCos = dNext;
        crossingAngles.aCos[2 * i + 1] = dCos * dCosNear + dSin * dSinNear;
        crossingAngles.aSin[2 * i + 1] = dSin * dCosNear - dCos * dSinNear;
    }
    // Lanes without a crossing repeat the last one.
    const std::size_t nCount = 2 * static_cast<std::size_t>(nHops);
    for (std::size_t i = nCount; i < nCount + kLanes<Lanes4>; ++i) {
        crossingAngles.aCos[i] = crossingAngles.aCos[nCount - 1];
        crossingAngles.aSin[i] = crossingAngles.aSin[nCount - 1];
    }
}

// Some crossings on one arc.
struct CrossingsOfArc {
    const Arc* pArc;
    const FieldTrack* pField;
    const double* pCos;  // padded to whole vectors
    const double* pSin;
    std::size_t nCount;
    Crossing* pCrossings;
};

template <class V>
HOPCAST_INLINE void CrossingsOfArcFill(const AbsorptionHour& hour,
                                       const CrossingsOfArc& crossingsOfArc)
{
    constexpr std::size_t kCount = kLanes<V>;
    const CrossingMonth month = CrossingMonthGet(hour.pIonosphere->nMonth);
    for (std::size_t i = 0; i < crossingsOfArc.nCount; i += kCount) {
        V vFoe, vWeight;
        CrossingLanesGet<V>(hour, month, *crossingsOfArc.pArc, *crossingsOfArc.pField,
                            LaneLoad<V>(crossingsOfArc.pCos + i),
                            LaneLoad<V>(crossingsOfArc.pSin + i), vFoe, vWeight);
        for (std::size_t k = 0; k < std::min(kCount, crossingsOfArc.nCount - i); ++k)
            crossingsOfArc.pCrossings[i + k] = {vFoe[k], vWeight[k]};
    }
}

HOPCAST_WIDE void CrossingsWideFill(const AbsorptionHour& hour,
                                    const CrossingsOfArc& crossingsOfArc)
{
    CrossingsOfArcFill<Lanes4>(hour, crossingsOfArc);
}

}  // namespace

CrossingTrack CrossingTrackMake(const Way& way)
{
    CrossingTrack crossingTrack{way, {}};
    crossingTrack.aFields[0] = FieldTrackMake(way.aArcs[0]);
    if (way.bBent)
        crossingTrack.aFields[1] = FieldTrackMake(way.aArcs[1]);
    return crossingTrack;
}

double CrossingKmGet(double dElevation)
{
    return kEarthKm * (kPi / 2.0 - dElevation - IncidenceGet(dElevation, kHeightAbsorption));
}

void CrossingsFill(const AbsorptionHour& hour, const CrossingTrack& track, int nHops,
                   double dElevation, Crossing* pCrossings)
{
    const Way& way = track.way;
    CrossingAngles angles;
    CrossingAnglesFill(angles, way.dAngle / nHops, nHops, dElevation);
    // Each hop crosses 90 km once before and once after its middle, so a bent way has half of the
    // crossings on each arc.
    const auto nHalf = static_cast<std::size_t>(nHops);
    for (std::size_t nArc = 0; nArc < (way.bBent ? 2 : 1); ++nArc) {
        const std::size_t nFirst = nArc * nHalf;
        const CrossingsOfArc crossingsOfArc{
            &way.aArcs[nArc],     &track.aFields[nArc],          &angles.aCos[nFirst],
            &angles.aSin[nFirst], way.bBent ? nHalf : 2 * nHalf, pCrossings + nFirst};
        if (LanesWideIs())
            CrossingsWideFill(hour, crossingsOfArc);
        else
            CrossingsOfArcFill<Lanes2>(hour, crossingsOfArc);
    }
}

}  // namespace rec533
