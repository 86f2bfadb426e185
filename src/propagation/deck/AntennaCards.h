/// @file AntennaCards.h
/// The antenna cards of the point-to-point decks. Their last field is the transmitter's power in
/// kW.
#pragma once

#include <array>
#include <string_view>

// clang-format off
inline constexpr std::string_view kTxConst17 = R"(ANTENNA       1    1    2   30     0.000[DEFAULT\CONST17.VOA  ]  0.0    0.1000)";
inline constexpr std::string_view kTxWhip    = R"(ANTENNA       1    1    2   30     0.000[DEFAULT\SWWHIP.VOA   ]  0.0    5.0000)";
inline constexpr std::string_view kRcConst17 = R"(ANTENNA       2    2    2   30     0.000[DEFAULT\CONST17.VOA  ]  0.0    0.1000)";
inline constexpr std::string_view kRcWhip    = R"(ANTENNA       2    2    2   30     0.000[DEFAULT\SWWHIP.VOA   ]  0.0    0.0000)";
// clang-format on

/// Their files below the root's antennas folder.
inline constexpr std::array<std::string_view, 2> kAntennaFiles{R"(DEFAULT\CONST17.VOA)",
                                                               R"(DEFAULT\SWWHIP.VOA)"};

/// The transmitter's card of an antenna type; empty for a type without cards.
constexpr std::string_view TxCardGet(bool bRec533, int iAntennaType)
{
    // REC533's table is shifted by one against that of ICEPAC and VOACAP, as users of the classic
    // decks know it: its type 2 has no cards.
    const int iWhip = bRec533 ? 1 : 2;
    if (iAntennaType < 0 || iAntennaType > iWhip)
        return {};
    return iAntennaType == iWhip ? kTxWhip : kTxConst17;
}
