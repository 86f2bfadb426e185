/// Keys that older profiles lack: power, forecast, needs and palette.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "airmail/AirMailFolders.h"
#include "settings/ProfileLib.h"
#include "settings/SettingsTable.h"
#include "support/MsgRecorder.h"
#include "support/TempFolder.h"
#include "system/NumberLib.h"

namespace {

class ProfileNewKeys : public testing::Test {
protected:
    void TearDown() override { AirMailFoldersReset(); }

    void LoadInto(Settings& settings, const std::string& sText,
                  ProfileRanges eRanges = ProfileRanges::Drop)
    {
        settings.m_sProfileFile = m_tmp.Write("profile.ini", sText);
        const auto res = ProfileLoad(settings, {}, eRanges);
        ASSERT_TRUE(res) << res.TextGet();
        m_asDropped = res.ValueGet();
    }
    Settings Load(const std::string& sText)
    {
        Settings settings;
        LoadInto(settings, sText);
        return settings;
    }

    TempFolder m_tmp;
    std::vector<std::string> m_asDropped;
};

TEST_F(ProfileNewKeys, MissingOnesLeaveTheDefaults)
{
    const Settings settings = Load("[Map Data]\r\nOverlay Grid Size=12\r\n");
    EXPECT_FALSE(settings.m_bPropagationForecast);
    EXPECT_EQ(settings.m_fStationPower, 0.0F);
    EXPECT_EQ(settings.m_aNeed, NeedsShipped());
    EXPECT_EQ(settings.m_sNeedSelected, "");
    EXPECT_EQ(settings.m_ePalette, Palette::Standard);
}

TEST_F(ProfileNewKeys, PowerOutOfRangeLeavesTheValueInForceAndIsTold)
{
    Settings settings;
    settings.m_fStationPower = 25.0F;
    for (const char* sValue : {"-1", "1000001", "1e99"}) {
        LoadInto(settings, "[Station Data]\nPower=" + std::string(sValue) + "\n");
        EXPECT_EQ(settings.m_fStationPower, 25.0F) << sValue;
        ASSERT_EQ(m_asDropped.size(), 1U) << sValue;
        EXPECT_TRUE(m_asDropped[0].starts_with("[Station Data] Power: ")) << m_asDropped[0];
    }
    LoadInto(settings, "[Station Data]\nPower=much\n");
    EXPECT_EQ(settings.m_fStationPower, 25.0F);
    LoadInto(settings, "[Station Data]\nPower=0,5\n");
    EXPECT_EQ(settings.m_fStationPower, 0.5F);
}

TEST_F(ProfileNewKeys, PowerOutOfRangeIsAFaultForTheConsole)
{
    Settings settings;
    LoadInto(settings, "[Station Data]\nPower=-1\n", ProfileRanges::Keep);
    const std::vector<std::string> asExpected{"[Station Data] Power: -1 is outside 0 to 1000000"};
    EXPECT_EQ(SettingsFaultsGet(settings, true), asExpected);
}

TEST_F(ProfileNewKeys, PaletteIsOneOfFourNames)
{
    EXPECT_EQ(Load("[Colour Data]\nPalette=Print\n").m_ePalette, Palette::Print);
    EXPECT_EQ(Load("[Colour Data]\nPalette= safe \n").m_ePalette, Palette::Safe);
    for (const char* sValue : {"Dusk", "2", ""}) {
        Settings settings;
        settings.m_ePalette = Palette::Night;
        LoadInto(settings, "[Colour Data]\nPalette=" + std::string(sValue) + "\n");
        EXPECT_EQ(settings.m_ePalette, Palette::Night) << sValue;
    }
}

TEST_F(ProfileNewKeys, NeedsAreReadAsAWholeList)
{
    const Settings settings = Load(
        "[Need Data]\nSelected=Mail\nCount=2\nName 1=Voice\nSnr 1=46,5\nSource 1=own\n"
        "Name 2=Mail\nSnr 2=38\nName 3=Old\nSnr 3=1\n");
    const std::vector<Need> aExpected{{"Voice", 46.5F, "own"}, {"Mail", 38.0F, ""}};
    EXPECT_EQ(settings.m_aNeed, aExpected);
    EXPECT_EQ(settings.m_sNeedSelected, "Mail");
}

TEST_F(ProfileNewKeys, ANeedWithoutNameOrNumberInRangeIsLeftOut)
{
    const Settings settings = Load(
        "[Need Data]\nCount=5\nSnr 1=5\nName 2=A\nName 3=B\nSnr 3=x\nName 4=C\nSnr 4=151\n"
        "Name 5=D\nSnr 5=-50\n");
    const std::vector<Need> aExpected{{"D", -50.0F, ""}};
    EXPECT_EQ(settings.m_aNeed, aExpected);
}

TEST_F(ProfileNewKeys, ANeedThatTheListWouldRefuseIsLeftOutAndBlanksAreDropped)
{
    const Settings settings = Load(
        "[Need Data]\nCount=5\nName 1=\" Mail \"\nSnr 1=1\nName 2=mail\nSnr 2=2\nName 3=40\n"
        "Snr 3=3\nName 4="
        + std::string(kNeedNameMost + 1, 'n')
        + "\nSnr 4=4\nName 5=Voice\nSnr 5=5\nSource 5=" + std::string(kNeedSourceMost, 's') + "\n");
    const std::vector<Need> aExpected{{"Mail", 1.0F, ""},
                                      {"Voice", 5.0F, std::string(kNeedSourceMost, 's')}};
    EXPECT_EQ(settings.m_aNeed, aExpected);
}

TEST_F(ProfileNewKeys, ATextOfANeedComesBackWhateverItsSigns)
{
    for (const char* sText : {"'weak'", "''", "'", "it's", "a=b;c", ";a", "=", "[a]", "#a",
                              "'a' 'b'", "caf\xC3\xA9", "a  b", "\\"}) {
        Settings settings;
        settings.m_aNeed.clear();
        ASSERT_TRUE(NeedAdd(settings.m_aNeed, {sText, 12.5F, sText})) << sText;
        settings.m_sNeedSelected = sText;
        settings.m_sProfileFile = m_tmp.Path("signs.ini");
        ASSERT_TRUE(ProfileSave(settings, {}, CallMessages()));
        const Settings loaded = Load(BytesRead(settings.m_sProfileFile));
        EXPECT_EQ(loaded.m_aNeed, settings.m_aNeed) << sText;
        EXPECT_EQ(loaded.m_sNeedSelected, sText);
    }
}

TEST_F(ProfileNewKeys, NeedsWithoutACountAreNotRead)
{
    for (const char* sCount : {"", "Count=\n", "Count=many\n"})
        EXPECT_EQ(Load("[Need Data]\n" + std::string(sCount) + "Name 1=A\nSnr 1=1\n").m_aNeed,
                  NeedsShipped())
            << sCount;
    EXPECT_TRUE(Load("[Need Data]\nCount=-3\nName 1=A\nSnr 1=1\n").m_aNeed.empty());
    EXPECT_TRUE(Load("[Need Data]\nCount=0\n").m_aNeed.empty());
}

TEST_F(ProfileNewKeys, NoMoreNeedsAreReadOrWrittenThanTheListHolds)
{
    Settings settings;
    settings.m_aNeed.clear();
    for (int i = 1; i <= kNeedMax + 5; ++i)
        settings.m_aNeed.push_back({"Need " + NumberToText(i), 1.0F, ""});
    settings.m_sProfileFile = m_tmp.Path("many.ini");
    ASSERT_TRUE(ProfileSave(settings, {}, CallMessages()));
    const std::string sText = BytesRead(settings.m_sProfileFile);
    EXPECT_NE(sText.find("Count=50\r\n"), std::string::npos);
    EXPECT_EQ(sText.find("Name 51="), std::string::npos);
    EXPECT_EQ(Load(sText + "Name 51=A\r\nSnr 51=1\r\n").m_aNeed.size(), 50U);
    EXPECT_EQ(Load("[Need Data]\nCount=1e30\n").m_aNeed.size(), 0U);
}

TEST_F(ProfileNewKeys, ANeedThatTheListLacksIsNotSelected)
{
    EXPECT_EQ(Load("[Need Data]\nSelected=FT8\n").m_sNeedSelected, "FT8");
    EXPECT_EQ(Load("[Need Data]\nSelected=FT9\n").m_sNeedSelected, "");
    Settings settings;
    settings.m_sNeedSelected = "FT8";
    LoadInto(settings, "[Need Data]\nCount=1\nName 1=A\nSnr 1=1\n");
    EXPECT_EQ(settings.m_sNeedSelected, "");
}

TEST_F(ProfileNewKeys, AnEmptySelectionInTheFileIsTakenAndAMissingOneIsNot)
{
    Settings settings;
    settings.m_sNeedSelected = "FT8";
    LoadInto(settings, "[Map Data]\nOverlay Grid Size=12\n");
    EXPECT_EQ(settings.m_sNeedSelected, "FT8");
    LoadInto(settings, "[Need Data]\nSelected=\n");
    EXPECT_EQ(settings.m_sNeedSelected, "");
}

TEST_F(ProfileNewKeys, DefaultsLeaveProfileFilePowerForecastPaletteAndNeeds)
{
    Settings settings;
    settings.m_sProfileFile = "pacific.ini";
    settings.m_fStationPower = 25.0F;
    settings.m_ePalette = Palette::Safe;
    settings.m_aNeed = {{"Mail", 38.0F, ""}};
    settings.m_sNeedSelected = "Mail";
    settings.m_bPropagationMapsMean = false;
    settings.m_fPropagationReliability = 90.0F;
    SettingsDefaultSet(settings);
    EXPECT_EQ(settings.m_sProfileFile, "pacific.ini");
    EXPECT_EQ(settings.m_fStationPower, 25.0F);
    EXPECT_EQ(settings.m_ePalette, Palette::Safe);
    EXPECT_EQ(settings.m_aNeed.size(), 1U);
    EXPECT_EQ(settings.m_sNeedSelected, "");
    EXPECT_TRUE(settings.m_bPropagationMapsMean);
    EXPECT_EQ(settings.m_fPropagationReliability, 50.0F);
    EXPECT_TRUE(settings.m_bPropagationSunSpotNumber);
}

TEST_F(ProfileNewKeys, DefaultsWithTheForecastOnKeepItAndTurnAirmailOff)
{
    Settings settings;
    settings.m_bPropagationForecast = true;
    settings.m_bPropagationSunSpotNumber = false;
    SettingsDefaultSet(settings);
    EXPECT_TRUE(settings.m_bPropagationForecast);
    EXPECT_FALSE(settings.m_bPropagationSunSpotNumber);
}

}  // namespace
