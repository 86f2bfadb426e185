/// @file GridSizes.h
/// Sizes of a grid and its rows. The rows share the available height between a least and a greatest
/// row height.
///
/// Units:   pixels.
/// Tests:   tests/ui/common/GridControlTest.cpp
#pragma once

#include <QSize>

class GridControl;

class GridSizes {
public:
    explicit GridSizes(GridControl& grid) : m_grid(grid) {}

    [[nodiscard]] int RowHeightLeast() const;
    [[nodiscard]] QSize HintGet() const;
    [[nodiscard]] QSize HintGetLeast() const;

    /// Fits the rows into the grid's present height.
    void RowsStretch();
    /// Keeps the grid no wider than its columns and no higher than its rows can grow.
    void ContentLimitSet(bool bLimit);
    /// Call after a change of columns.
    void ColsFollow();

private:
    void LimitsSet();
    [[nodiscard]] int RowHeightMost() const;
    [[nodiscard]] int ContentWidth() const;
    [[nodiscard]] int HeaderHeight() const;

    GridControl& m_grid;
    bool m_bContentLimit = false;
    bool m_bWide = false;  ///< the columns need a scroll bar
    int m_nBar = 0;        ///< width of the vertical scroll bar, 0 while all rows fit
};
