/// @file TableView.h
/// The prediction table as rows and cells of the main grid.
///
/// Units:   frequencies in kHz, SNR in dB; both shown as whole numbers.
/// Tests:   tests/ui/main/TableViewTest.cpp, FrmMainUpdateTest.cpp
#pragma once

#include "propagation/PropagationTable.h"
#include "settings/Need.h"

class GridControl;

/// Lays out one row for each frequency of the input, with its label. A row whose label is not the
/// one of the same row of the table is emptied: its values are for another frequency.
void TableRowsLayout(const Request& input, const PropagationTable& table, GridControl& grd);

/// Writes text and colours of every hour and frequency. An SNR below -99 dB, and one that is no
/// number, becomes -99 in the table itself. Cells of a frequency without values are empty and
/// hatched.
void TableShow(PropagationTable& table, GridControl& grd);

/// Marks the cells that meet a need, and no others.
/// @param pNeed  null: none is marked
void TableNeedShow(const PropagationTable& table, const Need* pNeed, GridControl& grd);
