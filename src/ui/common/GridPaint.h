/// @file GridPaint.h
/// Paints the grid's cells and headers: flat fills, and for the selected cell a double frame that
/// shows on any colour.
#pragma once

#include <QHeaderView>
#include <QStyledItemDelegate>

class GridControl;

/// Text padding left and right, pixels.
inline constexpr int kGridPadding = 4;

class GridDelegate final : public QStyledItemDelegate {
public:
    explicit GridDelegate(GridControl* pGrid);
    void paint(QPainter* pPainter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    GridControl* m_pGrid;
};

class GridHeader final : public QHeaderView {
public:
    GridHeader(Qt::Orientation eOrientation, GridControl* pGrid);
    [[nodiscard]] QSize sizeHint() const override;
    /// The height of the header row or the width of the header column.
    void ThicknessSet(int nThickness);

protected:
    void paintSection(QPainter* pPainter, const QRect& rect, int iSection) const override;

private:
    GridControl* m_pGrid;
    int m_nThickness = 0;
};
