/// @file ReachGrid.h
/// The list of stations as a grid, and as a table for export.
///
/// Tests:   tests/ui/plan/FrmReachTest.cpp
#pragma once

#include <optional>
#include <vector>

#include "studies/reach/ReachList.h"
#include "ui/common/GridControl.h"
#include "ui/common/HourLabels.h"
#include "ui/page/PageGrid.h"

/// Columns of the grid; the hours 0 to 23 UTC begin at kReachHour.
inline constexpr int kReachStation = 0;
inline constexpr int kReachChannel = 1;
inline constexpr int kReachNow = 2;
inline constexpr int kReachMargin = 3;
inline constexpr int kReachHour = 4;
inline constexpr int kReachOpen = kReachHour + kReachHours;
inline constexpr int kReachBearing = kReachOpen + 1;
inline constexpr int kReachRange = kReachBearing + 1;

/// Sets titles, widths and the texts for screen readers.
void ReachGridLayout(GridControl& grd, const HourLabels& asHour);
/// Fills in one row for each index into RowsGet.
void ReachGridFill(GridControl& grd, const Reach& reach, const std::vector<std::size_t>& aRows,
                   const HourLabels& asHour);
/// The rows as a table, with rank, station and description in columns of their own.
[[nodiscard]] PageGrid ReachPageGrid(const Reach& reach, const std::vector<std::size_t>& aRows,
                                     const HourLabels& asHour);
/// A cell in words, for its tooltip and for screen readers.
[[nodiscard]] QString ReachCellText(const Reach& reach, std::size_t iRow, int iCol,
                                    const HourLabels& asHour, const QString& sZone);
/// The UTC hour of a column.
[[nodiscard]] std::optional<int> ReachHourOf(int iCol);
/// The order that a click on a column's title chooses.
[[nodiscard]] std::optional<ReachOrder> ReachOrderOf(int iCol);
