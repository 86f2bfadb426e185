#include "ui/common/ElidedLabel.h"

#include "ui/common/PaintDirection.h"

QString ElidedLabel::TextShown() const
{
    const int nRoom = contentsRect().width();
    const bool bFits = m_sShorter.isEmpty() || fontMetrics().horizontalAdvance(text()) <= nRoom;
    return fontMetrics().elidedText(bFits ? text() : m_sShorter, Qt::ElideRight, nRoom);
}

void ElidedLabel::ShorterSet(const QString& sShorter)
{
    m_sShorter = sShorter;
    update();
}

QSize ElidedLabel::minimumSizeHint() const { return {0, QLabel::minimumSizeHint().height()}; }

void ElidedLabel::paintEvent(QPaintEvent* /*pEvent*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const Qt::Alignment eSide = PaintDirectionOfText(painter, *this, alignment());
    painter.drawText(contentsRect(), eSide.toInt() | Qt::TextSingleLine, TextShown());
}
