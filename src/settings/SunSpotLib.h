/// @file SunSpotLib.h
/// The sunspot number of the next prediction.
///
/// Units:   smoothed sunspot number, single precision.
/// Tests:   tests/settings/SunSpotLibTest.cpp
#pragma once

#include "settings/Settings.h"
#include "system/Message.h"
#include "system/Result.h"

/// With m_bPropagationSunSpotNumber set, Airmail's number is first stored in
/// m_fPropagationSunSpotNumber; that member is the answer.
/// @param fNumber  untouched unless the result is true.
/// @return true; false when Airmail has no number (paMessages is told; the stored number stays);
///         "Type mismatch" or "Overflow" when Airmail's text is no number, and in words, with file
///         and key, that it is out of range; these are no messages yet.
Result<bool> SunSpotNumberGet(Settings& settings, float& fNumber, Messages* paMessages);
