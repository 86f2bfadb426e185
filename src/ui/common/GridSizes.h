/// @file GridSizes.h
/// How large a grid and its rows are: rows share the height that there is, between a compact and an
/// airy one.
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
    /// The grid never grows wider than its columns, nor higher than its rows may become.
    void HugSet(bool bHug);
    /// After a change of columns.
    void ColsFollow();

private:
    void LimitsSet();
    [[nodiscard]] int RowHeightMost() const;
    [[nodiscard]] int ContentWidth() const;
    [[nodiscard]] int HeaderHeight() const;

    GridControl& m_grid;
    bool m_bHug = false;
    bool m_bWide = false;  ///< the columns need a bar
    int m_nBar = 0;        ///< width of the vertical scroll bar, 0 while all rows fit
};
