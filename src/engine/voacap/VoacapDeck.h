/// @file VoacapDeck.h
/// Hopcast's VOACAP decks as the Linux port voacapl accepts them.
///
/// voacapl reads the same cards as VOACAP for Windows, but reads a blank card as the next command,
/// finds the cards of an area deck by different labels, and does not accept backslashes in file
/// names.
///
/// Units:   frequencies in MHz.
/// Errors:  a text with the card (and its columns) that cannot be used.
/// Source:  measured on voacapl 0.7.6.
/// Tests:   tests/engine/voacap/VoacapDeckTest.cpp
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "system/Result.h"

/// An antenna file as a deck names it.
struct VoacapAntenna {
    std::string sFolder;  ///< "DEFAULT"
    std::string sFile;    ///< "CONST17.VOA"
};

struct VoacapDeck {
    std::string sText;                     ///< the deck for voacapl, with LF line ends
    std::vector<VoacapAntenna> aAntennas;  ///< in the order of the cards
    std::vector<double> aFrequencies;      ///< point to point: one to ten
    int nGrid = 0;                         ///< area: points per side
};

/// A point-to-point deck: the blank card after FREQUENCY is removed.
[[nodiscard]] Result<VoacapDeck> VoacapDeckPoint(std::string_view sDeck);

/// An area deck: "PCenter" and "Sssns" get voacapl's spelling, and the line "Qindexs" is removed
/// (voacapl stops at its number; its default is the same 0).
[[nodiscard]] Result<VoacapDeck> VoacapDeckArea(std::string_view sDeck);
