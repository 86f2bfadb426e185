/// @file LocationText.h
/// Reads pasted positions and formats positions for the entry fields, in the windows' language.
///
/// Units:   degrees, north and east positive.
/// Domain:  latitudes up to 90, longitudes up to 180 degrees; minutes and seconds below 60.
/// Errors:  the reason, worded for the user, when the text is not entirely a position.
/// Tests:   tests/ui/common/LocationTextTest.cpp, tests/geo/PositionTextTest.cpp
#pragma once

#include <QString>

#include "geo/PositionText.h"

using LocationKind = PositionAxis;

/// Like PositionFromText: reads one of the two coordinates or both.
[[nodiscard]] Result<PositionRead> LocationFromText(LocationKind eKind, const QString& sText);

/// A value in the form of the entry field.
[[nodiscard]] QString LocationToText(LocationKind eKind, double dValue);
/// Both coordinates, separated by a blank.
[[nodiscard]] QString PositionToText(double dLat, double dLon);
