#include "ui/map/MapDayLayer.h"

#include <array>

void MapDayLayer::Paint(QPainter& painter)
{
    if (!m_day.HasCells())
        return;
    m_rctLegend = LegendRectGet(painter.fontMetrics());
    LegendPaint(painter, m_rctLegend, DayLegendGet(m_day.ShownGet()));
}

void MapDayLayer::PointerMove(const QPoint& ptPointer)
{
    constexpr int kNear = 12;
    m_rctPointer = QRect(ptPointer, QSize(1, 1)).adjusted(-kNear, -kNear, kNear, kNear);
    if (m_day.HasCells() && LegendRectGet(m_form.pctMap->fontMetrics()) != m_rctLegend)
        m_form.pctMap->update();
}

QRect MapDayLayer::LegendRectGet(const QFontMetrics& metrics) const
{
    return LegendGetRect(metrics, m_form.pctMap->rect(), DayLegendGet(m_day.ShownGet()),
                         std::array{m_form.lblRc->geometry(), m_form.lblTx->geometry()},
                         m_rctPointer);
}
