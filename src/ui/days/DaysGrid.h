/// @file DaysGrid.h
/// Days in ten by frequency and hour, as cells of a grid or page and in words.
///
/// Units:   dB in 1 Hz; kHz; hours 1 to 24.
/// Tests:   tests/ui/plan/FrmDaysTest.cpp
#pragma once

#include "studies/days/Days.h"
#include "ui/common/GridControl.h"
#include "ui/common/HourLabels.h"
#include "ui/page/PageGrid.h"

/// The days of one table for one need.
struct DaysTable {
    PropagationTable table;
    CellArray<DaysCell> aCells{0};
};

/// From grey for none to green for all ten, darker with each day.
/// @param nDays  0 to 10
[[nodiscard]] QColor DaysColor(int nDays);

/// "14000".
[[nodiscard]] QString DaysRowText(const DaysTable& days, int iFrequency);

/// Fills the rows of the table's frequencies; the columns are the hours (HourColumns). Cells
/// without deciles are empty and hatched.
void DaysGridFill(GridControl& grd, const DaysTable& days);
[[nodiscard]] PageGrid DaysPageGrid(const DaysTable& days, const HourLabels& asHour);

/// "19 h: 58, on a bad day 43, on a good day 66; 9 days in ten".
[[nodiscard]] QString DaysCellText(const DaysTable& days, int iHour, int iFrequency,
                                   const HourLabels& asHour);

/// "7000, 14000": the frequencies that have no deciles in any hour; empty if there are none.
[[nodiscard]] QString DaysAbsentText(const DaysTable& days);
