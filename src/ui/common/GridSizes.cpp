#include "ui/common/GridSizes.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "ui/common/GridControl.h"

namespace {

/// Room above and below a row's text, pixels.
constexpr int kRowRoomLeast = 6;
/// Rows grow with the window up to this many line heights.
constexpr int kRowLinesMost = 3;
/// This many rows and columns stay visible however small the window is.
constexpr int kLeastRows = 4;
constexpr int kLeastCols = 6;

}  // namespace

int GridSizes::RowHeightLeast() const { return m_grid.fontMetrics().height() + kRowRoomLeast; }

int GridSizes::RowHeightMost() const { return m_grid.fontMetrics().height() * kRowLinesMost; }

int GridSizes::HeaderHeight() const { return m_grid.horizontalHeader()->sizeHint().height(); }

int GridSizes::ContentWidth() const
{
    return m_grid.ColLeftGet(m_grid.ColsGet()) + m_grid.frameWidth();
}

QSize GridSizes::HintGet() const
{
    const int nRows = (m_grid.RowsGet() - 1) * (RowHeightLeast() + 2);
    return {ContentWidth() + m_nBar, HeaderHeight() + nRows + 2 * m_grid.frameWidth()};
}

QSize GridSizes::HintGetLeast() const
{
    const int nCols = m_grid.ColLeftGet(std::min(kLeastCols, m_grid.ColsGet()));
    return {nCols + m_grid.verticalScrollBar()->sizeHint().width(),
            HeaderHeight() + kLeastRows * RowHeightLeast()};
}

void GridSizes::RowsStretch()
{
    const int nRows = m_grid.RowsGet() - 1;
    if (nRows < 1)
        return;
    // The horizontal scroll bar takes its height from the rows; otherwise the rows would need a bar
    // of their own for those few pixels.
    m_bWide = ContentWidth() > m_grid.width();
    const int nBelow = m_bWide ? m_grid.horizontalScrollBar()->sizeHint().height() : 0;
    const int nRoom = m_grid.height() - 2 * m_grid.frameWidth() - HeaderHeight() - nBelow;
    const int nHeight = std::clamp(nRoom / nRows, RowHeightLeast(), RowHeightMost());
    QHeaderView* pLeft = m_grid.verticalHeader();
    pLeft->setDefaultSectionSize(nHeight);
    // The remaining pixels go to the first rows.
    const int nOver = nHeight < RowHeightMost() ? nRoom - nHeight * nRows : 0;
    for (int i = 0; i < nOver; ++i) pLeft->resizeSection(i, nHeight + 1);
    const bool bBar = nHeight * nRows > nRoom;
    const int nBar = bBar ? m_grid.verticalScrollBar()->sizeHint().width() : 0;
    if (std::exchange(m_nBar, nBar) != nBar)
        m_grid.updateGeometry();
    LimitsSet();
}

void GridSizes::ColsFollow()
{
    LimitsSet();
    if (m_bWide != (ContentWidth() > m_grid.width()))
        RowsStretch();
}

void GridSizes::ContentLimitSet(bool bLimit)
{
    m_bContentLimit = bLimit;
    LimitsSet();
}

void GridSizes::LimitsSet()
{
    const int nHeight =
        HeaderHeight() + (m_grid.RowsGet() - 1) * RowHeightMost() + 2 * m_grid.frameWidth();
    m_grid.setMaximumSize(m_bContentLimit ? QSize(ContentWidth() + m_nBar, nHeight)
                                          : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
}
