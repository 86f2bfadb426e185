/// @file GridControl.h
/// The grid of the windows. Row 0 and column 0 are fixed headers; the cells are set through
/// GridCells. With redraw off, a whole table changes at once. GridPaint has the looks, GridSizes
/// the sizes, GridMouse the mouse; this class joins them and adds the current cell and the keys.
///
/// Units:   pixels. Rows and columns count from 0, headers included; -1 where there is no cell.
/// Keys:    arrows move the current cell (CurrentMoved), Enter picks it (EnterPressed), the menu
///          key opens its menu (CellMenu). Tab leaves the grid.
/// Tests:   tests/ui/common/GridControlTest.cpp
#pragma once

#include <QTableView>

#include "ui/common/Colors.h"
#include "ui/common/GridCells.h"
#include "ui/common/GridMouse.h"
#include "ui/common/GridPlace.h"
#include "ui/common/GridSizes.h"

class GridControl final : public QTableView, public GridCells {
    Q_OBJECT
public:
    explicit GridControl(QWidget* pParent = nullptr);

    void RowsSet(int nRows);
    void ColsSet(int nCols);
    /// 0 hides the column.
    void ColWidthSet(int iCol, int nWidth);
    [[nodiscard]] int ColWidthGet(int iCol) const;
    /// Left edge of a column within the grid, frame included.
    [[nodiscard]] int ColLeftGet(int iCol) const;

    /// While off, changes are collected; only what the window system asks for is painted.
    void RedrawSet(bool bRedraw);
    [[nodiscard]] bool RedrawGet() const { return m_bRedraw; }
    /// Fades the colours: the contents are those of an earlier run.
    void StaleSet(bool bStale);
    [[nodiscard]] bool StaleGet() const { return m_bStale; }

    /// Keeps the grid no wider than its columns and no higher than its rows can grow.
    void ContentLimitSet(bool bLimit) { m_sizes.ContentLimitSet(bLimit); }

    void CurrentSet(int iRow, int iCol);  ///< scrolls it into view; a header or -1: no current cell
    [[nodiscard]] GridPlace CurrentGet() const;
    /// The cell under a point of the grid (its own coordinates).
    [[nodiscard]] GridPlace PlaceAt(const QPoint& pnt) const { return GridPlaceAt(*this, pnt); }
    /// The rectangle of a cell in the grid's own coordinates, headers included.
    [[nodiscard]] QRect PlaceRect(GridPlace place) const { return GridPlaceRect(*this, place); }
    /// Shows the tooltip afresh; an empty text removes it.
    void ToolTipRenew(const QString& sText) { m_pMouse->ToolTipRenew(sText); }

    [[nodiscard]] QSize sizeHint() const override { return m_sizes.HintGet(); }
    [[nodiscard]] QSize minimumSizeHint() const override { return m_sizes.HintGetLeast(); }

Q_SIGNALS:
    void CellClicked(int iRow, int iCol);                           ///< left click on a data cell
    void CurrentMoved(int iRow, int iCol);                          ///< by a key
    void EnterPressed(int iRow, int iCol);                          ///< Enter on the current cell
    void CellPressed(int iRow, int iCol, Qt::MouseButton eButton);  ///< on any cell, -1 outside
    void CellMenu(int iRow, int iCol, const QPoint& pntGlobal);     ///< menu key on a data cell
    void MouseMoved(int iRow, int iCol);  ///< only when the mouse position has changed

protected:
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;
    bool viewportEvent(QEvent* pEvent) override;

private:
    void HeadersSetUp();
    void MouseSetUp();

    GridSizes m_sizes;
    GridMouse* m_pMouse = nullptr;
    bool m_bRedraw = true;
    bool m_bStale = false;
};
