/// @file PowerTable.h
/// The power that an engine computes with, by engine, antenna choice and deck, and what the user's
/// own power changes in its results. The decks themselves never change.
///
/// Units:   W; dB.
/// Domain:  EngineModel and any antenna type; an own power of 0 or below, or one that is no number,
///          stands for the antenna choice's own.
/// Source:  the antenna cards (deck/AntennaCards.h, deck/DeckArea.cpp). Without cards: 1 kW, which
/// is in
///          VOACAP's outputs (signal and loss add to 30 dBW, whatever the SYSTEM card says) and in
///          REC533's (7 dB below the 5 kW whip at equal gain; its SYST card says 1.0000).
///          ICEPAC: as VOACAP, whose cards it reads; there is no output of it to measure.
/// Tests:   tests/propagation/PowerTableTest.cpp
#pragma once

#include <string>

#include "propagation/PropagationTable.h"

enum class DeckKind { PointToPoint, Area };

/// The power of the deck's antenna card; without a card what the engine takes then. Of area decks
/// without cards only the built-in engine computes one: VOACAP, ICEPAC and the ITS REC533 give no
/// result.
/// @return W: 100, 5000 or 1000; an unknown engine has no deck, and gives 1000 too.
[[nodiscard]] double CardPowerGet(int iModel, int iAntennaType, DeckKind eKind);

/// The power in force.
/// @param dOwn  the user's own power, W; 0: the antenna choice's
[[nodiscard]] double PowerInForceGet(double dOwn, int iModel, int iAntennaType, DeckKind eKind);

/// "100 W", "5 kW".
[[nodiscard]] std::string PowerText(double dPower);

/// What the own power adds to every signal and SNR of the deck's output: 10 log10(P / P card), dB.
/// Exactly 0 without an own power.
[[nodiscard]] double PowerShiftGet(double dOwn, int iModel, int iAntennaType, DeckKind eKind);

/// False for the numbers by which the engines say that there is no SNR: -99, -999 and -999.9, and
/// for not-a-number.
[[nodiscard]] bool SnrGivenIs(float fSnr);

/// An SNR shifted, dB. -99 and the engines' -999 and -999.9 say that there is none: they stay, and
/// so does not-a-number. -99.9 stays too: it is the least that a grid can hold and stands for
/// anything below, so what the power adds to it says nothing.
[[nodiscard]] float PowerShiftSnr(float fSnr, double dShift);

/// Gives a chunk that was read from an output the request's own power: signal and SNR of the
/// frequencies iFirst to iLast. A cell without an SNR keeps its signal. The noise stays, so that
/// signal less noise, which the deciles are counted from, goes with the SNR; LUF and reliability
/// stay those of the deck.
void PowerShiftTable(const Request& request, int iFirst, int iLast, PropagationTable& table);

/// What a request's own power adds to every SNR of an area, dB.
[[nodiscard]] double PowerShiftGet(const AreaRequest& request);
