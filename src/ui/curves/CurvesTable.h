/// @file CurvesTable.h
/// The values of a day's curves as a table: one row per hour; MUF, FOT, LUF and each frequency.
///
/// Units:   kHz in the columns MUF, FOT and LUF; dB in the columns of frequencies.
/// Tests:   tests/ui/curves/CurvesTableTest.cpp
#pragma once

#include "studies/curves/Curves.h"
#include "ui/common/HourLabels.h"
#include "ui/page/PageGrid.h"

/// @param sZone  title of the hours' column
/// @param fNeed  dB; cells that meet it are marked
[[nodiscard]] PageGrid CurvesTableGet(const DayCurves& day, const HourLabels& asHour,
                                      const QString& sZone, float fNeed);

/// A cell in words: "14100 kHz, 15 Zulu: 48 dB", or "no value" in place of the number.
/// @param iHour    0 to 23, UTC
[[nodiscard]] QString CurvesCellText(const CurveRibbon& ribbon, int iHour, const HourLabels& asHour,
                                     const QString& sZone);
