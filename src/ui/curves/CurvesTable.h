/// @file CurvesTable.h
/// The values of a day's curves as a table: a row for each hour; MUF, FOT, LUF and each frequency.
///
/// Units:   kHz below MUF, FOT and LUF; dB below the frequencies.
/// Tests:   tests/ui/curves/CurvesTableTest.cpp
#pragma once

#include "studies/curves/Curves.h"
#include "ui/common/HourLabels.h"
#include "ui/page/PageGrid.h"

/// @param sZone  the title of the hours
/// @param fNeed  dB; cells that meet it are strong
[[nodiscard]] PageGrid CurvesTableGet(const DayCurves& day, const HourLabels& asHour,
                                      const QString& sZone, float fNeed);

/// "14100 kHz, 15 Zulu: 48 dB" of a cell, or "no value" for its number.
/// @param iHour    0 to 23, UT
[[nodiscard]] QString CurvesCellText(const CurveRibbon& ribbon, int iHour, const HourLabels& asHour,
                                     const QString& sZone);
