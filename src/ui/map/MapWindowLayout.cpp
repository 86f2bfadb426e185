#include "ui/map/MapWindowLayout.h"

#include <QApplication>
#include <QScreen>
#include <algorithm>

#include "ui/map/HourBar.h"
#include "ui/map/MapButtonRow.h"

namespace {

constexpr int kMargin = 10;
constexpr int kBarGap = 6;  // between the map and the bar of hours
constexpr int kHeightMin = 360;
constexpr int kRightButtons = 3;    // OK, Cancel, Apply
constexpr int kCursorPadding = 12;  // beside the text of the read-out

}  // namespace

MapWindowLayout::MapWindowLayout(QWidget& window, MapForm& form) : m_window(window), m_form(form)
{
    m_form.pctFrame->move(kMargin, kMargin);
    for (const QAbstractButton* pButton : m_form.RowGet()) m_aContent.push_back(pButton->width());
    const int nTightest = ButtonRowGet(m_aContent, kRightButtons, 0, 0).nOver;
    // With large fonts the row may need more than the screen's width; it scrolls.
    m_window.setMinimumSize(
        std::min(nTightest, m_window.screen()->availableGeometry().width() - 4 * kMargin),
        kHeightMin);
    connect(m_form.txtCursor, &QLineEdit::textChanged, this, &MapWindowLayout::CursorFit);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget* /*pOld*/, QWidget* pNow) { ButtonShow(pNow); });
}

void MapWindowLayout::LayoutSet()
{
    const int nTop = m_window.height() - m_form.cmdZoomOff->height() - kMargin;
    ButtonsPlace(nTop);
    QFrame* pFrame = m_form.pctFrame;
    const QSize sizeBar(m_window.width() - 2 * pFrame->x(), m_form.barHour->sizeHint().height());
    m_form.barHour->setGeometry(
        QRect(QPoint(pFrame->x(), nTop - kMargin - sizeBar.height()), sizeBar));
    const int nBar = m_form.barHour->isHidden() ? 0 : sizeBar.height() + kBarGap;
    pFrame->resize(sizeBar.width(), nTop - pFrame->y() - kMargin - nBar);
    FrameFill();
}

void MapWindowLayout::RowScroll(int nBy)
{
    m_nRowShift += nBy;
    ButtonsPlace(m_form.cmdZoomOff->y());
}

void MapWindowLayout::ButtonsPlace(int nTop)
{
    const ButtonRow row = ButtonRowGet(m_aContent, kRightButtons, m_window.width(), m_nRowShift);
    m_nRowShift = std::clamp(m_nRowShift, 0, row.nOver);
    std::size_t i = 0;
    for (QAbstractButton* pButton : m_form.RowGet()) {
        const ButtonPlace& plc = row.aPlaces[i++];
        pButton->setGeometry(plc.nLeft, nTop, plc.nWidth, pButton->height());
    }
}

/// Scrolls the row of buttons, if it is wider than the window, to the focused one.
void MapWindowLayout::ButtonShow(const QWidget* pButton)
{
    for (const QAbstractButton* pInRow : m_form.RowGet())
        if (pInRow == pButton) {
            const int nBeyond = pButton->geometry().right() + kMargin - m_window.width();
            m_nRowShift += nBeyond > 0 ? nBeyond : std::min(pButton->x() - kMargin, 0);
            ButtonsPlace(pButton->y());
        }
}

void MapWindowLayout::FrameFill()
{
    MapView& view = m_form.m_view;
    PctMap* pMap = m_form.pctMap;
    const QRect rctInner = m_form.pctFrame->contentsRect();
    const int nStripX = m_form.vscMap->sizeHint().width();
    const int nStripY = m_form.hscMap->sizeHint().height();
    view.m_nMapWidth = std::max(rctInner.width() - nStripX, 1);
    view.m_nMapHeight = std::max(rctInner.height() - nStripY, 1);
    pMap->setGeometry(rctInner.x() + view.m_nOffsetX, rctInner.y() + view.m_nOffsetY,
                      view.m_nMapWidth, view.m_nMapHeight);
    m_form.hscMap->setGeometry(pMap->x(), pMap->geometry().bottom() + 1, view.m_nMapWidth, nStripY);
    m_form.vscMap->setGeometry(pMap->geometry().right() + 1, pMap->y(), nStripX, view.m_nMapHeight);
    CursorFit();
    m_form.txtCursor->raise();
}

/// Fits the read-out to its text, centred on the map's upper edge.
void MapWindowLayout::CursorFit()
{
    QLineEdit* pCursor = m_form.txtCursor;
    const int nMap = m_form.m_view.m_nMapWidth;
    const int nText = pCursor->fontMetrics().horizontalAdvance(pCursor->text());
    const int nMost = std::max(nMap - 2 * kMargin, 1);
    pCursor->resize(std::min(nText + 2 * kCursorPadding, nMost), pCursor->height());
    pCursor->move(m_form.pctMap->x() + (nMap - pCursor->width()) / 2, m_form.pctMap->y() + kMargin);
}
