#include "ui/map/MapKeys.h"

#include <QShortcut>
#include <functional>
#include <utility>

#include "ui/map/MapDayControl.h"
#include "ui/map/MapMouse.h"
#include "ui/map/MapNavigation.h"

namespace {

constexpr double kKeyShare = 1.0 / 20;  // of the view

}  // namespace

MapKeys::MapKeys(QWidget& window, MapForm& form, MapNavigation& navigation, MapMouse& mouse,
                 MapDayControl& day)
    : m_window(window), m_form(form), m_navigation(navigation), m_mouse(mouse), m_day(day)
{
    const std::pair<QKeySequence, std::function<void()>> aKeys[] = {
        {Qt::Key_Left, [this] { ArrowPress(-1, 0); }},
        {Qt::Key_Right, [this] { ArrowPress(1, 0); }},
        {Qt::Key_Up, [this] { ArrowPress(0, -1); }},
        {Qt::Key_Down, [this] { ArrowPress(0, 1); }},
        {Qt::Key_Plus, [this] { m_form.cmdZoomIn->click(); }},
        {Qt::Key_Minus, [this] { m_form.cmdZoomOut->click(); }},
        {Qt::Key_0, [this] { m_form.cmdZoomOff->click(); }},
        {Qt::Key_Escape, [this] { EscapePress(); }},
        {Qt::Key_Return, [this] { EnterPress(); }},
        {Qt::Key_Enter, [this] { EnterPress(); }},
        {Qt::Key_Menu, [this] { MenuPress(); }},
        {Qt::SHIFT | Qt::Key_F10, [this] { MenuPress(); }},
    };
    for (const auto& [key, fnAct] : aKeys)
        connect(new QShortcut(key, &window), &QShortcut::activated, this, fnAct);
}

/// Enter is OK except on the two buttons beside it: with the focus on Cancel nobody wants to apply.
void MapKeys::EnterPress()
{
    for (QPushButton* pButton : {m_form.cmdCancel, m_form.cmdApply})
        if (pButton->hasFocus()) {
            pButton->click();
            return;
        }
    m_form.cmdOk->click();
}

void MapKeys::EscapePress()
{
    if (!m_mouse.Leave() && !m_day.Leave())
        m_form.cmdCancel->click();
}

void MapKeys::ArrowPress(int nByX, int nByY)
{
    if (!m_mouse.IsBusy())
        m_navigation.ViewShift(nByX * kKeyShare, nByY * kKeyShare);
}

void MapKeys::MenuPress()
{
    if (m_mouse.IsBusy())
        return;
    QWidget* const pFocus = m_window.focusWidget();
    if (pFocus == m_form.hscMap || pFocus == m_form.vscMap)
        return;  // scroll bars have menus of their own
    if (pFocus == m_form.cmdOverlay || pFocus == m_form.cmdStations)
        return static_cast<QPushButton*>(pFocus)->click();
    QWidget* const pSource =
        pFocus == m_form.lblRc || pFocus == m_form.lblTx ? pFocus : m_form.pctMap;
    m_navigation.mnuMapOpen(pSource, QRectF(pSource->rect()).center());
}
