#include "settings/Settings.h"

#include "airmail/AirMailFolders.h"
#include "settings/SettingsTable.h"
#include "system/ClockLib.h"
#include "system/PathLib.h"

namespace {

constexpr float kFrequencyStepKhz = 2000.0F;

bool IndexIs(int iIndex) { return iIndex >= 0 && iIndex <= kFrequencyMax; }

void MembersSet(Settings& settings)
{
    for (const SettingRow& row : SettingsTableGet()) SettingFromText(row, row.sDefault, settings);
    settings.m_selected = SelectedCell();
    settings.m_aNeed = NeedsShipped();
    for (int i = 0; i <= kFrequencyMax; ++i)
        settings.FrequencySet(i, static_cast<float>(i) * kFrequencyStepKhz);
    settings.m_sProfileFile = ProfileFileDefault();
    settings.m_iPropagationMonth = UtcNow().nMonth;
}

}  // namespace

/// The Airmail folders are process-wide, not this object's: temporary settings leave them alone.
Settings::Settings() { MembersSet(*this); }

void Settings::Initialize()
{
    AirMailFoldersReset();
    MembersSet(*this);
}

float Settings::FrequencyGet(int iIndex) const
{
    return IndexIs(iIndex) ? m_afFrequency[static_cast<std::size_t>(iIndex)] : 0.0F;
}

void Settings::FrequencySet(int iIndex, float fValue)
{
    if (IndexIs(iIndex))
        m_afFrequency[static_cast<std::size_t>(iIndex)] = fValue;
}
