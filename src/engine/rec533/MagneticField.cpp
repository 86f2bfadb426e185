#include "engine/rec533/MagneticField.h"

namespace rec533 {
namespace {

constexpr int kOrder = 6;
constexpr double kCosLatLeast = 1.7453292510e-4;  // 89.99 degrees: the west field divides by it
constexpr double kGyroPerField = 2.8;             // MHz

using Triangle = std::array<std::array<double, kOrder + 1>, kOrder + 1>;  // [n][m]

// P.1239: coefficients g(m,n) and h(m,n) of unnormalised functions.
// clang-format off
constexpr Triangle kG{{
    {},
    {0.304112, 0.021474},
    {0.024035, -0.051253, -0.013381},
    {-0.031518, 0.062130, -0.024898, -0.006496},
    {-0.041794, -0.045298, -0.021795, 0.007008, -0.002044},
    {0.016256, -0.034407, -0.019447, -0.000608, 0.002775, 0.000697},
    {-0.019523, -0.004853, 0.003212, 0.021413, 0.001051, 0.000227, 0.001115},
}};
constexpr Triangle kH{{
    {},
    {0.0, -0.057989},
    {0.0, 0.033124, -0.001579},
    {0.0, 0.014870, -0.004075, 0.000210},
    {0.0, -0.011825, 0.010006, 0.000430, 0.001385},
    {0.0, -0.000796, -0.002000, 0.004597, 0.002421, -0.001218},
    {0.0, -0.005758, -0.008735, -0.003406, -0.000118, -0.001116, -0.000325},
}};
// clang-format on

// Coefficients times the height factor a^(n+2), for one height.
struct Scaled {
    Triangle aG, aH;
};

constexpr Scaled ScaledMake(double dHeightKm)
{
    Scaled tbl{};
    const double dA = kEarthKm / (kEarthKm + dHeightKm);
    double dPower = dA * dA;
    for (std::size_t n = 1; n <= kOrder; ++n) {
        dPower *= dA;
        for (std::size_t m = 0; m <= n; ++m) {
            tbl.aG[n][m] = kG[n][m] * dPower;
            tbl.aH[n][m] = kH[n][m] * dPower;
        }
    }
    return tbl;
}

constexpr Scaled kScaledAbsorption = ScaledMake(100.0);
constexpr Scaled kScaledMaps = ScaledMake(300.0);

constexpr double RecursionGet(std::size_t n, std::size_t m)
{
    const double dN = static_cast<double>(n);
    const double dM = static_cast<double>(m);
    return n <= 1 ? 0.0
                  : ((dN - 1.0) * (dN - 1.0) - dM * dM) / ((2.0 * dN - 1.0) * (2.0 * dN - 3.0));
}

constexpr Triangle RecursionMake()
{
    Triangle aK{};
    for (std::size_t n = 1; n <= kOrder; ++n)
        for (std::size_t m = 0; m < n; ++m) aK[n][m] = RecursionGet(n, m);
    return aK;
}

constexpr Triangle kRecursion = RecursionMake();

struct Field {
    double dX, dY, dZ;  // north, west, down
};

// The recursions of P.1239. dC is at least kCosLatLeast.
Field FieldGet(double dS, double dC, double dSinLon, double dCosLon, const Scaled& tblScaled)
{
    Field tbl{0.0, 0.0, 0.0};
    double dCosM = 1.0, dSinM = 0.0;  // of m times the longitude
    double dPmm = 1.0, dDmm = 0.0;
#pragma GCC unroll 7
    for (std::size_t m = 0; m <= kOrder; ++m) {
        double dP2 = 0.0, dD2 = 0.0, dP = dPmm, dD = dDmm;
        double dZg = 0.0, dZh = 0.0, dXg = 0.0, dXh = 0.0, dYg = 0.0, dYh = 0.0;  // sums over n
#pragma GCC unroll 7
        for (std::size_t n = m; n <= kOrder; ++n) {
            if (n > m) {
                const double dPn = dS * dP - kRecursion[n][m] * dP2;
                const double dDn = dS * dD - dC * dP - kRecursion[n][m] * dD2;
                dP2 = dP;
                dD2 = dD;
                dP = dPn;
                dD = dDn;
            }
            const double dG = tblScaled.aG[n][m];
            const double dH = tblScaled.aH[n][m];
            dZg += static_cast<double>(n + 1) * dG * dP;
            dZh += static_cast<double>(n + 1) * dH * dP;
            dXg += dG * dD;
            dXh += dH * dD;
            dYg += dG * dP;
            dYh += dH * dP;
        }
        tbl.dZ += dZg * dCosM + dZh * dSinM;
        tbl.dX -= dXg * dCosM + dXh * dSinM;
        tbl.dY += static_cast<double>(m) * (dYg * dSinM - dYh * dCosM);
        const double dCosNext = dCosM * dCosLon - dSinM * dSinLon;
        dSinM = dSinM * dCosLon + dCosM * dSinLon;
        dCosM = dCosNext;
        dDmm = dC * dDmm + dS * dPmm;
        dPmm *= dC;
    }
    tbl.dY /= dC;
    return tbl;
}

// Cosines and sines of fifteenths of a circle.
struct Circle {
    std::array<double, FieldTrack::kPlaces> aCos, aSin;
};
const Circle kCircle = [] {
    Circle tbl{};
    for (std::size_t i = 0; i < FieldTrack::kPlaces; ++i) {
        const double dAngle = 2.0 * kPi * static_cast<double>(i) / FieldTrack::kPlaces;
        tbl.aCos[i] = std::cos(dAngle);
        tbl.aSin[i] = std::sin(dAngle);
    }
    return tbl;
}();

double CosLatGet(const Place& tblPlace) { return std::max(tblPlace.dCosLat, kCosLatLeast); }

double SinLatGet(const Place& tblPlace)
{
    if (tblPlace.dCosLat >= kCosLatLeast)
        return tblPlace.dSinLat;
    return std::copysign(std::sqrt(1.0 - kCosLatLeast * kCosLatLeast), tblPlace.dSinLat);
}

}  // namespace

MagneticField MagneticFieldGet(const Place& tblPlace, FieldHeight eHeight)
{
    const Scaled& tblScaled = eHeight == FieldHeight::Absorption ? kScaledAbsorption : kScaledMaps;
    const Field tbl = FieldGet(SinLatGet(tblPlace), CosLatGet(tblPlace), tblPlace.dSinLon,
                               tblPlace.dCosLon, tblScaled);
    const double dFlat = std::sqrt(tbl.dX * tbl.dX + tbl.dY * tbl.dY);
    const double dTotal = std::sqrt(dFlat * dFlat + tbl.dZ * tbl.dZ);
    return {std::atan2(tbl.dZ, dFlat), tbl.dZ / dTotal, kGyroPerField * dTotal};
}

FieldTrack FieldTrackMake(const GreatCircle& tblWay)
{
    constexpr std::size_t kPlaces = FieldTrack::kPlaces;
    const double(&aStart)[3] = tblWay.aStart;
    const double(&aAhead)[3] = tblWay.aAhead;
    const double aAcross[3]{aStart[1] * aAhead[2] - aStart[2] * aAhead[1],
                            aStart[2] * aAhead[0] - aStart[0] * aAhead[2],
                            aStart[0] * aAhead[1] - aStart[1] * aAhead[0]};
    FieldTrack tbl{};
    for (std::size_t i = 0; i < kPlaces; ++i) {
        const double dCos = kCircle.aCos[i];
        const double dSin = kCircle.aSin[i];
        const Place tblPlace = GreatCirclePlaceAt(tblWay, dCos, dSin);
        const double dSinLat = SinLatGet(tblPlace);
        const double dCosLat = CosLatGet(tblPlace);
        const Field tblField =
            FieldGet(dSinLat, dCosLat, tblPlace.dSinLon, tblPlace.dCosLon, kScaledAbsorption);
        const double aFlat[3]{
            -tblField.dX * dSinLat * tblPlace.dCosLon + tblField.dY * tblPlace.dSinLon,
            -tblField.dX * dSinLat * tblPlace.dSinLon - tblField.dY * tblPlace.dCosLon,
            tblField.dX * dCosLat};
        double dAlong = 0.0, dAcross = 0.0;
        for (int k = 0; k < 3; ++k) {
            dAlong += aFlat[k] * (aAhead[k] * dCos - aStart[k] * dSin);
            dAcross += aFlat[k] * aAcross[k];
        }
        for (std::size_t j = 0; j <= FieldTrack::kOrderMost; ++j) {
            const double dWeight = (j == 0 ? 1.0 : 2.0) / kPlaces;
            const double dC = dWeight * kCircle.aCos[i * j % kPlaces];
            const double dS = dWeight * kCircle.aSin[i * j % kPlaces];
            tbl.aDownCos[j] += tblField.dZ * dC;
            tbl.aDownSin[j] += tblField.dZ * dS;
            tbl.aAlongCos[j] += dAlong * dC;
            tbl.aAlongSin[j] += dAlong * dS;
            tbl.aAcrossCos[j] += dAcross * dC;
            tbl.aAcrossSin[j] += dAcross * dS;
        }
    }
    return tbl;
}

}  // namespace rec533
