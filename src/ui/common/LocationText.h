/// @file LocationText.h
/// Pasted positions and the form of the entry fields, in the windows' texts.
///
/// Units:   degrees, north and east positive.
/// Domain:  latitudes to 90, longitudes to 180 degrees, minutes and seconds below 60.
/// Errors:  the reason as a user reads it, for a text that is not wholly a position.
/// Tests:   tests/ui/common/LocationTextTest.cpp, tests/geo/PositionTextTest.cpp
#pragma once

#include <QString>

#include "geo/PositionText.h"

using LocationKind = PositionAxis;

/// As PositionFromText: one of the two coordinates or both.
[[nodiscard]] Result<PositionRead> LocationFromText(LocationKind eKind, const QString& sText);

/// The entry field's form of a value.
[[nodiscard]] QString LocationToText(LocationKind eKind, double dValue);
/// Both of them, a blank between.
[[nodiscard]] QString PositionToText(double dLat, double dLon);
