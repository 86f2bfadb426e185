/// @file PositionText.h
/// The one reader of positions as people write them.
///
/// Units:   degrees, north and east positive; texts UTF-8.
/// Domain:  see the form. Only the pasted form checks ranges: 90 and 180 degrees.
/// Errors:  the reason as a user reads it ("latitude 91° lies beyond 90°"). Entry: "Invalid
///          procedure call or argument" without degree sign or apostrophe, else "Type mismatch".
/// Tests:   tests/geo/PositionTextTest.cpp
#pragma once

#include <optional>
#include <string_view>

#include "system/Result.h"

enum class PositionAxis { Latitude, Longitude };

enum class PositionForm {
    /// The entry fields' and Airmail's "38°30.00'N". Lenient: 70 minutes are accepted, and only the
    /// very letter S or W behind the apostrophe turns the sign.
    Entry,
    /// A program's argument. Strict, as a slip must not move a ship to the other side of the world:
    /// decimal degrees ("-122.25"), or degrees, minutes (seconds) with all signs and the letter and
    /// each part below 60.
    Argument,
    /// What people copy from elsewhere: "38 30.0N", "38°30'", "38:30:15", "N38°30'15.5\"", "38.5
    /// S",
    /// "38,5", "-122.25". A sign and a letter together are refused.
    Pasted,
};

/// Reads the text of one axis.
[[nodiscard]] Result<double> AngleFromText(std::string_view sText, PositionAxis eAxis,
                                           PositionForm eForm);

/// What a pasted text holds: one of the two, or both.
struct PositionRead {
    std::optional<double> dLat;
    std::optional<double> dLon;
};

/// Reads a pasted text: one angle in the pasted form, two of them ("24.308, -110.403",
/// "24°18.50'N 110°24.20'W"; in the other order where letters say so), or a grid square.
/// A comma is a decimal comma where digits stand on both sides and the text has no point, so
/// "24,308" is one number and "24, 308" are two.
/// @param eAxis  what a lone angle is; one whose letter says otherwise is refused
[[nodiscard]] Result<PositionRead> PositionFromText(std::string_view sText, PositionAxis eAxis);

/// The middle of a Maidenhead square of 4 or 6 characters ("FN42", "fn42mm"): two letters A to R,
/// two digits, two letters A to X. Blanks around do not matter.
/// @return nothing for another text
[[nodiscard]] std::optional<PositionRead> GridSquareFromText(std::string_view sText);
