/// @file SettingsUndo.h
/// One step back from the defaults: who pressed Default by mistake has his settings again, as long
/// as he has changed none since.
///
/// Tests:   tests/settings/SettingsUndoTest.cpp
#pragma once

#include <optional>

#include "airmail/AirMailFolders.h"
#include "settings/Settings.h"

class SettingsUndo {
public:
    /// SettingsDefaultSet; what was in force is kept, Airmail's folders too.
    void DefaultSet(Settings& settings);
    /// True when settings are still the defaults that DefaultSet gave. Profile file and selected
    /// cell do not count, nor a month and a sunspot number that each run sets.
    [[nodiscard]] bool Possible(const Settings& settings) const;
    /// Takes the defaults back, where that is possible; the profile file stays.
    /// @return true when it did.
    bool TakeBack(Settings& settings);
    /// Settings came from elsewhere.
    void Forget() { m_kept.reset(); }

private:
    struct Kept {
        Settings before;
        Settings after;
        AirMailFolders folders;
    };
    std::optional<Kept> m_kept;
};
