#include "ui/common/ElidedLabel.h"

#include <QPainter>

QString ElidedLabel::TextShown() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

QSize ElidedLabel::minimumSizeHint() const { return {0, QLabel::minimumSizeHint().height()}; }

void ElidedLabel::paintEvent(QPaintEvent* /*pEvent*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), alignment().toInt() | Qt::TextSingleLine, TextShown());
}
