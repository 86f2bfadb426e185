/// @file FileCommands.h
/// The File menu: the profile that the settings are read from and saved to, and with it the
/// window's place.
///
/// Errors:  told in a box, or by a notice for the status line.
/// Tests:   tests/ui/main/FrmMainProfileTest.cpp, FrmMainStartTest.cpp
#pragma once

#include <QObject>
#include <QRect>
#include <optional>
#include <string>

#include "settings/SettingsUndo.h"

class MainWindowHost;
class QWidget;

class FileCommands final : public QObject {
    Q_OBJECT
public:
    /// @param window  the main window, whose place the profile keeps
    FileCommands(QWidget& window, MainWindowHost& host, QObject* pParent);

    void Default();
    /// Every setting at its default, without a prediction; until the next change it can be undone.
    void DefaultSet();
    void UndoDefault();
    [[nodiscard]] bool UndoPossible() const;
    void Open();
    void Save();
    /// @return false when there is nothing to read; settings and undo stay then
    bool ProfileRead();
    void ProfileWrite();
    /// The window is on the screen: only now its frame is known, so that the outer size of the
    /// profile can be met.
    void FrameKnown();

Q_SIGNALS:
    void PositionsRead();                      ///< before an update: both, from a profile
    void Noticed(const std::string& sNotice);  ///< what of a profile did not come into force

private:
    QWidget& m_window;
    MainWindowHost& m_host;
    SettingsUndo m_undo;  // of Default and of the options' Default Settings
    bool m_bFrameKnown = false;
    std::optional<QRect> m_rectOuter;  ///< place from the profile, until the frame is known
};
