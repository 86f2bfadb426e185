#include "ui/common/GridMouse.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>

#include "ui/common/GridPlace.h"

GridMouse::GridMouse(QTableView& view) : QObject(&view), m_view(view)
{
    view.setMouseTracking(true);
    view.viewport()->setMouseTracking(true);
    for (QHeaderView* pHeader : {view.horizontalHeader(), view.verticalHeader()})
        pHeader->viewport()->installEventFilter(this);
}

void GridMouse::PointReport(const QPoint& pnt)
{
    if (m_pntSeen == pnt)
        return;
    m_pntSeen = pnt;
    const GridPlace place = GridPlaceAt(m_view, pnt);
    Q_EMIT Moved(place.iRow, place.iCol);
}

void GridMouse::ToolTipShow(const QHelpEvent* pEvent)
{
    QToolTip::showText(pEvent->globalPos(), m_view.toolTip(), &m_view);
}

void GridMouse::ToolTipRenew(const QString& sText)
{
    m_view.setToolTip({});
    if (QToolTip::isVisible())
        QToolTip::hideText();
    if (!sText.isEmpty())
        m_view.setToolTip(sText);
}

bool GridMouse::eventFilter(QObject* pObject, QEvent* pEvent)
{
    const auto* pHeader = static_cast<QWidget*>(pObject);
    if (pEvent->type() == QEvent::MouseMove) {
        PointReport(pHeader->mapTo(&m_view, static_cast<QMouseEvent*>(pEvent)->pos()));
    } else if (pEvent->type() == QEvent::MouseButtonPress) {
        const auto* pMouse = static_cast<QMouseEvent*>(pEvent);
        const GridPlace place = GridPlaceAt(m_view, pHeader->mapTo(&m_view, pMouse->pos()));
        Q_EMIT HeaderPressed(place.iRow, place.iCol, pMouse->button());
    } else if (pEvent->type() == QEvent::ToolTip) {
        ToolTipShow(static_cast<QHelpEvent*>(pEvent));
        return true;
    }
    return QObject::eventFilter(pObject, pEvent);
}
