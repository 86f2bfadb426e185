/// @file NeedChooser.h
/// The button that chooses what contacts are for, in the status line and the planning windows.
///
/// Units:   dB in 1 Hz.
/// Tests:   tests/ui/main/FrmMainNeedTest.cpp
#pragma once

#include <QToolButton>

#include "settings/Settings.h"

class NeedChooser final : public QToolButton {
    Q_OBJECT
public:
    /// @param settings  must outlive the button
    NeedChooser(Settings& settings, QWidget* pParent);

    /// Shows the need set in the settings.
    void Show();
    /// The same, but with none chosen the button names the one in force.
    void ShowInForce();
    /// The chosen need; nullptr if none is chosen or it is no longer in the list.
    [[nodiscard]] const Need* NeedGet() const;

Q_SIGNALS:
    void Chosen();

private:
    void MenuFill();
    void EntryAdd(const QString& sText, const std::string& sName, bool bChosen);

    Settings& m_settings;
};
