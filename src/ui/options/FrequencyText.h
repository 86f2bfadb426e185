/// @file FrequencyText.h
/// The frequency list as the text that the user edits, one frequency a line, and the amateur
/// bands.
///
/// Units:   kHz.
/// Texts:   UTF-8; lines are separated, not ended, by carriage return + line feed.
/// Tests:   tests/ui/options/FrequencyTextTest.cpp
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// Reads or stores an entry of the frequency list, index from 1.
using FrequencyGetFn = std::function<float(int iIndex)>;
using FrequencySetFn = std::function<void(int iIndex, float fKhz)>;

/// A line that was not taken.
struct FrequencyRefused {
    int iLine = 0;      ///< from 1
    std::string sHint;  ///< what is wrong with it, short: "13,992 has a comma"
};

/// Entries 1..nCount in whole kHz, without a line break behind the last one.
[[nodiscard]] std::string FrequencyListToText(int nCount, const FrequencyGetFn& fnGet);

/// Converts line by line; each frequency is stored before the next line is looked at, and nCount
/// set when all were. A line that is no number stops the walk with a box: what was stored before it
/// stays stored, nCount stays as it is. So a line break at the end always fails, on its empty last
/// line. Of more than 15 lines the first 15 are taken, nCount becomes 15, and a box says so.
/// @param pRefused  gets the line that stopped the walk.
/// @return true when every line was taken.
bool FrequencyListFromText(std::string_view sText, const FrequencySetFn& fnSet, int& nCount,
                           FrequencyRefused* pRefused = nullptr);

/// The middle of a band, rounded to whole kHz as the list shows it: "7225 - 7300  (40 m)" gives
/// "7263".
/// @return nothing for a text that does not start with two numbers and a dash between them.
[[nodiscard]] std::optional<std::string> BandMiddleGet(std::string_view sBand);
