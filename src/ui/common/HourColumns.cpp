#include "ui/common/HourColumns.h"

#include <QEvent>
#include <QScrollBar>
#include <algorithm>

HourColumns::HourColumns(GridControl& grd) : QObject(&grd), m_grd(grd)
{
    grd.installEventFilter(this);
}

void HourColumns::Show(const HourLabels& asHour)
{
    m_bMinutes = asHour.front().contains(u':');
    m_grd.ColsSet(static_cast<int>(asHour.size()) + 1);
    m_grd.TextSet(0, 0, tr("kHz"));
    for (std::size_t i = 0; i < asHour.size(); ++i) {
        m_grd.TextSet(0, static_cast<int>(i) + 1, asHour.at(i));
        m_grd.AlignmentSet(0, static_cast<int>(i) + 1, Qt::AlignCenter);
    }
    WidthsSet();
}

/// Columns wider than twice the least width would pull the rows apart.
void HourColumns::WidthsSet()
{
    const int nHours = m_grd.ColsGet() - 1;
    if (nHours < 1)
        return;
    const QFontMetrics metrics = m_grd.fontMetrics();
    const int nFrequency = metrics.horizontalAdvance(QStringLiteral("-30000-"));
    const int nLeast =
        metrics.horizontalAdvance(m_bMinutes ? QStringLiteral("-00:00") : QStringLiteral("---00"));
    const int nRoom = m_grd.width() - nFrequency - m_grd.verticalScrollBar()->sizeHint().width()
                      - 2 * m_grd.frameWidth();
    const int nWidth = std::clamp(nRoom / nHours, nLeast, 2 * nLeast);
    if (m_grd.ColWidthGet(0) != nFrequency)
        m_grd.ColWidthSet(0, nFrequency);
    for (int iCol = 1; iCol <= nHours; ++iCol)
        if (m_grd.ColWidthGet(iCol) != nWidth)
            m_grd.ColWidthSet(iCol, nWidth);
}

bool HourColumns::eventFilter(QObject* pObject, QEvent* pEvent)
{
    if (pEvent->type() == QEvent::Resize)
        WidthsSet();
    return QObject::eventFilter(pObject, pEvent);
}
