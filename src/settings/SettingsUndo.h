/// @file SettingsUndo.h
/// Undoes one Default: a user who pressed it by mistake can get the settings back, as long as none
/// was changed since.
///
/// Tests:   tests/settings/SettingsUndoTest.cpp
#pragma once

#include <optional>

#include "airmail/AirMailFolders.h"
#include "settings/Settings.h"

class SettingsUndo {
public:
    /// Calls SettingsDefaultSet; keeps the previous settings and Airmail folders.
    void DefaultSet(Settings& settings);
    /// True when settings are still the defaults that DefaultSet gave. Profile file and selected
    /// cell do not count; neither do a month and a sunspot number that each run sets.
    [[nodiscard]] bool Possible(const Settings& settings) const;
    /// Restores the kept settings, if that is possible; the profile file stays.
    /// @return true when it did.
    bool TakeBack(Settings& settings);
    /// To be called when settings came from elsewhere.
    void Forget() { m_kept.reset(); }

private:
    struct Kept {
        Settings before;
        Settings after;
        AirMailFolders folders;
    };
    std::optional<Kept> m_kept;
};
