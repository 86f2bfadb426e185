#include "ui/curves/CurvesPlot.h"

#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>

#include "propagation/SnrScale.h"
#include "ui/common/Colors.h"

namespace {

constexpr double kKiloPerMega = 1000.0;
constexpr double kMargin = 1.05;                   // above the highest curve
constexpr double kRibbonMost = 1.0;                // letters
constexpr double kRibbonLeast = 0.3;               // letters
constexpr double kSunBar = 0.8;                    // letters, its height
constexpr double kTwilight = -6.0;                 // degrees: the end of civil twilight
constexpr std::array kSteps{1.0, 2.0, 5.0, 10.0};  // MHz between lines

QString FrequencyText(double dFrequency) { return QString::number(std::lround(dFrequency)); }

}  // namespace

CurvesPlot::CurvesPlot(const QRectF& rct, const QFontMetricsF& metrics, const DayCurves& day,
                       const CurvesView& view)
    : m_metrics(metrics), m_day(day), m_view(view)
{
    const double dLetters = metrics.height();
    double dLabels = metrics.horizontalAdvance(QStringLiteral("00000"));
    for (const CurveRibbon& ribbon : day.aRibbons)
        dLabels = std::max(dLabels, metrics.horizontalAdvance(FrequencyText(ribbon.fFrequency)));
    const double dLeft = dLabels + metrics.averageCharWidth();
    const double dRight = metrics.horizontalAdvance(QStringLiteral(" MUF"));
    const double dBelow = dLetters * (1.2 + 2 * (kSunBar + 0.4));
    m_rctPlot = rct.adjusted(dLeft, dLetters * 0.6, -dRight, -dBelow);
    RangeSet();
}

void CurvesPlot::RangeSet()
{
    double dLeast = 1e9;
    double dMost = 0.0;
    const auto See = [&dLeast, &dMost](double dValue) {
        if (std::isnan(dValue))
            return;
        dLeast = std::min(dLeast, dValue);
        dMost = std::max(dMost, dValue);
    };
    for (const DayCurve* pafValue : {&m_day.afMuf, &m_day.afFot, &m_day.afLuf})
        for (const float fValue : *pafValue) See(fValue);
    for (const CurveRibbon& ribbon : m_day.aRibbons) See(ribbon.fFrequency);
    if (dMost <= 0.0) {
        constexpr double kHighest = 30'000.0;  // kHz: the end of short wave
        dLeast = 0.0;
        dMost = kHighest;
    }
    m_dLeast = std::max(0.0, std::floor(dLeast / kKiloPerMega - 1) * kKiloPerMega);
    m_dMost = std::ceil(dMost * kMargin / kKiloPerMega) * kKiloPerMega;

    const double dLetters = m_metrics.height();
    m_dRibbon = kRibbonMost * dLetters;
    std::vector<double> aY;
    for (const CurveRibbon& ribbon : m_day.aRibbons) aY.push_back(YGet(ribbon.fFrequency));
    std::sort(aY.begin(), aY.end());
    for (std::size_t i = 1; i < aY.size(); ++i) m_dRibbon = std::min(m_dRibbon, aY[i] - aY[i - 1]);
    m_dRibbon = std::max(m_dRibbon, kRibbonLeast * dLetters);
}

double CurvesPlot::XGet(double dHour) const
{
    return m_rctPlot.left() + m_rctPlot.width() * dHour / kHourCount;
}

double CurvesPlot::YGet(double dFrequency) const
{
    return m_rctPlot.bottom() - m_rctPlot.height() * (dFrequency - m_dLeast) / (m_dMost - m_dLeast);
}

QRectF CurvesPlot::CellRect(const CurvesCell& cell) const
{
    const double dY = YGet(m_day.aRibbons[static_cast<std::size_t>(cell.iRibbon)].fFrequency);
    return {XGet(cell.iHour), dY - m_dRibbon / 2, XGet(cell.iHour + 1) - XGet(cell.iHour),
            m_dRibbon};
}

std::optional<CurvesCell> CurvesPlot::CellAt(const QPointF& pnt) const
{
    if (!m_rctPlot.contains(pnt) || m_day.aRibbons.empty())
        return {};
    const int iHour =
        static_cast<int>((pnt.x() - m_rctPlot.left()) / m_rctPlot.width() * kHourCount);
    int iNearest = 0;
    const auto Distance = [this, &pnt](int iRibbon) {
        return std::abs(YGet(m_day.aRibbons[static_cast<std::size_t>(iRibbon)].fFrequency)
                        - pnt.y());
    };
    for (int i = 1; i < static_cast<int>(m_day.aRibbons.size()); ++i)
        if (Distance(i) < Distance(iNearest))
            iNearest = i;
    return CurvesCell{std::min(iHour, kHourCount - 1), iNearest};
}

void CurvesPlot::Paint(QPainter& painter) const
{
    painter.save();
    GridPaint(painter);
    for (int i = 0; i < static_cast<int>(m_day.aRibbons.size()); ++i) RibbonPaint(painter, i);
    painter.setRenderHint(QPainter::Antialiasing);
    CurvePaint(painter, m_day.afLuf, Qt::DotLine, QStringLiteral("LUF"));
    CurvePaint(painter, m_day.afFot, Qt::DashLine, QStringLiteral("FOT"));
    CurvePaint(painter, m_day.afMuf, Qt::SolidLine, QStringLiteral("MUF"));
    if (m_view.dNow >= 0.0) {
        painter.setPen(QPen(m_view.clrInk, std::max(1.0, m_metrics.height() / 10)));
        painter.drawLine(QPointF(XGet(m_view.dNow), m_rctPlot.top()),
                         QPointF(XGet(m_view.dNow), m_rctPlot.bottom()));
    }
    const double dBar = m_metrics.height() * (kSunBar + 0.4);
    const double dSun = m_rctPlot.bottom() + m_metrics.height() * 1.3;
    SunPaint(painter, m_day.afSunRc, dSun, QStringLiteral("Rc"));
    SunPaint(painter, m_day.afSunTx, dSun + dBar, QStringLiteral("Tx"));
    LabelsPaint(painter);
    painter.restore();
}

void CurvesPlot::GridPaint(QPainter& painter) const
{
    QColor clrLine = m_view.clrInk;
    if (m_view.eLook == PageLook::Colour)
        clrLine.setAlphaF(0.15F);
    const Qt::PenStyle eStyle = m_view.eLook == PageLook::Colour ? Qt::SolidLine : Qt::DotLine;
    painter.setPen(QPen(clrLine, 0, eStyle));
    for (int iHour = 0; iHour <= kHourCount; iHour += 3)
        painter.drawLine(QPointF(XGet(iHour), m_rctPlot.top()),
                         QPointF(XGet(iHour), m_rctPlot.bottom()));
    const double dRoom = m_metrics.height() * 1.5;
    double dStep = kSteps.back();
    for (const double dMega : kSteps) {
        if (YGet(m_dLeast) - YGet(m_dLeast + dMega * kKiloPerMega) >= dRoom) {
            dStep = dMega;
            break;
        }
    }
    dStep *= kKiloPerMega;
    for (double d = std::ceil(m_dLeast / dStep) * dStep; d <= m_dMost; d += dStep)
        painter.drawLine(QPointF(m_rctPlot.left(), YGet(d)), QPointF(m_rctPlot.right(), YGet(d)));
    painter.setPen(QPen(m_view.clrInk, 0));
    painter.drawRect(m_rctPlot);
}

void CurvesPlot::RibbonPaint(QPainter& painter, int iRibbon) const
{
    const CurveRibbon& ribbon = m_day.aRibbons[static_cast<std::size_t>(iRibbon)];
    for (int iHour = 0; iHour < kHourCount; ++iHour) {
        const float fSnr = ribbon.afSnr[static_cast<std::size_t>(iHour)];
        if (std::isnan(fSnr))
            continue;
        const QRectF rct = CellRect({iHour, iRibbon});
        if (m_view.eLook == PageLook::Colour) {
            painter.fillRect(rct, ColorFromBgr(SnrGetColor(fSnr)));
        } else if (fSnr >= m_view.fNeed) {
            painter.fillRect(rct, Qt::black);
        } else {
            painter.fillRect(rct, Qt::white);
            painter.setPen(QPen(Qt::black, 0));
            painter.drawRect(rct);
        }
        if (iHour == m_view.iHour && iRibbon == m_view.iRibbon) {
            painter.setPen(QPen(m_view.clrInk, std::max(2.0, m_metrics.height() / 8)));
            painter.drawRect(rct);
        }
    }
}

void CurvesPlot::CurvePaint(QPainter& painter, const DayCurve& afValue, Qt::PenStyle eStyle,
                            const QString& sName) const
{
    QPainterPath path;
    bool bBegun = false;
    std::optional<QPointF> pntLast;
    for (int iHour = 0; iHour < kHourCount; ++iHour) {
        const float fValue = afValue[static_cast<std::size_t>(iHour)];
        if (std::isnan(fValue)) {
            bBegun = false;
            continue;
        }
        const QPointF pnt(XGet(iHour + 0.5), YGet(fValue));
        if (bBegun)
            path.lineTo(pnt);
        else
            path.moveTo(pnt);
        bBegun = true;
        pntLast = pnt;
    }
    // Ribbons may have any colour: a line of paper on both sides keeps the curve visible.
    const double dWidth = std::max(1.5, m_metrics.height() / 8);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(m_view.clrPaper, dWidth * 2.2));
    painter.drawPath(path);
    painter.setPen(QPen(m_view.clrInk, dWidth, eStyle));
    painter.drawPath(path);
    if (pntLast) {
        painter.setPen(m_view.clrInk);
        painter.drawText(QPointF(m_rctPlot.right() + m_metrics.averageCharWidth() / 2,
                                 pntLast->y() + m_metrics.ascent() / 2),
                         sName);
    }
}

void CurvesPlot::SunPaint(QPainter& painter, const SunCurve& afHeight, double dTop,
                          const QString& sName) const
{
    painter.setRenderHint(QPainter::Antialiasing, false);  // no seams between the steps
    const bool bColour = m_view.eLook == PageLook::Colour;
    const double dHeight = kSunBar * m_metrics.height();
    for (std::size_t iStep = 0; iStep < afHeight.size(); ++iStep) {
        const float fHeight = afHeight.at(iStep);
        const double dLeft = XGet(static_cast<double>(iStep) / kSunStepsAnHour);
        const double dRight = XGet(static_cast<double>(iStep + 1) / kSunStepsAnHour);
        const QRectF rct(dLeft, dTop, dRight - dLeft, dHeight);
        if (fHeight >= 0)
            painter.fillRect(rct, bColour ? QColor(0xFFD84D) : QColor(Qt::white));
        else if (fHeight >= kTwilight)
            painter.fillRect(
                rct, bColour ? QBrush(QColor(0xB08A60)) : QBrush(Qt::black, Qt::BDiagPattern));
        else
            painter.fillRect(rct, bColour ? QColor(0x24304F) : QColor(Qt::black));
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_view.clrInk, 0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(m_rctPlot.left(), dTop, m_rctPlot.width(), dHeight));
    const double dName =
        m_rctPlot.left() - m_metrics.averageCharWidth() - m_metrics.horizontalAdvance(sName);
    painter.drawText(
        QPointF(dName, dTop + dHeight / 2 + m_metrics.ascent() / 2 - m_metrics.descent() / 2),
        sName);
}

/// Hours as far as they have room; frequencies apart from each other, each near its ribbon.
void CurvesPlot::LabelsPaint(QPainter& painter) const
{
    painter.setPen(m_view.clrInk);
    double dWidest = 0.0;
    for (const QString& sHour : m_view.asHour)
        dWidest = std::max(dWidest, m_metrics.horizontalAdvance(sHour));
    const double dHour = m_rctPlot.width() / kHourCount;
    int nEvery = 24;
    for (const int n : {1, 2, 3, 6, 12}) {
        if (dHour * n > dWidest + m_metrics.averageCharWidth()) {
            nEvery = n;
            break;
        }
    }
    for (int iHour = 0; iHour < kHourCount; iHour += nEvery) {
        const QString& sHour = m_view.asHour[static_cast<std::size_t>(iHour)];
        painter.drawText(
            QPointF(XGet(iHour + 0.5) - m_metrics.horizontalAdvance(sHour) / 2,
                    m_rctPlot.bottom() + m_metrics.ascent() + m_metrics.height() * 0.1),
            sHour);
    }
    std::vector<float> afFrequency;
    for (const CurveRibbon& ribbon : m_day.aRibbons) afFrequency.push_back(ribbon.fFrequency);
    std::sort(afFrequency.begin(), afFrequency.end(), std::greater<>());
    // From the top down none above its ribbon; then from the bottom up back into the plot.
    std::vector<double> aY;
    for (const float fFrequency : afFrequency)
        aY.push_back(
            std::max(YGet(fFrequency), aY.empty() ? -1e9 : aY.back() + m_metrics.height()));
    double dLowest = m_rctPlot.bottom();
    for (std::size_t i = aY.size(); i-- > 0;) {
        aY[i] = std::min(aY[i], dLowest);
        dLowest = aY[i] - m_metrics.height();
    }
    for (std::size_t i = 0; i < aY.size(); ++i) {
        const QString sText = FrequencyText(afFrequency[i]);
        painter.drawText(QPointF(m_rctPlot.left() - m_metrics.averageCharWidth() / 2
                                     - m_metrics.horizontalAdvance(sText),
                                 aY[i] + m_metrics.ascent() / 2 - m_metrics.descent() / 2),
                         sText);
    }
}
