/// @file Palette.h
/// The sets of colours for the SNR bands, from which the user chooses; the colours themselves are
/// in SnrScale.
///
/// Tests:   tests/propagation/SnrScaleTest.cpp
#pragma once

#include <cstddef>

/// Safe rises in lightness so that colour-blind people can tell its bands apart; Night is red on
/// black; Print is white and greys.
enum class Palette { Standard, Safe, Night, Print };
inline constexpr std::size_t kPaletteCount = 4;
