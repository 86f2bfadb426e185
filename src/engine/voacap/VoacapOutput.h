/// @file VoacapOutput.h
/// Tells a complete VOACAP output from a cut or foreign one.
///
/// voacapl ends with exit status 0 on most of its failures, so nothing but the output itself proves
/// that a run was good.
///
/// Units:   frequencies in MHz.
/// Errors:  a text that says what is missing.
/// Tests:   tests/engine/voacap/VoacapOutputTest.cpp
#pragma once

#include <span>
#include <string>

#include "system/Result.h"

/// Point to point: a block for each of the 24 hours, each with the wanted frequencies in order and
/// with its last row, and the trailer "END OF RUN" at the end.
Result<void> VoacapOutputPointCheck(const std::string& sPath, std::span<const double> aFrequencies);

/// Area: the head and exactly nGrid x nGrid points in grid order, none cut before the end of its
/// SNR.
Result<void> VoacapOutputGridCheck(const std::string& sPath, int nGrid);
