/// @file FrequencyText.h
/// The list of frequencies as text for the user to edit, one frequency per line, and the amateur
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

/// A line that was refused.
struct FrequencyRefused {
    int iLine = 0;      ///< from 1
    std::string sHint;  ///< what is wrong with it, in brief: "13,992 has a comma"
};

/// Entries 1..nCount in whole kHz, with no line break after the last one.
[[nodiscard]] std::string FrequencyListToText(int nCount, const FrequencyGetFn& fnGet);

/// Converts line by line. Each frequency is stored before the next line is read; nCount is set once
/// all are stored. A line that is not a number ends the conversion with a message box: frequencies
/// before it stay stored and nCount is unchanged. So a line break at the end always fails, on the
/// empty last line. Of more than 15 lines the first 15 are taken, nCount becomes 15, and a message
/// box says so.
/// @param pRefused  receives the line that ended the conversion
/// @return true if every line was taken
bool FrequencyListFromText(std::string_view sText, const FrequencySetFn& fnSet, int& nCount,
                           FrequencyRefused* pRefused = nullptr);

/// The middle of a band in whole kHz: "7225 - 7300  (40 m)" gives "7263".
/// @return nothing for a text that does not begin with two numbers and a dash between them
[[nodiscard]] std::optional<std::string> BandMiddleGet(std::string_view sBand);
