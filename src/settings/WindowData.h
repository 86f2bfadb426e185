/// @file WindowData.h
/// The places of the windows when they were closed.
///
/// Units:   twips: pixels times 15, of the outer frame.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

struct WindowData {
    float fHeight = 0;
    float fLeft = 0;
    float fTop = 0;
    float fWidth = 0;

    bool operator==(const WindowData&) const = default;
};

/// The windows of the Plan menu.
enum class PlanName { Reach, Curves, Days, Compare, Card, Places };

/// Their names in the profile, "Reach Window Data" and so on.
inline constexpr std::array<std::string_view, 6> kPlanNames = {"Reach",   "Curves", "Days",
                                                               "Compare", "Card",   "Places"};

/// The last place of each, by PlanName; nothing until it was first closed.
using PlanPlaces = std::array<std::optional<WindowData>, kPlanNames.size()>;
