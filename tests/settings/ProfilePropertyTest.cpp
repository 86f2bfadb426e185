/// What holds for all settings: a saved profile, loaded again, restores them, save the three values
/// that are written under one name and read under another.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <filesystem>
#include <limits>
#include <map>
#include <optional>
#include <string>

#include "airmail/AirMailFolders.h"
#include "settings/ProfileLib.h"
#include "support/MsgRecorder.h"
#include "support/PropertyRandom.h"
#include "support/TempFolder.h"

namespace {

constexpr int kCases = 200;

constexpr int Settings::*kIntegers[] = {
    &Settings::m_iMapOverlayGridSize, &Settings::m_iPropagationAntennaType,
    &Settings::m_iPropagationModel, &Settings::m_iPropagationMonth, &Settings::m_iTimeCode};
constexpr float Settings::*kSingles[] = {
    &Settings::m_fMapOverlayMinSnr,         &Settings::m_fPropagationLayerAdjustE,
    &Settings::m_fPropagationLayerAdjustEs, &Settings::m_fPropagationLayerAdjustF1,
    &Settings::m_fPropagationLayerAdjustF2, &Settings::m_fPropagationMultipathDelay,
    &Settings::m_fPropagationNoiseLevel,    &Settings::m_fPropagationQIndex,
    &Settings::m_fPropagationSunSpotNumber, &Settings::m_fPropagationTakeoffAngle};
constexpr double Settings::*kDoubles[] = {&Settings::m_dRcLat, &Settings::m_dRcLon,
                                          &Settings::m_dTxLat, &Settings::m_dTxLon};
constexpr bool Settings::*kBooleans[] = {&Settings::m_bPropagationMapsMean,
                                         &Settings::m_bPropagationMonth,
                                         &Settings::m_bPropagationSunSpotNumber};
constexpr float Settings::*kSinglesNotRestored[] = {&Settings::m_fPropagationMultipathPower,
                                                    &Settings::m_fPropagationReliability};

/// Any single that is a number, all magnitudes alike.
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

/// A folder's name: no blank or quotation mark at its ends, which no folder has, nor line ends.
std::string FolderRandom(PropertyRandom& random)
{
    constexpr std::string_view kEnds = "AZaz09_.\\[]=;#";
    std::string sFolder = "C:";
    for (int nLetters = random.Whole(1, 200); nLetters > 0; --nLetters)
        sFolder += random.Chance(10) ? std::string("\xC3\xA9")  // e with an accent
                                     : std::string(1, static_cast<char>(random.Whole(' ', '~')));
    return sFolder + kEnds[static_cast<std::size_t>(random.Whole(0, 13))];
}

Settings SettingsRandom(PropertyRandom& random)
{
    Settings settings;
    for (auto pMember : kIntegers)
        settings.*pMember = random.Chance(4) ? random.Whole(std::numeric_limits<int>::min(),
                                                            std::numeric_limits<int>::max())
                                             : random.Whole(-20, 200);
    settings.m_iTimeCode =
        random.Chance(8) ? std::numeric_limits<int>::min() : settings.m_iTimeCode;
    for (auto pMember : kSingles) settings.*pMember = SingleRandom(random);
    for (auto pMember : kSinglesNotRestored) settings.*pMember = SingleRandom(random);
    for (auto pMember : kDoubles) settings.*pMember = random.Number(180.0);
    for (auto pMember : kBooleans) settings.*pMember = random.Chance(2);
    settings.m_sPropagationIonCoefficients = "other";
    settings.m_nData = random.Whole(0, kFrequencyMax);
    for (int i = 1; i <= settings.m_nData; ++i) settings.FrequencySet(i, SingleRandom(random));
    return settings;
}

void SettingsExpect(const Settings& loaded, const Settings& saved, const Settings& settingsDefault)
{
    for (auto pMember : kIntegers) EXPECT_EQ(loaded.*pMember, saved.*pMember);
    for (auto pMember : kSingles) EXPECT_EQ(loaded.*pMember, saved.*pMember);
    for (auto pMember : kDoubles) EXPECT_EQ(loaded.*pMember, saved.*pMember);
    for (auto pMember : kBooleans) EXPECT_EQ(loaded.*pMember, saved.*pMember);
    for (auto pMember : kSinglesNotRestored) EXPECT_EQ(loaded.*pMember, settingsDefault.*pMember);
    EXPECT_EQ(loaded.m_sPropagationIonCoefficients, settingsDefault.m_sPropagationIonCoefficients);
    ASSERT_EQ(loaded.m_nData, saved.m_nData);
    for (int i = 1; i <= saved.m_nData; ++i)
        EXPECT_EQ(loaded.FrequencyGet(i), saved.FrequencyGet(i)) << i;
}

class ProfileProperty : public testing::Test {
protected:
    void TearDown() override { AirMailFoldersReset(); }

    // Every save waits for the disk: one in memory, where there is one.
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
        saved.m_sProfileFile = m_tmp.Path("profile.ini");  // the same: old keys are replaced
        const std::string sProgram = FolderRandom(random);
        const std::string sData = FolderRandom(random);
        AirMailProgramFolderSet(sProgram);
        AirMailDataFolderSet(sData);
        const WindowData window{SingleRandom(random), SingleRandom(random), SingleRandom(random),
                                SingleRandom(random)};
        ASSERT_TRUE(ProfileSave(saved, window, Told()));

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
