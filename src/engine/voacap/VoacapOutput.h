/// @file VoacapOutput.h
/// Checks that a VOACAP output is complete and the right one.
///
/// voacapl ends with exit status 0 after most failures, so only the output itself proves that a run
/// succeeded.
///
/// Units:   frequencies in MHz.
/// Errors:  a text that says what is missing.
/// Tests:   tests/engine/voacap/VoacapOutputTest.cpp
#pragma once

#include <span>
#include <string>

#include "system/Result.h"

/// Point to point: a block for each of the 24 hours, each with the requested frequencies in order
/// and with its last row, and the trailer "END OF RUN" at the end.
Result<void> VoacapOutputPointCheck(const std::string& sPath, std::span<const double> aFrequencies);

/// Area: the head and exactly nGrid x nGrid points in grid order, none cut before the end of its
/// SNR.
Result<void> VoacapOutputGridCheck(const std::string& sPath, int nGrid);
