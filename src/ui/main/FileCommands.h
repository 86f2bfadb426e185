/// @file FileCommands.h
/// The File menu: the profile, from which the settings and the window's place are read and to which
/// they are saved.
///
/// Errors:  shown in a message box, or as a notice for the status line.
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
    /// @param window  the main window, whose place is kept in the profile
    FileCommands(QWidget& window, MainWindowHost& host, QObject* pParent);

    void Default();
    /// Resets every setting to its default without a prediction. It can be undone until the next
    /// change.
    void DefaultSet();
    void UndoDefault();
    [[nodiscard]] bool UndoPossible() const;
    void Open();
    void Save();
    /// @return false if there was nothing to read; settings and undo are then unchanged
    bool ProfileRead();
    void ProfileWrite();
    /// Call once the window is shown: only then is the size of its frame known and the profile's
    /// outer size can be applied.
    void FrameKnown();

Q_SIGNALS:
    void PositionsRead();  ///< emitted before an update: both positions come from a profile
    void Noticed(const std::string& sNotice);  ///< which parts of a profile were not taken

private:
    QWidget& m_window;
    MainWindowHost& m_host;
    SettingsUndo m_undo;  // undoes Default and the options' Default Settings
    bool m_bFrameKnown = false;
    std::optional<QRect> m_rectOuter;  ///< place from the profile, until the frame is known
};
