#include "ui/common/GridControl.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "propagation/SnrScale.h"
#include "ui/common/GridPaint.h"

namespace {

/// Room above and below the text of a row, pixels.
constexpr int kRowRoomLeast = 6;
/// A row grows with the window to this many line heights.
constexpr int kRowLinesMost = 3;
/// Rows and columns that stay visible however small the window.
constexpr int kLeastRows = 4;
constexpr int kLeastCols = 6;

GridHeader* HeaderOf(QHeaderView* pHeader) { return static_cast<GridHeader*>(pHeader); }

}  // namespace

QColor TextColorOn(const QColor& clrBack)
{
    const auto nBgr =
        static_cast<std::uint32_t>(clrBack.red() | (clrBack.green() << 8) | (clrBack.blue() << 16));
    return ColorTakesBlackText(nBgr) ? QColor(Qt::black) : QColor(Qt::white);
}

QColor ColorFromBgr(std::uint32_t nBgr)
{
    return {static_cast<int>(nBgr & 0xFFU), static_cast<int>((nBgr >> 8U) & 0xFFU),
            static_cast<int>((nBgr >> 16U) & 0xFFU)};
}

GridControl::GridControl(QWidget* pParent) : QTableView(pParent), m_pModel(new GridModel(this))
{
    HeadersSetUp();
    setModel(m_pModel);
    setItemDelegate(new GridDelegate(this));
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& idx) {
        Q_EMIT CellClicked(idx.row() + 1, idx.column() + 1);
    });
}

void GridControl::HeadersSetUp()
{
    auto* pHours = new GridHeader(Qt::Horizontal, this);
    auto* pLabels = new GridHeader(Qt::Vertical, this);
    setHorizontalHeader(pHours);
    setVerticalHeader(pLabels);
    pHours->ThicknessSet(RowHeightLeast());
    pHours->viewport()->installEventFilter(this);
    pLabels->viewport()->installEventFilter(this);
}

int GridControl::RowHeightLeast() const { return fontMetrics().height() + kRowRoomLeast; }

void GridControl::RowsSet(int nRows)
{
    m_pModel->RowsSet(nRows);
    RowsStretch();
    updateGeometry();
}

void GridControl::ColsSet(int nCols)
{
    m_pModel->ColsSet(nCols);
    updateGeometry();
}

void GridControl::ColWidthSet(int iCol, int nWidth)
{
    if (iCol == 0) {
        HeaderOf(verticalHeader())->ThicknessSet(nWidth);
        verticalHeader()->setVisible(nWidth > 0);
        updateGeometries();
    } else {
        setColumnHidden(iCol - 1, nWidth == 0);
        if (nWidth > 0)
            setColumnWidth(iCol - 1, nWidth);
    }
    LimitsSet();
    updateGeometry();
}

int GridControl::ColWidthGet(int iCol) const
{
    return iCol == 0 ? verticalHeader()->sizeHint().width() : columnWidth(iCol - 1);
}

int GridControl::ColLeftGet(int iCol) const
{
    int nLeft = frameWidth();
    for (int i = 0; i < iCol; ++i) nLeft += ColWidthGet(i);
    return nLeft;
}

void GridControl::TextSet(int iRow, int iCol, const QString& sText)
{
    m_pModel->CellChange(iRow, iCol, [&](GridCell& cell) { cell.sText = sText; });
}

QString GridControl::TextGet(int iRow, int iCol) const { return CellGet(iRow, iCol).sText; }

void GridControl::ColorSet(int iRow, int iCol, const QColor& clrBack, const QColor& clrFore)
{
    m_pModel->CellChange(iRow, iCol, [&](GridCell& cell) {
        cell.clrBack = clrBack;
        cell.clrFore = clrFore;
    });
}

void GridControl::BoldSet(int iRow, int iCol, bool bBold)
{
    m_pModel->CellChange(iRow, iCol, [&](GridCell& cell) { cell.bBold = bBold; });
}

void GridControl::FrameSet(int iRow, int iCol, bool bFrame)
{
    m_pModel->CellChange(iRow, iCol, [&](GridCell& cell) { cell.bFrame = bFrame; });
}

void GridControl::HatchSet(int iRow, int iCol, bool bHatch)
{
    m_pModel->CellChange(iRow, iCol, [&](GridCell& cell) { cell.bHatch = bHatch; });
}

void GridControl::AlignmentSet(int iRow, int iCol, Qt::Alignment eAlignment)
{
    m_pModel->CellChange(iRow, iCol, [&](GridCell& cell) { cell.eAlignment = eAlignment; });
}

const GridCell& GridControl::CellGet(int iRow, int iCol) const
{
    return m_pModel->CellGet(iRow, iCol);
}

void GridControl::RedrawSet(bool bRedraw)
{
    m_bRedraw = bRedraw;
    // The widget's own updates stay on: under a box that waits for the user the table would
    // otherwise be left cut and without its frame.
    m_pModel->RedrawSet(bRedraw);
    if (!bRedraw)
        return;
    for (QWidget* pPart :
         {viewport(), horizontalHeader()->viewport(), verticalHeader()->viewport()})
        pPart->update();
}

void GridControl::StaleSet(bool bStale)
{
    m_bStale = bStale;
    viewport()->update();
}

void GridControl::HugSet(bool bHug)
{
    m_bHug = bHug;
    LimitsSet();
}

void GridControl::CurrentSet(int iRow, int iCol)
{
    if (iRow < 1 || iCol < 1)
        setCurrentIndex({});
    else
        setCurrentIndex(m_pModel->index(iRow - 1, iCol - 1));
}

GridPlace GridControl::CurrentGet() const
{
    const QModelIndex idx = currentIndex();
    return idx.isValid() ? GridPlace{idx.row() + 1, idx.column() + 1} : GridPlace{};
}

GridPlace GridControl::PlaceAt(const QPoint& pnt) const
{
    const QPoint pntCells = pnt - viewport()->pos();
    const QRect rectAll = viewport()->geometry().united(horizontalHeader()->geometry());
    const bool bInside = rectAll.united(verticalHeader()->geometry()).contains(pnt);
    const int iRow = rowAt(pntCells.y());
    const int iCol = columnAt(pntCells.x());
    GridPlace place;
    if (!bInside)
        return place;
    if (pntCells.y() < 0)
        place.iRow = 0;
    else if (iRow >= 0)
        place.iRow = iRow + 1;
    if (pntCells.x() < 0)
        place.iCol = 0;
    else if (iCol >= 0)
        place.iCol = iCol + 1;
    return place;
}

QRect GridControl::PlaceRect(GridPlace place) const
{
    const QPoint pntCells = viewport()->pos();
    const QRect rectHours = horizontalHeader()->geometry();
    const QRect rectLabels = verticalHeader()->geometry();
    QRect rect;
    if (place.iCol == 0) {
        rect.setLeft(rectLabels.left());
        rect.setWidth(rectLabels.width());
    } else {
        rect.setLeft(pntCells.x() + columnViewportPosition(place.iCol - 1));
        rect.setWidth(columnWidth(place.iCol - 1));
    }
    if (place.iRow == 0) {
        rect.setTop(rectHours.top());
        rect.setHeight(rectHours.height());
    } else {
        rect.setTop(pntCells.y() + rowViewportPosition(place.iRow - 1));
        rect.setHeight(rowHeight(place.iRow - 1));
    }
    return rect;
}

void GridControl::ToolTipRenew(const QString& sText)
{
    setToolTip({});
    if (QToolTip::isVisible())
        QToolTip::hideText();
    if (!sText.isEmpty())
        setToolTip(sText);
}

int GridControl::ContentWidth() const { return ColLeftGet(ColsGet()) + frameWidth(); }

QSize GridControl::sizeHint() const
{
    const int nHeight = horizontalHeader()->sizeHint().height()
                        + (RowsGet() - 1) * (RowHeightLeast() + 2) + 2 * frameWidth();
    return {ContentWidth() + m_nBar, nHeight};
}

QSize GridControl::minimumSizeHint() const
{
    const int nWidth =
        ColLeftGet(std::min(kLeastCols, ColsGet())) + verticalScrollBar()->sizeHint().width();
    const int nHeight = horizontalHeader()->sizeHint().height() + kLeastRows * RowHeightLeast();
    return {nWidth, nHeight};
}

int GridControl::RowHeightMost() const { return fontMetrics().height() * kRowLinesMost; }

/// Rows share the height that there is, between a compact and an airy one.
void GridControl::RowsStretch()
{
    const int nRows = RowsGet() - 1;
    if (nRows < 1)
        return;
    const int nRoom = height() - 2 * frameWidth() - horizontalHeader()->sizeHint().height();
    const int nHeight = std::clamp(nRoom / nRows, RowHeightLeast(), RowHeightMost());
    verticalHeader()->setDefaultSectionSize(nHeight);
    // The pixels that do not divide go to the first rows.
    const int nOver = nHeight < RowHeightMost() ? nRoom - nHeight * nRows : 0;
    for (int i = 0; i < nOver; ++i) verticalHeader()->resizeSection(i, nHeight + 1);
    const int nBar = nHeight * nRows > nRoom ? verticalScrollBar()->sizeHint().width() : 0;
    if (std::exchange(m_nBar, nBar) != nBar)
        updateGeometry();
    LimitsSet();
}

void GridControl::LimitsSet()
{
    const int nHeader = horizontalHeader()->sizeHint().height();
    const int nHeight = nHeader + (RowsGet() - 1) * RowHeightMost() + 2 * frameWidth();
    setMaximumSize(m_bHug ? QSize(ContentWidth() + m_nBar, nHeight)
                          : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
}

void GridControl::resizeEvent(QResizeEvent* pEvent)
{
    QTableView::resizeEvent(pEvent);
    RowsStretch();
}

void GridControl::changeEvent(QEvent* pEvent)
{
    QTableView::changeEvent(pEvent);
    if (pEvent->type() == QEvent::FontChange && horizontalHeader() != nullptr) {
        HeaderOf(horizontalHeader())->ThicknessSet(RowHeightLeast());
        RowsStretch();
    }
}

void GridControl::mousePressEvent(QMouseEvent* pEvent)
{
    const GridPlace place = PlaceAt(viewport()->mapTo(this, pEvent->pos()));
    QTableView::mousePressEvent(pEvent);
    Q_EMIT CellPressed(place.iRow, place.iCol, pEvent->button());
}

void GridControl::mouseMoveEvent(QMouseEvent* pEvent)
{
    QTableView::mouseMoveEvent(pEvent);
    MouseSeen(viewport()->mapTo(this, pEvent->pos()));
}

void GridControl::MouseSeen(const QPoint& pnt)
{
    if (m_pntSeen == pnt)
        return;
    m_pntSeen = pnt;
    const GridPlace place = PlaceAt(pnt);
    Q_EMIT MouseMoved(place.iRow, place.iCol);
}

bool GridControl::eventFilter(QObject* pObject, QEvent* pEvent)
{
    auto* pWidget = qobject_cast<QWidget*>(pObject);
    const bool bHeader =
        pWidget == horizontalHeader()->viewport() || pWidget == verticalHeader()->viewport();
    if (!bHeader)
        return QTableView::eventFilter(pObject, pEvent);
    if (pEvent->type() == QEvent::MouseMove) {
        MouseSeen(pWidget->mapTo(this, static_cast<QMouseEvent*>(pEvent)->pos()));
    } else if (pEvent->type() == QEvent::MouseButtonPress) {
        const auto* pMouse = static_cast<QMouseEvent*>(pEvent);
        const GridPlace place = PlaceAt(pWidget->mapTo(this, pMouse->pos()));
        Q_EMIT CellPressed(place.iRow, place.iCol, pMouse->button());
    } else if (pEvent->type() == QEvent::ToolTip) {
        return viewportEvent(pEvent);
    }
    return QTableView::eventFilter(pObject, pEvent);
}

bool GridControl::viewportEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::ToolTip) {
        QToolTip::showText(static_cast<QHelpEvent*>(pEvent)->globalPos(), toolTip(), this);
        return true;
    }
    return QTableView::viewportEvent(pEvent);
}

void GridControl::keyPressEvent(QKeyEvent* pEvent)
{
    const bool bEnter = pEvent->key() == Qt::Key_Return || pEvent->key() == Qt::Key_Enter;
    if (bEnter && CurrentGet().DataIs()) {
        Q_EMIT EnterPressed(CurrentGet().iRow, CurrentGet().iCol);
        pEvent->accept();
        return;
    }
    const GridPlace placeBefore = CurrentGet();
    QTableView::keyPressEvent(pEvent);
    const GridPlace place = CurrentGet();
    if (place != placeBefore && place.DataIs())
        Q_EMIT CurrentMoved(place.iRow, place.iCol);
}

void GridControl::contextMenuEvent(QContextMenuEvent* pEvent)
{
    // The right button is told at its press; only the menu key arrives here.
    const GridPlace place = CurrentGet();
    if (pEvent->reason() == QContextMenuEvent::Keyboard && place.DataIs()) {
        scrollTo(currentIndex());
        Q_EMIT CellMenu(place.iRow, place.iCol, mapToGlobal(PlaceRect(place).center()));
    }
    pEvent->accept();
}
