/// @file AirMailStations.h
/// Airmail's station lists: one file System.NAME.ini in the data folder per radio e-mail system,
/// its section "[Station Info]" one line "key=grid:description;rest" per station.
///
/// Units:   degrees, north and east positive.
/// Texts:   UTF-8 here, Windows-1252 in the files.
/// Errors:  one message each, which ends with the hint to check the data folder.
/// Tests:   tests/airmail/AirMailStationsTest.cpp
#pragma once

#include <cassert>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "system/Message.h"
#include "system/Result.h"

/// Texts counted from 1.
class TextList {
public:
    void Add(std::string sText) { m_asText.push_back(std::move(sText)); }
    [[nodiscard]] int CountGet() const { return static_cast<int>(m_asText.size()); }
    /// REQUIRES: 1 <= i <= CountGet().
    [[nodiscard]] const std::string& operator[](int i) const
    {
        assert(i >= 1 && i <= CountGet());
        return m_asText[static_cast<std::size_t>(i - 1)];
    }

private:
    std::vector<std::string> m_asText;
};

/// One line of a station list, cut apart.
struct StationEntry {
    std::string sKey;
    std::optional<std::string> sGrid;  ///< before the first ":"; nothing without one
    std::string sDescription;          ///< between the first ":" and the first ";"
    std::string sRest;                 ///< behind the first ";"
};

/// The systems that have a station file, in directory order: of each name the text between its
/// first two points, so that System.HAM.ini and System.HAM.old.ini both give HAM.
/// @param nCount  names in the list, which replaces what asName held.
/// @return false, with a message, when there is none.
bool AirMailGetSystems(int& nCount, TextList& asName, Messages* paMessages);

/// The station keys of one system, in the file's order, from the line "[Station Info]" (to the
/// letter) to the first line without "=". Keys are not trimmed.
/// @param nCount  keys in the list, which replaces what asKey held.
/// @return false, with a message, when the file cannot be opened or read or holds no key.
bool AirMailGetStations(const std::string& sSystem, int& nCount, TextList& asKey,
                        Messages* paMessages);

/// The same lines with what stands in them, each cut as the reader of one key cuts it; the file is
/// read once. A line that begins with ";" is a remark and left out. Of lines with one key each is
/// there, with its own text. Nothing is checked.
bool AirMailGetEntries(const std::string& sSystem, std::vector<StationEntry>& aEntry,
                       Messages* paMessages);

/// The position of a station by the grid square of its entry.
/// @param bShowError  a message tells a missing entry; a grid that cannot be converted is always
///                    told.
/// @param psFault     where it is not null: receives file, key and grid of a position out of range
///                    (PositionInRange), which counts as none; a message tells it with bShowError.
/// @return true when found, else the outputs are untouched; "Invalid procedure call or argument"
///         for an entry without ":", which is no message yet.
Result<bool> AirMailStationPosition(const std::string& sSystem, const std::string& sKey,
                                    double& dLatitude, double& dLongitude, bool bShowError,
                                    Messages& aMessages, std::string* psFault = nullptr);

/// The entry's text between its first ":" and its first ";" (or its end); empty without a ":".
/// @param paMessages  gets a missing entry.
[[nodiscard]] std::string AirMailStationDescription(const std::string& sSystem,
                                                    const std::string& sKey, Messages* paMessages);
