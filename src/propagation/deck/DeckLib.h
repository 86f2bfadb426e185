/// @file DeckLib.h
/// The text decks that tell an engine what to compute: pure functions from input to bytes.
///
/// Text:    ASCII lines with CR LF on every platform.
/// Errors:  a value that does not fit its field is "Invalid procedure call or argument".
/// Tests:   tests/propagation/DeckTest.cpp (golden decks, byte for byte)
#pragma once

#include <string>

#include "propagation/Request.h"
#include "system/Result.h"

/// Point-to-point deck of ICEPAC and VOACAP: the MUF/LUF table (method 26), then the full system
/// performance (method 20) at the chunk's frequencies.
/// @param iFirst, iLast  frequency indices of the chunk, at most 10 of them
/// @param nYear          the current year of the computer's local clock, for any month
[[nodiscard]] Result<std::string> DeckIcepacVoacap(const Request& input, int iFirst, int iLast,
                                                   int nYear);

/// Point-to-point deck of REC533. It has no Q index, multipath or layer values.
[[nodiscard]] Result<std::string> DeckRec533(const Request& input, int iFirst, int iLast,
                                             int nYear);

/// Area deck of the input's engine. The noise level is written as it is in the input: positive.
[[nodiscard]] Result<std::string> DeckArea(const AreaRequest& input);
