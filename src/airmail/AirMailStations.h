/// @file AirMailStations.h
/// Airmail's station lists: the data folder has a file System.NAME.ini for each radio e-mail
/// system, whose section "[Station Info]" has a line "key=grid:description;rest" for each station.
///
/// Units:   degrees, north and east positive.
/// Texts:   UTF-8 here, Windows-1252 in the files.
/// Errors:  one message each, ending with the hint to check the data folder.
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

/// One line of a station list, split into its parts.
struct StationEntry {
    std::string sKey;
    std::optional<std::string> sGrid;  ///< before the first ":"; nothing without one
    std::string sDescription;          ///< between the first ":" and the first ";"
    std::string sRest;                 ///< after the first ";"; of a cut value in whole words
};

/// The systems that have a station file, in directory order: the text between the first two points
/// of each file's name, so that System.HAM.ini and System.HAM.old.ini both give HAM.
/// @param nCount  names in the list, which replaces the contents of asName.
/// @return false, with a message, when there is none.
bool AirMailGetSystems(int& nCount, TextList& asName, Messages* paMessages);

/// The station keys of one system, in the file's order, from the line "[Station Info]" (exactly
/// so) to the first line without "=". Keys are not trimmed.
/// @param nCount  keys in the list, which replaces the contents of asKey.
/// @return false, with a message, when the file cannot be opened or read or has no key.
bool AirMailGetStations(const std::string& sSystem, int& nCount, TextList& asKey,
                        Messages* paMessages);

/// The same lines with their contents, each cut as the reader of one key cuts it; the file is read
/// once. A line that begins with ";" is a remark and left out. Lines with the same key are all
/// included, each with its own text. Nothing is checked.
bool AirMailGetEntries(const std::string& sSystem, std::vector<StationEntry>& aEntry,
                       Messages* paMessages);

/// The position of a station by the grid square of its entry.
/// @param bShowError  add a message for a missing entry; a grid that cannot be converted always
///                    gets one.
/// @param psFault     if not null, receives file, key and grid of a position out of range
///                    (PositionInRange), which counts as none; with bShowError it gets a message.
/// @return true when found, else the outputs are untouched; "Invalid procedure call or argument"
///         for an entry without ":", for which no message is added.
Result<bool> AirMailStationPosition(const std::string& sSystem, const std::string& sKey,
                                    double& dLatitude, double& dLongitude, bool bShowError,
                                    Messages& aMessages, std::string* psFault = nullptr);

/// The entry's text between its first ":" and its first ";" (or its end); empty without a ":".
/// @param paMessages  gets a message for a missing entry.
[[nodiscard]] std::string AirMailStationDescription(const std::string& sSystem,
                                                    const std::string& sKey, Messages* paMessages);
