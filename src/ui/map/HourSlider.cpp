#include "ui/map/HourSlider.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

namespace {

constexpr int kPadding = 3;  // above and below the labels
constexpr int kNotch = 120;  // of a wheel, in eighths of a degree

bool KeyIsOwn(int nKey)
{
    switch (nKey) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_Space:
            return true;
        default:
            return false;
    }
}

}  // namespace

HourSlider::HourSlider(QWidget* pParent) : QAbstractSlider(pParent)
{
    setObjectName(QStringLiteral("hscHour"));
    setAccessibleName(tr("Hour of the map"));
    setToolTip(tr("The hour that the map shows; Space plays the day"));
    setOrientation(Qt::Horizontal);
    setRange(0, kHourCount - 1);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void HourSlider::LabelsSet(const HourLabels& asHour)
{
    m_asHour = asHour;
    update();
}

void HourSlider::ComputedSet(const AreaHours& hours)
{
    if (hours != m_hoursComputed)
        update();
    m_hoursComputed = hours;
}

void HourSlider::HourShow(int iHour)
{
    const QSignalBlocker blocker(this);
    setValue(iHour);
    update();
}

QSize HourSlider::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    return {kHourCount * (metrics.horizontalAdvance(QStringLiteral("00")) + 2 * kPadding),
            metrics.height() + 2 * kPadding};
}

QSize HourSlider::minimumSizeHint() const
{
    constexpr int kLeast = 6;  // pixels per hour
    return {kHourCount * kLeast, sizeHint().height()};
}

QRect HourSlider::HourGetRect(int iHour) const
{
    const int nLeft = iHour * width() / kHourCount;
    return {nLeft, 0, (iHour + 1) * width() / kHourCount - nLeft, height()};
}

int HourSlider::HourAt(int nX) const
{
    for (int iHour = 0; iHour < kHourCount; ++iHour)
        if (nX <= HourGetRect(iHour).right())
            return iHour;
    return kHourCount - 1;
}

bool HourSlider::event(QEvent* pEvent)
{
    // Otherwise the window's keys would scroll the map.
    if (pEvent->type() == QEvent::ShortcutOverride) {
        const auto* pKey = static_cast<QKeyEvent*>(pEvent);
        if (pKey->modifiers() == Qt::NoModifier && KeyIsOwn(pKey->key())) {
            pEvent->accept();
            return true;
        }
    }
    return QAbstractSlider::event(pEvent);
}

void HourSlider::keyPressEvent(QKeyEvent* pEvent)
{
    switch (pEvent->key()) {
        case Qt::Key_Left:
            return HourStep(-1);
        case Qt::Key_Right:
            return HourStep(1);
        case Qt::Key_Up:
            return Q_EMIT FrequencyStep(1);
        case Qt::Key_Down:
            return Q_EMIT FrequencyStep(-1);
        case Qt::Key_Space:
            if (!pEvent->isAutoRepeat())
                Q_EMIT PlayRequested();
            return;
        default:
            QAbstractSlider::keyPressEvent(pEvent);
    }
}

void HourSlider::HourStep(int nBy) { setValue((value() + nBy + kHourCount) % kHourCount); }

void HourSlider::mousePressEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() == Qt::LeftButton)
        setValue(HourAt(pEvent->position().toPoint().x()));
}

void HourSlider::mouseMoveEvent(QMouseEvent* pEvent)
{
    if (pEvent->buttons() & Qt::LeftButton)
        setValue(HourAt(pEvent->position().toPoint().x()));
}

void HourSlider::wheelEvent(QWheelEvent* pEvent)
{
    pEvent->accept();
    m_nWheel += pEvent->angleDelta().y();
    for (; std::abs(m_nWheel) >= kNotch; m_nWheel -= m_nWheel > 0 ? kNotch : -kNotch)
        HourStep(m_nWheel > 0 ? -1 : 1);
}

void HourSlider::paintEvent(QPaintEvent* /*pEvent*/)
{
    QPainter painter(this);
    const QPalette& pal = palette();
    int nWidest = 1;
    for (const QString& sHour : m_asHour)
        nWidest = std::max(nWidest, fontMetrics().horizontalAdvance(sHour) + 2);
    const int nEach = std::max(1, (nWidest * kHourCount + width() - 1) / std::max(width(), 1));
    for (int iHour = 0; iHour < kHourCount; ++iHour) {
        const QRect rct = HourGetRect(iHour);
        const bool bChosen = iHour == value();
        painter.fillRect(rct, pal.color(bChosen ? QPalette::Highlight : QPalette::Base));
        if (!bChosen && !m_hoursComputed.test(static_cast<std::size_t>(iHour)))
            painter.fillRect(rct, QBrush(pal.color(QPalette::Mid), Qt::BDiagPattern));
        painter.setPen(pal.color(QPalette::Mid));
        painter.drawLine(rct.topRight(), rct.bottomRight());
        painter.setPen(pal.color(bChosen ? QPalette::HighlightedText : QPalette::Text));
        if (iHour % nEach == 0) {
            const QRect rctText(rct.center().x() - nWidest, rct.top(), 2 * nWidest, rct.height());
            painter.drawText(nEach == 1 ? rct : rctText, Qt::AlignCenter,
                             m_asHour.at(static_cast<std::size_t>(iHour)));
        }
    }
    painter.setPen(pal.color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (hasFocus())
        painter.drawRect(rect().adjusted(1, 1, -2, -2));
}
