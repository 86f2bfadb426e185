/// @file PowerTable.h
/// The power that an engine computes with, by engine, antenna choice and deck, and how the user's
/// own power changes its results. The decks do not depend on it.
///
/// Units:   W; dB.
/// Domain:  EngineModel and any antenna type; an own power of 0 or below, or not-a-number, means
///          the power of the antenna choice.
/// Source:  the antenna cards (deck/AntennaCards.h, deck/DeckArea.cpp). Without cards: 1 kW, as
///          seen in VOACAP's outputs (signal and loss add up to 30 dBW, whatever the SYSTEM card
///          says) and in REC533's (7 dB below the 5 kW whip at equal gain; its SYST card says
///          1.0000). ICEPAC: as VOACAP, whose cards it reads; no output of it was available.
/// Tests:   tests/propagation/PowerTableTest.cpp
#pragma once

#include <string>

#include "propagation/PropagationTable.h"

enum class DeckKind { PointToPoint, Area };

/// The power of the deck's antenna card, or the engine's default without one. Only the built-in
/// engine computes area decks without cards: VOACAP, ICEPAC and the ITS REC533 give no result.
/// @return W: 100, 5000 or 1000; an unknown engine has no deck, and gives 1000 too.
[[nodiscard]] double CardPowerGet(int iModel, int iAntennaType, DeckKind eKind);

/// The power that results are for.
/// @param dOwn  the user's own power, W; 0: the antenna choice's
[[nodiscard]] double PowerInForceGet(double dOwn, int iModel, int iAntennaType, DeckKind eKind);

/// "100 W", "5 kW".
[[nodiscard]] std::string PowerText(double dPower);

/// What the user's own power adds to every signal and SNR in the deck's output, dB:
/// 10 log10(P / P card). Exactly 0 without an own power.
[[nodiscard]] double PowerShiftGet(double dOwn, int iModel, int iAntennaType, DeckKind eKind);

/// False for the numbers that the engines print when there is no SNR: -99, -999 and -999.9, and for
/// not-a-number.
[[nodiscard]] bool SnrIsGiven(float fSnr);

/// A shifted SNR, dB. -99, -999 and -999.9 mean that there is none and stay, as does not-a-number.
/// -99.9 stays too: it is the lowest value that fits a grid and represents anything below, so
/// adding to it would mean nothing.
[[nodiscard]] float PowerShiftSnr(float fSnr, double dShift);

/// Applies the request's own power to a chunk that was read from an output: signal and SNR of the
/// frequencies iFirst to iLast. A cell without an SNR keeps its signal. The noise stays, so that
/// signal less noise, from which the deciles are counted, follows the SNR; LUF and reliability
/// remain those of the deck.
void PowerShiftTable(const Request& request, int iFirst, int iLast, PropagationTable& table);

/// What a request's own power adds to every SNR of an area, dB.
[[nodiscard]] double PowerShiftGet(const AreaRequest& request);
