/// @file GridSquareLib.h
/// Maidenhead grid squares to positions, with the sub-square scale that is used here for station
/// lists.
///
/// Units:   degrees, north and east positive.
/// Domain:  any text of 4 or of at least 6 characters; letters and digits are not range-checked, so
///          any character gives a value. Characters after the sixth are ignored.
/// Errors:  a text of any other length; added as a plain message, if the caller wants messages.
/// Source:  Maidenhead Locator System (field 10 x 20 degrees, square 1 x 2 degrees). The sub-square
///          letters A to X are spread over 0 to 59 minutes (factor 59/23), not over 2.5 minutes
///          each, and the offset is counted from the south-west corner: positions from squares
///          remain the same as in users' existing files.
/// Tests:   tests/geo/GridSquareLibTest.cpp
#pragma once

#include <string>

#include "system/Message.h"

/// @param sGrid       replaced by its normalised form: upper case, "MM" appended to a square of
///                    exactly 4 characters, so that the point falls near the square's middle.
/// @param dLatitude   degrees; untouched on failure.
/// @param dLongitude  degrees; untouched on failure.
/// @param paMessages  a failure adds "Unable to Convert Grid " + grid + " to Lat/Lon".
/// @return true when converted. FN42 is 42.51304, -70.97391.
bool GridSquareToPosition(std::string& sGrid, double& dLatitude, double& dLongitude,
                          Messages* paMessages);
