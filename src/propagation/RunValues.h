/// @file RunValues.h
/// Month and sunspot number of a run, where the settings leave them to the calendar and to Airmail.
/// Window and console take them here.
///
/// Tests:   tests/propagation/RunValuesTest.cpp
#pragma once

#include "settings/Settings.h"
#include "system/Message.h"

/// Puts the sunspot number and then the month of the run into the settings.
/// @param aMessages  gets why there is no number
/// @return false when the run has no sunspot number; the month is left as it was
[[nodiscard]] bool RunValuesTake(Settings& settings, Messages& aMessages);
