/// @file Place.h
/// A place that a path may begin at: a station of Airmail's lists, or one of the user's own.
///
/// Units:   degrees, north and east positive; kHz.
/// Texts:   UTF-8.
/// Tests:   tests/places/PlaceTest.cpp
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum class PlaceKind { Ham, SailMail, Other, Own };

/// "Ham", "SailMail", "Other", "My places".
[[nodiscard]] std::string_view PlaceKindName(PlaceKind eKind);
/// The kind of a system of station lists, as the station menus sort them.
[[nodiscard]] PlaceKind PlaceKindOf(std::string_view sSystem);

struct Place {
    PlaceKind eKind = PlaceKind::Own;
    std::string sSystem;       ///< of Airmail's list, as its file names it; "places" for own
    std::string sKey;          ///< the station's key, the own place's name
    std::string sDescription;  ///< the own place's note
    double dLat = 0.0;
    double dLon = 0.0;
    std::vector<float> afFrequency;  ///< own frequencies, kHz, in their order, none twice

    bool operator==(const Place&) const = default;
};

/// The system name of own places.
inline constexpr std::string_view kOwnSystem = "places";

/// An entry that cannot be used.
struct PlaceFault {
    std::string sWhere;  ///< "HAM XX5BAD", "line 7"
    std::string sWhy;    ///< "its grid square \"FN4\" cannot be read"
    PlaceKind eKind = PlaceKind::Own;

    bool operator==(const PlaceFault&) const = default;
};

/// "2 places cannot be used: HAM XX5BAD (its grid square ...), line 7 (...)", of more than 5 the
/// first 5 and how many more; empty without any.
[[nodiscard]] std::string PlaceFaultsText(const std::vector<PlaceFault>& aFaults);

inline constexpr double kOwnFrequencyLeast = 1600.0;  ///< kHz
inline constexpr double kOwnFrequencyMost = 30000.0;

/// The numbers from 1600.0 to 30000.0 of a text, which blanks, commas, slashes and semicolons
/// separate; each once. What is no such number is left out.
/// @param psLeftOut  receives the first part that was left out; untouched where none was
[[nodiscard]] std::vector<float> OwnFrequenciesGet(std::string_view sText,
                                                   std::string* psLeftOut = nullptr);
