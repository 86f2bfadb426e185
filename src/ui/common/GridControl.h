/// @file GridControl.h
/// The grid of the main and the details window: row 0 and column 0 are fixed headers that stay in
/// view; every cell has its text, colours, bold type, alignment, selection mark and
/// hatching; a redraw switch
/// lets a whole table change at once.
///
/// Units:   pixels. Rows and columns count from 0 with the headers; -1 where there is no cell.
/// Keys:    arrows move the current cell (CurrentMoved), Enter picks it (EnterPressed), the menu
/// key asks for its
///          menu (CellMenu). Tab leaves the grid.
/// Tests:   tests/ui/common/GridControlTest.cpp
#pragma once

#include <QTableView>
#include <optional>

#include "ui/common/GridModel.h"

struct GridPlace {
    int iRow = -1;
    int iCol = -1;
    auto operator<=>(const GridPlace&) const = default;
    /// Neither header nor outside.
    [[nodiscard]] bool DataIs() const { return iRow >= 1 && iCol >= 1; }
};

class GridControl final : public QTableView {
    Q_OBJECT
public:
    explicit GridControl(QWidget* pParent = nullptr);

    void RowsSet(int nRows);
    void ColsSet(int nCols);
    [[nodiscard]] int RowsGet() const { return m_pModel->RowsGet(); }
    [[nodiscard]] int ColsGet() const { return m_pModel->ColsGet(); }
    /// 0 hides the column.
    void ColWidthSet(int iCol, int nWidth);
    [[nodiscard]] int ColWidthGet(int iCol) const;
    /// Left edge of a column within the grid, frame included.
    [[nodiscard]] int ColLeftGet(int iCol) const;

    void TextSet(int iRow, int iCol, const QString& sText);
    [[nodiscard]] QString TextGet(int iRow, int iCol) const;
    void ColorSet(int iRow, int iCol, const QColor& clrBack, const QColor& clrFore);
    void BoldSet(int iRow, int iCol, bool bBold);
    void FrameSet(int iRow, int iCol, bool bFrame);
    void HatchSet(int iRow, int iCol, bool bHatch);  ///< thin lines: there is no value
    void AlignmentSet(int iRow, int iCol, Qt::Alignment eAlignment);
    [[nodiscard]] const GridCell& CellGet(int iRow, int iCol) const;
    void SpeechSet(GridSpeechFn fnSpeech) { m_pModel->SpeechSet(std::move(fnSpeech)); }

    /// While off, changes gather; only what the window system asks for is painted.
    void RedrawSet(bool bRedraw);
    [[nodiscard]] bool RedrawGet() const { return m_bRedraw; }
    /// Colours faded: the contents are those of an earlier run.
    void StaleSet(bool bStale);
    [[nodiscard]] bool StaleGet() const { return m_bStale; }

    /// The grid never grows wider than its columns, nor higher than its rows may become.
    void HugSet(bool bHug);

    void CurrentSet(int iRow, int iCol);  ///< brought into view; a header or none: no current cell
    [[nodiscard]] GridPlace CurrentGet() const;
    /// The cell under a point of the grid (its own coordinates).
    [[nodiscard]] GridPlace PlaceAt(const QPoint& pnt) const;
    /// The rectangle of a cell in the grid's own coordinates, headers included.
    [[nodiscard]] QRect PlaceRect(GridPlace place) const;
    /// Clears the tooltip and sets it anew, so that it shows afresh; an empty text clears it.
    void ToolTipRenew(const QString& sText);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void CellClicked(int iRow, int iCol);                           ///< left click on a data cell
    void CurrentMoved(int iRow, int iCol);                          ///< by a key
    void EnterPressed(int iRow, int iCol);                          ///< Enter on the current cell
    void CellPressed(int iRow, int iCol, Qt::MouseButton eButton);  ///< any cell, -1 outside
    void CellMenu(int iRow, int iCol, const QPoint& pntGlobal);     ///< menu key on a data cell
    void MouseMoved(int iRow, int iCol);  ///< only when the position differs from the last one seen

protected:
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;
    bool viewportEvent(QEvent* pEvent) override;
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    void HeadersSetUp();
    void RowsStretch();
    void LimitsSet();
    void MouseSeen(const QPoint& pnt);
    [[nodiscard]] int RowHeightLeast() const;
    [[nodiscard]] int RowHeightMost() const;
    [[nodiscard]] int ContentWidth() const;

    GridModel* m_pModel;
    bool m_bRedraw = true;
    bool m_bStale = false;
    bool m_bHug = false;
    int m_nBar = 0;  ///< width of the vertical scroll bar, 0 while all rows fit
    std::optional<QPoint> m_pntSeen;
};

/// Black or white, whichever reads better on the colour (contrast of relative luminances, WCAG 2.1,
/// "contrast ratio").
[[nodiscard]] QColor TextColorOn(const QColor& clrBack);
/// The colour of a 0x00BBGGRR value.
[[nodiscard]] QColor ColorFromBgr(std::uint32_t nBgr);
