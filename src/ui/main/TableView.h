/// @file TableView.h
/// The prediction table as cells of the main grid.
///
/// Units:   SNR in dB, shown as whole numbers.
/// Tests:   tests/ui/main/TableViewTest.cpp
#pragma once

#include "propagation/PropagationTable.h"

class GridControl;

/// Writes text and colours of every hour and frequency. An SNR below -99 dB, and one that is no
/// number, becomes -99 in the table itself.
void TableShow(PropagationTable& table, GridControl& grd);
