// Where a run takes its sunspot number from, and what the user is told about it.
#include <gtest/gtest.h>

#include <limits>

#include "airmail/AirMailFolders.h"
#include "settings/ForecastFile.h"
#include "settings/SunSpotLib.h"
#include "support/ClockSet.h"
#include "support/DriveC.h"
#include "support/MsgRecorder.h"
#include "support/TempFolder.h"

namespace {

constexpr DateTime kNow{2026, 11, 21, 15, 30, 0};

class SunSpotRunLib : public testing::Test {
protected:
    SunSpotRunLib()
    {
        AirMailFoldersReset();
        m_settings.m_sProfileFile = m_folder.Path("boat.ini");
        m_settings.m_bPropagationSunSpotNumber = false;
        m_settings.m_bPropagationForecast = true;
        m_settings.m_fPropagationSunSpotNumber = 100.0F;
        m_ssn.fNumber = -1.0F;
    }
    ~SunSpotRunLib() override { AirMailFoldersReset(); }

    void AirMailWrite(const std::string& sSsn) const
    {
        m_drive.Write("Program Files/AirMail/Airmail.ini", "[Propagation]\r\nSSN=" + sSsn + "\r\n");
    }
    void ForecastKeep(std::vector<ForecastMonth> aMonths, const DateTime& dtDay) const
    {
        const auto res =
            ForecastSave(m_settings.m_sProfileFile,
                         {ForecastSource::Noaa, ForecastDating::Mailed, dtDay, std::move(aMonths)});
        ASSERT_TRUE(res) << res.TextGet();
    }
    Result<bool> Get() { return SunSpotRunGet(m_settings, m_sForecastFile, m_ssn, CallMessages()); }
    /// @return true if there was a number
    bool Got()
    {
        const auto res = Get();
        EXPECT_TRUE(res) << res.TextGet();
        return res && res.ValueGet();
    }

    DriveC m_drive;
    TempFolder m_folder;
    ClockSet m_clock{kNow, kNow};
    Settings m_settings;
    std::string m_sForecastFile;
    SunSpotRun m_ssn;
};

TEST_F(SunSpotRunLib, AirmailsNumberComesBeforeAForecast)
{
    m_settings.m_bPropagationSunSpotNumber = true;
    AirMailWrite("112.5");
    ForecastKeep({{2026, 11, 87.9}}, {2026, 11, 20});
    ASSERT_TRUE(Got());
    EXPECT_EQ(m_ssn.fNumber, 112.5F);
    EXPECT_EQ(m_ssn.eSource, SunSpotSource::AirMail);
    EXPECT_EQ(m_ssn.sSource, "Airmail");
    EXPECT_TRUE(m_ssn.dtDay.IsZero());
    EXPECT_NE(m_ssn.sDetail.find("Airmail.ini, [Propagation] SSN"), std::string::npos);
    EXPECT_EQ(m_settings.m_fPropagationSunSpotNumber, 112.5F);
}

TEST_F(SunSpotRunLib, WithoutAirmailsNumberTheRunIsRefusedAlthoughAForecastIsKept)
{
    MsgRecorder msg;
    m_settings.m_bPropagationSunSpotNumber = true;
    AirMailWrite("");
    ForecastKeep({{2026, 11, 87.9}}, {2026, 11, 20});
    const auto res = Get();
    ASSERT_TRUE(res);
    EXPECT_FALSE(res.ValueGet());
    EXPECT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(m_ssn.fNumber, -1.0F);
    EXPECT_EQ(m_settings.m_fPropagationSunSpotNumber, 100.0F);
    AirMailWrite("many");
    EXPECT_EQ(Get().TextGet(), "Type mismatch");
}

TEST_F(SunSpotRunLib, WithoutAForecastFileItIsTheMeanCyclesWholeNumber)
{
    ASSERT_TRUE(Got());
    EXPECT_EQ(m_ssn.fNumber, 62.0F);
    EXPECT_EQ(m_ssn.eSource, SunSpotSource::MeanCycle);
    EXPECT_EQ(m_ssn.sSource, "mean cycle");
    EXPECT_EQ(m_ssn.sScale, "");
    EXPECT_TRUE(m_ssn.dtDay.IsZero());
    EXPECT_EQ(m_ssn.sWarning, "");
    EXPECT_EQ(m_settings.m_fPropagationSunSpotNumber, 62.0F);
}

TEST_F(SunSpotRunLib, TheNumberIsOfTheMonthOfTheRun)
{
    m_settings.m_bPropagationMonth = false;
    m_settings.m_iPropagationMonth = 7;
    ASSERT_TRUE(Got());
    EXPECT_EQ(m_ssn.fNumber, 71.0F) << "July 2026";
    const ClockSet clock({2024, 10, 5}, {2024, 10, 5});
    m_settings.m_bPropagationMonth = true;
    ASSERT_TRUE(Got());
    EXPECT_EQ(m_ssn.fNumber, 110.0F) << "October 2024";
}

TEST_F(SunSpotRunLib, AtTheTurnOfTheYearTheCurrentMonthHasItsOwnYear)
{
    const ClockSet clock({2027, 1, 1, 3, 0, 0}, {2026, 12, 31, 19, 0, 0});
    EXPECT_EQ(RunMonthGet(m_settings).nYear, 2027);
    EXPECT_EQ(RunMonthGet(m_settings).nMonth, 1);
    m_settings.m_bPropagationMonth = false;
    m_settings.m_iPropagationMonth = 12;
    EXPECT_EQ(RunMonthGet(m_settings).nYear, 2026);
    EXPECT_EQ(RunMonthGet(m_settings).nMonth, 12);
}

TEST_F(SunSpotRunLib, AMonthThatIsNoneDoesNoHarm)
{
    const ClockSet clock(kNow, kNow);
    m_settings.m_bPropagationMonth = false;
    for (const int nMonth :
         {std::numeric_limits<int>::min(), 0, 13, 2'000'000'000, std::numeric_limits<int>::max()}) {
        m_settings.m_iPropagationMonth = nMonth;
        EXPECT_TRUE(Got()) << nMonth;
        EXPECT_EQ(m_ssn.sDetail.substr(m_ssn.sDetail.size() - 7),
                  nMonth < 1 ? "2026-01" : "2026-12");
        EXPECT_EQ(m_settings.m_iPropagationMonth, nMonth) << "the run itself refuses it";
    }
}

TEST_F(SunSpotRunLib, AKeptForecastThatCoversTheMonthComesBeforeTheMeanCycle)
{
    ForecastKeep({{2026, 11, 100.0}, {2026, 12, 98.0}}, {2026, 11, 19});
    ASSERT_TRUE(Got());
    EXPECT_EQ(m_ssn.fNumber, 70.0F);
    EXPECT_EQ(m_ssn.eSource, SunSpotSource::Noaa);
    EXPECT_EQ(m_ssn.sSource, "NOAA forecast");
    EXPECT_EQ(m_ssn.sScale, "version-2 number 100 times 0.7");
    EXPECT_EQ(m_ssn.dtDay, (DateTime{2026, 11, 19}));
    EXPECT_EQ(m_ssn.nDaysOld, 2);
    EXPECT_EQ(m_ssn.sDetail,
              "version-2 number 100 times 0.7, of the mail of 2026-11-19 (2 days old)");
    EXPECT_EQ(m_ssn.sWarning, "");
}

TEST_F(SunSpotRunLib, AKeptForecastOfOtherMonthsIsToldAndTheMeanCycleTaken)
{
    ForecastKeep({{2027, 1, 100.0}}, {2026, 11, 19});
    ASSERT_TRUE(Got());
    EXPECT_EQ(m_ssn.fNumber, 62.0F);
    EXPECT_EQ(m_ssn.eSource, SunSpotSource::MeanCycle);
    EXPECT_NE(m_ssn.sWarning.find("the mean cycle is used for 2026-11"), std::string::npos);
}

TEST_F(SunSpotRunLib, ADamagedKeptForecastIsToldAndTheMeanCycleTaken)
{
    ForecastKeep({{2026, 11, 100.0}}, {2026, 11, 19});
    std::string sKept = BytesRead(m_folder.Path("boat.forecast.txt"));
    m_folder.Write("boat.forecast.txt", sKept.replace(sKept.find("100"), 3, "200"));
    ASSERT_TRUE(Got());
    EXPECT_EQ(m_ssn.fNumber, 62.0F);
    EXPECT_NE(m_ssn.sWarning.find("boat.forecast.txt: it was cut or changed"), std::string::npos);
}

TEST_F(SunSpotRunLib, ANamedForecastComesBeforeTheKeptOne)
{
    ForecastKeep({{2026, 11, 100.0}}, {2026, 11, 19});
    m_sForecastFile = TEST_DATA "/noaa_predicted_solar_cycle.json";
    ASSERT_TRUE(Got());
    EXPECT_EQ(m_ssn.sScale, "version-2 number 87.9 times 0.7");
    EXPECT_EQ(m_ssn.fNumber, 62.0F);
    EXPECT_EQ(m_ssn.eSource, SunSpotSource::Noaa);
}

TEST_F(SunSpotRunLib, ANamedForecastThatCannotBeReadIsAnErrorAndChangesNothing)
{
    m_sForecastFile = m_folder.Path("missing.txt");
    EXPECT_NE(Get().TextGet().find("missing.txt: File not found"), std::string::npos);
    m_sForecastFile = m_folder.Write("letter.txt", "Dear all\n");
    EXPECT_FALSE(Get());
    EXPECT_EQ(m_ssn.fNumber, -1.0F);
    EXPECT_EQ(m_settings.m_fPropagationSunSpotNumber, 100.0F);
}

TEST_F(SunSpotRunLib, WithoutAirmailAndForecastItIsTheTypedNumber)
{
    m_settings.m_bPropagationForecast = false;
    m_settings.m_fPropagationSunSpotNumber = 33.5F;
    ForecastKeep({{2026, 11, 100.0}}, {2026, 11, 19});
    ASSERT_TRUE(Got());
    EXPECT_EQ(m_ssn.fNumber, 33.5F);
    EXPECT_EQ(m_ssn.eSource, SunSpotSource::Typed);
    EXPECT_EQ(m_ssn.sSource, "typed");
    EXPECT_EQ(m_settings.m_fPropagationSunSpotNumber, 33.5F);
}

}  // namespace
