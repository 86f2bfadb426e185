/// @file Palette.h
/// The sets of colours for the bands of the SNR: a choice of the user; the colours themselves are
/// in SnrScale.
///
/// Tests:   tests/propagation/SnrScaleTest.cpp
#pragma once

#include <cstddef>

/// Safe rises in lightness and keeps its bands apart for colour-blind eyes; Night is red on black;
/// Print is white and greys.
enum class Palette { Standard, Safe, Night, Print };
inline constexpr std::size_t kPaletteCount = 4;
