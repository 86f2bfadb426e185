/// @file Need.h
/// What a contact is for, as the signal-to-noise ratio that it needs. The user edits the list; none
/// is chosen until he chooses one.
///
/// Units:   dB in 1 Hz.
/// Source:  with each entry of the shipped list.
/// Tests:   tests/settings/NeedTest.cpp
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Entries that a list can hold.
inline constexpr int kNeedMax = 50;

struct Need {
    std::string sName;
    float fSnr = 0.0F;    ///< dB in 1 Hz
    std::string sSource;  ///< where the number comes from
    friend bool operator==(const Need&, const Need&) = default;
};

/// The list that Hopcast begins with.
[[nodiscard]] std::vector<Need> NeedsShipped();

/// The first entry of a name; nullptr where there is none.
[[nodiscard]] const Need* NeedFind(const std::vector<Need>& aNeed, std::string_view sName);
