/// @file NeedChooser.h
/// The button that chooses what contacts are for, in the status line and in the planning windows.
///
/// Units:   dB in 1 Hz.
/// Tests:   tests/ui/main/FrmMainNeedTest.cpp
#pragma once

#include <QToolButton>

#include "settings/Settings.h"

class NeedChooser final : public QToolButton {
    Q_OBJECT
public:
    /// @param settings  outlive the button
    NeedChooser(Settings& settings, QWidget* pParent);

    /// Shows the need of the settings.
    void Show();
    /// The same where one is taken in any case: with none chosen the button names the one in force.
    void ShowInForce();
    /// The chosen need; null where none is chosen or the list has lost it.
    [[nodiscard]] const Need* NeedGet() const;

Q_SIGNALS:
    void Chosen();

private:
    void MenuFill();
    void EntryAdd(const QString& sText, const std::string& sName, bool bChosen);

    Settings& m_settings;
};
