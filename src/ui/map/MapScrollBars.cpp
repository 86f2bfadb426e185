#include "ui/map/MapScrollBars.h"

#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "system/NumberLib.h"
#include "ui/map/MapNavigation.h"

namespace {

constexpr double kTenths = 10.0;         // the scroll bars' unit, of a degree
constexpr double kStepShare = 1.0 / 20;  // of the view, for a click on a bar's arrow
constexpr double kPageShare = 1.0 / 2;

}  // namespace

MapScrollBars::MapScrollBars(MapForm& form, MapNavigation& navigation)
    : m_form(form), m_navigation(navigation)
{
    connect(form.hscMap, &QScrollBar::valueChanged, this, &MapScrollBars::hscMapChange);
    connect(form.vscMap, &QScrollBar::valueChanged, this, &MapScrollBars::vscMapChange);
    for (QScrollBar* pBar : {form.hscMap, form.vscMap}) {
        pBar->installEventFilter(this);
        connect(pBar, &QScrollBar::actionTriggered, this,
                [this, pBar](int nAction) { BarAct(pBar, nAction); });
    }
}

void MapScrollBars::ViewFollow()
{
    const MapView& view = m_form.m_view;
    const LatLon center = view.CenterGet();
    QScrollBar* pX = m_form.hscMap;
    QScrollBar* pY = m_form.vscMap;
    const QSignalBlocker blkX(pX);
    const QSignalBlocker blkY(pY);
    pX->setRange(RoundHalfEven(view.m_dEdge * kTenths),
                 RoundHalfEven((view.m_dEdge + 360) * kTenths));
    const auto StepsSet = [](QScrollBar* pBar, double dSpan) {
        pBar->setSingleStep(std::max(RoundHalfEven(dSpan * kTenths * kStepShare), 1));
        pBar->setPageStep(std::max(RoundHalfEven(dSpan * kTenths * kPageShare), 1));
    };
    StepsSet(pX, view.m_box.dRight - view.m_box.dLeft);
    StepsSet(pY, view.m_box.dTop - view.m_box.dBottom);
    pX->setValue(RoundHalfEven(center.dLon * kTenths));
    pY->setValue(RoundHalfEven(-(center.dLat * kTenths)));
}

// The bars act only for the user, that is, with the focus on them.
void MapScrollBars::hscMapChange()
{
    if (!m_form.hscMap->hasFocus())
        return;
    m_form.mnuOverlayDraw->setChecked(false);
    m_navigation.ZoomRequest(
        {m_form.m_view.m_dScale, m_form.m_view.CenterGet().dLat, m_form.hscMap->value() / kTenths});
}

void MapScrollBars::vscMapChange()
{
    if (!m_form.vscMap->hasFocus())
        return;
    m_form.mnuOverlayDraw->setChecked(false);
    m_navigation.ZoomRequest({m_form.m_view.m_dScale, -m_form.vscMap->value() / kTenths,
                              m_form.m_view.CenterGet().dLon});
}

/// The arrows of a bar and the room beside its slider move by shares of the view; in a close view
/// tenths of a degree are too coarse.
void MapScrollBars::BarAct(QScrollBar* pBar, int nAction)
{
    if (!pBar->hasFocus())
        return;
    switch (nAction) {
        case QAbstractSlider::SliderSingleStepAdd:
            return BarShift(pBar, kStepShare);
        case QAbstractSlider::SliderSingleStepSub:
            return BarShift(pBar, -kStepShare);
        case QAbstractSlider::SliderPageStepAdd:
            return BarShift(pBar, kPageShare);
        case QAbstractSlider::SliderPageStepSub:
            return BarShift(pBar, -kPageShare);
        default:
            return;  // the slider itself was moved
    }
}

/// The wheel over a bar moves the map.
void MapScrollBars::BarWheel(QScrollBar* pBar, QWheelEvent* pEvent)
{
    constexpr double kNotch = 120;  // eighths of a degree
    constexpr double kLines = 3;    // arrow clicks per notch
    pBar->setFocus(Qt::MouseFocusReason);
    const QPoint ptAngle = pEvent->angleDelta();
    const int nAngle = std::abs(ptAngle.x()) > std::abs(ptAngle.y()) ? ptAngle.x() : ptAngle.y();
    BarShift(pBar, -nAngle / kNotch * kLines * kStepShare);
    pEvent->accept();
}

void MapScrollBars::BarShift(const QScrollBar* pBar, double dShare)
{
    m_navigation.ViewShift(pBar == m_form.hscMap ? dShare : 0, pBar == m_form.vscMap ? dShare : 0);
}

bool MapScrollBars::eventFilter(QObject* pObject, QEvent* pEvent)
{
    for (QScrollBar* pBar : {m_form.hscMap, m_form.vscMap})
        if (pObject == pBar && pEvent->type() == QEvent::Wheel) {
            BarWheel(pBar, static_cast<QWheelEvent*>(pEvent));
            return true;
        }
    return QObject::eventFilter(pObject, pEvent);
}
