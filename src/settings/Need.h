/// @file Need.h
/// A need: a kind of contact and the signal-to-noise ratio that it needs; and the list of needs
/// that the user edits.
///
/// Units:   dB in 1 Hz. A figure in 2500 Hz is 34 dB higher in 1 Hz.
/// Domain:  kRangeNeed (SettingsRange.h); names of 1 to 40 characters, unique without regard to the
///          case of ASCII letters, none a number; sources up to 120 characters; at most 50 needs.
///          Names and sources contain what the profile can keep: printable characters of
///          Windows-1252, no double quotes.
/// Errors:  texts for the user; a refused change leaves the list as it was.
/// Tests:   tests/settings/NeedTest.cpp
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "system/Result.h"

struct Need {
    std::string sName;
    float fSnr = 0.0F;    ///< required SNR, dB in 1 Hz
    std::string sSource;  ///< where the figure is from

    bool operator==(const Need&) const = default;
};

using NeedList = std::vector<Need>;

inline constexpr std::size_t kNeedNameMost = 40;     ///< characters
inline constexpr std::size_t kNeedSourceMost = 120;  ///< characters
inline constexpr int kNeedMax = 50;                  ///< entries that a list can hold

/// The need that is used if one is required and none is chosen.
inline constexpr std::string_view kNeedFallback = "E-mail, normal";

/// The list that Hopcast ships with, to which the user can restore the list.
[[nodiscard]] NeedList NeedsShipped();

/// The need of this name, without regard to the case of ASCII letters and to blanks at its ends.
/// @return nullptr if there is none; valid until the list changes.
[[nodiscard]] const Need* NeedFind(const NeedList& needs, std::string_view sName);

/// A need by its name, or a ratio in dB by its number ("40", "12.5"), which has no name and the
/// source "typed".
[[nodiscard]] Result<Need> NeedFromText(const NeedList& needs, std::string_view sText);

/// The current need: the chosen one; if none is chosen, or it is no longer in the list, the
/// fallback as in the list, or else as shipped.
[[nodiscard]] Need NeedInForce(const NeedList& needs, std::string_view sChosen);

/// Adds a need at the list's end, with its texts trimmed.
Result<void> NeedAdd(NeedList& needs, const Need& need);
/// Replaces the need of this name; the new one may have another name.
Result<void> NeedChange(NeedList& needs, std::string_view sName, const Need& need);
/// Removes a need. The last one cannot be removed.
Result<void> NeedRemove(NeedList& needs, std::string_view sName);
