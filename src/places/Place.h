/// @file Place.h
/// A place where a path can begin: a station from Airmail's lists, or one of the user's own places.
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
/// The kind of a station system, as the station menus sort them.
[[nodiscard]] PlaceKind PlaceKindOf(std::string_view sSystem);

struct Place {
    PlaceKind eKind = PlaceKind::Own;
    std::string sSystem;       ///< Airmail's system, as in the file's name; "places" for own places
    std::string sKey;          ///< the station's key, or the own place's name
    std::string sDescription;  ///< the own place's note
    double dLat = 0.0;
    double dLon = 0.0;
    std::vector<float> afFrequency;  ///< its own frequencies, kHz, in their order, none twice

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

/// "2 places cannot be used: HAM XX5BAD (its grid square ...), line 7 (...)"; the first 5 and the
/// number of the others if there are more; empty if there is none.
[[nodiscard]] std::string PlaceFaultsText(const std::vector<PlaceFault>& aFaults);

inline constexpr double kOwnFrequencyLeast = 1600.0;  ///< kHz
inline constexpr double kOwnFrequencyMost = 30000.0;

/// The numbers from 1600.0 to 30000.0 in a text, separated by blanks, commas, slashes and
/// semicolons; each once. Anything else is left out.
/// @param psLeftOut  receives the first part that was left out; untouched if none was
[[nodiscard]] std::vector<float> OwnFrequenciesGet(std::string_view sText,
                                                   std::string* psLeftOut = nullptr);
