/// @file SnrScale.h
/// The colour scale of signal-to-noise ratios, the same in the table, the details and the map.
///
/// Units:   dB; colours 0x00BBGGRR (red in the low byte).
/// Tests:   tests/propagation/SnrScaleTest.cpp
#pragma once

#include <cstdint>
#include <span>

/// The lowest SNR that a table shows, dB.
inline constexpr float kSnrLeast = -99.0F;

/// What a table shows of an SNR: kSnrLeast for anything lower and for not-a-number.
[[nodiscard]] float SnrShownGet(float fSnr);

/// One step of the scale: from fLowest, inclusive, to the next step's.
struct SnrBand {
    float fLowest;  ///< dB; minus infinity for the lowest band
    std::uint32_t nColor;
};

/// The steps from the best down; table, details, map and every legend are made from them.
[[nodiscard]] std::span<const SnrBand> SnrBandsGet();

/// Colour of an SNR: bands of 5 dB from 40 dB to 70 dB, lower bounds inclusive; grey below 40 dB
/// and for not-a-number. The jump from purple (55 dB) to blue (50 dB) is intended.
[[nodiscard]] std::uint32_t SnrGetColor(float fSnr);

/// True when black text reads better than white on a colour (0x00BBGGRR): the contrast ratio of the
/// Web Content Accessibility Guidelines (2.1, relative luminance).
[[nodiscard]] bool ColorTakesBlackText(std::uint32_t nColor);
