/// What holds for all settings: a saved profile restores them when it is loaded, save the three
/// values that are written under one name and read under another.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <filesystem>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <type_traits>
#include <variant>

#include "airmail/AirMailFolders.h"
#include "settings/ProfileLib.h"
#include "settings/SettingsTable.h"
#include "support/MsgRecorder.h"
#include "support/PropertyRandom.h"
#include "support/TempFolder.h"

namespace {

constexpr int kCases = 200;

/// A finite single of any magnitude, all magnitudes being equally likely.
float SingleRandom(PropertyRandom& random)
{
    for (;;) {
        const auto nBits = static_cast<std::uint32_t>(
            random.Whole(std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
        const auto fValue = std::bit_cast<float>(nBits);
        if (std::isfinite(fValue))
            return fValue;
    }
}

/// A folder's name without line ends, and without a blank or quotation mark at its ends, as no
/// folder has them.
std::string FolderRandom(PropertyRandom& random)
{
    constexpr std::string_view kEnds = "AZaz09_.\\[]=;#";
    std::string sFolder = "C:";
    for (int nLetters = random.Whole(1, 200); nLetters > 0; --nLetters)
        sFolder += random.Chance(10) ? std::string("\xC3\xA9")  // e with an accent
                                     : std::string(1, static_cast<char>(random.Whole(' ', '~')));
    return sFolder + kEnds[static_cast<std::size_t>(random.Whole(0, 13))];
}

void ValueRandom(PropertyRandom& random, const SettingRow& row, int& iValue)
{
    if (!row.asChoice.empty())
        return;  // other values cannot be read
    if (row.eRule == RangeRule::Limit)
        iValue =
            random.Whole(static_cast<int>(row.range.dLeast), static_cast<int>(row.range.dMost));
    else
        iValue = random.Chance(4) ? random.Whole(std::numeric_limits<int>::min(),
                                                 std::numeric_limits<int>::max())
                                  : random.Whole(-20, 200);
}
void ValueRandom(PropertyRandom& random, const SettingRow& /*row*/, float& fValue)
{
    fValue = SingleRandom(random);
}
void ValueRandom(PropertyRandom& random, const SettingRow& /*row*/, double& dValue)
{
    dValue = random.Number(180.0);
}
void ValueRandom(PropertyRandom& random, const SettingRow& /*row*/, bool& bValue)
{
    bValue = random.Chance(2);
}
void ValueRandom(PropertyRandom& /*random*/, const SettingRow& row, std::string& sValue)
{
    sValue = row.member == SettingMember(&Settings::m_sNeedSelected) ? "E-mail, robust" : "other";
}
void ValueRandom(PropertyRandom& random, const SettingRow& /*row*/, Palette& ePalette)
{
    ePalette = static_cast<Palette>(random.Whole(0, static_cast<int>(Palette::Print)));
}

Settings SettingsRandom(PropertyRandom& random)
{
    Settings settings;
    for (const SettingRow& row : SettingsTableGet()) {
        std::visit(
            [&](auto member) {
                if constexpr (!std::is_same_v<decltype(member), SettingSpecial>)
                    ValueRandom(random, row, settings.*member);
            },
            row.member);
    }
    for (int i = 1; i <= settings.m_nData; ++i) settings.FrequencySet(i, SingleRandom(random));
    return settings;
}

void SettingsExpect(const Settings& loaded, const Settings& saved, const Settings& settingsDefault)
{
    for (const SettingRow& row : SettingsTableGet()) {
        const bool bRestored = row.sKeyRead == nullptr;
        EXPECT_EQ(SettingToText(row, loaded),
                  SettingToText(row, bRestored ? saved : settingsDefault))
            << row.sKey;
    }
    EXPECT_EQ(loaded.m_aNeed, saved.m_aNeed);
    for (int i = 1; i <= saved.m_nData; ++i)
        EXPECT_EQ(loaded.FrequencyGet(i), saved.FrequencyGet(i)) << i;
}

class ProfileProperty : public testing::Test {
protected:
    void TearDown() override { AirMailFoldersReset(); }

    // Every save waits for the disk, so use one in memory if there is one.
    const EnvironmentSet m_env{"TMPDIR", std::filesystem::exists("/dev/shm")
                                             ? std::optional<std::string>("/dev/shm")
                                             : std::nullopt};
    const TempFolder m_tmp;
};

TEST_F(ProfileProperty, WhatWasSavedIsLoadedButForThreeValues)
{
    const Settings settingsDefault;
    PropertyRandom random;
    for (int i = 0; i < kCases && !HasFailure(); ++i) {
        const PropertyCase place(i);
        Settings saved = SettingsRandom(random);
        saved.m_sProfileFile = m_tmp.Path("profile.ini");  // always one file: old keys are replaced
        const std::string sProgram = FolderRandom(random);
        const std::string sData = FolderRandom(random);
        AirMailProgramFolderSet(sProgram);
        AirMailDataFolderSet(sData);
        const WindowData window{SingleRandom(random), SingleRandom(random), SingleRandom(random),
                                SingleRandom(random)};
        ASSERT_TRUE(ProfileSave(saved, window, CallMessages()));

        Settings loaded;
        loaded.m_sProfileFile = saved.m_sProfileFile;
        std::map<WindowKey, float> mapWindow;
        ASSERT_TRUE(ProfileLoad(
            loaded, [&](WindowKey eKey, float fTwips) { mapWindow[eKey] = fTwips; },
            ProfileRanges::Keep));
        SettingsExpect(loaded, saved, settingsDefault);
        EXPECT_EQ(AirMailProgramFolderGet(), sProgram);
        EXPECT_EQ(AirMailDataFolderGet(), sData);
        EXPECT_EQ(mapWindow[WindowKey::Height], window.fHeight);
        EXPECT_EQ(mapWindow[WindowKey::Left], window.fLeft);
        EXPECT_EQ(mapWindow[WindowKey::Top], window.fTop);
        EXPECT_EQ(mapWindow[WindowKey::Width], window.fWidth);
    }
}

}  // namespace
