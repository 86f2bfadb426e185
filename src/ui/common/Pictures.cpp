#include "ui/common/Pictures.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <functional>

namespace {

/// Pictures are drawn on a square with sides of this many units.
constexpr double kUnits = 24.0;

const QColor kAccent(0x1F, 0x6F, 0xB5);

void AirmailPaint(QPainter& painter, const QColor& clrLine)
{
    painter.setPen(QPen(clrLine, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(2, 9.5, 16, 11.5), 1.5, 1.5);
    painter.drawPolyline(QPolygonF({{2.6, 10.4}, {10, 16.2}, {17.4, 10.4}}));
    painter.setPen(QPen(kAccent, 1.8, Qt::SolidLine, Qt::RoundCap));
    constexpr int kDegree = 16;  // Qt counts angles in sixteenths of a degree
    painter.drawArc(QRectF(11, 5.2, 7.6, 7.6), 0, 90 * kDegree);
    painter.drawArc(QRectF(7.4, 1.6, 14.8, 14.8), 0, 90 * kDegree);
}

void MapPaint(QPainter& painter, const QColor& clrLine)
{
    painter.setPen(QPen(kAccent, 1.6));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(12, 12), 9.2, 9.2);
    painter.setPen(QPen(clrLine, 1.2));
    painter.drawEllipse(QPointF(12, 12), 4.2, 9.2);
    painter.drawLine(QPointF(2.8, 12), QPointF(21.2, 12));
    painter.drawLine(QPointF(4.4, 7), QPointF(19.6, 7));
    painter.drawLine(QPointF(4.4, 17), QPointF(19.6, 17));
}

using PaintFn = std::function<void(QPainter&, const QColor&)>;

class PictureEngine final : public QIconEngine {
public:
    explicit PictureEngine(PaintFn fnPaint) : m_fnPaint(std::move(fnPaint)) {}
    void paint(QPainter* pPainter, const QRect& rect, QIcon::Mode eMode, QIcon::State) override
    {
        const auto eGroup = eMode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        pPainter->save();
        pPainter->setRenderHint(QPainter::Antialiasing);
        pPainter->translate(rect.topLeft());
        pPainter->scale(rect.width() / kUnits, rect.height() / kUnits);
        m_fnPaint(*pPainter, QGuiApplication::palette().color(eGroup, QPalette::ButtonText));
        pPainter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode eMode, QIcon::State eState) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), eMode, eState);
        return pixmap;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new PictureEngine(m_fnPaint); }

private:
    PaintFn m_fnPaint;
};

}  // namespace

QIcon PictureGet(const QString& sKey)
{
    if (sKey == QStringLiteral("Airmail"))
        return QIcon(new PictureEngine(AirmailPaint));
    if (sKey == QStringLiteral("Map"))
        return QIcon(new PictureEngine(MapPaint));
    return {};
}
