/// @file GridPlace.h
/// Cells of a table view counted with its headers as row 0 and column 0, so data cells count from
/// 1.
///
/// Units:   pixels of the view, headers and frame included.
/// Tests:   tests/ui/common/GridControlTest.cpp
#pragma once

#include <QPoint>
#include <QRect>

class QTableView;

/// Row and column; -1 where there is none.
struct GridPlace {
    int iRow = -1;
    int iCol = -1;
    auto operator<=>(const GridPlace&) const = default;
    /// True for a data cell: neither a header nor outside.
    [[nodiscard]] bool DataIs() const { return iRow >= 1 && iCol >= 1; }
};

/// The cell under a point of the view.
[[nodiscard]] GridPlace GridPlaceAt(const QTableView& view, const QPoint& pnt);
/// The rectangle of a cell.
[[nodiscard]] QRect GridPlaceRect(const QTableView& view, GridPlace place);
