#include "ui/common/GridCorner.h"

#include <QAbstractButton>
#include <QEvent>
#include <utility>

#include "ui/common/GridControl.h"

GridCorner::GridCorner(GridControl& grd, QString sToolTip)
    : QObject(&grd), m_grd(grd), m_sToolTip(std::move(sToolTip))
{
    auto* pButton = grd.findChild<QAbstractButton*>({}, Qt::FindDirectChildrenOnly);
    if (pButton == nullptr)
        return;
    pButton->setMouseTracking(true);
    pButton->installEventFilter(this);
}

bool GridCorner::eventFilter(QObject* pObject, QEvent* pEvent)
{
    if (pEvent->type() == QEvent::MouseMove)
        m_grd.ToolTipRenew(m_sToolTip);
    return QObject::eventFilter(pObject, pEvent);
}
