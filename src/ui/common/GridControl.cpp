#include "ui/common/GridControl.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>

#include "ui/common/GridPaint.h"

namespace {

GridHeader* HeaderOf(QHeaderView* pHeader) { return static_cast<GridHeader*>(pHeader); }

}  // namespace

GridControl::GridControl(QWidget* pParent)
    : QTableView(pParent), GridCells(*new GridModel(this)), m_sizes(*this)
{
    HeadersSetUp();
    MouseSetUp();
    setModel(&ModelGet());
    setItemDelegate(new GridDelegate(this));
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
}

void GridControl::HeadersSetUp()
{
    auto* pTop = new GridHeader(Qt::Horizontal, this);
    setHorizontalHeader(pTop);
    setVerticalHeader(new GridHeader(Qt::Vertical, this));
    pTop->ThicknessSet(m_sizes.RowHeightLeast());
}

void GridControl::MouseSetUp()
{
    m_pMouse = new GridMouse(*this);
    connect(m_pMouse, &GridMouse::HeaderPressed, this, &GridControl::CellPressed);
    connect(m_pMouse, &GridMouse::Moved, this, &GridControl::MouseMoved);
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& idx) {
        Q_EMIT CellClicked(idx.row() + 1, idx.column() + 1);
    });
}

void GridControl::RowsSet(int nRows)
{
    ModelGet().RowsSet(nRows);
    m_sizes.RowsStretch();
    updateGeometry();
}

void GridControl::ColsSet(int nCols)
{
    ModelGet().ColsSet(nCols);
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
    m_sizes.ColsFollow();
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

void GridControl::RedrawSet(bool bRedraw)
{
    m_bRedraw = bRedraw;
    // The widget's own updates stay on: behind an open message box the table would otherwise stay
    // half painted and without its frame.
    ModelGet().RedrawSet(bRedraw);
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

void GridControl::CurrentSet(int iRow, int iCol)
{
    if (iRow < 1 || iCol < 1)
        setCurrentIndex({});
    else
        setCurrentIndex(model()->index(iRow - 1, iCol - 1));
}

GridPlace GridControl::CurrentGet() const
{
    const QModelIndex idx = currentIndex();
    return idx.isValid() ? GridPlace{idx.row() + 1, idx.column() + 1} : GridPlace{};
}

void GridControl::resizeEvent(QResizeEvent* pEvent)
{
    QTableView::resizeEvent(pEvent);
    m_sizes.RowsStretch();
}

void GridControl::changeEvent(QEvent* pEvent)
{
    QTableView::changeEvent(pEvent);
    if (pEvent->type() == QEvent::FontChange && horizontalHeader() != nullptr) {
        HeaderOf(horizontalHeader())->ThicknessSet(m_sizes.RowHeightLeast());
        m_sizes.RowsStretch();
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
    m_pMouse->PointReport(viewport()->mapTo(this, pEvent->pos()));
}

bool GridControl::viewportEvent(QEvent* pEvent)
{
    if (pEvent->type() != QEvent::ToolTip)
        return QTableView::viewportEvent(pEvent);
    m_pMouse->ToolTipShow(static_cast<QHelpEvent*>(pEvent));
    return true;
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
    // A right press is already reported; only the menu key arrives here.
    const GridPlace place = CurrentGet();
    if (pEvent->reason() == QContextMenuEvent::Keyboard && place.DataIs()) {
        scrollTo(currentIndex());
        Q_EMIT CellMenu(place.iRow, place.iCol, mapToGlobal(PlaceRect(place).center()));
    }
    pEvent->accept();
}
