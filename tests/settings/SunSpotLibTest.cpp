#include <gtest/gtest.h>

#include "airmail/AirMailFolders.h"
#include "settings/SunSpotLib.h"
#include "support/DriveC.h"
#include "support/MsgRecorder.h"

namespace {

constexpr float kUntouched = -1.0F;

class SunSpotLib : public testing::Test {
protected:
    SunSpotLib() { m_settings.m_fPropagationSunSpotNumber = 70.0F; }
    ~SunSpotLib() override { AirMailFoldersReset(); }

    Result<bool> Get(const std::string& sSsn)
    {
        m_drive.Write("Program Files/AirMail/Airmail.ini", "[Propagation]\r\nSSN=" + sSsn + "\r\n");
        return SunSpotNumberGet(m_settings, m_fNumber, CallMessages());
    }

    DriveC m_drive;
    Settings m_settings;
    float m_fNumber = kUntouched;
};

TEST_F(SunSpotLib, AutomaticNumberIsAirmailsAndIsStored)
{
    const auto res = Get("112.5");
    ASSERT_TRUE(res && res.ValueGet());
    EXPECT_EQ(m_fNumber, 112.5F);
    EXPECT_EQ(m_settings.m_fPropagationSunSpotNumber, 112.5F);
}

TEST_F(SunSpotLib, FixedNumberNeedsNoAirmail)
{
    m_settings.m_bPropagationSunSpotNumber = false;
    const auto res = SunSpotNumberGet(m_settings, m_fNumber, CallMessages());
    ASSERT_TRUE(res && res.ValueGet());
    EXPECT_EQ(m_fNumber, 70.0F);
    EXPECT_TRUE(Get("112.5").ValueGet());
    EXPECT_EQ(m_fNumber, 70.0F);
    EXPECT_EQ(m_settings.m_fPropagationSunSpotNumber, 70.0F);
}

TEST_F(SunSpotLib, EmptyNumberIsToldAndKeepsTheStoredOne)
{
    MsgRecorder msg;
    const auto res = Get("");
    ASSERT_TRUE(res);
    EXPECT_FALSE(res.ValueGet());
    EXPECT_EQ(m_fNumber, kUntouched);
    EXPECT_EQ(m_settings.m_fPropagationSunSpotNumber, 70.0F);
    ASSERT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(msg.m_aShown[0].eIcon, MsgIcon::Exclamation);
    EXPECT_EQ(msg.m_aShown[0].sText,
              "Unable to find AirMail's Propagation, SSN in \"Airmail.ini\".\r\rPlease check that "
              "the AirMail Data folder \"C:\\Program Files\\AirMail\" is correct.");
}

TEST_F(SunSpotLib, TextThatIsNoNumberIsAnErrorAndKeepsTheStoredOne)
{
    for (const char* sText : {"high", "1e2", "12 13", "inf"}) {
        const auto res = Get(sText);
        EXPECT_FALSE(res) << sText;
        EXPECT_EQ(res.TextGet(), "Type mismatch") << sText;
    }
    EXPECT_EQ(Get(std::string(50, '9')).TextGet(), "Overflow");
    EXPECT_EQ(m_fNumber, kUntouched);
    EXPECT_EQ(m_settings.m_fPropagationSunSpotNumber, 70.0F);
}

TEST_F(SunSpotLib, ANumberOutOfRangeIsAnErrorThatNamesFileAndKey)
{
    for (const char* sText : {"-0.5", "312"}) {
        EXPECT_EQ(Get(sText).TextGet(),
                  "C:\\Program Files\\AirMail\\Airmail.ini, [Propagation] SSN: "
                      + std::string(sText) + " is outside 0 to 311");
    }
    EXPECT_EQ(m_fNumber, kUntouched);
    EXPECT_EQ(m_settings.m_fPropagationSunSpotNumber, 70.0F);
}

}  // namespace
