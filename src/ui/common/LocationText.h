/// @file LocationText.h
/// Pasted positions: texts that people copy from elsewhere, turned into the form of the entry
/// fields.
///
/// Units:   degrees, north and east positive.
/// Domain:  latitudes to 90, longitudes to 180 degrees, minutes below 60.
/// Errors:  nothing for a text that is not wholly a position of the wanted kind.
/// Tests:   tests/ui/common/LocationTextTest.cpp
#pragma once

#include <QString>
#include <optional>

enum class LocationKind { Latitude, Longitude };

/// Reads "38°30.00'N", "38 30.0N", "38°30'", "38.5", "38.5 S" or "-122.25"; a hemisphere letter in
/// either case. A sign and a letter together are refused. A Maidenhead grid square of 4 or 6
/// characters ("FN42") gives the wanted one of its two coordinates.
[[nodiscard]] std::optional<double> LocationFromText(LocationKind eKind, const QString& sText);

/// The entry field's form of a value.
[[nodiscard]] QString LocationToText(LocationKind eKind, double dValue);
