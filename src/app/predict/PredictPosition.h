/// @file PredictPosition.h
/// A position as given on a command line.
/// Tests:   tests/app/PredictOptionsTest.cpp
#pragma once

#include <string>
#include <string_view>

#include "system/Result.h"

struct PredictPosition {
    double dLat = 0;     ///< degrees, north positive, [-90, 90]
    double dLon = 0;     ///< degrees, east positive, [-180, 180]
    std::string sFault;  ///< if out of range: file, key and value; the position is then invalid
    std::string sNote;   ///< where it comes from, if not from the command line itself
};

/// LAT,LON in decimal degrees ("38,-122"), the two degree-minute texts joined by a comma
/// ("38°30.00'N,122°15.00'W"), a Maidenhead square of 4 or 6 characters, "airmail" for Airmail's
/// own position, or SYSTEM:KEY for a station of its lists ("ham:KE5HHR"; both ignore case).
/// @return the position, or what is wrong with the text.
[[nodiscard]] Result<PredictPosition> PredictPositionGet(std::string_view sText);
