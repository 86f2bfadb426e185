/// @file Figures.h
/// The numbers built into the program: coefficient maps, noise, decile factors, default antennas.
///
/// Source:  see assets/engine/README.md for origin and layout. Nothing is read at run time.
/// Tests:   tests/engine/FormulaTest.cpp
#pragma once

#include <cstdint>
#include <span>

namespace rec533 {

inline constexpr int kFof2Functions = 76;  ///< geographic functions of the foF2 map
inline constexpr int kFof2Harmonics = 13;  ///< constant and 6 harmonics, sine before cosine
inline constexpr int kM3Functions = 49;    ///< geographic functions of the M(3000)F2 map
inline constexpr int kM3Harmonics = 9;     ///< constant and 4 harmonics
inline constexpr int kAntennaGains = 91;   ///< whole degrees of elevation, 0 to 90

/// Coefficients of one month, [level][k][i], level 0: R12 = 0, level 1: R12 = 100.
using Fof2Figures = std::span<const float, std::size_t{2} * kFof2Functions * kFof2Harmonics>;
using M3Figures = std::span<const float, std::size_t{2} * kM3Functions * kM3Harmonics>;

/// Noise figures of one season, in the arrays of Report CCIR 322.
struct NoiseFigures {
    const float* pDud = nullptr;     ///< [parameter 5][block 12][power 5]
    const float* pFam = nullptr;     ///< [block 12][14]
    const float* pFakp = nullptr;    ///< [block 6][16][29]
    const float* pFakabp = nullptr;  ///< [block 6][2]
};

/// bUrsi chooses the URSI set; nMonth is 1 to 12.
[[nodiscard]] Fof2Figures FiguresFof2(bool bUrsi, int nMonth);
[[nodiscard]] M3Figures FiguresM3(int nMonth);
[[nodiscard]] NoiseFigures FiguresNoise(int nMonth);

/// Decile factor of foF2 in hundredths. nSeason 0 winter, 1 equinox, 2 summer; nClass 0 R12 < 50, 1
/// to 100, 2 above; nLatitude in steps of 5 degrees, 0 to 18; nHour local, 0 to 23.
[[nodiscard]] int FiguresDecile(bool bUpper, int nSeason, int nClass, int nLatitude, int nHour);

/// A default antenna: the maximum gain in dBi first, then the 91 gains relative to it, dB.
[[nodiscard]] std::span<const float, kAntennaGains + 1> FiguresAntennaConst17();
[[nodiscard]] std::span<const float, kAntennaGains + 1> FiguresAntennaSwwhip();

}  // namespace rec533
