#include "engine/rec533/MagneticField.h"

#include <array>

namespace rec533 {
namespace {

constexpr int kOrder = 6;
constexpr double kCosLatLeast = 1.7453292510e-4;  // 89.99 degrees: east field divides by it
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

constexpr Scaled kScaledAbsorption = ScaledMake(kFieldHeightAbsorption);
constexpr Scaled kScaledMaps = ScaledMake(kFieldHeightMaps);

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
        for (std::size_t m = 0; m < n; ++m)
            aK[n][m] = RecursionGet(n, m);
    return aK;
}

constexpr Triangle kRecursion = RecursionMake();

}  // namespace

MagneticField MagneticFieldGet(const Place& tblPlace, FieldHeight eHeight)
{
    const Scaled& tblScaled = eHeight == FieldHeight::Absorption ? kScaledAbsorption : kScaledMaps;
    const double dC = std::max(tblPlace.dCosLat, kCosLatLeast);
    const double dS = tblPlace.dCosLat < kCosLatLeast
                          ? std::copysign(std::sqrt(1.0 - dC * dC), tblPlace.dSinLat)
                          : tblPlace.dSinLat;
    double dX = 0.0, dY = 0.0, dZ = 0.0;
    double dCosM = 1.0, dSinM = 0.0;  // of m times the longitude
    double dPmm = 1.0, dDmm = 0.0;
    for (std::size_t m = 0; m <= kOrder; ++m) {
        double dP2 = 0.0, dD2 = 0.0, dP1 = dPmm, dD1 = dDmm;
        for (std::size_t n = m; n <= kOrder; ++n) {
            double dP = dPmm, dD = dDmm;
            if (n > m) {
                const double dK = kRecursion[n][m];
                dP = dS * dP1 - dK * dP2;
                dD = dS * dD1 - dC * dP1 - dK * dD2;
                dP2 = dP1;
                dD2 = dD1;
            }
            const double dAlong = tblScaled.aG[n][m] * dCosM + tblScaled.aH[n][m] * dSinM;
            const double dAcross = tblScaled.aG[n][m] * dSinM - tblScaled.aH[n][m] * dCosM;
            dZ += static_cast<double>(n + 1) * dP * dAlong;
            dX -= dD * dAlong;
            dY += static_cast<double>(m) * dP * dAcross;
            dP1 = dP;
            dD1 = dD;
        }
        const double dCosNext = dCosM * tblPlace.dCosLon - dSinM * tblPlace.dSinLon;
        dSinM = dSinM * tblPlace.dCosLon + dCosM * tblPlace.dSinLon;
        dCosM = dCosNext;
        dDmm = dC * dDmm + dS * dPmm;
        dPmm *= dC;
    }
    dY /= dC;
    const double dFlat = std::sqrt(dX * dX + dY * dY);
    const double dTotal = std::sqrt(dFlat * dFlat + dZ * dZ);
    return {std::atan2(dZ, dFlat), dZ / dTotal, kGyroPerField * dTotal};
}

}  // namespace rec533
