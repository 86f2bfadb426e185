#include "ui/curves/CurvesControl.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "ui/common/PaletteShown.h"
#include "ui/curves/CurvesTable.h"

namespace {

// On large windows the letters grow with the plot, as shares of its height and width.
constexpr double kLettersByHeight = 1.0 / 60.0;
constexpr double kLettersByWidth = 1.0 / 100.0;
constexpr QSize kLeast(240, 130);
constexpr QSize kGood(860, 460);

}  // namespace

CurvesControl::CurvesControl(QWidget* pParent) : QWidget(pParent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleDescription(tr("Left and right change the hour, up and down the frequency."));
    ColoursTake();
    NameShow();
    connect(&PaletteSignal::Get(), &PaletteSignal::Changed, this, [this] {
        ColoursTake();
        update();
    });
}

QSize CurvesControl::minimumSizeHint() const { return kLeast; }

QSize CurvesControl::sizeHint() const { return kGood; }

void CurvesControl::DayShow(const DayCurves& day, const CurvesView& view, const QString& sZone)
{
    const int iHour = m_view.iHour;
    m_day = day;
    m_view = view;
    m_sZone = sZone;
    m_bDay = true;
    ColoursTake();
    Mark(m_iFrequency, iHour);
}

void CurvesControl::Clear()
{
    m_day = {};
    m_bDay = false;
    Mark(-1, -1);
}

void CurvesControl::Mark(int iFrequency, int iHour)
{
    m_iFrequency = iFrequency;
    m_view.iHour = iHour;
    const auto it = std::find_if(
        m_day.aRibbons.begin(), m_day.aRibbons.end(),
        [iFrequency](const CurveRibbon& ribbon) { return ribbon.iFrequency == iFrequency; });
    m_view.iRibbon =
        it == m_day.aRibbons.end() ? -1 : static_cast<int>(it - m_day.aRibbons.begin());
    NameShow();
    update();
}

void CurvesControl::NowSet(double dNow)
{
    m_view.dNow = dNow;
    update();
}

std::optional<CurvesCell> CurvesControl::MarkGet() const
{
    if (m_view.iRibbon < 0 || m_view.iHour < 0)
        return {};
    return CurvesCell{m_view.iHour, m_view.iRibbon};
}

QString CurvesControl::TextGet(const CurvesCell& cell) const
{
    return CurvesCellText(m_day.aRibbons.at(static_cast<std::size_t>(cell.iRibbon)), cell.iHour,
                          m_view.asHour, m_sZone);
}

/// A new accessible name of the focused control is read out by screen readers.
void CurvesControl::NameShow()
{
    const auto cell = MarkGet();
    setAccessibleName(cell ? TextGet(*cell) : tr("Curves of the day"));
}

void CurvesControl::ColoursTake()
{
    m_view.clrPaper = palette().color(QPalette::Base);
    m_view.clrInk = palette().color(QPalette::Text);
    m_view.ePalette = PaletteShown();
}

QFont CurvesControl::FontGet() const
{
    QFont fontLarge = font();
    const double dLetters = std::min(height() * kLettersByHeight, width() * kLettersByWidth);
    fontLarge.setPixelSize(
        std::max(QFontInfo(font()).pixelSize(), static_cast<int>(std::lround(dLetters))));
    return fontLarge;
}

CurvesPlot CurvesControl::PlotGet() const
{
    return {QRectF(rect()), QFontMetricsF(FontGet(), this), m_day, m_view};
}

QRectF CurvesControl::CellRect(const CurvesCell& cell) const { return PlotGet().CellRect(cell); }

void CurvesControl::paintEvent(QPaintEvent* /*pEvent*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_view.clrPaper);
    if (m_bDay) {
        painter.setFont(FontGet());
        PlotGet().Paint(painter);
    }
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

/// Where the keys start while no cell is marked: at the hour's strongest frequency.
CurvesCell CurvesControl::BeginGet() const
{
    const int iHour = m_view.iHour >= 0 ? m_view.iHour : std::max(0, static_cast<int>(m_view.dNow));
    const auto nHour = static_cast<std::size_t>(iHour);
    int iBest = 0;
    for (int i = 1; i < static_cast<int>(m_day.aRibbons.size()); ++i) {
        const float fSnr = m_day.aRibbons[static_cast<std::size_t>(i)].afSnr.at(nHour);
        const float fBest = m_day.aRibbons[static_cast<std::size_t>(iBest)].afSnr.at(nHour);
        if (fSnr > fBest || (std::isnan(fBest) && !std::isnan(fSnr)))
            iBest = i;
    }
    return {iHour, iBest};
}

/// The next higher or lower frequency; at the ends, the same one.
int CurvesControl::RibbonBeside(int iRibbon, int nUp) const
{
    std::vector<int> aiRising;
    for (int i = 0; i < static_cast<int>(m_day.aRibbons.size()); ++i) aiRising.push_back(i);
    std::stable_sort(aiRising.begin(), aiRising.end(), [this](int iA, int iB) {
        return m_day.aRibbons[static_cast<std::size_t>(iA)].fFrequency
               < m_day.aRibbons[static_cast<std::size_t>(iB)].fFrequency;
    });
    const auto nPlace = std::find(aiRising.begin(), aiRising.end(), iRibbon) - aiRising.begin();
    const auto nLast = static_cast<std::ptrdiff_t>(aiRising.size()) - 1;
    return aiRising[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(nPlace + nUp, 0, nLast))];
}

void CurvesControl::Choose(const CurvesCell& cell)
{
    Q_EMIT CellChosen(m_day.aRibbons.at(static_cast<std::size_t>(cell.iRibbon)).iFrequency,
                      cell.iHour);
}

void CurvesControl::keyPressEvent(QKeyEvent* pEvent)
{
    const bool bArrow = pEvent->key() == Qt::Key_Left || pEvent->key() == Qt::Key_Right
                        || pEvent->key() == Qt::Key_Up || pEvent->key() == Qt::Key_Down
                        || pEvent->key() == Qt::Key_Home || pEvent->key() == Qt::Key_End;
    const bool bEnter = pEvent->key() == Qt::Key_Return || pEvent->key() == Qt::Key_Enter;
    const bool bBare = (pEvent->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!bBare || !(bArrow || bEnter) || m_day.aRibbons.empty())
        return QWidget::keyPressEvent(pEvent);
    const auto marked = MarkGet();
    CurvesCell cell = marked.value_or(BeginGet());
    constexpr int kLastHour = kHourCount - 1;
    if (marked) {
        switch (pEvent->key()) {
            case Qt::Key_Left:
                cell.iHour = std::max(0, cell.iHour - 1);
                break;
            case Qt::Key_Right:
                cell.iHour = std::min(kLastHour, cell.iHour + 1);
                break;
            case Qt::Key_Up:
                cell.iRibbon = RibbonBeside(cell.iRibbon, 1);
                break;
            case Qt::Key_Down:
                cell.iRibbon = RibbonBeside(cell.iRibbon, -1);
                break;
            case Qt::Key_Home:
                cell.iHour = 0;
                break;
            case Qt::Key_End:
                cell.iHour = kLastHour;
                break;
            default:
                break;
        }
    }
    Choose(cell);
    if (bEnter)
        Q_EMIT CellEntered();
}

void CurvesControl::mousePressEvent(QMouseEvent* pEvent)
{
    const auto cell = PlotGet().CellAt(pEvent->position());
    if (pEvent->button() == Qt::LeftButton && m_bDay && cell)
        Choose(*cell);
}

void CurvesControl::mouseDoubleClickEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() == Qt::LeftButton && m_bDay && PlotGet().CellAt(pEvent->position()))
        Q_EMIT CellEntered();
}

void CurvesControl::changeEvent(QEvent* pEvent)
{
    QWidget::changeEvent(pEvent);
    if (pEvent->type() == QEvent::PaletteChange) {
        ColoursTake();
        update();
    }
}

bool CurvesControl::event(QEvent* pEvent)
{
    if (pEvent->type() != QEvent::ToolTip)
        return QWidget::event(pEvent);
    const auto* pHelp = static_cast<QHelpEvent*>(pEvent);
    const CurvesPlot plot = PlotGet();
    const auto cell = plot.CellAt(pHelp->pos());
    if (m_bDay && cell)
        QToolTip::showText(pHelp->globalPos(), TextGet(*cell), this,
                           plot.CellRect(*cell).toAlignedRect());
    else
        QToolTip::hideText();
    return true;
}
