#include <gtest/gtest.h>

#include <map>
#include <ostream>

#include "airmail/AirMailFixture.h"
#include "airmail/AirMailPosition.h"
#include "support/ClockSet.h"

namespace {

constexpr double kUntouched = -999.0;
constexpr DateTime kCurrent{2024, 3, 18, 14, 5, 0};
constexpr DateTime kReported{2024, 3, 16, 20, 30, 0};

struct Found {
    bool bFound = false;
    std::string sError;
    double dLat = kUntouched;
    double dLon = kUntouched;
    DateTime dtTime{1, 2, 3, 4, 5, 6};
};

class AirMailPosition : public AirMailFixture {
protected:
    // The report and the settings below give each of the three places its own position.
    std::map<std::string, std::string> m_aReport{{"Current Latitude",
                                                  "10\xB0"
                                                  "30.00'N"},
                                                 {"Current Longitude",
                                                  "060\xB0"
                                                  "15.00'W"},
                                                 {"Current Time", "2024/03/18 14:05"},
                                                 {"Latitude",
                                                  "20\xB0"
                                                  "30.00'S"},
                                                 {"Longitude",
                                                  "070\xB0"
                                                  "15.00'E"},
                                                 {"DateTime", "2024/03/16 20:30"}};
    std::map<std::string, std::string> m_aPropagation{{"Latitude",
                                                       "30\xB0"
                                                       "30.00'N"},
                                                      {"Longitude",
                                                       "080\xB0"
                                                       "15.00'W"}};

    Found Get(bool bShowError) const
    {
        std::string sText = "[Position Report]\r\n";
        for (const auto& [sKey, sValue] : m_aReport)
            sText.append(sKey).append("=").append(sValue).append("\r\n");
        sText += "[Propagation]\r\n";
        for (const auto& [sKey, sValue] : m_aPropagation)
            sText.append(sKey).append("=").append(sValue).append("\r\n");
        AirMailWrite("Airmail.ini", sText);
        Found found;
        const auto res =
            AirMailPositionGet(found.dLat, found.dLon, found.dtTime, CallMessages(bShowError));
        found.bFound = res && res.ValueGet();
        found.sError = res.TextGet();
        return found;
    }
    static void Expect(const Found& found, double dLat, double dLon, const DateTime& dtTime)
    {
        EXPECT_TRUE(found.bFound);
        EXPECT_EQ(found.sError, "");
        EXPECT_DOUBLE_EQ(found.dLat, dLat);
        EXPECT_DOUBLE_EQ(found.dLon, dLon);
        EXPECT_EQ(found.dtTime, dtTime);
    }
    void SecondExpect() const { Expect(Get(true), -20.5, 70.25, kReported); }
    void ThirdExpect() const { Expect(Get(true), 30.5, -80.25, DateTime{}); }
};

TEST_F(AirMailPosition, CurrentPositionIsTheFirstChoice)
{
    Expect(Get(true), 10.5, -60.25, kCurrent);
}

TEST_F(AirMailPosition, CurrentPositionNeedsAllThreeKeys)
{
    for (const char* sKey : {"Current Latitude", "Current Longitude", "Current Time"}) {
        const std::string sBefore = m_aReport[sKey];
        m_aReport.erase(sKey);
        SecondExpect();
        m_aReport[sKey] = "";
        SecondExpect();
        m_aReport[sKey] = sBefore;
    }
}

TEST_F(AirMailPosition, CurrentPositionThatDoesNotDecodeIsPassedInSilence)
{
    m_aReport["Current Latitude"] = "10.5";
    SecondExpect();
    m_aReport["Current Latitude"] =
        "10\xB0"
        "30.00'N";
    m_aReport["Current Longitude"] = "060 15 W";
    SecondExpect();
}

TEST_F(AirMailPosition, PropagationPositionIsTheLastChoiceAndHasNoTime)
{
    m_aReport["Current Time"] = "";
    for (const char* sKey : {"Latitude", "Longitude", "DateTime"}) {
        const std::string sBefore = m_aReport[sKey];
        m_aReport[sKey] = "";
        ThirdExpect();
        m_aReport[sKey] = sBefore;
    }
    m_aReport["Longitude"] = "north";
    ThirdExpect();
    m_aReport.clear();
    ThirdExpect();
}

TEST_F(AirMailPosition, OnlyTheLastChoiceTellsWhatIsMissing)
{
    m_aReport.clear();
    m_aPropagation.erase("Longitude");
    {
        MsgRecorder msg;
        EXPECT_FALSE(Get(true).bFound);
        const MsgShown shown = OneShown(msg);
        EXPECT_EQ(shown.eIcon, MsgIcon::Exclamation);
        EXPECT_EQ(shown.sText, "Unable to find AirMail's Propagation, Longitude in \"Airmail.ini\"."
                                   + kHintDefault);
    }
    m_aPropagation.clear();
    MsgRecorder msg;
    EXPECT_FALSE(Get(true).bFound);
    EXPECT_EQ(OneShown(msg).sText,
              "Unable to find AirMail's Propagation, Latitude in \"Airmail.ini\"." + kHintDefault);
}

TEST_F(AirMailPosition, OnlyTheLastChoiceTellsWhatDoesNotDecode)
{
    m_aReport["Current Latitude"] = "x";
    m_aReport["Latitude"] = "y";
    m_aPropagation["Longitude"] = "080\xB0W";
    {
        MsgRecorder msg;
        EXPECT_FALSE(Get(true).bFound);
        const MsgShown shown = OneShown(msg);
        EXPECT_EQ(shown.eIcon, MsgIcon::Exclamation);
        EXPECT_EQ(shown.sText, "Unable for decode Longitude 080\xC2\xB0W");
    }
    m_aPropagation["Latitude"] = "z";
    MsgRecorder msg;
    EXPECT_FALSE(Get(true).bFound);
    EXPECT_EQ(OneShown(msg).sText, "Unable for decode Latitude z");
}

TEST_F(AirMailPosition, NothingIsToldWhenNotAsked)
{
    m_aReport.clear();
    m_aPropagation["Latitude"] = "z";
    EXPECT_FALSE(Get(false).bFound);
    m_aPropagation.clear();
    const Found found = Get(false);
    EXPECT_FALSE(found.bFound);
    EXPECT_EQ(found.sError, "");
    EXPECT_EQ(found.dLat, kUntouched);
    EXPECT_TRUE(found.dtTime.IsZero());
}

TEST_F(AirMailPosition, FailingPlaceLeavesWhatItWrote)
{
    m_aReport = {{"Current Latitude",
                  "10\xB0"
                  "30.00'N"}};
    m_aPropagation.clear();
    const Found found = Get(false);
    EXPECT_FALSE(found.bFound);
    EXPECT_DOUBLE_EQ(found.dLat, 10.5);
    EXPECT_EQ(found.dLon, kUntouched);
}

TEST_F(AirMailPosition, TimeThatIsNoDateIsAnErrorForTheCaller)
{
    m_aReport["Current Time"] = "yesterday";
    Found found = Get(true);
    EXPECT_FALSE(found.bFound);
    EXPECT_EQ(found.sError, "Type mismatch");
    EXPECT_TRUE(found.dtTime.IsZero());
    m_aReport["Current Time"] = "";
    m_aReport["DateTime"] = "2024-02-30";
    found = Get(false);
    EXPECT_FALSE(found.bFound);
    EXPECT_EQ(found.sError, "Type mismatch");
}

TEST_F(AirMailPosition, DatesAreTakenInTheUsualForms)
{
    for (const char* sTime : {"2024-03-18 14:05", "2024/03/18 14:05:00", "3/18/2024 2:05:00 PM",
                              "18/3/2024 14:05", "03/18/2024 02:05 pm"}) {
        m_aReport["Current Time"] = sTime;
        Expect(Get(true), 10.5, -60.25, kCurrent);
    }
    m_aReport["Current Time"] = "2024-03-18";
    Expect(Get(true), 10.5, -60.25, DateTime{2024, 3, 18, 0, 0, 0});
}

struct AgeCase {
    DateTime dtTime, dtNow;
    const char* sText;
};

std::ostream& operator<<(std::ostream& stm, const AgeCase& c) { return stm << c.sText; }

class AirMailAge : public testing::TestWithParam<AgeCase> {};

TEST_P(AirMailAge, CountsBoundaries)
{
    const AgeCase& c = GetParam();
    // Local time is far off: the age must not depend on it.
    const ClockSet clock(c.dtNow, DateTime{2001, 1, 1, 0, 0, 0});
    EXPECT_EQ(AirMailAgeText(c.dtTime), c.sText);
}

INSTANTIATE_TEST_SUITE_P(
    All, AirMailAge,
    testing::Values(AgeCase{{2024, 3, 15, 14, 5, 0}, {2024, 3, 18, 14, 5, 0}, "3 days"},
                    // Two minutes across midnight count as a day, two across the full hour as an
                    // hour.
                    AgeCase{{2024, 3, 17, 23, 59, 0}, {2024, 3, 18, 0, 1, 0}, "1 days"},
                    AgeCase{{2024, 3, 18, 13, 59, 0}, {2024, 3, 18, 14, 1, 0}, "1 hours"},
                    AgeCase{{2024, 3, 18, 0, 0, 0}, {2024, 3, 18, 23, 59, 59}, "23 hours"},
                    AgeCase{{2024, 3, 18, 14, 5, 59}, {2024, 3, 18, 14, 6, 0}, "1 minutes"},
                    AgeCase{{2024, 3, 18, 14, 0, 0}, {2024, 3, 18, 14, 59, 0}, "59 minutes"},
                    AgeCase{{2024, 3, 18, 14, 5, 0}, {2024, 3, 18, 14, 5, 59}, "0 minutes"},
                    // The end of February in a leap year, and the end of a year.
                    AgeCase{{2024, 2, 28, 12, 0, 0}, {2024, 3, 1, 12, 0, 0}, "2 days"},
                    AgeCase{{2023, 12, 31, 23, 0, 0}, {2024, 1, 1, 23, 0, 0}, "1 days"},
                    // A time in the future: a clock that is set wrong.
                    AgeCase{{2024, 3, 19, 0, 0, 0}, {2024, 3, 18, 23, 59, 0}, "-1 days"},
                    AgeCase{{2024, 3, 18, 15, 0, 0}, {2024, 3, 18, 14, 59, 0}, "-1 hours"},
                    AgeCase{{2024, 3, 18, 14, 7, 0}, {2024, 3, 18, 14, 5, 0}, "-2 minutes"}));

TEST_F(AirMailPosition, APlaceOutOfRangeCountsAsNoneAndIsNamed)
{
    m_aReport["Current Latitude"] =
        "89\xB0"
        "70.00'N";
    SecondExpect();
    m_aReport["Longitude"] =
        "181\xB0"
        "00.00'E";
    ThirdExpect();
    double dLat = 0.0;
    double dLon = 0.0;
    DateTime dtTime;
    std::string sFault;
    EXPECT_TRUE(AirMailPositionGet(dLat, dLon, dtTime, CallMessages(), &sFault).ValueGet());
    EXPECT_TRUE(
        sFault.ends_with("Airmail.ini, [Position Report] Current Latitude: "
                         "89\xC2\xB0"
                         "70.00'N is out of range"))
        << sFault;
}

TEST_F(AirMailPosition, TheLastPlaceOutOfRangeIsToldByOneBox)
{
    m_aReport.clear();
    m_aPropagation["Latitude"] =
        "95\xB0"
        "00.00'S";
    const MsgRecorder msg;
    EXPECT_FALSE(Get(false).bFound);
    EXPECT_TRUE(msg.m_aShown.empty());
    EXPECT_FALSE(Get(true).bFound);
    ASSERT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_NE(msg.m_aShown[0].sText.find("[Propagation] Latitude: 95"), std::string::npos);
}

}  // namespace
