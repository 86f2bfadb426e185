#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "airmail/AirMailFolders.h"
#include "settings/ProfileLib.h"
#include "support/MsgRecorder.h"
#include "support/TempFolder.h"
#include "system/ErrorTextLib.h"
#include "system/FileLib.h"
#ifndef _WIN32
#include "support/Faults.h"
#endif

namespace fs = std::filesystem;

namespace {

using Applied = std::vector<std::pair<WindowKey, float>>;

class Profile : public testing::Test {
protected:
    void TearDown() override { AirMailFoldersReset(); }

    Settings Load(const std::string& sText)
    {
        Settings settings;
        settings.m_sProfileFile = m_tmp.Write("profile.ini", sText);
        ProfileLoad(settings, [this](WindowKey eKey, float fTwips) {
            m_aApplied.emplace_back(eKey, fTwips);
        });
        return settings;
    }
    std::string Save(const Settings& settingsIn, const std::optional<WindowData>& window)
    {
        Settings settings = settingsIn;
        settings.m_sProfileFile = m_tmp.Path("saved.ini");
        EXPECT_TRUE(ProfileSave(settings, window));
        return BytesRead(settings.m_sProfileFile);
    }

    TempFolder m_tmp;
    Applied m_aApplied;
};

constexpr const char* kDefaultsText =
    "[AirMail Data]\r\nDirectory Data=C:\\Program Files\\AirMail\r\n"
    "Directory Program=C:\\Program Files\\AirMail\r\n"
    "[Map Data]\r\nOverlay Grid Size=40\r\nOverlay Min Snr=20\r\n"
    "[Propagation Data]\r\nCount=3\r\nFrequency 1=2000\r\nFrequency 2=7050.6\r\nFrequency "
    "3=6000\r\n"
    "[Propagation Model]\r\nAntenna Type=1\r\nIon Coefficients=URSI\r\nLayer Adjust E=1\r\n"
    "Layer Adjust Es=0.7\r\nLayer Adjust F1=1\r\nLayer Adjust F2=1\r\nModel=3\r\nMonth "
    "Option=True\r\n"
    "Month Number=5\r\nMultipath Delay=10\r\nModel Multipath Power=0\r\nNoise Level=-145\r\nQ "
    "Index=3\r\n"
    "Reliability=50\r\nSunSpot Option=False\r\nSunSpot Number=170\r\nTakeoff Angle=3\r\n"
    "[Receiver Data]\r\nLatitude=24\r\nLongitude=-110\r\n[Time Data]\r\nCode=0\r\n"
    "[Transmitter Data]\r\nLatitude=38.5\r\nLongitude=-122\r\n";

TEST_F(Profile, IsWrittenKeyByKeyInOrder)
{
    Settings settings;
    settings.m_nData = 3;
    settings.FrequencySet(2, 7050.6F);
    settings.m_bPropagationSunSpotNumber = false;
    settings.m_iPropagationMonth = 5;
    settings.m_dTxLat = 38.5;
    EXPECT_EQ(Save(settings, std::nullopt), kDefaultsText);
    EXPECT_EQ(Save(settings, WindowData{9000, 150.5F, -30, 12000}),
              std::string(kDefaultsText)
                  + "[Window Data]\r\nHeight=9000\r\nLeft=150.5\r\nTop=-30\r\nWidth=12000\r\n");
}

TEST_F(Profile, KeepsTheLastWindowPlaceWhenTheWindowIsNotNormal)
{
    Settings settings;
    Save(settings, WindowData{1, 2, 3, 4});
    const std::string sText = Save(settings, std::nullopt);
    EXPECT_NE(sText.find("[Window Data]\r\nHeight=1\r\nLeft=2\r\nTop=3\r\nWidth=4\r\n"),
              std::string::npos);
}

TEST_F(Profile, LeavesKeysOfALongerListInTheFile)
{
    Settings settings;
    settings.m_nData = 4;
    Save(settings, std::nullopt);
    settings.m_nData = 3;
    const std::string sText = Save(settings, std::nullopt);
    EXPECT_NE(sText.find("Count=3\r\n"), std::string::npos);
    EXPECT_NE(sText.find("Frequency 4=8000\r\n"), std::string::npos);
    EXPECT_EQ(Load(sText).m_nData, 3);
}

TEST_F(Profile, WithOneSectionChangesThatAlone)
{
    const Settings settings = Load("[Transmitter Data]\r\nLatitude=-12.5\r\nLongitude=45\r\n");
    EXPECT_EQ(settings.m_dTxLat, -12.5);
    EXPECT_EQ(settings.m_dTxLon, 45.0);
    const Settings settingsDefault;
    EXPECT_EQ(settings.m_dRcLat, settingsDefault.m_dRcLat);
    EXPECT_EQ(settings.m_nData, 15);
    EXPECT_EQ(settings.m_iPropagationModel, 3);
    EXPECT_TRUE(m_aApplied.empty());
}

Settings EveryMemberChanged()
{
    Settings settings;
    settings.m_nData = 2;
    settings.FrequencySet(1, 3500.5F);
    settings.FrequencySet(2, 28300.0F);
    settings.m_iMapOverlayGridSize = 25;
    settings.m_fMapOverlayMinSnr = 33.3F;
    settings.m_iPropagationAntennaType = 2;
    settings.m_sPropagationIonCoefficients = "CCIR";
    settings.m_fPropagationLayerAdjustE = 1.1F;
    settings.m_fPropagationLayerAdjustEs = 0.3F;
    settings.m_fPropagationLayerAdjustF1 = 1.2F;
    settings.m_fPropagationLayerAdjustF2 = 1.3F;
    settings.m_iPropagationModel = 2;
    settings.m_bPropagationMonth = false;
    settings.m_iPropagationMonth = 7;
    settings.m_fPropagationMultipathDelay = 0.85F;
    settings.m_fPropagationMultipathPower = 3.0F;
    settings.m_fPropagationNoiseLevel = -163.0F;
    settings.m_fPropagationQIndex = 4.5F;
    settings.m_fPropagationReliability = 90.0F;
    settings.m_bPropagationSunSpotNumber = false;
    settings.m_fPropagationSunSpotNumber = 12.5F;
    settings.m_fPropagationTakeoffAngle = 0.1F;
    settings.m_dRcLat = -33.87;
    settings.m_dRcLon = 151.21;
    settings.m_iTimeCode = 1;
    settings.m_dTxLat = 51.5;
    settings.m_dTxLon = -0.13;
    AirMailDataFolderSet("D:\\Mail Data");
    AirMailProgramFolderSet("D:\\Mail");
    return settings;
}

TEST_F(Profile, SavedAndLoadedRestoresAllButThreeValues)
{
    const Settings settingsIn = EveryMemberChanged();
    const std::string sText = Save(settingsIn, WindowData{5, 6, 7, 8});
    AirMailFoldersReset();
    const Settings settings = Load(sText);
    EXPECT_EQ(AirMailDataFolderGet(), "D:\\Mail Data");
    EXPECT_EQ(AirMailProgramFolderGet(), "D:\\Mail");
    EXPECT_EQ(settings.m_nData, 2);
    EXPECT_EQ(settings.FrequencyGet(1), 3500.5F);
    EXPECT_EQ(settings.FrequencyGet(2), 28300.0F);
    EXPECT_EQ(settings.FrequencyGet(3), 6000.0F);
    EXPECT_EQ(settings.m_iMapOverlayGridSize, 25);
    EXPECT_EQ(settings.m_fMapOverlayMinSnr, 33.3F);
    EXPECT_EQ(settings.m_iPropagationAntennaType, 2);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustE, 1.1F);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustEs, 0.3F);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustF1, 1.2F);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustF2, 1.3F);
    EXPECT_EQ(settings.m_iPropagationModel, 2);
    EXPECT_FALSE(settings.m_bPropagationMonth);
    EXPECT_EQ(settings.m_iPropagationMonth, 7);
    EXPECT_EQ(settings.m_fPropagationMultipathDelay, 0.85F);
    EXPECT_EQ(settings.m_fPropagationNoiseLevel, -163.0F);
    EXPECT_EQ(settings.m_fPropagationQIndex, 4.5F);
    EXPECT_FALSE(settings.m_bPropagationSunSpotNumber);
    EXPECT_EQ(settings.m_fPropagationSunSpotNumber, 12.5F);
    EXPECT_EQ(settings.m_fPropagationTakeoffAngle, 0.1F);
    EXPECT_EQ(settings.m_dRcLat, -33.87);
    EXPECT_EQ(settings.m_dRcLon, 151.21);
    EXPECT_EQ(settings.m_iTimeCode, 1);
    EXPECT_EQ(settings.m_dTxLat, 51.5);
    EXPECT_EQ(settings.m_dTxLon, -0.13);
    const Applied aExpected{
        {WindowKey::Height, 5}, {WindowKey::Left, 6}, {WindowKey::Top, 7}, {WindowKey::Width, 8}};
    EXPECT_EQ(m_aApplied, aExpected);
    // Written under one name, read under another: these three come back at their defaults.
    EXPECT_EQ(settings.m_sPropagationIonCoefficients, "URSI");
    EXPECT_EQ(settings.m_fPropagationMultipathPower, 0.0F);
    EXPECT_EQ(settings.m_fPropagationReliability, 50.0F);
}

TEST_F(Profile, ReadsTheThreeValuesUnderTheirReadNames)
{
    const Settings settings = Load(
        "[Propagation Model]\nIon Coeficients=CCIR\nMultipath Power=3\nModel Reliability=90\n");
    EXPECT_EQ(settings.m_sPropagationIonCoefficients, "CCIR");
    EXPECT_EQ(settings.m_fPropagationMultipathPower, 3.0F);
    EXPECT_EQ(settings.m_fPropagationReliability, 90.0F);
}

TEST_F(Profile, CountIsReadBeforeTheFrequencies)
{
    const Settings settings = Load(
        "[Propagation Data]\nFrequency 1=1850\nFrequency 2=3600\nFrequency 3=7050.6\nFrequency "
        "4=9999\nCount=3\n");
    EXPECT_EQ(settings.m_nData, 3);
    EXPECT_EQ(settings.FrequencyGet(1), 1850.0F);
    EXPECT_EQ(settings.FrequencyGet(3), 7050.6F);
    EXPECT_EQ(settings.FrequencyGet(4), 8000.0F);
}

TEST_F(Profile, ACountAboveTheListBecomesItsLengthWhateverWasInForce)
{
    Settings settings;
    settings.m_nData = 3;
    settings.m_sProfileFile = m_tmp.Write("profile.ini", "[Propagation Data]\nCount=99\n");
    ProfileLoad(settings, {});
    EXPECT_EQ(settings.m_nData, kFrequencyMax);
}

struct CountCase {
    const char* sText;
    int nExpected;
};
class ProfileCount : public Profile, public testing::WithParamInterface<CountCase> {};
TEST_P(ProfileCount, StaysWithinTheList)
{
    EXPECT_EQ(Load(std::string("[Propagation Data]\nCount=") + GetParam().sText + "\n").m_nData,
              GetParam().nExpected);
}
INSTANTIATE_TEST_SUITE_P(All, ProfileCount,
                         testing::Values(CountCase{"999", 15}, CountCase{"15", 15},
                                         CountCase{"16", 15}, CountCase{"0", 0}, CountCase{"-4", 0},
                                         CountCase{"2.5", 2}, CountCase{"3.5", 4},
                                         CountCase{"many", 15}, CountCase{"1e99", 15},
                                         CountCase{"", 15}));

struct BooleanCase {
    const char* sText;
    bool bExpected;
};
class ProfileBoolean : public Profile, public testing::WithParamInterface<BooleanCase> {};
TEST_P(ProfileBoolean, Reads)
{
    EXPECT_EQ(Load(std::string("[Propagation Model]\nMonth Option=") + GetParam().sText + "\n")
                  .m_bPropagationMonth,
              GetParam().bExpected);
}
INSTANTIATE_TEST_SUITE_P(All, ProfileBoolean,
                         testing::Values(BooleanCase{"True", true}, BooleanCase{"False", false},
                                         BooleanCase{"FALSE ", false}, BooleanCase{"tRuE", true},
                                         BooleanCase{"0", false}, BooleanCase{"-1", true},
                                         BooleanCase{"0.5", true}, BooleanCase{"no", true},
                                         BooleanCase{"", true}));

TEST_F(Profile, TakesCommaAndExponentAndKeepsTheOldValueForRubbish)
{
    const Settings settings = Load(
        "[Propagation Model]\nNoise Level=-150,5\nQ Index=1e1\nTakeoff Angle=abc\nSunSpot "
        "Number=1e99\nModel=2.5\n"
        "Layer Adjust E=nan\n[Receiver Data]\nLatitude=12,25\nLongitude=1e400\n");
    EXPECT_EQ(settings.m_fPropagationNoiseLevel, -150.5F);
    EXPECT_EQ(settings.m_fPropagationQIndex, 10.0F);
    EXPECT_EQ(settings.m_fPropagationTakeoffAngle, 3.0F);
    EXPECT_EQ(settings.m_fPropagationSunSpotNumber, 170.0F);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustE, 1.0F);
    EXPECT_EQ(settings.m_iPropagationModel, 2);
    EXPECT_EQ(settings.m_dRcLat, 12.25);
    EXPECT_EQ(settings.m_dRcLon, -110.0);
}

TEST_F(Profile, MissingFileLeavesEverythingAndSaysNothing)
{
    Settings settings;
    settings.m_sProfileFile = m_tmp.Path("none.ini");
    settings.m_dTxLat = 1;
    ProfileLoad(settings, {});
    EXPECT_EQ(settings.m_dTxLat, 1.0);
}

TEST_F(Profile, OfRubbishLeavesTheDefaults)
{
    std::string sRubbish;
    for (int i = 0; i < 100000; ++i) sRubbish += static_cast<char>(i * 7919 % 251);
    const Settings settings = Load(sRubbish);
    EXPECT_EQ(settings.m_nData, 15);
    EXPECT_EQ(settings.m_dTxLat, 38.0);
}

TEST_F(Profile, SaveFailureIsReportedOnceWithTheSystemsText)
{
    Settings settings;
    settings.m_sProfileFile = m_tmp.Path("gone") + "/no/such/folder/x.ini";
    MsgRecorder msg;
    EXPECT_FALSE(ProfileSave(settings, WindowData{}));
    ASSERT_EQ(msg.m_aShown.size(), 1u);
    EXPECT_EQ(msg.m_aShown[0].eIcon, MsgIcon::Info);
#ifndef _WIN32
    EXPECT_EQ(msg.m_aShown[0].sText, "Problem with initialization file " + settings.m_sProfileFile
                                         + ", " + SystemErrorText(ENOENT));
#endif
    EXPECT_EQ(settings.m_nData, 15);
}

#ifndef _WIN32
TEST_F(Profile, ThatIsReadOnlyIsReportedOnceAndLeftAlone)
{
    const std::string sText = "[Map Data]\r\nOverlay Grid Size=40\r\n";
    Settings settings;
    settings.m_sProfileFile = m_tmp.Write("kept.ini", sText);
    fs::permissions(settings.m_sProfileFile, static_cast<fs::perms>(0444));
    MsgRecorder msg;
    EXPECT_FALSE(ProfileSave(settings, WindowData{}));
    ASSERT_EQ(msg.m_aShown.size(), 1u);
    EXPECT_EQ(msg.m_aShown[0].sText, "Problem with initialization file " + settings.m_sProfileFile
                                         + ", " + SystemErrorText(EACCES));
    EXPECT_EQ(BytesRead(settings.m_sProfileFile), sText);
}

TEST_F(Profile, OnADiskThatFillsUpKeepsWhatItHeld)
{
    Settings settings;
    settings.m_nData = 3;
    const std::string sWhole = Save(settings, WindowData{});
    settings.m_sProfileFile = m_tmp.Path("saved.ini");
    AirMailDataFolderSet("D:\\" + std::string(200, 'x'));  // the first key makes the file longer
    MsgRecorder msg;
    {
        const FileSizeLimit limit(sWhole.size() + 100);
        EXPECT_FALSE(ProfileSave(settings, WindowData{}));
    }
    ASSERT_EQ(msg.m_aShown.size(), 1u);
    EXPECT_EQ(msg.m_aShown[0].sText, "Problem with initialization file " + settings.m_sProfileFile
                                         + ", " + SystemErrorText(EFBIG));
    EXPECT_EQ(BytesRead(settings.m_sProfileFile), sWhole);
    EXPECT_EQ(FilesList(m_tmp.Path() + "/*"), std::vector<std::string>{"saved.ini"});
}

TEST_F(Profile, StopsAtTheFirstKeyThatCannotBeWritten)
{
    Settings settings;
    settings.m_sProfileFile = m_tmp.Write("small.ini", "");
    AirMailProgramFolderSet("D:\\" + std::string(200, 'x'));  // the second key
    MsgRecorder msg;
    {
        const FileSizeLimit limit(150);
        EXPECT_FALSE(ProfileSave(settings, WindowData{}));
    }
    EXPECT_EQ(msg.m_aShown.size(), 1u);
    // What was written before stays; the keys behind, which had room, are not tried.
    EXPECT_EQ(BytesRead(settings.m_sProfileFile),
              "[AirMail Data]\r\nDirectory Data=C:\\Program Files\\AirMail\r\n");
}
#endif

}  // namespace
