#include <gtest/gtest.h>

#include "airmail/AirMailFolders.h"
#include "propagation/RunValues.h"
#include "support/ClockSet.h"
#include "support/DriveC.h"

namespace {

class RunValues : public testing::Test {
protected:
    RunValues() : m_clock(DateTime{2026, 3, 31, 23, 59, 0}, DateTime{2026, 4, 1, 9, 59, 0})
    {
        m_settings.m_bPropagationMonth = true;
        m_settings.m_iPropagationMonth = 7;
        m_settings.m_bPropagationSunSpotNumber = true;
        m_settings.m_fPropagationSunSpotNumber = 70.0F;
    }
    ~RunValues() override { AirMailFoldersReset(); }
    RunValues(const RunValues&) = delete;
    RunValues& operator=(const RunValues&) = delete;

    bool Take(const std::string& sSsn)
    {
        m_drive.Write("Program Files/AirMail/Airmail.ini", "[Propagation]\r\nSSN=" + sSsn + "\r\n");
        return RunValuesTake(m_settings, m_aMessages);
    }

    DriveC m_drive;
    ClockSet m_clock;
    Settings m_settings;
    Messages m_aMessages;
};

TEST_F(RunValues, AreTheUtcMonthAndAirmailsNumber)
{
    ASSERT_TRUE(Take("112.5"));
    EXPECT_EQ(m_settings.m_iPropagationMonth, 3);
    EXPECT_EQ(m_settings.m_fPropagationSunSpotNumber, 112.5F);
    EXPECT_TRUE(m_aMessages.empty());
}

TEST_F(RunValues, AreTheSettingsWhereNeitherIsAutomatic)
{
    m_settings.m_bPropagationMonth = false;
    m_settings.m_bPropagationSunSpotNumber = false;
    ASSERT_TRUE(Take("112.5"));
    EXPECT_EQ(m_settings.m_iPropagationMonth, 7);
    EXPECT_EQ(m_settings.m_fPropagationSunSpotNumber, 70.0F);
}

TEST_F(RunValues, WithoutANumberTheMonthStaysAndTheReasonIsToldOnce)
{
    for (const char* sSsn : {"", "spots"}) {
        m_aMessages.clear();
        EXPECT_FALSE(Take(sSsn)) << sSsn;
        EXPECT_EQ(m_settings.m_iPropagationMonth, 7) << sSsn;
        EXPECT_EQ(m_aMessages.size(), 1U) << sSsn;
    }
    EXPECT_EQ(m_aMessages.front().sText, "Airmail's sunspot number: Type mismatch");
}

TEST_F(RunValues, WithoutAirmailsAreTheForecastsAndTellWhereItIsFrom)
{
    m_settings.m_sProfileFile = m_drive.Path("none/hopcast.ini");
    m_settings.m_bPropagationSunSpotNumber = false;
    m_settings.m_bPropagationForecast = true;
    const ClockSet clock({2026, 11, 21}, {2026, 11, 21});
    SunSpotRun ssn;
    ASSERT_TRUE(RunValuesTake(m_settings, m_aMessages, &ssn));
    EXPECT_EQ(ssn.sSource, "mean cycle");
    EXPECT_EQ(m_settings.m_fPropagationSunSpotNumber, 62.0F);
    EXPECT_EQ(m_settings.m_iPropagationMonth, 11);
    EXPECT_FALSE(RunValuesTake(m_settings, m_aMessages, &ssn, m_drive.Path("missing.txt")));
    ASSERT_EQ(m_aMessages.size(), 1U);
    EXPECT_TRUE(m_aMessages[0].sText.starts_with("Cannot read ")) << m_aMessages[0].sText;
}

}  // namespace
