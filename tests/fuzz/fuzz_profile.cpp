// Any bytes as a profile: every setting is read, written and read again.
#include <cmath>
#include <string>
#include <variant>

#include "fuzz/FuzzPrefix.h"
#include "settings/ProfileLib.h"
#include "settings/SettingsTable.h"

namespace {

/// The text of every number, switch and choice. Texts are left out, since the file cannot hold all
/// characters, and so are the three values that are written under one name and read under another.
std::string ValuesGet(const Settings& settings)
{
    std::string sValues;
    for (const SettingRow& row : SettingsTableGet()) {
        if (!std::holds_alternative<std::string Settings::*>(row.member) && row.sKeyRead == nullptr)
            sValues += SettingToText(row, settings) + '\n';
    }
    return sValues;
}

void NumbersCheck(const Settings& settings)
{
    for (const SettingRow& row : SettingsTableGet()) {
        if (row.eRule != RangeRule::Drop && row.eRule != RangeRule::DropPair
            && row.eRule != RangeRule::Limit)
            continue;
        if (const auto* pf = std::get_if<float Settings::*>(&row.member))
            Check(row.range.Holds(settings.*(*pf)));
        if (const auto* pd = std::get_if<double Settings::*>(&row.member))
            Check(row.range.Holds(settings.*(*pd)));
        if (const auto* pi = std::get_if<int Settings::*>(&row.member))
            Check(row.range.Holds(settings.*(*pi)));
    }
    Check(settings.m_nData >= 0 && settings.m_nData <= kFrequencyMax);
    Check(settings.m_aNeed.size() <= kNeedMax);
    for (const Need& need : settings.m_aNeed) {
        Check(kRangeNeed.Holds(need.fSnr));
        Check(NeedFind(settings.m_aNeed, need.sName) == &need);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    static const FuzzPrefix prefix;
    prefix.Write("profile.ini", pBytes, nBytes);
    Settings settings;
    settings.m_sProfileFile = prefix.Path("profile.ini");
    const auto fnWindow = [](WindowKey, float fTwips) { Check(std::isfinite(fTwips)); };
    const auto resLoaded = ProfileLoad(settings, fnWindow);
    Check(static_cast<bool>(resLoaded));
    NumbersCheck(settings);

    settings.m_sProfileFile = prefix.Path("written.ini");
    Messages aMessages;
    Check(ProfileSave(settings, std::nullopt, &aMessages));
    Settings again;
    again.m_sProfileFile = settings.m_sProfileFile;
    const auto resAgain = ProfileLoad(again, fnWindow);
    Check(resAgain && resAgain.ValueGet().empty());
    Check(ValuesGet(again) == ValuesGet(settings));
    Check(again.m_aNeed == settings.m_aNeed);
    Check(again.m_aPlanWindow == settings.m_aPlanWindow);
    for (int i = 1; i <= settings.m_nData; ++i)
        Check(again.FrequencyGet(i) == settings.FrequencyGet(i));
    prefix.Write("written.ini", pBytes, 0);
    AirMailFoldersReset();
    return 0;
}
