/// @file RunValues.h
/// Month and sunspot number of a run, if the settings leave them to the calendar, to Airmail or to
/// a forecast. Windows and console programs both get them here.
///
/// Tests:   tests/propagation/RunValuesTest.cpp
#pragma once

#include <string>

#include "settings/SunSpotLib.h"
#include "system/Message.h"

/// Puts the sunspot number and then the month of the run into the settings.
/// @param aMessages      gets the reason when there is no number
/// @param pSunSpot       if not null, gets the number's source; put its eSource into the request
/// @param sForecastFile  a file to use instead of the forecast that is kept with the profile
/// @return false when the run has no sunspot number; the month is then unchanged
[[nodiscard]] bool RunValuesTake(Settings& settings, Messages& aMessages,
                                 SunSpotRun* pSunSpot = nullptr,
                                 const std::string& sForecastFile = {});
