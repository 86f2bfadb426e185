#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "airmail/AirMailFolders.h"
#include "settings/ProfileLib.h"
#include "support/MsgRecorder.h"
#include "support/TempFolder.h"
#include "system/ErrorTextLib.h"
#include "system/FileLib.h"
#include "system/RunErrorText.h"
#ifndef _WIN32
#include <sys/stat.h>

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
        const auto res = ProfileLoad(settings, [this](WindowKey eKey, float fTwips) {
            m_aApplied.emplace_back(eKey, fTwips);
        });
        EXPECT_TRUE(res) << res.TextGet();
        m_asDropped = res ? res.ValueGet() : std::vector<std::string>();
        return settings;
    }
    std::string Save(const Settings& settingsIn, const std::optional<WindowData>& window)
    {
        Settings settings = settingsIn;
        settings.m_sProfileFile = m_tmp.Path("saved.ini");
        EXPECT_TRUE(ProfileSave(settings, window, CallMessages()));
        return BytesRead(settings.m_sProfileFile);
    }

    TempFolder m_tmp;
    Applied m_aApplied;
    std::vector<std::string> m_asDropped;
};

constexpr const char* kDefaultsText =
    "[AirMail Data]\r\nDirectory Data=C:\\Program Files\\AirMail\r\n"
    "Directory Program=C:\\Program Files\\AirMail\r\n"
    "[Map Data]\r\nOverlay Grid Size=40\r\nOverlay Min Snr=20\r\nWorld Begins=0\r\n"
    "[Propagation Data]\r\nCount=3\r\nFrequency 1=2000\r\nFrequency 2=7050.6\r\nFrequency "
    "3=6000\r\n"
    "[Propagation Model]\r\nAntenna Type=1\r\nIon Coefficients=URSI\r\nLayer Adjust E=1\r\n"
    "Layer Adjust Es=0.7\r\nLayer Adjust F1=1\r\nLayer Adjust F2=1\r\nModel=3\r\nMonth "
    "Option=True\r\n"
    "Month Number=5\r\nMultipath Delay=10\r\nModel Multipath Power=0\r\nNoise Level=-145\r\nQ "
    "Index=3\r\n"
    "Reliability=50\r\nSunSpot Option=False\r\nSunSpot Number=170\r\nTakeoff Angle=3\r\nMaps "
    "Option=True\r\nForecast Option=False\r\n"
    "[Receiver Data]\r\nLatitude=24\r\nLongitude=-110\r\n[Time Data]\r\nCode=0\r\n"
    "[Transmitter Data]\r\nLatitude=38.5\r\nLongitude=-122\r\n";

constexpr const char* kNewSectionsText =
    "[Station Data]\r\nPower=0\r\n"
    "[Need Data]\r\nSelected=\r\nCount=1\r\nName 1=FT8\r\nSnr 1=13\r\nSource 1=a guide\r\n"
    "[Colour Data]\r\nPalette=Standard\r\n";

/// The settings that kDefaultsText and kNewSectionsText hold.
Settings SomeSettings()
{
    Settings settings;
    settings.m_nData = 3;
    settings.FrequencySet(2, 7050.6F);
    settings.m_bPropagationSunSpotNumber = false;
    settings.m_iPropagationMonth = 5;
    settings.m_dTxLat = 38.5;
    settings.m_aNeed = {{"FT8", 13.0F, "a guide"}};
    return settings;
}

TEST_F(Profile, IsWrittenKeyByKeyInOrder)
{
    EXPECT_EQ(Save(SomeSettings(), WindowData{9000, 150.5F, -30, 12000}),
              std::string(kDefaultsText)
                  + "[Window Data]\r\nHeight=9000\r\nLeft=150.5\r\nTop=-30\r\nWidth=12000\r\n"
                  + kNewSectionsText);
}

TEST_F(Profile, OfAWindowThatIsNotNormalHasEveryKeyButItsPlace)
{
    EXPECT_EQ(Save(SomeSettings(), std::nullopt), std::string(kDefaultsText) + kNewSectionsText);
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

TEST_F(Profile, WorldBeginsAtOneOfTwoLongitudes)
{
    EXPECT_EQ(Load("[Map Data]\r\nWorld Begins=-180\r\n").m_iMapWorldBegins, -180);
    for (const char* sValue : {"180", "-179", "90", "", "west"})
        EXPECT_EQ(
            Load("[Map Data]\r\nWorld Begins=" + std::string(sValue) + "\r\n").m_iMapWorldBegins, 0)
            << sValue;
    EXPECT_EQ(Load("[Map Data]\r\nOverlay Grid Size=12\r\n").m_iMapWorldBegins, 0);
}

TEST_F(Profile, WithoutAMapsOptionTheMeanStays)
{
    EXPECT_TRUE(Load("[Propagation Model]\r\nIon Coeficients=CCIR\r\n").m_bPropagationMapsMean);
    const Settings settings = Load("[Propagation Model]\r\nMaps Option=False\r\n");
    EXPECT_FALSE(settings.m_bPropagationMapsMean);
    EXPECT_EQ(settings.m_sPropagationIonCoefficients, "URSI");
    EXPECT_TRUE(Load("[Propagation Model]\r\nMaps Option=other\r\n").m_bPropagationMapsMean);
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
    settings.m_iMapWorldBegins = -180;
    settings.m_iPropagationAntennaType = 2;
    settings.m_sPropagationIonCoefficients = "CCIR";
    settings.m_fPropagationLayerAdjustE = 1.1F;
    settings.m_fPropagationLayerAdjustEs = 0.3F;
    settings.m_fPropagationLayerAdjustF1 = 1.2F;
    settings.m_fPropagationLayerAdjustF2 = 1.3F;
    settings.m_bPropagationMapsMean = false;
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
    settings.m_bPropagationForecast = true;
    settings.m_fStationPower = 0.5F;
    settings.m_aNeed = {{"Voice", 46.5F, "own"}, {"Mail", 38.0F, ""}};
    settings.m_sNeedSelected = "Mail";
    settings.m_ePalette = Palette::Night;
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
    EXPECT_EQ(settings.m_iMapWorldBegins, -180);
    EXPECT_EQ(settings.m_iPropagationAntennaType, 2);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustE, 1.1F);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustEs, 0.3F);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustF1, 1.2F);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustF2, 1.3F);
    EXPECT_FALSE(settings.m_bPropagationMapsMean);
    EXPECT_EQ(settings.m_iPropagationModel, 2);
    EXPECT_FALSE(settings.m_bPropagationMonth);
    EXPECT_EQ(settings.m_iPropagationMonth, 7);
    EXPECT_EQ(settings.m_fPropagationMultipathDelay, 0.85F);
    EXPECT_EQ(settings.m_fPropagationNoiseLevel, -163.0F);
    EXPECT_EQ(settings.m_fPropagationQIndex, 4.5F);
    EXPECT_FALSE(settings.m_bPropagationSunSpotNumber);
    EXPECT_EQ(settings.m_fPropagationSunSpotNumber, 12.5F);
    EXPECT_EQ(settings.m_fPropagationTakeoffAngle, 0.1F);
    EXPECT_TRUE(settings.m_bPropagationForecast);
    EXPECT_EQ(settings.m_fStationPower, 0.5F);
    EXPECT_EQ(settings.m_aNeed, settingsIn.m_aNeed);
    EXPECT_EQ(settings.m_sNeedSelected, "Mail");
    EXPECT_EQ(settings.m_ePalette, Palette::Night);
    EXPECT_EQ(settings.m_dRcLat, -33.87);
    EXPECT_EQ(settings.m_dRcLon, 151.21);
    EXPECT_EQ(settings.m_iTimeCode, 1);
    EXPECT_EQ(settings.m_dTxLat, 51.5);
    EXPECT_EQ(settings.m_dTxLon, -0.13);
    const Applied aExpected{
        {WindowKey::Height, 5}, {WindowKey::Left, 6}, {WindowKey::Top, 7}, {WindowKey::Width, 8}};
    EXPECT_EQ(m_aApplied, aExpected);
    // These three are written under one name and read under another, so they come back at their
    // defaults.
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
    EXPECT_TRUE(ProfileLoad(settings, {}));
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
        "[Propagation Model]\nNoise Level=-150,5\nQ Index=.5e1\nTakeoff Angle=abc\nSunSpot "
        "Number=1e99\nModel=2.5\n"
        "Layer Adjust E=nan\n[Receiver Data]\nLatitude=12,25\nLongitude=1e400\n");
    EXPECT_EQ(settings.m_fPropagationNoiseLevel, -150.5F);
    EXPECT_EQ(settings.m_fPropagationQIndex, 5.0F);
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
    EXPECT_EQ(ProfileLoad(settings, {}).TextGet(), kFileNotFound);
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
    EXPECT_FALSE(ProfileSave(settings, WindowData{}, CallMessages()));
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
    EXPECT_FALSE(ProfileSave(settings, WindowData{}, CallMessages()));
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
        EXPECT_FALSE(ProfileSave(settings, WindowData{}, CallMessages()));
    }
    ASSERT_EQ(msg.m_aShown.size(), 1u);
    EXPECT_EQ(msg.m_aShown[0].sText, "Problem with initialization file " + settings.m_sProfileFile
                                         + ", " + SystemErrorText(EFBIG));
    EXPECT_EQ(BytesRead(settings.m_sProfileFile), sWhole);
    EXPECT_EQ(FilesList(m_tmp.Path() + "/*"), std::vector<std::string>{"saved.ini"});
}

TEST_F(Profile, IsSavedWholeOrNotAtAll)
{
    Settings settings;
    settings.m_sProfileFile = m_tmp.Write("small.ini", "");
    AirMailProgramFolderSet("D:\\" + std::string(200, 'x'));  // the second key
    MsgRecorder msg;
    {
        const FileSizeLimit limit(150);
        EXPECT_FALSE(ProfileSave(settings, WindowData{}, CallMessages()));
    }
    EXPECT_EQ(msg.m_aShown.size(), 1u);
    EXPECT_EQ(BytesRead(settings.m_sProfileFile), "");
}

TEST_F(Profile, IsReadOnceSoThatAPipeCanHoldIt)
{
    Settings settings;
    settings.m_sProfileFile = m_tmp.Path("pipe");
    ASSERT_EQ(mkfifo(settings.m_sProfileFile.c_str(), 0600), 0);
    std::thread writer([sPipe = settings.m_sProfileFile] {
        std::ofstream stm(sPipe, std::ios::binary);
        stm << "[Receiver Data]\nLatitude=1\n"
            << std::string(200000, ';') << "\nLongitude=2\n[Transmitter Data]\nLatitude=3\n";
    });
    EXPECT_TRUE(ProfileLoad(settings, {}));
    writer.join();
    EXPECT_EQ(settings.m_dRcLat, 1.0);
    EXPECT_EQ(settings.m_dRcLon, 2.0);
    EXPECT_EQ(settings.m_dTxLat, 3.0);
}

TEST_F(Profile, ThatCannotBeReadIsAnErrorAndChangesNothing)
{
    const auto Error = [](const std::string& sFile) {
        Settings settings;
        settings.m_sProfileFile = sFile;
        std::string sError = ProfileLoad(settings, {}).TextGet();
        EXPECT_EQ(settings.m_dTxLat, Settings().m_dTxLat);
        return sError;
    };
    EXPECT_EQ(Error(m_tmp.Path()), "it is a folder");
    EXPECT_EQ(Error("/dev/zero"), "it is a device");
    const std::string sGreat = m_tmp.Write("great.ini", "");
    fs::resize_file(sGreat, (std::uintmax_t{64} << 20) + 1);
    EXPECT_EQ(Error(sGreat), "it is larger than 64 MB");
    const std::string sSecret = m_tmp.Write("secret.ini", "[Transmitter Data]\nLatitude=1\n");
    fs::permissions(sSecret, fs::perms::none);
    fs::permissions(m_tmp.Path(), fs::perms::all);
    AsUnprivileged([&] { EXPECT_EQ(Error(sSecret), kPermissionDenied); });
}
#endif

TEST_F(Profile, InUtf16IsRead)
{
    const std::string sText = "[Transmitter Data]\r\nLatitude=-12.5\r\n";
    for (const bool bLittle : {true, false}) {
        std::string sBytes = bLittle ? "\xFF\xFE" : "\xFE\xFF";
        for (const char c : sText) sBytes += bLittle ? std::string{c, '\0'} : std::string{'\0', c};
#ifdef _WIN32
        if (!bLittle)
            continue;  // the Windows calls read little-endian UTF-16 only
#endif
        EXPECT_EQ(Load(sBytes).m_dTxLat, -12.5) << bLittle;
    }
}

TEST_F(Profile, NumbersOutOfRangeLeaveTheValueInForceAndAreTold)
{
    const Settings settings = Load(
        "[Propagation Model]\nModel Reliability=150\nNoise Level=145\nTakeoff Angle=-1\n"
        "SunSpot Number=1e99\nMultipath Power=100\nMultipath Delay=-1\nQ Index=9.5\n"
        "Layer Adjust E=10\nLayer Adjust F1=-1\nLayer Adjust F2=9.991\nLayer Adjust Es=99\n");
    const Settings defaults;
    EXPECT_EQ(settings.m_fPropagationReliability, defaults.m_fPropagationReliability);
    EXPECT_EQ(settings.m_fPropagationNoiseLevel, defaults.m_fPropagationNoiseLevel);
    EXPECT_EQ(settings.m_fPropagationTakeoffAngle, defaults.m_fPropagationTakeoffAngle);
    EXPECT_EQ(settings.m_fPropagationSunSpotNumber, defaults.m_fPropagationSunSpotNumber);
    EXPECT_EQ(settings.m_fPropagationMultipathPower, defaults.m_fPropagationMultipathPower);
    EXPECT_EQ(settings.m_fPropagationMultipathDelay, defaults.m_fPropagationMultipathDelay);
    EXPECT_EQ(settings.m_fPropagationQIndex, defaults.m_fPropagationQIndex);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustE, defaults.m_fPropagationLayerAdjustE);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustF1, defaults.m_fPropagationLayerAdjustF1);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustF2, defaults.m_fPropagationLayerAdjustF2);
    EXPECT_EQ(settings.m_fPropagationLayerAdjustEs, defaults.m_fPropagationLayerAdjustEs);
    EXPECT_EQ(m_asDropped.size(), 11U);
    EXPECT_NE(std::find(m_asDropped.begin(), m_asDropped.end(),
                        "[Propagation Model] Model Reliability: 150 is outside 1 to 99"),
              m_asDropped.end());
}

TEST_F(Profile, OfAPositionBothNumbersAreInRangeOrNoneIsTaken)
{
    const Settings settings = Load(
        "[Receiver Data]\nLatitude=95\nLongitude=10\n"
        "[Transmitter Data]\nLatitude=10\nLongitude=-180.5\n");
    EXPECT_EQ(settings.m_dRcLat, 24.0);
    EXPECT_EQ(settings.m_dRcLon, -110.0);
    EXPECT_EQ(settings.m_dTxLat, 38.0);
    EXPECT_EQ(settings.m_dTxLon, -122.0);
    const std::vector<std::string> asExpected{
        "[Receiver Data] Latitude: 95 is outside -90 to 90",
        "[Transmitter Data] Longitude: -180.5 is outside -180 to 180"};
    EXPECT_EQ(m_asDropped, asExpected);
}

TEST_F(Profile, AFrequencyAChoiceAndAMonthOutOfRangeAreKept)
{
    const Settings settings = Load(
        "[Propagation Data]\nCount=1\nFrequency 1=50\n"
        "[Propagation Model]\nAntenna Type=7\nModel=9\nMonth Number=13\n");
    EXPECT_EQ(settings.FrequencyGet(1), 50.0F);
    EXPECT_EQ(settings.m_iPropagationAntennaType, 7);
    EXPECT_EQ(settings.m_iPropagationModel, 9);
    EXPECT_EQ(settings.m_iPropagationMonth, 13);
    EXPECT_TRUE(m_asDropped.empty());
    EXPECT_EQ(SettingsFaultsGet(settings, true).size(), 3U);
    EXPECT_EQ(SettingsFaultsGet(settings, false).size(), 2U);
    EXPECT_TRUE(SettingsFaultsGet(Settings(), true).empty());
}

TEST_F(Profile, KeepsThePlacesOfPlanningWindowsWholeOrNotAtAll)
{
    Settings settings = Load(
        "[Reach Window Data]\nHeight=8400\nLeft=150\nTop=225\nWidth=11700\n"
        "[Days Window Data]\nHeight=8400\nLeft=150\n");
    EXPECT_EQ(settings.m_aPlanWindow[static_cast<std::size_t>(PlanName::Reach)],
              (WindowData{8400, 150, 225, 11700}));
    EXPECT_FALSE(settings.m_aPlanWindow[static_cast<std::size_t>(PlanName::Days)]);
    settings.Initialize();
    EXPECT_TRUE(settings.m_aPlanWindow[static_cast<std::size_t>(PlanName::Reach)]);
    const std::string sSaved = Save(settings, {});
    EXPECT_NE(
        sSaved.find("[Reach Window Data]\r\nHeight=8400\r\nLeft=150\r\nTop=225\r\nWidth=11700"),
        std::string::npos)
        << sSaved;
    EXPECT_EQ(sSaved.find("[Days Window Data]"), std::string::npos);
}

TEST_F(Profile, TheShippedValuesAreThoseOfTheShippedFile)
{
    Settings settings;
    settings.m_sProfileFile = "new.ini";
    ProfileShippedSet(settings);
    EXPECT_EQ(settings.m_sProfileFile, "new.ini");
    const std::string sShipped = Save(Load(BytesRead(SHIPPED_PROFILE)), {});
    EXPECT_EQ(Save(settings, {}), sShipped);
    EXPECT_NE(Save(Settings(), {}), sShipped);
}

}  // namespace
