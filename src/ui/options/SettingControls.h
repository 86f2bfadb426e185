/// @file SettingControls.h
/// The controls of the settings' table: each row's control, found by its object name, shows the
/// row's setting and gives it back. A box of text, a list, a check box, or a group of buttons whose
/// names end in the value that each stands for.
///
/// Units:   as in the table; numbers as their shortest text.
/// Errors:  a text that is no number in range is handed back with the reason.
/// Tests:   tests/ui/options/FrmOptions*Test.cpp
#pragma once

#include <QButtonGroup>
#include <QLineEdit>
#include <string>
#include <vector>

#include "settings/SettingsTable.h"

class SettingControls {
public:
    SettingControls() = default;
    /// Finds the controls below a window, which outlives this object. Where one is missing its
    /// setting is left alone.
    explicit SettingControls(QWidget& window);

    /// Settings to controls, in the table's order. A value that a list or a group of buttons does
    /// not offer leaves nothing selected there.
    void Load(const Settings& settings) const;
    /// The same for one box.
    void Load(const QLineEdit& box, const Settings& settings) const;

    /// The text of a box is one that Read takes.
    [[nodiscard]] bool TextFits(const QLineEdit& box) const;

    struct Refused {
        QLineEdit* pBox = nullptr;  ///< nullptr: nothing was refused
        std::string sWhy;           ///< "Type mismatch", "150 lies outside 1 to 99"
    };
    /// Controls to settings, up to the first text that is refused. A grey box with such a text
    /// leaves its setting alone: nobody can mend it. A list or group in which nothing
    /// is selected leaves its setting alone.
    [[nodiscard]] Refused Read(Settings& settings) const;
    /// Takes over the settings that have a control, and no others.
    void Copy(const Settings& from, Settings& to) const;

    /// The buttons of a setting. REQUIRES: it has such a group.
    [[nodiscard]] QButtonGroup& GroupGet(int Settings::*pMember) const;

private:
    struct Control {
        const SettingRow* pRow;
        QObject* pObject;
    };
    std::vector<Control> m_aControl;
};
