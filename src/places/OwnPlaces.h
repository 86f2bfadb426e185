/// @file OwnPlaces.h
/// My places: the user's own list, a table of comma-separated values beside the profile (for
/// hopcast.ini it is hopcast.places.csv). docs/files.md has its columns.
///
/// Text:    UTF-8 with or without a byte order mark, LF or CR LF; fields by RFC 4180.
/// Domain:  at most 4 MB and 10000 rows; names of 1 to 60 characters, notes of up to 200, up to 30
///          frequencies of 1600 to 30000 kHz; positions in any spelling that a position field takes
///          (geo/PositionText.h).
/// Errors:  texts for the user. A row that cannot be used is told by its line and kept where it
///          stands; a file that is no list of places is refused whole, so that it is never
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

/// A row as its owner wrote it.
struct OwnPlaceTexts {
    std::string sName;
    std::string sPosition;
    std::string sFrequencies;
    std::string sNote;

    bool operator==(const OwnPlaceTexts&) const = default;
};

/// A row of the list: a place, or a text that is none.
struct OwnPlace {
    OwnPlaceTexts texts;
    Place place;         ///< what the texts say; not for a row with a fault
    std::string sRaw;    ///< of a row with a fault: its bytes as they stand
    std::string sFault;  ///< empty; else why it cannot be used
    int nLine = 0;       ///< where it was read from, from 1; 0: not from a file

    bool operator==(const OwnPlace&) const = default;
};

struct OwnPlaceList {
    std::vector<OwnPlace> aRows;
    bool bMark = false;  ///< the file begins with a byte order mark
    bool bCrLf = false;  ///< its lines end with CR LF

    bool operator==(const OwnPlaceList&) const = default;
};

/// A place of its texts, blanks around them dropped.
[[nodiscard]] Result<OwnPlace> OwnPlaceMake(OwnPlaceTexts texts);

/// The places of a list that can be used.
[[nodiscard]] std::vector<Place> OwnPlacesGet(const OwnPlaceList& list);
/// The rows that cannot.
[[nodiscard]] std::vector<PlaceFault> OwnPlaceFaultsGet(const OwnPlaceList& list);

/// The list of a file's bytes; no bytes are an empty list.
[[nodiscard]] Result<OwnPlaceList> OwnPlacesParse(std::string_view sBytes);
/// The rows of a pasted text: as in the file or with tabs between the columns, as tables are
/// copied, row by row; the last columns may be missing. The file's first line may stand anywhere,
/// and says nothing.
[[nodiscard]] Result<OwnPlaceList> OwnPlacesFromPaste(std::string_view sText);
/// The bytes of a list: its places anew, its other rows as they stood.
/// @return an error where a reader would not find the same rows, as a lost quote before can bring
///         about.
[[nodiscard]] Result<std::string> OwnPlacesText(const OwnPlaceList& list);

/// Path of a profile's list.
[[nodiscard]] std::string OwnPlacesPath(std::string_view sProfileFile);
/// A profile's list; an empty one where there is no file.
[[nodiscard]] Result<OwnPlaceList> OwnPlacesLoad(std::string_view sProfileFile);
/// Puts a list in the place of the profile's.
Result<void> OwnPlacesSave(const std::string& sProfileFile, const OwnPlaceList& list);
