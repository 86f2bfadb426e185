/// @file MathLib.h
/// Text form of latitude and longitude, great-circle angle, Mercator projection, small numeric
/// helpers of the map.
///
/// Units:   angles in decimal degrees, north and east positive; central angles in radians.
/// Domain:  any finite value; ranges are not checked (70 minutes are accepted).
/// Texts:   UTF-8; 38.5 is 38°30.00'N, -122.25 is 122°15.00'W. Minutes are rounded by their pattern
///          only, so 38.99999 is 38°60.00'N, which the parser accepts.
/// Errors:  see each procedure; a not-a-number argument gives a not-a-number result.
/// Tests:   tests/geo/MathLibTest.cpp
#pragma once

#include <string>
#include <string_view>

#include "system/Message.h"
#include "system/Result.h"

/// Largest absolute latitude and longitude, degrees. The conversions below check neither.
inline constexpr double kLatitudeMost = 90.0;
inline constexpr double kLongitudeMost = 180.0;
/// False outside these limits, and for not-a-number.
[[nodiscard]] constexpr bool PositionInRange(double dLatitude, double dLongitude)
{
    return dLatitude >= -kLatitudeMost && dLatitude <= kLatitudeMost
           && dLongitude >= -kLongitudeMost && dLongitude <= kLongitudeMost;
}

/// The value of pi that all angle conversions here use.
inline constexpr double kPi = 3.14159265358979;

[[nodiscard]] std::string LatitudeToText(double dLatitude);    ///< two-digit degrees, N or S
[[nodiscard]] std::string LongitudeToText(double dLongitude);  ///< three-digit degrees, E or W

/// Parses the text form. On failure the output is untouched and a warning is added to paMessages,
/// if there is one: "Unable for decode Latitude " (or Longitude) and the text as typed.
bool TextToLatitude(std::string_view sText, double& dLatitude, Messages* paMessages);
bool TextToLongitude(std::string_view sText, double& dLongitude, Messages* paMessages);

/// Central angle between two points, radians, [0, pi]. Returns pi when half the chord is 1 or more
/// (antipodes and rounding beyond them).
[[nodiscard]] double GreatCircleAngle(double dLat1, double dLon1, double dLat2, double dLon2);

/// Arc sine in radians by arctangent. The error is "Division by zero" at x = 1 and -1, and "Invalid
/// procedure call or argument" beyond them (square root of a negative number).
[[nodiscard]] Result<double> ArcSin(double dX);

/// Mercator ordinate of a latitude: ln tan(pi/4 + lat/2).
[[nodiscard]] double MercatorY(double dLatitude);
/// Latitude of a Mercator ordinate, in degrees.
[[nodiscard]] double MercatorLatitude(double dY);

/// Base-10 logarithm, as ln x / ln 10.
[[nodiscard]] double Log10(double dX);
/// a when b > a, otherwise b.
[[nodiscard]] double Min(double dA, double dB);
/// a when b < a, otherwise b.
[[nodiscard]] double Max(double dA, double dB);
