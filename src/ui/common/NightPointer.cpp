#include "ui/common/NightPointer.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QWidget>

#include "ui/common/NightColors.h"
#include "ui/common/PaletteShown.h"

namespace {

constexpr int kSize = 32;
constexpr QPoint kMiddle(kSize / 2, kSize / 2);

QPainterPath ArrowGet()
{
    QPainterPath pth;
    pth.addPolygon(
        QPolygonF({{1, 1}, {1, 18}, {5, 14.5}, {8, 21}, {11, 19.5}, {8, 13.5}, {13.5, 13.5}}));
    pth.closeSubpath();
    return pth;
}

/// An arrowhead that points away from the middle.
void HeadAdd(QPainterPath& pth, double dX, double dY)
{
    const QPointF ptMiddle(kMiddle);
    const QPointF ptTip = ptMiddle + QPointF(dX, dY) * 11;
    const QPointF ptBase = ptMiddle + QPointF(dX, dY) * 7;
    const QPointF ptSide(-dY * 3.5, dX * 3.5);
    pth.addPolygon(QPolygonF({ptTip, ptBase + ptSide, ptBase - ptSide}));
    pth.closeSubpath();
    pth.moveTo(ptMiddle);
    pth.lineTo(ptBase);
}

QPainterPath HeadsGet(std::initializer_list<QPointF> aDirection)
{
    QPainterPath pth;
    for (const QPointF& pt : aDirection) HeadAdd(pth, pt.x(), pt.y());
    return pth;
}

struct Shape {
    QPainterPath pth;
    QPoint ptHot = kMiddle;
    bool bFill = true;
};

Shape ShapeGet(Qt::CursorShape eShape)
{
    constexpr double kSlant = 0.7071;
    Shape shape;
    QPainterPath pthLines;
    switch (eShape) {
        case Qt::IBeamCursor:
            for (const double dX : {-4.0, 1.0}) {
                pthLines.moveTo(kMiddle.x() + dX, 7);
                pthLines.lineTo(kMiddle.x() + dX + 3, 7);
                pthLines.moveTo(kMiddle.x() + dX, 25);
                pthLines.lineTo(kMiddle.x() + dX + 3, 25);
            }
            pthLines.moveTo(kMiddle.x(), 8);
            pthLines.lineTo(kMiddle.x(), 24);
            return {pthLines, kMiddle, false};
        case Qt::CrossCursor:
            pthLines.moveTo(4, kMiddle.y());
            pthLines.lineTo(kSize - 4, kMiddle.y());
            pthLines.moveTo(kMiddle.x(), 4);
            pthLines.lineTo(kMiddle.x(), kSize - 4);
            return {pthLines, kMiddle, false};
        case Qt::WaitCursor:
            pthLines.addPolygon(QPolygonF({{10, 6}, {22, 6}, {10, 26}, {22, 26}}));
            pthLines.closeSubpath();
            return {pthLines, kMiddle, true};
        case Qt::SizeAllCursor:
            return {HeadsGet({{1, 0}, {-1, 0}, {0, 1}, {0, -1}}), kMiddle, true};
        case Qt::SizeHorCursor:
        case Qt::SplitHCursor:
            return {HeadsGet({{1, 0}, {-1, 0}}), kMiddle, true};
        case Qt::SizeVerCursor:
        case Qt::SplitVCursor:
            return {HeadsGet({{0, 1}, {0, -1}}), kMiddle, true};
        case Qt::SizeFDiagCursor:
            return {HeadsGet({{kSlant, kSlant}, {-kSlant, -kSlant}}), kMiddle, true};
        case Qt::SizeBDiagCursor:
            return {HeadsGet({{kSlant, -kSlant}, {-kSlant, kSlant}}), kMiddle, true};
        default:
            shape = {ArrowGet(), QPoint(1, 1), true};
    }
    if (eShape == Qt::BusyCursor)
        shape.pth.addEllipse(QPointF(21, 21), 5, 5);
    return shape;
}

QCursor RedGet(Qt::CursorShape eShape)
{
    const Shape shape = ShapeGet(eShape);
    const double dDensity = qApp->devicePixelRatio();
    QPixmap pix(QSize(kSize, kSize) * dDensity);
    pix.setDevicePixelRatio(dDensity);
    pix.fill(Qt::transparent);
    QPainter painter(&pix);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 4));
    painter.drawPath(shape.pth);
    painter.setPen(QPen(QColor(kNightInk), 1.5));
    if (shape.bFill)
        painter.setBrush(QColor(kNightInk));
    painter.drawPath(shape.pth);
    painter.end();
    return QCursor(pix, shape.ptHot.x(), shape.ptHot.y());
}

/// The shape that the widget under the pointer asks for.
Qt::CursorShape ShapeWanted()
{
    const QWidget* pWidget = QApplication::widgetAt(QCursor::pos());
    return pWidget != nullptr ? pWidget->cursor().shape() : Qt::ArrowCursor;
}

}  // namespace

NightPointer::NightPointer() : m_eShape(ShapeWanted()), m_cursor(RedGet(m_eShape))
{
    QApplication::setOverrideCursor(m_cursor);
    qApp->installEventFilter(this);
}

NightPointer::~NightPointer() { QApplication::restoreOverrideCursor(); }

bool NightPointer::eventFilter(QObject* /*pObject*/, QEvent* pEvent)
{
    switch (pEvent->type()) {
        case QEvent::CursorChange:
        case QEvent::Enter:
        case QEvent::Leave:
        case QEvent::MouseMove:
            ShapeFollow();
            break;
        default:
            break;
    }
    return false;
}

/// An override pointer, such as that of a run, stays.
void NightPointer::ShapeFollow()
{
    const QCursor* const pNow = QApplication::overrideCursor();
    const Qt::CursorShape eShape = ShapeWanted();
    if (pNow == nullptr || *pNow != m_cursor || eShape == m_eShape)
        return;
    m_eShape = eShape;
    m_cursor = RedGet(eShape);
    QApplication::changeOverrideCursor(m_cursor);
}

QCursor PointerGet(Qt::CursorShape eShape)
{
    return PaletteNightIs() ? RedGet(eShape) : QCursor(eShape);
}
