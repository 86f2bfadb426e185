/// @file GridPlace.h
/// Places of a grid whose row 0 and column 0 are the headers of a table view: its cells are counted
/// from 1.
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
    /// Neither header nor outside.
    [[nodiscard]] bool DataIs() const { return iRow >= 1 && iCol >= 1; }
};

/// The place under a point of the view.
[[nodiscard]] GridPlace GridPlaceAt(const QTableView& view, const QPoint& pnt);
/// The rectangle of a place.
[[nodiscard]] QRect GridPlaceRect(const QTableView& view, GridPlace place);
