#include "ui/main/PaletteCommands.h"

#include <QApplication>
#include <QKeyEvent>

#include "ui/common/MainWindowHost.h"
#include "ui/common/PaletteShown.h"

PaletteCommands::PaletteCommands(MainWindowHost& host, QObject* pParent)
    : QObject(pParent), m_host(host)
{
    connect(&host.SettingsSignalGet(), &SettingsSignal::Changed, this, &PaletteCommands::Take);
    qApp->installEventFilter(this);  // a window's shortcut does not work while a dialog is open
}

void PaletteCommands::Take()
{
    const Palette ePalette = m_host.SettingsGet().m_ePalette;
    if (ePalette != Palette::Night)
        m_eBefore = ePalette;
    PaletteShow(ePalette);
}

void PaletteCommands::NightSwitch()
{
    Palette& ePalette = m_host.SettingsGet().m_ePalette;
    ePalette = ePalette == Palette::Night ? m_eBefore : Palette::Night;
    Take();
}

bool PaletteCommands::eventFilter(QObject* pObject, QEvent* pEvent)
{
    if (pEvent->type() != QEvent::KeyPress || !pObject->isWidgetType())
        return false;
    const auto* pKey = static_cast<QKeyEvent*>(pEvent);
    if (pKey->key() != Qt::Key_N || pKey->modifiers() != (Qt::ControlModifier | Qt::ShiftModifier))
        return false;
    if (!pKey->isAutoRepeat())
        NightSwitch();
    return true;
}
