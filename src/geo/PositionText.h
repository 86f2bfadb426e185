/// @file PositionText.h
/// Reads positions as people write them; all such texts are read here.
///
/// Units:   degrees, north and east positive; texts UTF-8.
/// Domain:  see PositionForm. Only the pasted form checks ranges: 90 and 180 degrees.
/// Errors:  the reason in words for the user ("latitude 91° is beyond 90°"). Entry: "Invalid
///          procedure call or argument" without degree sign or apostrophe, else "Type mismatch".
/// Tests:   tests/geo/PositionTextTest.cpp
#pragma once

#include <optional>
#include <string_view>

#include "system/Result.h"

enum class PositionAxis { Latitude, Longitude };

enum class PositionForm {
    /// "38°30.00'N", as in the entry fields and in Airmail. Lenient: 70 minutes are accepted, and
    /// only the exact letter S or W after the apostrophe makes the angle negative.
    Entry,
    /// A program's argument. Strict, as a slip must not move a ship to the other side of the world:
    /// decimal degrees ("-122.25"), or degrees and minutes (and seconds) with all their signs, the
    /// letter, and each part below 60.
    Argument,
    /// What people copy from elsewhere: "38 30.0N", "38°30'", "38:30:15", "N38°30'15.5\"",
    /// "38.5 S", "38,5", "-122.25". A sign and a letter together are refused.
    Pasted,
};

/// Reads the text of one axis.
[[nodiscard]] Result<double> AngleFromText(std::string_view sText, PositionAxis eAxis,
                                           PositionForm eForm);

/// The contents of a pasted text: one of the two, or both.
struct PositionRead {
    std::optional<double> dLat;
    std::optional<double> dLon;
};

/// Reads a pasted text: one angle in the pasted form, two of them ("24.308, -110.403",
/// "24°18.50'N 110°24.20'W"; in the other order if letters say so), or a grid square.
/// A comma is a decimal comma if it has digits on both sides and the text has no point, so "24,308"
/// is one number and "24, 308" are two.
/// @param eAxis  the axis of a single angle; an angle with a letter of the other axis is refused
[[nodiscard]] Result<PositionRead> PositionFromText(std::string_view sText, PositionAxis eAxis);

/// The middle of a Maidenhead square of 4 or 6 characters ("FN42", "fn42mm"): two letters A to R,
/// two digits, two letters A to X. Blanks around it do not matter.
/// @return nothing for any other text
[[nodiscard]] std::optional<PositionRead> GridSquareFromText(std::string_view sText);
