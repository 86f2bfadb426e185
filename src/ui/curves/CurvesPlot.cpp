#include "ui/curves/CurvesPlot.h"

#include <QObject>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <utility>

#include "propagation/SnrScale.h"
#include "ui/common/BandPaint.h"
#include "ui/common/Colors.h"
#include "ui/common/PaintDirection.h"
#include "ui/curves/Spread.h"

namespace {

constexpr double kKiloPerMega = 1000.0;
constexpr double kMargin = 1.05;                   // room above the highest curve
constexpr double kRibbonMost = 1.0;                // letters
constexpr double kRibbonLeast = 0.25;              // letters, where the plot is low
constexpr double kRibbonClose = 0.45;              // letters, for frequencies close together
constexpr double kRibbonShare = 0.5;               // of the plot's height, for all ribbons together
constexpr double kRibbonGap = 0.1;                 // letters
constexpr double kLeader = 1.5;                    // letter widths from a label to its ribbon
constexpr double kOldShare = 0.4;                  // of the colour, when the ribbon is old
constexpr double kSunBar = 0.8;                    // height in letters
constexpr double kTwilight = -6.0;                 // degrees: the end of civil twilight
constexpr std::array kSteps{1.0, 2.0, 5.0, 10.0};  // MHz between grid lines

QString FrequencyText(double dFrequency) { return QString::number(std::lround(dFrequency)); }

QColor Faded(const QColor& clr, const QColor& clrPaper)
{
    const auto Part = [](int nA, int nB) {
        return static_cast<int>(nA * kOldShare + nB * (1.0 - kOldShare));
    };
    return {Part(clr.red(), clrPaper.red()), Part(clr.green(), clrPaper.green()),
            Part(clr.blue(), clrPaper.blue())};
}

}  // namespace

CurvesPlot::CurvesPlot(const QRectF& rct, const QFontMetricsF& metrics, const DayCurves& day,
                       const CurvesView& view)
    : m_metrics(metrics), m_day(day), m_view(view)
{
    const double dLetters = metrics.height();
    double dLabels = metrics.horizontalAdvance(QStringLiteral("00000"));
    for (const CurveRibbon& ribbon : day.aRibbons)
        dLabels = std::max(dLabels, metrics.horizontalAdvance(FrequencyText(ribbon.fFrequency)));
    const double dLeft = dLabels + metrics.averageCharWidth() * (kLeader + 0.5);
    const double dRight = metrics.horizontalAdvance(QStringLiteral("00000"))
                          + metrics.averageCharWidth();  // the scale; the curves' names are shorter
    const double dBelow = dLetters * (1.2 + 2 * (kSunBar + 0.4));
    m_rctPlot = rct.adjusted(dLeft, dLetters * 0.6, -dRight, -dBelow);
    RangeSet();
    RibbonsSet();
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
        constexpr double kHighest = 30'000.0;  // kHz: the upper end of short wave
        dLeast = 0.0;
        dMost = kHighest;
    }
    m_dLeast = std::max(0.0, std::floor(dLeast / kKiloPerMega - 1) * kKiloPerMega);
    m_dMost = std::ceil(dMost * kMargin / kKiloPerMega) * kKiloPerMega;
}

void CurvesPlot::RibbonsSet()
{
    const double dLetters = m_metrics.height();
    std::vector<double> aTrue;
    for (const CurveRibbon& ribbon : m_day.aRibbons) aTrue.push_back(YGet(ribbon.fFrequency));
    m_aiFromTop.resize(m_day.aRibbons.size());
    std::iota(m_aiFromTop.begin(), m_aiFromTop.end(), 0);
    std::stable_sort(m_aiFromTop.begin(), m_aiFromTop.end(), [&aTrue](int iA, int iB) {
        return aTrue[static_cast<std::size_t>(iA)] < aTrue[static_cast<std::size_t>(iB)];
    });
    std::vector<double> aWanted;
    for (const int i : m_aiFromTop) aWanted.push_back(aTrue[static_cast<std::size_t>(i)]);
    double dNearest = (kRibbonMost + kRibbonGap) * dLetters;
    for (std::size_t n = 1; n < aWanted.size(); ++n)
        dNearest = std::min(dNearest, aWanted[n] - aWanted[n - 1]);
    // They are thinned before they are moved, since a moved ribbon is no longer at its frequency.
    const double dShare = kRibbonShare * m_rctPlot.height()
                          / static_cast<double>(std::max<std::size_t>(1, aWanted.size()));
    const double dLeast = std::clamp(dShare, kRibbonLeast * dLetters, kRibbonClose * dLetters);
    m_dRibbon = std::max(dNearest - kRibbonGap * dLetters, dLeast);
    const std::vector<double> aY =
        Spread(aWanted, m_dRibbon + kRibbonGap * dLetters, m_rctPlot.top() + m_dRibbon / 2,
               m_rctPlot.bottom() - m_dRibbon / 2);
    m_aRibbonY.resize(aY.size());
    for (std::size_t n = 0; n < aY.size(); ++n)
        m_aRibbonY[static_cast<std::size_t>(m_aiFromTop[n])] = aY[n];
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
    const double dY = m_aRibbonY[static_cast<std::size_t>(cell.iRibbon)];
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
        return std::abs(m_aRibbonY[static_cast<std::size_t>(iRibbon)] - pnt.y());
    };
    for (int i = 1; i < static_cast<int>(m_day.aRibbons.size()); ++i)
        if (Distance(i) < Distance(iNearest))
            iNearest = i;
    return CurvesCell{std::min(iHour, kHourCount - 1), iNearest};
}

void CurvesPlot::Paint(QPainter& painter) const
{
    painter.save();
    PaintDirectionOfText(painter);
    GridPaint(painter);
    for (int i = 0; i < static_cast<int>(m_day.aRibbons.size()); ++i) RibbonPaint(painter, i);
    painter.setRenderHint(QPainter::Antialiasing);
    CurvePaint(painter, m_day.afLuf, Qt::DotLine);
    CurvePaint(painter, m_day.afFot, Qt::DashLine);
    CurvePaint(painter, m_day.afMuf, Qt::SolidLine);
    NamesPaint(painter);
    FramePaint(painter);
    if (m_view.dNow >= 0.0) {
        painter.setPen(QPen(m_view.clrInk, std::max(1.0, m_metrics.height() / 10)));
        painter.drawLine(QPointF(XGet(m_view.dNow), m_rctPlot.top()),
                         QPointF(XGet(m_view.dNow), m_rctPlot.bottom()));
    }
    const double dBar = m_metrics.height() * (kSunBar + 0.4);
    const double dSun = m_rctPlot.bottom() + m_metrics.height() * 1.3;
    SunPaint(painter, m_day.afSunRc, dSun, QObject::tr("Rc"));
    SunPaint(painter, m_day.afSunTx, dSun + dBar, QObject::tr("Tx"));
    HoursPaint(painter);
    LabelsPaint(painter);
    painter.restore();
}

/// kHz between the lines of the scale, so that its labels have room.
double CurvesPlot::StepGet() const
{
    const double dRoom = m_metrics.height() * 1.5;
    for (const double dMega : kSteps)
        if (YGet(m_dLeast) - YGet(m_dLeast + dMega * kKiloPerMega) >= dRoom)
            return dMega * kKiloPerMega;
    return kSteps.back() * kKiloPerMega;
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
    const double dStep = StepGet();
    for (double d = std::ceil(m_dLeast / dStep) * dStep; d <= m_dMost; d += dStep)
        painter.drawLine(QPointF(m_rctPlot.left(), YGet(d)), QPointF(m_rctPlot.right(), YGet(d)));
    painter.setPen(QPen(m_view.clrInk, 0));
    painter.drawRect(m_rctPlot);
}

void CurvesPlot::RibbonPaint(QPainter& painter, int iRibbon) const
{
    const CurveRibbon& ribbon = m_day.aRibbons[static_cast<std::size_t>(iRibbon)];
    painter.setRenderHint(QPainter::Antialiasing, false);  // no seams between the hours
    for (int iHour = 0; iHour < kHourCount; ++iHour) {
        const float fSnr = ribbon.afSnr[static_cast<std::size_t>(iHour)];
        if (std::isnan(fSnr))
            continue;
        const QRectF rct = CellRect({iHour, iRibbon});
        if (m_view.eLook == PageLook::Colour) {
            const QColor clr = ColorFromBgr(SnrBandOfCell(fSnr, m_view.ePalette).nColor);
            painter.fillRect(rct, m_view.bOld ? Faded(clr, m_view.clrPaper) : clr);
            if (BandHiddenIs(clr, m_view.clrPaper)) {
                painter.setPen(QPen(Faded(m_view.clrInk, m_view.clrPaper), 0));
                painter.setBrush(Qt::NoBrush);
                painter.drawRect(rct);
            }
        } else if (fSnr >= m_view.fNeed) {
            painter.fillRect(rct, Qt::black);
        } else {
            painter.fillRect(rct, Qt::white);
            painter.setPen(QPen(Qt::black, 0));
            painter.drawRect(rct);
        }
    }
}

/// Painted above neighbours and curves with a paper-coloured edge, so that it shows on any colour.
void CurvesPlot::FramePaint(QPainter& painter) const
{
    if (m_view.iHour < 0 || m_view.iRibbon < 0)
        return;
    const QRectF rct = CellRect({m_view.iHour, m_view.iRibbon});
    const double dWidth = std::max(2.0, m_metrics.height() / 8);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    for (const auto& [dPen, clr] :
         {std::pair(dWidth * 2, m_view.clrPaper), std::pair(dWidth, m_view.clrInk)}) {
        QPen pen(clr, dPen);
        pen.setJoinStyle(Qt::MiterJoin);
        painter.setPen(pen);
        painter.drawRect(rct);
    }
}

void CurvesPlot::CurvePaint(QPainter& painter, const DayCurve& afValue, Qt::PenStyle eStyle) const
{
    QPainterPath path;
    bool bBegun = false;
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
    }
    // Ribbons may have any colour: a paper-coloured line on both sides keeps the curve visible.
    const double dWidth = std::max(1.5, m_metrics.height() / 8);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(m_view.clrPaper, dWidth * 2.2));
    painter.drawPath(path);
    painter.setPen(QPen(m_view.clrInk, dWidth, eStyle));
    painter.drawPath(path);
}

/// Names go behind the ends of their curves without overlap; the scale gets the room left over.
void CurvesPlot::NamesPaint(QPainter& painter) const
{
    const std::array<std::pair<const DayCurve*, QString>, 3> aCurve{
        {{&m_day.afMuf, QObject::tr("MUF")},
         {&m_day.afFot, QObject::tr("FOT")},
         {&m_day.afLuf, QObject::tr("LUF")}}};
    std::vector<std::pair<double, QString>> aName;
    for (const auto& [pafValue, sName] : aCurve) {
        const auto it = std::find_if(pafValue->rbegin(), pafValue->rend(),
                                     [](float fValue) { return !std::isnan(fValue); });
        if (it != pafValue->rend())
            aName.emplace_back(YGet(*it), sName);
    }
    std::stable_sort(aName.begin(), aName.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<double> aWanted;
    for (const auto& [dY, sName] : aName) aWanted.push_back(dY);
    const std::vector<double> aY =
        Spread(aWanted, m_metrics.height(), m_rctPlot.top(), m_rctPlot.bottom());
    painter.setPen(m_view.clrInk);
    const auto Write = [this, &painter](double dY, const QString& sText) {
        painter.drawText(QPointF(m_rctPlot.right() + m_metrics.averageCharWidth() / 2,
                                 dY + (m_metrics.ascent() - m_metrics.descent()) / 2),
                         sText);
    };
    for (std::size_t i = 0; i < aY.size(); ++i) Write(aY[i], aName[i].second);
    const double dStep = StepGet();
    for (double d = std::ceil(m_dLeast / dStep) * dStep; d <= m_dMost; d += dStep)
        if (std::none_of(aY.begin(), aY.end(), [this, dY = YGet(d)](double dName) {
                return std::abs(dName - dY) < m_metrics.height();
            }))
            Write(YGet(d), FrequencyText(d));
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

/// As many hours as fit; none reaches beyond the plot, where the frequencies are.
void CurvesPlot::HoursPaint(QPainter& painter) const
{
    painter.setPen(m_view.clrInk);
    double dWidest = 0.0;
    for (const QString& sHour : m_view.asHour)
        dWidest = std::max(dWidest, m_metrics.horizontalAdvance(sHour));
    const double dHour = m_rctPlot.width() / kHourCount;
    const double dMoved = std::max(0.0, (dWidest - dHour) / 2);  // shift of the first one
    int nEvery = kHourCount;
    for (const int n : {1, 2, 3, 6, 12}) {
        if (dHour * n > dWidest + dMoved + m_metrics.averageCharWidth()) {
            nEvery = n;
            break;
        }
    }
    for (int iHour = 0; iHour < kHourCount; iHour += nEvery) {
        const QString& sHour = m_view.asHour[static_cast<std::size_t>(iHour)];
        const double dWidth = m_metrics.horizontalAdvance(sHour);
        const double dLeft = std::max(XGet(iHour + 0.5) - dWidth / 2, m_rctPlot.left());
        painter.drawText(
            QPointF(std::min(dLeft, m_rctPlot.right() - dWidth),
                    m_rctPlot.bottom() + m_metrics.ascent() + m_metrics.height() * 0.1),
            sHour);
    }
}

std::vector<CurvesPlot::Label> CurvesPlot::LabelsGet() const
{
    const auto nAll = m_aiFromTop.size();
    const auto nRoom =
        static_cast<std::size_t>(std::max(1.0, m_rctPlot.height() / m_metrics.height() + 1.0));
    const std::size_t nShown = std::min(nAll, nRoom);
    std::vector<std::size_t> aPlace;  // from the top, spread as evenly as possible
    for (std::size_t n = 0; n < nShown; ++n)
        aPlace.push_back(nShown > 1 ? n * (nAll - 1) / (nShown - 1) : 0);
    const auto itSelected = std::find(m_aiFromTop.begin(), m_aiFromTop.end(), m_view.iRibbon);
    if (itSelected != m_aiFromTop.end()) {
        const auto nSelected = static_cast<std::size_t>(itSelected - m_aiFromTop.begin());
        *(std::upper_bound(aPlace.begin(), aPlace.end(), nSelected) - 1) = nSelected;
    }
    std::vector<double> aWanted;
    for (const std::size_t n : aPlace)
        aWanted.push_back(m_aRibbonY[static_cast<std::size_t>(m_aiFromTop[n])]);
    const std::vector<double> aY =
        Spread(aWanted, m_metrics.height(), m_rctPlot.top(), m_rctPlot.bottom());
    std::vector<Label> aLabel;
    for (std::size_t i = 0; i < aY.size(); ++i) aLabel.push_back({m_aiFromTop[aPlace[i]], aY[i]});
    return aLabel;
}

/// A label that had to move away from its ribbon is joined to it by a line.
void CurvesPlot::LabelsPaint(QPainter& painter) const
{
    const double dRoom = m_metrics.averageCharWidth() * kLeader;
    for (const Label& label : LabelsGet()) {
        const auto nRibbon = static_cast<std::size_t>(label.iRibbon);
        const QString sText = FrequencyText(m_day.aRibbons[nRibbon].fFrequency);
        painter.setPen(m_view.clrInk);
        painter.drawText(QPointF(m_rctPlot.left() - dRoom - m_metrics.horizontalAdvance(sText),
                                 label.dY + (m_metrics.ascent() - m_metrics.descent()) / 2),
                         sText);
        painter.setPen(QPen(m_view.clrInk, 0));
        painter.drawLine(QPointF(m_rctPlot.left() - dRoom * 0.8, label.dY),
                         QPointF(m_rctPlot.left(), m_aRibbonY[nRibbon]));
    }
}
