/// @file SnrScale.h
/// The colour scale of signal-to-noise ratios, the same in the table, the details, the map, every
/// legend and on a terminal.
///
/// Units:   dB; colours 0x00BBGGRR (red in the low byte).
/// Source:  contrast ratio and relative luminance: Web Content Accessibility Guidelines 2.1.
/// Tests:   tests/propagation/SnrScaleTest.cpp
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "settings/Palette.h"

/// The lowest SNR that a table shows, dB.
inline constexpr float kSnrLeast = -99.0F;

/// An SNR as a table shows it: kSnrLeast for anything lower and for not-a-number.
[[nodiscard]] float SnrShownGet(float fSnr);

/// True if a table shows more than kSnrLeast; false for not-a-number.
[[nodiscard]] bool SnrIs(float fSnr);

/// One step of the scale: from fLowest, inclusive, to the next step's.
struct SnrBand {
    float fLowest;  ///< dB; minus infinity for the lowest band
    std::uint32_t nColor;
    std::uint32_t nText;    ///< colour of a number on it
    std::uint32_t nGround;  ///< colour under the number: the band's, or a separate plate's

    bool operator==(const SnrBand&) const = default;
};

/// The steps from the best down; table, details, map and every legend use them.
[[nodiscard]] std::span<const SnrBand> SnrBandsGet(Palette ePalette = Palette::Standard);

/// The step of an SNR: 5 dB wide from 40 dB to 70 dB, lower bounds inclusive; the lowest below
/// 40 dB and for not-a-number.
[[nodiscard]] const SnrBand& SnrBandGet(float fSnr, Palette ePalette = Palette::Standard);

/// The step of the whole number that a table shows: 49.8 is shown as "50" and has the colour of 50.
/// For whole numbers, as engines print them and without a power's shift, it equals SnrBandGet.
[[nodiscard]] const SnrBand& SnrBandOfCell(float fSnr, Palette ePalette = Palette::Standard);

/// The step of a table's cell: that of the number shown if an own power has shifted the engine's,
/// else that of the value itself.
/// @param fPower  own power in the table's request, W; 0: the antenna choice's
[[nodiscard]] const SnrBand& SnrBandOfTable(float fSnr, float fPower,
                                            Palette ePalette = Palette::Standard);

/// The step of a palette in the place of a standard colour; null for any other colour. What is
/// painted in the standard colours is shown in a palette by it.
[[nodiscard]] const SnrBand* SnrBandOfColor(std::uint32_t nColor, Palette ePalette);

/// The standard colour of an SNR. The jump from purple (55 dB) to blue (50 dB)
/// sets clear voice (55 dB) apart.
[[nodiscard]] std::uint32_t SnrGetColor(float fSnr);

/// A step's caption in the legend of a table: "70+", "65" ... "40", "< 40".
/// @param iBand  from the best down
[[nodiscard]] std::string SnrBandCaption(std::size_t iBand);

/// The escape sequence that prints a number on a terminal in the colours of a step.
[[nodiscard]] std::string SnrBandTerminal(const SnrBand& band);

/// The contrast ratio of two colours, 1 to 21.
[[nodiscard]] double ColorContrast(std::uint32_t nColor1, std::uint32_t nColor2);

/// True when black text is more legible than white on a colour.
[[nodiscard]] bool ColorTakesBlackText(std::uint32_t nColor);
