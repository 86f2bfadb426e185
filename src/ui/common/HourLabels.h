/// @file HourLabels.h
/// Labels of a prediction's hours under the time setting: "15", or "20:30" in time zones that are
/// not a whole number of hours from UTC.
///
/// Tests:   tests/ui/common/HourLabelsTest.cpp, tests/ui/main/FrmMainTableTest.cpp
#pragma once

#include <QString>
#include <array>

#include "settings/Settings.h"

/// Labels of the beginnings of the hours 0 to 23 UTC.
using HourLabels = std::array<QString, 24>;

/// @param iTimeCode  a TimeCode
[[nodiscard]] HourLabels HourLabelsGet(int iTimeCode);

/// "Zulu" or "Local".
[[nodiscard]] QString HourZoneGet(int iTimeCode);

/// A label with its minutes, "15:00".
[[nodiscard]] QString HourTimeGet(const QString& sLabel);
