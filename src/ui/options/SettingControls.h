/// @file SettingControls.h
/// The controls for the table of settings. Each row's control is found by its object name, shows
/// the row's setting and gives it back. It is a text box, a list, a check box, or a group of
/// buttons whose names end in the value that each stands for.
///
/// Units:   as in the table; numbers as their shortest text.
/// Errors:  a text that is not a number in range is refused with the reason.
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
    /// Finds the controls in a window, which must outlive this object. A setting whose control is
    /// missing is left alone.
    explicit SettingControls(QWidget& window);

    /// Copies settings to controls, in the table's order. A value that a list or group of buttons
    /// does not offer leaves nothing selected there.
    void Load(const Settings& settings) const;
    /// The same for one text box.
    void Load(const QLineEdit& box, const Settings& settings) const;

    /// True if Read would accept the text of a box.
    [[nodiscard]] bool TextFits(const QLineEdit& box) const;

    struct Refused {
        QLineEdit* pBox = nullptr;  ///< nullptr: nothing was refused
        std::string sWhy;           ///< "Type mismatch", "150 is outside 1 to 99"
    };
    /// Copies controls to settings, up to the first text that is refused. A disabled box with such
    /// a text leaves its setting alone, because the user cannot correct it; so does a list or group
    /// in which nothing is selected.
    [[nodiscard]] Refused Read(Settings& settings) const;
    /// Copies the settings that have a control, and no others.
    void Copy(const Settings& from, Settings& to) const;

    /// The buttons of a setting.
    /// REQUIRES: the setting has a group of buttons
    [[nodiscard]] QButtonGroup& GroupGet(int Settings::*pMember) const;

private:
    struct Control {
        const SettingRow* pRow;
        QObject* pObject;
    };
    std::vector<Control> m_aControl;
};
