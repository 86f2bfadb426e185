#include "ui/common/GridPlace.h"

#include <QHeaderView>
#include <QTableView>

GridPlace GridPlaceAt(const QTableView& view, const QPoint& pnt)
{
    const QPoint pntCells = pnt - view.viewport()->pos();
    const QRect rectCells = view.viewport()->geometry().united(view.horizontalHeader()->geometry());
    const bool bInside = rectCells.united(view.verticalHeader()->geometry()).contains(pnt);
    const int iRow = view.rowAt(pntCells.y());
    const int iCol = view.columnAt(pntCells.x());
    GridPlace place;
    if (!bInside)
        return place;
    if (pntCells.y() < 0)
        place.iRow = 0;
    else if (iRow >= 0)
        place.iRow = iRow + 1;
    // In a mirrored window the row labels are on the right.
    if (view.isRightToLeft() ? pntCells.x() >= view.viewport()->width() : pntCells.x() < 0)
        place.iCol = 0;
    else if (iCol >= 0)
        place.iCol = iCol + 1;
    return place;
}

QRect GridPlaceRect(const QTableView& view, GridPlace place)
{
    const QPoint pntCells = view.viewport()->pos();
    const QRect rectTop = view.horizontalHeader()->geometry();
    const QRect rectLeft = view.verticalHeader()->geometry();
    QRect rect;
    if (place.iCol == 0) {
        rect.setLeft(rectLeft.left());
        rect.setWidth(rectLeft.width());
    } else {
        rect.setLeft(pntCells.x() + view.columnViewportPosition(place.iCol - 1));
        rect.setWidth(view.columnWidth(place.iCol - 1));
    }
    if (place.iRow == 0) {
        rect.setTop(rectTop.top());
        rect.setHeight(rectTop.height());
    } else {
        rect.setTop(pntCells.y() + view.rowViewportPosition(place.iRow - 1));
        rect.setHeight(view.rowHeight(place.iRow - 1));
    }
    return rect;
}
