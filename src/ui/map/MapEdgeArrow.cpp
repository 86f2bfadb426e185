#include "ui/map/MapEdgeArrow.h"

#include <algorithm>
#include <cmath>

#include "geo/MathLib.h"

namespace {

constexpr double kInset = 3.0;  // between the tip and the edge
constexpr double kLong = 14.0;
constexpr double kHalfWide = 8.0;
constexpr int kMargin = 3;

}  // namespace

std::optional<EdgeArrow> EdgeArrowGet(const QRect& rctMap, const QPointF& ptMarker)
{
    if (QRectF(rctMap).contains(ptMarker))
        return {};
    const QRectF rct = QRectF(rctMap).adjusted(kInset, kInset, -kInset, -kInset);
    const QPointF ptMiddle = rct.center();
    const QPointF ptBy = ptMarker - ptMiddle;
    const double dLong =
        std::max(std::abs(ptBy.x()) / (rct.width() / 2), std::abs(ptBy.y()) / (rct.height() / 2));
    if (!(dLong > 0) || !std::isfinite(dLong))
        return {};
    return EdgeArrow{ptMiddle + ptBy / dLong, std::atan2(ptBy.y(), ptBy.x()) * 180 / kPi};
}

void EdgeArrowPaint(QPainter& painter, const EdgeArrow& arrow, const QString& sText,
                    const QColor& clrFill, const QColor& clrText)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(clrText, 1));
    painter.setBrush(clrFill);
    painter.save();
    painter.translate(arrow.m_ptTip);
    painter.rotate(arrow.dAngle);
    painter.drawPolygon(QPolygonF({{0, 0}, {-kLong, -kHalfWide}, {-kLong, kHalfWide}}));
    painter.restore();
    QFont fnt = painter.font();
    fnt.setBold(true);
    painter.setFont(fnt);
    const QSize size(painter.fontMetrics().horizontalAdvance(sText) + 2 * kMargin,
                     painter.fontMetrics().height());
    // Behind the arrow, as far as the letters need in this direction.
    const double dTurn = arrow.dAngle * kPi / 180;
    const double dBack = kLong + std::abs(std::cos(dTurn)) * size.width() / 2
                         + std::abs(std::sin(dTurn)) * size.height() / 2;
    const QPointF ptText = arrow.m_ptTip - QPointF(std::cos(dTurn), std::sin(dTurn)) * dBack;
    const QRectF rct(ptText.x() - size.width() / 2.0, ptText.y() - size.height() / 2.0,
                     size.width(), size.height());
    painter.drawRect(rct);
    painter.drawText(rct, Qt::AlignCenter, sText);
    painter.restore();
}
