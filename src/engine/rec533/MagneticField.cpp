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

// Two places side by side; the compiler's own vector type, on every processor.
using Pair = double __attribute__((vector_size(16)));

template <class T>
struct Field {
    T tX, tY, tZ;  // north, east, down
};

// The recursions of P.1239 for one place or two. tC is at least kCosLatLeast.
template <class T>
Field<T> FieldGet(T tS, T tC, T tSinLon, T tCosLon, const Scaled& tblScaled)
{
    Field<T> tbl{T{}, T{}, T{}};
    T tCosM = T{} + 1.0, tSinM = T{};  // of m times the longitude
    T tPmm = T{} + 1.0, tDmm = T{};
#pragma GCC unroll 7
    for (std::size_t m = 0; m <= kOrder; ++m) {
        T tP2{}, tD2{}, tP = tPmm, tD = tDmm;
        T tZg{}, tZh{}, tXg{}, tXh{}, tYg{}, tYh{};  // sums over n, times g and h
#pragma GCC unroll 7
        for (std::size_t n = m; n <= kOrder; ++n) {
            if (n > m) {
                const T tPn = tS * tP - kRecursion[n][m] * tP2;
                const T tDn = tS * tD - tC * tP - kRecursion[n][m] * tD2;
                tP2 = tP;
                tD2 = tD;
                tP = tPn;
                tD = tDn;
            }
            const double dG = tblScaled.aG[n][m];
            const double dH = tblScaled.aH[n][m];
            tZg += static_cast<double>(n + 1) * dG * tP;
            tZh += static_cast<double>(n + 1) * dH * tP;
            tXg += dG * tD;
            tXh += dH * tD;
            tYg += dG * tP;
            tYh += dH * tP;
        }
        tbl.tZ += tZg * tCosM + tZh * tSinM;
        tbl.tX -= tXg * tCosM + tXh * tSinM;
        tbl.tY += static_cast<double>(m) * (tYg * tSinM - tYh * tCosM);
        const T tCosNext = tCosM * tCosLon - tSinM * tSinLon;
        tSinM = tSinM * tCosLon + tCosM * tSinLon;
        tCosM = tCosNext;
        tDmm = tC * tDmm + tS * tPmm;
        tPmm *= tC;
    }
    tbl.tY /= tC;
    return tbl;
}

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
    const auto tbl = FieldGet<double>(SinLatGet(tblPlace), CosLatGet(tblPlace), tblPlace.dSinLon,
                                      tblPlace.dCosLon, tblScaled);
    const double dFlat = std::sqrt(tbl.tX * tbl.tX + tbl.tY * tbl.tY);
    const double dTotal = std::sqrt(dFlat * dFlat + tbl.tZ * tbl.tZ);
    return {std::atan2(tbl.tZ, dFlat), tbl.tZ / dTotal, kGyroPerField * dTotal};
}

void MagneticDipTansGet(const Place& tblA, const Place& tblB, double& dTanA, double& dTanB)
{
    const auto tbl = FieldGet<Pair>(
        Pair{SinLatGet(tblA), SinLatGet(tblB)}, Pair{CosLatGet(tblA), CosLatGet(tblB)},
        Pair{tblA.dSinLon, tblB.dSinLon}, Pair{tblA.dCosLon, tblB.dCosLon}, kScaledAbsorption);
    const Pair tFlat2 = tbl.tX * tbl.tX + tbl.tY * tbl.tY;
    dTanA = tbl.tZ[0] / std::sqrt(tFlat2[0]);
    dTanB = tbl.tZ[1] / std::sqrt(tFlat2[1]);
}

}  // namespace rec533
