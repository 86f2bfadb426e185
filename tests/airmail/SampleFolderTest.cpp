// The sample Airmail folder as a whole, as the tour of the program shows it.
#include <gtest/gtest.h>

#include <filesystem>

#include "airmail/AirMailFixture.h"
#include "support/ClockSet.h"

namespace fs = std::filesystem;

namespace {

class SampleFolder : public AirMailFixture {
protected:
    SampleFolder() { AirMailDataFolderSet(TEST_DATA); }
};

TEST_F(SampleFolder, IsFoundOnDriveCByItsInstallLog)
{
    AirMailFoldersReset();
    AirMailWrite("Airmail3.exe", "MZ");
    AirMailWrite("Install.log", BytesRead(TEST_DATA "/Install.log"));
    AirMailFoldersFind();
    EXPECT_EQ(AirMailDataFolderGet(), "C:\\ProgramData\\Airmail");
}

TEST_F(SampleFolder, GivesPositionSunSpotNumberAndVersion)
{
    const ClockSet clock(DateTime{2024, 3, 18, 17, 0, 0}, DateTime{2024, 3, 18, 12, 0, 0});
    double dLat = 0.0;
    double dLon = 0.0;
    DateTime dtTime;
    const auto res = AirMailPositionGet(dLat, dLon, dtTime, CallMessages());
    ASSERT_TRUE(res && res.ValueGet());
    EXPECT_DOUBLE_EQ(dLat, 17.6875);
    EXPECT_DOUBLE_EQ(dLon, -(63.0 + 5.5 / 60.0));
    EXPECT_EQ(AirMailAgeText(dtTime), "3 hours");
    EXPECT_EQ(AirMailSunSpotNumberGet(CallMessages()), "112.5");
    EXPECT_EQ(AirMailVersionText(), "Airmail 3.1.936");
}

TEST_F(SampleFolder, GivesItsSystemsAndStations)
{
    int nCount = 0;
    TextList asName;
    ASSERT_TRUE(AirMailGetSystems(nCount, asName, CallMessages()));
    ASSERT_EQ(nCount, 3);
    EXPECT_EQ(asName[1], "Coast");
    EXPECT_EQ(asName[2], "HAM");
    EXPECT_EQ(asName[3], "SailMail");
    TextList asKey;
    ASSERT_TRUE(AirMailGetStations("HAM", nCount, asKey, CallMessages()));
    EXPECT_EQ(nCount, 6);
    EXPECT_EQ(asKey[3], "XX3OSL");
    EXPECT_EQ(AirMailStationDescription("HAM", asKey[3], CallMessages()), "Malm\xC3\xB8ya, Norge");
    ASSERT_TRUE(AirMailGetStations("SailMail", nCount, asKey, CallMessages()));
    EXPECT_EQ(nCount, 3);
    ASSERT_TRUE(AirMailGetStations("Coast", nCount, asKey, CallMessages()));
    EXPECT_EQ(nCount, 2);
    EXPECT_EQ(AirMailStationDescription("Coast", "Cabo Corrientes", CallMessages()),
              "M\xC3\xA9xico");
}

TEST_F(SampleFolder, HasAStationWithoutAColonAndOneWithABadGrid)
{
    double dLat = 0.0;
    double dLon = 0.0;
    auto res = AirMailStationPosition("HAM", "XX6OLD", dLat, dLon, true, CallMessages());
    EXPECT_EQ(res.TextGet(), "Invalid procedure call or argument");
    MsgRecorder msg;
    res = AirMailStationPosition("HAM", "XX5BAD", dLat, dLon, true, CallMessages());
    ASSERT_TRUE(res);
    EXPECT_FALSE(res.ValueGet());
    EXPECT_EQ(OneShown(msg).sText, "Unable to Convert Grid FN4 to Lat/Lon");
}

TEST_F(SampleFolder, IsInTheLayoutOfTheWindowsWorld)
{
    int nFiles = 0;
    for (const auto& entry : fs::directory_iterator(TEST_DATA)) {
        const std::string sBytes = BytesRead(entry.path().string());
        std::size_t nLines = 0;
        for (std::size_t n = sBytes.find('\n'); n != std::string::npos;
             n = sBytes.find('\n', n + 1)) {
            ++nLines;
            EXPECT_TRUE(n > 0 && sBytes[n - 1] == '\r') << entry.path();
        }
        EXPECT_GT(nLines, 2U) << entry.path();
        EXPECT_EQ(sBytes.find("\xC2\xB0"), std::string::npos) << entry.path();
        ++nFiles;
    }
    EXPECT_EQ(nFiles, 5);
    EXPECT_NE(BytesRead(TEST_DATA "/Airmail.ini").find('\xB0'), std::string::npos);
}

}  // namespace
