/// @file TableView.h
/// The prediction table in the cells of the main grid.
///
/// Units:   frequencies in kHz, SNR in dB; both are shown as whole numbers.
/// Tests:   tests/ui/main/TableViewTest.cpp, FrmMainUpdateTest.cpp
#pragma once

#include "propagation/PropagationTable.h"
#include "settings/Need.h"

class GridControl;

/// Lays out one labelled row for each frequency of the input. A row whose label differs from the
/// table's is emptied, because its values belong to another frequency.
void TableRowsLayout(const Request& input, const PropagationTable& table, GridControl& grd);

/// Fills in text and colours for every hour and frequency. An SNR that is below -99 dB or NaN
/// becomes -99 in the table itself. Cells of a frequency without values are empty and hatched.
void TableShow(PropagationTable& table, GridControl& grd);

/// Marks the cells that meet a need, and no others.
/// @param pNeed  nullptr: none is marked
void TableNeedShow(const PropagationTable& table, const Need* pNeed, GridControl& grd);
