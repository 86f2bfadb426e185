/// @file Decks.h
/// The two decks of the engine REC533, read in the columns that Hopcast writes.
///
/// Units:   degrees, MHz, kW, dB, percent.
/// Errors:  one line with card and columns. Every card except the antenna cards is required.
/// Tests:   tests/engine/DeckTest.cpp
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/rec533/Frequencies.h"
#include "engine/run533/DeckText.h"
#include "propagation/deck/DeckLayout.h"
#include "system/Result.h"

namespace run533 {

inline constexpr int kFrequenciesMost = 10;
using rec533::FrequencyUsable;
using rec533::kFrequencyLeast;  // MHz
using rec533::kFrequencyMost;
inline constexpr int kGridLeast = 2;  ///< points per side
inline constexpr int kGridMost = 999;
inline constexpr double kPowerMost = 1e5;            ///< kW
inline constexpr double kPowerWithoutAntenna = 1.0;  ///< kW, area decks without antenna cards

/// Names of the map sets in decks and outputs, in the order of MapSet.
inline constexpr std::array<std::string_view, 3> kMapNames{"CCIR", "URSI", "MEAN"};
[[nodiscard]] inline std::string_view MapNameGet(rec533::MapSet eMaps)
{
    return kMapNames[static_cast<std::size_t>(eMaps)];
}

/// An antenna as a deck names it.
struct AntennaCard {
    std::string sCard;  ///< the card's name, which errors give with its columns
    Field atMuf{};
    std::string sName;      ///< as between the brackets, "DEFAULT\SWWHIP.VOA   "
    double dAzimuth = 0.0;  ///< degrees
    double dPowerKw = 0.0;  ///< 0 for a receiver
};

/// What both decks have in common.
struct DeckCommon {
    rec533::MapSet eMaps = rec533::MapSet::Ccir;
    double dSsn = 0.0;
    int nMonth = 1;
    double dTxLat = 0.0, dTxLon = 0.0;
    double dNoise = -145.0;        ///< dBW in 1 Hz at 3 MHz; either sign in the deck
    double dLeastElevation = 3.0;  ///< degrees
    double dReliability = 50.0;    ///< percent
    double dRequiredSnr = 40.0;    ///< dB
    double dBandwidth = 1.0;       ///< Hz
    std::optional<AntennaCard> txAntenna, rxAntenna;
};

struct PointDeck {
    DeckCommon common;
    int nYear = 0;
    std::string sTxName, sRxName;
    double dRxLat = 0.0, dRxLon = 0.0;
    double dPowerKw = 1.0;             ///< of the SYST card; an antenna card's replaces it
    std::vector<double> aFrequencies;  ///< 1 to 10, as in the deck, usable or not
};

struct AreaDeck {
    DeckCommon common;
    std::string sTxName;
    double dWest = 0.0, dEast = 0.0, dSouth = 0.0, dNorth = 0.0;
    int nGrid = 0;
    int nHour = 0;  ///< 0 to 24
    double dFrequency = 0.0;
};

[[nodiscard]] Result<PointDeck> PointDeckRead(std::string_view sDeck);
[[nodiscard]] Result<AreaDeck> AreaDeckRead(std::string_view sDeck);

}  // namespace run533
