/// @file OwnPlaces.h
/// My places: the user's own list, a table of comma-separated values beside the profile (for
/// hopcast.ini it is hopcast.places.csv). docs/files.md describes its columns.
///
/// Text:    UTF-8 with or without a byte order mark, LF or CR LF; fields by RFC 4180.
/// Domain:  at most 4 MB and 10000 rows; names of 1 to 60 characters, notes of up to 200, up to 30
///          frequencies of 1600 to 30000 kHz; positions in any spelling that a position field takes
///          (geo/PositionText.h).
/// Errors:  texts for the user. A row that cannot be used is reported with its line and kept in its
///          place; a file that is not a list of places is refused as a whole, so that it is never
///          overwritten. A failed save leaves the old file whole.
/// Tests:   tests/places/OwnPlacesTest.cpp, tests/fuzz/fuzz_own_places.cpp
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "places/Place.h"
#include "system/Result.h"

inline constexpr std::string_view kOwnPlacesHead = "name,position,frequencies,note";
inline constexpr std::size_t kOwnPlacesBytesMost = std::size_t{4} << 20;
inline constexpr std::size_t kOwnPlacesMost = 10000;
inline constexpr std::size_t kOwnNameMost = 60;   ///< characters
inline constexpr std::size_t kOwnNoteMost = 200;  ///< characters
inline constexpr std::size_t kOwnFrequenciesMost = 30;

/// A row as the user wrote it.
struct OwnPlaceTexts {
    std::string sName;
    std::string sPosition;
    std::string sFrequencies;
    std::string sNote;

    bool operator==(const OwnPlaceTexts&) const = default;
};

/// A row of the list: a place, or a text that cannot be used as one.
struct OwnPlace {
    OwnPlaceTexts texts;
    Place place;         ///< the place of the texts; unused in a row with a fault
    std::string sRaw;    ///< of a row with a fault: its bytes, unchanged
    std::string sFault;  ///< why it cannot be used; else empty
    int nLine = 0;       ///< where it was read from, from 1; 0: not from a file

    bool operator==(const OwnPlace&) const = default;
};

struct OwnPlaceList {
    std::vector<OwnPlace> aRows;
    bool bMark = false;  ///< the file begins with a byte order mark
    bool bCrLf = false;  ///< its lines end with CR LF

    bool operator==(const OwnPlaceList&) const = default;
};

/// Makes a place from its texts, without the blanks around them.
[[nodiscard]] Result<OwnPlace> OwnPlaceMake(OwnPlaceTexts texts);

/// The places of a list that can be used.
[[nodiscard]] std::vector<Place> OwnPlacesGet(const OwnPlaceList& list);
/// The rows that cannot be used.
[[nodiscard]] std::vector<PlaceFault> OwnPlaceFaultsGet(const OwnPlaceList& list);

/// The list in a file's bytes; an empty file is an empty list.
[[nodiscard]] Result<OwnPlaceList> OwnPlacesParse(std::string_view sBytes);
/// The rows of a pasted text, each as in the file or, as tables are copied, with tabs between the
/// columns; the last columns may be missing. The file's heading line may occur anywhere and is
/// skipped.
[[nodiscard]] Result<OwnPlaceList> OwnPlacesFromPaste(std::string_view sText);
/// The bytes of a list: its places written again, its other rows unchanged.
/// @return an error if reading these bytes would not give the same rows, which a missing quote in
///         an earlier row can cause.
[[nodiscard]] Result<std::string> OwnPlacesText(const OwnPlaceList& list);

/// Path of a profile's list.
[[nodiscard]] std::string OwnPlacesPath(std::string_view sProfileFile);
/// A profile's list; empty if there is no file.
[[nodiscard]] Result<OwnPlaceList> OwnPlacesLoad(std::string_view sProfileFile);
/// True if a profile's file no longer has the rows of this list, which was loaded from it or saved
/// to it: another program has written it since, and a save would lose that. False without a file.
[[nodiscard]] bool OwnPlacesChanged(std::string_view sProfileFile, const OwnPlaceList& list);
/// Replaces the profile's list.
Result<void> OwnPlacesSave(const std::string& sProfileFile, const OwnPlaceList& list);
