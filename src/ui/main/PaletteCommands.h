/// @file PaletteCommands.h
/// Puts the palette of the settings in force, and switches Night.
///
/// Keys:    Ctrl+Shift+N, in every window and box of the program.
/// Tests:   tests/ui/main/FrmMainNightTest.cpp
#pragma once

#include <QObject>

#include "settings/Palette.h"

class MainWindowHost;

class PaletteCommands final : public QObject {
    Q_OBJECT
public:
    /// @param host  must outlive this object
    PaletteCommands(MainWindowHost& host, QObject* pParent);

    /// Puts the palette of the settings in force.
    void Take();
    /// Switches to Night, or back to the palette before it.
    void NightSwitch();

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    MainWindowHost& m_host;
    Palette m_eBefore = Palette::Standard;
};
