/// @file PageFromGrid.h
/// A grid of a window as a table that leaves the program: what it shows, colours too.
///
/// Tests:   tests/ui/page/PageFromGridTest.cpp
#pragma once

#include "ui/page/PageGrid.h"

class GridControl;

/// Row 0 is the titles, column 0 the heads; hidden columns are left out.
[[nodiscard]] PageGrid PageFromGrid(const GridControl& grd);
