#include "engine/rec533/Absorption.h"

#include "engine/rec533/MagneticField.h"

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

// Arc tangent within 3e-8, plenty for a place in the tables.
double ArcTanGet(double dX)
{
    constexpr double kTanEighth = 0.41421356237309503;
    const double dAbs = std::abs(dX);
    double dBase = 0.0;
    double dT = dAbs;
    if (dAbs > 1.0 / kTanEighth) {
        dBase = kPi / 2.0;
        dT = -1.0 / dAbs;
    } else if (dAbs > kTanEighth) {
        dBase = kPi / 4.0;
        dT = (dAbs - 1.0) / (dAbs + 1.0);
    }
    const double dZ = dT * dT;
    const double dSeries = ((8.05374449538e-2 * dZ - 1.38776856032e-1) * dZ + 1.99777106478e-1) * dZ
                           - 3.33329491539e-1;
    return std::copysign(dBase + dT + dT * dZ * dSeries, dX);
}

double NoonFactorGet(int nMonth, const Place& tblPlace)
{
    const double dLat = ArcTanGet(std::abs(tblPlace.dSinLat) / tblPlace.dCosLat);
    const double dStep = std::min(dLat * kDegrees, 69.99) / 2.5;
    const int nStep = static_cast<int>(dStep);
    const double* pRow = kNoonFactor[kNoonRow[nMonth - 1]];
    return pRow[nStep] + (pRow[nStep + 1] - pRow[nStep]) * (dStep - nStep);
}

double ExponentGet(int nMonth, const Place& tblPlace, double dTanDip)
{
    const double dModified = ArcTanGet(std::abs(ArcTanGet(dTanDip)) / std::sqrt(tblPlace.dCosLat));
    const double dX = std::min(dModified * kDegrees, kDipMost);
    const int nRow = tblPlace.dSinLat < 0.0 ? (nMonth + 5) % 12 : nMonth - 1;
    const double dBoundary = kBoundary[nRow];
    const bool bLow = dX <= dBoundary;
    const double dS =
        bLow ? -1.0 + 2.0 * dX / dBoundary : -1.0 + 2.0 * (dX - dBoundary) / (kDipMost - dBoundary);
    const double* pA = kExponent[nRow][bLow ? 0 : 1];
    return (((((pA[6] * dS + pA[5]) * dS + pA[4]) * dS + pA[3]) * dS + pA[2]) * dS + pA[1]) * dS
           + pA[0];
}

// ln of max(cos(0.881 chi)^p, 0.02) for a zenith angle up to 102 degrees; beyond it the floor
// holds. cos(0.881 arccos c) is a smooth function of c: a polynomial gives it within 5e-9.
double DiurnalLogGet(double dCosChi, double dExponent)
{
    constexpr double kCos102 = -0.20791169081775934;
    constexpr double kLogFloor = -3.9120230054281460;
    constexpr double kTerms[]{4.87172856251e-06,  -1.2929048981e-05, 2.43015697095e-05,
                              -7.39122581582e-05, 0.000243831718371, -0.000825675038363,
                              0.00320643554998,   -0.0168759146882,  0.495316282667,
                              0.518992710864};
    const double dT =
        (std::max(dCosChi, kCos102) - (1.0 + kCos102) / 2.0) * (2.0 / (1.0 - kCos102));
    double dCos = 0.0;
    for (const double dTerm : kTerms) dCos = dCos * dT + dTerm;
    return std::max(dExponent * std::log(dCos), kLogFloor);
}

// Place at a distance from the start, without the angles themselves.
Place CrossingPlaceGet(const GreatCircle& tblPath, double dKm)
{
    const double dSin = std::sin(dKm / kEarthKm);
    const double dCos = std::cos(dKm / kEarthKm);
    const double dX = tblPath.aStart[0] * dCos + tblPath.aAhead[0] * dSin;
    const double dY = tblPath.aStart[1] * dCos + tblPath.aAhead[1] * dSin;
    Place tbl;
    tbl.dSinLat = tblPath.aStart[2] * dCos + tblPath.aAhead[2] * dSin;
    tbl.dCosLat = std::max(std::sqrt(dX * dX + dY * dY), 1e-9);
    tbl.dCosLon = dX / tbl.dCosLat;
    tbl.dSinLon = dY / tbl.dCosLat;
    return tbl;
}

// What has to be known before a crossing is dated: the hour's cosine of the sun's zenith angle and
// the one at the place's own noon. The declination moves too slowly for the noon's exact minute to
// matter.
Crossing CrossingGet(const AbsorptionHour& tblHour, const Place& tblPlace, double dTanDip)
{
    const Ionosphere& tblIono = *tblHour.pIonosphere;
    const double dCosChi = SunZenithCosGet(*tblHour.tblFoe.pSun, tblPlace);
    double dSinDecl, dCosDecl;
    SunDeclinationAtNoonGet(tblIono.tblSun, *tblHour.tblFoe.pSun, tblPlace, dSinDecl, dCosDecl);
    const double dCosNoon = tblPlace.dSinLat * dSinDecl + tblPlace.dCosLat * dCosDecl;
    const double dExponent = ExponentGet(tblIono.nMonth, tblPlace, dTanDip);
    return {FoeGet(tblHour.tblFoe, tblPlace, dCosChi),
            NoonFactorGet(tblIono.nMonth, tblPlace)
                * std::exp(DiurnalLogGet(dCosChi, dExponent) - DiurnalLogGet(dCosNoon, dExponent))};
}

// Figure 2: the penetration factor phi over fv/foE, divided by its value far above.
double PenetrationGet(double dT)
{
    constexpr double kFar = 0.34;
    constexpr double kMost = 0.53;
    double dPhi = kFar;
    if (dT <= 1.0) {
        const double dX = (dT - 0.475) / 0.475;
        dPhi = (((((-0.093 * dX + 0.04) * dX + 0.127) * dX - 0.027) * dX + 0.044) * dX + 0.159) * dX
               + 0.225;
        dPhi = std::min(dPhi, kMost);
    } else if (dT <= 2.2) {
        const double dX = (dT - 1.65) / 0.55;
        dPhi = (((((0.043 * dX - 0.07) * dX - 0.027) * dX + 0.034) * dX + 0.054) * dX - 0.049) * dX
               + 0.375;
        dPhi = std::min(dPhi, kMost);
    } else if (dT <= 10.0) {
        dPhi = kFar + (10.0 - dT) * 0.02 / 7.8;
    }
    return dPhi / kFar;
}

}  // namespace

double CrossingKmGet(double dElevation)
{
    return kEarthKm * (kPi / 2.0 - dElevation - IncidenceGet(dElevation, kHeightAbsorption));
}

void CrossingsFill(const AbsorptionHour& tblHour, const GreatCircle& tblPath, int nHops,
                   double dElevation, Crossing* pCrossings)
{
    const double dHop = tblPath.dKm / nHops;
    const double dNear = CrossingKmGet(dElevation);
    for (int i = 0; i < nHops; ++i) {
        const Place tblUp = CrossingPlaceGet(tblPath, i * dHop + dNear);
        const Place tblDown = CrossingPlaceGet(tblPath, (i + 1) * dHop - dNear);
        double dTanUp, dTanDown;
        MagneticDipTansGet(tblUp, tblDown, dTanUp, dTanDown);
        *pCrossings++ = CrossingGet(tblHour, tblUp, dTanUp);
        *pCrossings++ = CrossingGet(tblHour, tblDown, dTanDown);
    }
}

double AbsorptionFactorGet(const Crossing* pCrossings, int nCount, double dVertical)
{
    double dSum = 0.0;
    for (int i = 0; i < nCount; ++i)
        dSum += pCrossings[i].dWeight * PenetrationGet(dVertical / pCrossings[i].dFoe);
    return dSum / nCount;
}

double AbsorptionLossGet(double dFactor, int nHops, double dSsnLimited, double dFrequency,
                         double dGyro, double dCosIncidence)
{
    return nHops * (1.0 + 0.0067 * dSsnLimited) * dFactor
           / (Square(dFrequency + dGyro) * dCosIncidence);
}

}  // namespace rec533
