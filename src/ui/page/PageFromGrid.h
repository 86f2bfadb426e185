/// @file PageFromGrid.h
/// A window's grid as a table for export, colours included.
///
/// Tests:   tests/ui/page/PageFromGridTest.cpp
#pragma once

#include "ui/page/PageGrid.h"

class GridControl;

/// Row 0 holds the titles, column 0 the row heads; hidden columns are left out.
[[nodiscard]] PageGrid PageFromGrid(const GridControl& grd);
