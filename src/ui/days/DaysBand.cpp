#include "ui/days/DaysBand.h"

#include <QMouseEvent>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "ui/common/PaintDirection.h"

namespace {

constexpr double kStep = 10.0;  // dB between lines
constexpr int kHoursBetween = 3;

/// The rectangle of the hours; labels are to the left, below and to the right of it.
QRectF PlotGet(const QRectF& rct, const QFontMetricsF& metrics)
{
    const double dLetters = metrics.height();
    return rct.adjusted(
        metrics.horizontalAdvance(QStringLiteral("-000 ")), dLetters * 0.6,
        -metrics.horizontalAdvance(QStringLiteral(" %1 ").arg(QObject::tr("median"))),
        -dLetters * 1.3);
}

class BandPainter {
public:
    BandPainter(QPainter& painter, const QRectF& rct, const DaysBand& band, const QColor& clrInk,
                PageLook eLook)
        : m_painter(painter),
          m_metrics(painter.font(), painter.device()),
          m_rct(PlotGet(rct, m_metrics)),
          m_band(band),
          m_clrInk(eLook == PageLook::Colour ? clrInk : QColor(Qt::black)),
          m_bColour(eLook == PageLook::Colour),
          m_dLine(std::max(1.0, m_metrics.height() / 12))
    {
        RangeSet();
    }

    void Paint()
    {
        m_painter.save();
        m_painter.setRenderHint(QPainter::Antialiasing);
        LinesPaint();
        for (int iHour = 0; iHour < kHourCount;) iHour = StretchPaint(iHour);
        NeedPaint();
        HourPaint();
        LabelsPaint();
        m_painter.restore();
    }

private:
    /// Rounds outwards to whole steps, so that all values and the need are inside.
    void RangeSet()
    {
        double dLeast = m_band.fNeed;
        double dMost = m_band.fNeed;
        for (const DaysCell& cell : m_band.aHours) {
            if (std::isnan(cell.fMedian))
                continue;
            dLeast = std::min(dLeast, double{cell.fBad});
            dMost = std::max(dMost, double{cell.fGood});
        }
        m_dLeast = std::floor((dLeast - 1) / kStep) * kStep;
        m_dMost = std::ceil((dMost + 1) / kStep) * kStep;
    }
    [[nodiscard]] double XGet(double dHour) const
    {
        return m_rct.left() + m_rct.width() * dHour / kHourCount;
    }
    [[nodiscard]] double YGet(double dSnr) const
    {
        return m_rct.bottom() - m_rct.height() * (dSnr - m_dLeast) / (m_dMost - m_dLeast);
    }
    [[nodiscard]] bool There(int iHour) const
    {
        return iHour < kHourCount
               && !std::isnan(m_band.aHours.at(static_cast<std::size_t>(iHour)).fMedian);
    }
    [[nodiscard]] QPointF PointGet(int iHour, float DaysCell::*pValue) const
    {
        return {XGet(iHour + 0.5), YGet(m_band.aHours.at(static_cast<std::size_t>(iHour)).*pValue)};
    }

    void LinesPaint()
    {
        QColor clrLine = m_clrInk;
        if (m_bColour)
            clrLine.setAlphaF(0.15F);
        m_painter.setPen(QPen(clrLine, 0, m_bColour ? Qt::SolidLine : Qt::DotLine));
        for (int iHour = 0; iHour <= kHourCount; iHour += kHoursBetween)
            m_painter.drawLine(QPointF(XGet(iHour), m_rct.top()),
                               QPointF(XGet(iHour), m_rct.bottom()));
        for (double d = m_dLeast; d <= m_dMost; d += kStep)
            m_painter.drawLine(QPointF(m_rct.left(), YGet(d)), QPointF(m_rct.right(), YGet(d)));
        m_painter.setBrush(Qt::NoBrush);
        m_painter.setPen(QPen(m_clrInk, 0));
        m_painter.drawRect(m_rct);
    }

    /// Paints one stretch of hours with values. A single hour spans half an hour on either side.
    /// @return the first hour after it
    int StretchPaint(int iFirst)
    {
        if (!There(iFirst))
            return iFirst + 1;
        int iEnd = iFirst;
        while (There(iEnd)) ++iEnd;
        const QPolygonF aGood = EdgeGet(iFirst, iEnd, &DaysCell::fGood);
        QPolygonF aBad = EdgeGet(iFirst, iEnd, &DaysCell::fBad);
        const QPolygonF aMedian = EdgeGet(iFirst, iEnd, &DaysCell::fMedian);
        m_painter.setPen(QPen(m_clrInk, m_dLine / 2, m_bColour ? Qt::SolidLine : Qt::DashLine));
        m_painter.drawPolyline(aGood);
        m_painter.drawPolyline(aBad);
        if (m_bColour) {
            std::reverse(aBad.begin(), aBad.end());
            m_painter.setPen(Qt::NoPen);
            m_painter.setBrush(QColor(0x5A, 0x9B, 0xD4, 0x70));
            m_painter.drawPolygon(aGood + aBad);
            m_painter.setBrush(Qt::NoBrush);
        }
        m_painter.setPen(QPen(m_clrInk, m_dLine * 1.5));
        m_painter.drawPolyline(aMedian);
        return iEnd;
    }
    [[nodiscard]] QPolygonF EdgeGet(int iFirst, int iEnd, float DaysCell::*pValue) const
    {
        const double dHalf = XGet(0.5) - XGet(0);
        QPolygonF aPoint;
        aPoint << PointGet(iFirst, pValue) - QPointF(dHalf, 0);
        for (int iHour = iFirst; iHour < iEnd; ++iHour) aPoint << PointGet(iHour, pValue);
        return aPoint << PointGet(iEnd - 1, pValue) + QPointF(dHalf, 0);
    }

    void NeedPaint()
    {
        const double dY = YGet(m_band.fNeed);
        const QColor clr = m_bColour ? QColor(0xD0, 0x50, 0x10) : QColor(Qt::black);
        m_painter.setPen(QPen(clr, m_dLine * 1.5, Qt::DashDotLine));
        m_painter.drawLine(QPointF(m_rct.left(), dY), QPointF(m_rct.right(), dY));
    }

    void HourPaint()
    {
        if (m_band.iHour < 0)
            return;
        const double dX = XGet(m_band.iHour + 0.5);
        m_painter.setPen(QPen(m_clrInk, m_dLine));
        m_painter.drawLine(QPointF(dX, m_rct.top()), QPointF(dX, m_rct.bottom()));
        if (!There(m_band.iHour))
            return;
        m_painter.setBrush(m_clrInk);
        const double dDot = m_dLine * 2.5;
        for (float DaysCell::*pValue : {&DaysCell::fBad, &DaysCell::fMedian, &DaysCell::fGood})
            m_painter.drawEllipse(PointGet(m_band.iHour, pValue), dDot, dDot);
        m_painter.setBrush(Qt::NoBrush);
    }

    void LabelsPaint()
    {
        m_painter.setPen(m_clrInk);
        const double dBaseline = (m_metrics.ascent() - m_metrics.descent()) / 2;
        double dAbove = m_rct.bottom() + m_rct.height();
        for (double d = m_dLeast; d <= m_dMost; d += kStep) {
            if (dAbove - YGet(d) < m_metrics.height())
                continue;
            dAbove = YGet(d);
            const QString sText = QString::number(std::lround(d)) + u' ';
            m_painter.drawText(
                QPointF(m_rct.left() - m_metrics.horizontalAdvance(sText), dAbove + dBaseline),
                sText);
        }
        double dWidest = 0.0;
        for (const QString& sHour : m_band.asHour)
            dWidest = std::max(dWidest, m_metrics.horizontalAdvance(sHour + u' '));
        int nEvery = 1;
        while (XGet(nEvery) - XGet(0) < dWidest && nEvery < kHourCount)
            nEvery *= nEvery == 1 ? 3 : 2;
        for (int iHour = 0; iHour < kHourCount; iHour += nEvery) {
            const QString& sHour = m_band.asHour.at(static_cast<std::size_t>(iHour));
            m_painter.drawText(
                QPointF(XGet(iHour + 0.5) - m_metrics.horizontalAdvance(sHour) / 2,
                        m_rct.bottom() + m_metrics.ascent() + m_metrics.height() * 0.1),
                sHour);
        }
        NamesPaint(dBaseline);
    }

    /// Puts the names of the lines at their right ends, each as close to its own as the others
    /// allow.
    void NamesPaint(double dBaseline)
    {
        std::vector<std::pair<double, QString>> aName{{YGet(m_band.fNeed), QObject::tr("need")}};
        int iLast = kHourCount - 1;
        while (iLast >= 0 && !There(iLast)) --iLast;
        if (iLast == kHourCount - 1) {
            const auto Name = [&](float DaysCell::*pValue, const QString& sName) {
                aName.emplace_back(PointGet(iLast, pValue).y(), sName);
            };
            Name(&DaysCell::fGood, QObject::tr("good"));
            Name(&DaysCell::fMedian, QObject::tr("median"));
            Name(&DaysCell::fBad, QObject::tr("bad"));
        }
        std::sort(aName.begin(), aName.end());
        // Pass downwards so that no name is above its line, then upwards to bring them back into
        // the plot.
        const double dRow = m_metrics.height() * 0.9;
        for (std::size_t i = 1; i < aName.size(); ++i)
            aName[i].first = std::max(aName[i].first, aName[i - 1].first + dRow);
        double dLowest = m_rct.bottom();
        for (std::size_t i = aName.size(); i-- > 0; dLowest = aName[i].first - dRow)
            aName[i].first = std::min(aName[i].first, dLowest);
        for (const auto& [dY, sName] : aName)
            m_painter.drawText(
                QPointF(m_rct.right() + m_metrics.averageCharWidth() / 2, dY + dBaseline), sName);
    }

    QPainter& m_painter;
    QFontMetricsF m_metrics;
    QRectF m_rct;
    const DaysBand& m_band;
    QColor m_clrInk;
    bool m_bColour;
    double m_dLine;
    double m_dLeast = 0.0;
    double m_dMost = 0.0;
};

}  // namespace

std::optional<int> DaysBandHourAt(const QRectF& rct, const QFontMetricsF& metrics,
                                  const QPointF& pnt)
{
    const QRectF rctPlot = PlotGet(rct, metrics);
    if (!rctPlot.contains(pnt))
        return {};
    const double dHour = (pnt.x() - rctPlot.left()) / rctPlot.width() * kHourCount;
    return std::min(static_cast<int>(dHour), kHourCount - 1);
}

void DaysBandPaint(QPainter& painter, const QRectF& rct, const DaysBand& band, const QColor& clrInk,
                   PageLook eLook)
{
    painter.save();
    PaintDirectionOfText(painter);
    BandPainter(painter, rct, band, clrInk, eLook).Paint();
    painter.restore();
}

DaysBandView::DaysBandView(QWidget* pParent) : QWidget(pParent)
{
    constexpr int kRowsLeast = 7;
    setMinimumHeight(kRowsLeast * fontMetrics().height());
}

void DaysBandView::Show(const DaysBand& band)
{
    m_band = band;
    update();
}

void DaysBandView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    DaysBandPaint(painter, rect(), m_band, palette().color(QPalette::WindowText), PageLook::Colour);
}

void DaysBandView::mousePressEvent(QMouseEvent* pEvent)
{
    if (const auto iHour = DaysBandHourAt(rect(), QFontMetricsF(font()), pEvent->position());
        iHour && pEvent->button() == Qt::LeftButton)
        Q_EMIT HourClicked(*iHour);
}
