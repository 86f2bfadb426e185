/// @file HourLabels.h
/// What the hours of a prediction are called under the time setting: "15", or "20:30" in zones that
/// are not on whole hours.
///
/// Tests:   tests/ui/common/HourLabelsTest.cpp, tests/ui/main/FrmMainTableTest.cpp
#pragma once

#include <QString>
#include <array>

#include "settings/Settings.h"

/// Labels of the hours 0 to 23 of UTC, at their beginning.
using HourLabels = std::array<QString, 24>;

/// @param iTimeCode  TimeCode
[[nodiscard]] HourLabels HourLabelsGet(int iTimeCode);

/// "Zulu" or "Local".
[[nodiscard]] QString HourZoneGet(int iTimeCode);

/// A label with its minutes, "15:00".
[[nodiscard]] QString HourTimeGet(const QString& sLabel);
