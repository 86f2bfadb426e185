/// @file RunValues.h
/// Month and sunspot number of a run, where the settings leave them to the calendar, to Airmail and
/// to a forecast. Window and console take them here.
///
/// Tests:   tests/propagation/RunValuesTest.cpp
#pragma once

#include <string>

#include "settings/SunSpotLib.h"
#include "system/Message.h"

/// Puts the sunspot number and then the month of the run into the settings.
/// @param aMessages      gets why there is no number
/// @param pSunSpot       where it is not null: gets where the number is from; a request made of the
///                       settings takes its eSource
/// @param sForecastFile  a file to ask instead of the forecast that is kept with the profile
/// @return false when the run has no sunspot number; the month is left as it was
[[nodiscard]] bool RunValuesTake(Settings& settings, Messages& aMessages,
                                 SunSpotRun* pSunSpot = nullptr,
                                 const std::string& sForecastFile = {});
