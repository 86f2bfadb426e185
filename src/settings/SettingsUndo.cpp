#include "settings/SettingsUndo.h"

#include "settings/SettingsTable.h"

namespace {

/// True for settings that each run sets, not the user.
bool RunSets(const SettingRow& row, const Settings& settings)
{
    return (row.member == SettingMember(&Settings::m_iPropagationMonth)
            && settings.m_bPropagationMonth)
           || (row.member == SettingMember(&Settings::m_fPropagationSunSpotNumber)
               && (settings.m_bPropagationSunSpotNumber || settings.m_bPropagationForecast));
}

bool SettingsSame(const Settings& one, const Settings& other)
{
    for (const SettingRow& row : SettingsTableGet()) {
        if (SettingToText(row, one) != SettingToText(row, other) && !RunSets(row, one))
            return false;
    }
    for (int i = 1; i <= one.m_nData; ++i) {
        if (one.FrequencyGet(i) != other.FrequencyGet(i))
            return false;
    }
    return one.m_aNeed == other.m_aNeed;
}

}  // namespace

void SettingsUndo::DefaultSet(Settings& settings)
{
    Kept kept{settings, settings, AirMailFoldersGet()};
    // If Default is pressed twice, the settings from before the first time are kept.
    const bool bAgain = Possible(settings);
    SettingsDefaultSet(settings);
    if (bAgain)
        return;
    kept.after = settings;
    m_kept = std::move(kept);
}

bool SettingsUndo::Possible(const Settings& settings) const
{
    return m_kept && SettingsSame(settings, m_kept->after);
}

bool SettingsUndo::TakeBack(Settings& settings)
{
    if (!Possible(settings))
        return false;
    const std::string sProfileFile = settings.m_sProfileFile;
    settings = m_kept->before;
    settings.m_sProfileFile = sProfileFile;
    AirMailFoldersSet(m_kept->folders);
    Forget();
    return true;
}
