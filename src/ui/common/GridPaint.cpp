#include "ui/common/GridPaint.h"

#include <QPainter>
#include <algorithm>

#include "ui/common/BandPaint.h"
#include "ui/common/GridControl.h"
#include "ui/common/PaintDirection.h"

namespace {

/// Stale contents keep this share of their colour.
constexpr double kStaleShare = 0.4;

QColor Mix(const QColor& clrA, const QColor& clrB, double dShareA)
{
    const auto Part = [dShareA](int nA, int nB) {
        return static_cast<int>(nA * dShareA + nB * (1.0 - dShareA));
    };
    return {Part(clrA.red(), clrB.red()), Part(clrA.green(), clrB.green()),
            Part(clrA.blue(), clrB.blue())};
}

/// A frame of two lines, one of which contrasts with any colour below.
void FramePaint(QPainter& painter, const QRect& rect, const QColor& clrOuter,
                const QColor& clrInner)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(clrOuter, 1));
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
    painter.drawRect(rect.adjusted(1, 1, -2, -2));
    painter.setPen(QPen(clrInner, 1));
    painter.drawRect(rect.adjusted(2, 2, -3, -3));
}

/// A triangle in the upper right corner, inside the frame of the selected cell. It has the text's
/// colour, or a plate of its own where the text has one.
void CornerPaint(QPainter& painter, const QRect& rect, bool bFrame, const CellColors& colors)
{
    constexpr int kFrame = 3;
    const int nInset = bFrame ? kFrame : 1;  // clear of the white line between two cells
    const int nSide = std::max(4, rect.height() / 4);
    const QPoint pnt(rect.right() - nInset, rect.top() + nInset);
    const auto Triangle = [&painter, &pnt](int nLong, const QColor& clr) {
        painter.setBrush(clr);
        painter.drawPolygon(QPolygon({pnt, pnt - QPoint(nLong, 0), pnt + QPoint(0, nLong)}));
    };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(Qt::NoPen);
    if (colors.clrGround != colors.clrBack)
        Triangle(nSide + 3, colors.clrGround);
    Triangle(nSide, colors.clrText);
    painter.restore();
}

/// A cell in the palette in force. A cell marked as selected keeps the window's colours.
CellColors ColorsOf(const GridCell& cell, const QPalette& palette, bool bStale)
{
    const QColor clrBase = palette.color(QPalette::Base);
    const QColor clrText = cell.clrFore.isValid() ? cell.clrFore : palette.color(QPalette::Text);
    if (!cell.clrBack.isValid())
        return {clrBase, clrText, clrBase};
    if (cell.clrBack == palette.color(QPalette::Highlight))
        return {cell.clrBack, clrText, cell.clrBack};
    CellColors colors = CellColorsGet(cell.clrBack, clrText, PaletteShown());
    const bool bPlate = colors.clrGround != colors.clrBack;
    if (!bStale)
        return colors;
    colors.clrBack = Mix(colors.clrBack, clrBase, kStaleShare);
    if (!bPlate) {
        colors.clrGround = colors.clrBack;
        colors.clrText = TextColorOn(colors.clrBack);
    }
    return colors;
}

QFont CellFont(const QWidget& widget, const GridCell& cell)
{
    QFont fnt = widget.font();
    fnt.setBold(cell.bBold);
    return fnt;
}

}  // namespace

GridDelegate::GridDelegate(GridControl* pGrid) : QStyledItemDelegate(pGrid), m_pGrid(pGrid) {}

void GridDelegate::paint(QPainter* pPainter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    const GridCell& cell = m_pGrid->CellGet(index.row() + 1, index.column() + 1);
    const QPalette& palette = m_pGrid->palette();
    const CellColors colors = ColorsOf(cell, palette, m_pGrid->StaleGet());
    pPainter->save();
    pPainter->fillRect(option.rect, palette.color(QPalette::Base));
    const QRect rectFill = option.rect.adjusted(0, 0, -1, -1);
    pPainter->fillRect(rectFill, colors.clrBack);
    if (cell.bHatch)
        pPainter->fillRect(rectFill, QBrush(palette.color(QPalette::Mid), Qt::BDiagPattern));
    if (cell.bFrame) {
        const QColor clrText = palette.color(QPalette::Text);
        const QColor clrBase = palette.color(QPalette::Base);
        FramePaint(*pPainter, option.rect, clrText, clrBase);
    } else if (m_pGrid->hasFocus() && index == m_pGrid->currentIndex()) {
        pPainter->setPen(QPen(colors.clrText, 1, Qt::DotLine));
        pPainter->setBrush(Qt::NoBrush);
        pPainter->drawRect(option.rect.adjusted(1, 1, -2, -2));
    }
    if (cell.bMet)
        CornerPaint(*pPainter, option.rect, cell.bFrame, colors);
    pPainter->setFont(CellFont(*m_pGrid, cell));
    const bool bCentre = cell.eAlignment.testFlag(Qt::AlignHCenter);
    const int nPadding = bCentre ? 0 : kGridPadding;
    const Qt::Alignment eSide = PaintDirectionOfText(*pPainter, *m_pGrid, cell.eAlignment);
    CellTextPaint(*pPainter, rectFill, option.rect.adjusted(nPadding, 0, -nPadding, 0), eSide,
                  cell.sText, colors);
    pPainter->restore();
}

GridHeader::GridHeader(Qt::Orientation eOrientation, GridControl* pGrid)
    : QHeaderView(eOrientation, pGrid), m_pGrid(pGrid)
{
    setSectionsClickable(false);
    setHighlightSections(false);
    setSectionResizeMode(QHeaderView::Fixed);
    setMinimumSectionSize(1);
    viewport()->setMouseTracking(true);
}

void GridHeader::ThicknessSet(int nThickness)
{
    m_nThickness = nThickness;
    if (orientation() == Qt::Horizontal)
        setFixedHeight(nThickness);
    else
        setFixedWidth(nThickness);
}

QSize GridHeader::sizeHint() const
{
    return orientation() == Qt::Horizontal ? QSize(0, m_nThickness) : QSize(m_nThickness, 0);
}

void GridHeader::paintSection(QPainter* pPainter, const QRect& rect, int iSection) const
{
    const bool bTop = orientation() == Qt::Horizontal;
    const GridCell& cell =
        bTop ? m_pGrid->CellGet(0, iSection + 1) : m_pGrid->CellGet(iSection + 1, 0);
    const QPalette& palette = m_pGrid->palette();
    pPainter->save();
    pPainter->fillRect(rect,
                       cell.clrBack.isValid() ? cell.clrBack : palette.color(QPalette::Button));
    pPainter->setPen(palette.color(QPalette::Mid));
    if (bTop)
        pPainter->drawLine(rect.bottomLeft(), rect.bottomRight());
    else
        pPainter->drawLine(rect.topRight(), rect.bottomRight());
    pPainter->setPen(cell.clrFore.isValid() ? cell.clrFore : palette.color(QPalette::ButtonText));
    pPainter->setFont(CellFont(*m_pGrid, cell));
    // Labels of rows are numbers and right-aligned unless they ask for the left.
    const bool bAsked = bTop || cell.eAlignment.testFlag(Qt::AlignLeft);
    const Qt::Alignment eAlignment =
        bAsked ? cell.eAlignment : Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter);
    const int nPadding = bTop ? 0 : kGridPadding;
    const QRect rectText = rect.adjusted(0, 0, -nPadding, 0);
    // A label that is too long keeps its beginning.
    const QString sText =
        bTop ? cell.sText
             : pPainter->fontMetrics().elidedText(cell.sText, Qt::ElideRight, rectText.width());
    const Qt::Alignment eSide = PaintDirectionOfText(*pPainter, *m_pGrid, eAlignment);
    pPainter->drawText(rectText, eSide.toInt() | Qt::TextSingleLine, sText);
    pPainter->restore();
}
