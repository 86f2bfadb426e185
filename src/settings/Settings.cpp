#include "settings/Settings.h"

#include "airmail/AirMailFolders.h"
#include "settings/SettingsTable.h"
#include "system/ClockLib.h"
#include "system/PathLib.h"

namespace {

constexpr float kFrequencyStepKhz = 2000.0F;

bool IndexIs(int iIndex) { return iIndex >= 0 && iIndex <= kFrequencyMax; }

}  // namespace

Settings::Settings() { Initialize(); }

void Settings::Initialize()
{
    AirMailFoldersReset();
    for (const SettingRow& row : SettingsTableGet()) SettingFromText(row, row.sDefault, *this);
    m_selected = SelectedCell();
    m_aNeed = NeedsShipped();
    for (int i = 0; i <= kFrequencyMax; ++i)
        FrequencySet(i, static_cast<float>(i) * kFrequencyStepKhz);
    m_sProfileFile = ProfileFileDefault();
    m_iPropagationMonth = UtcNow().nMonth;
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
