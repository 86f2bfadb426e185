// Samples in the formats of the products (data), and the same samples spoilt in many ways.
#include <gtest/gtest.h>

#include <ostream>

#include "settings/ForecastReader.h"
#include "support/TempFolder.h"

namespace {

const DateTime kToday{2026, 11, 21, 15, 30, 0};

std::string SampleGet(const char* sName) { return BytesRead(std::string(TEST_DATA "/") + sName); }
std::string Noaa() { return SampleGet("noaa_predicted_solar_cycle.json"); }
std::string Quoted() { return SampleGet("noaa_reply_quoted.txt"); }
std::string Silso() { return SampleGet("silso_kfpredicm.txt"); }
std::string Wwv() { return SampleGet("wwv.txt"); }

std::string Replaced(std::string sText, const std::string& sOld, const std::string& sNew)
{
    for (std::size_t n = 0; (n = sText.find(sOld, n)) != std::string::npos; n += sNew.size())
        sText.replace(n, sOld.size(), sNew);
    return sText;
}

std::string WithQuoting(const std::string& sText)
{
    return "On Friday somebody wrote:\n> > " + Replaced(sText, "\n", "\n> > ") + "\n\n> 73\n";
}

double ValueOf(const SunSpotForecast& forecast, int nYear, int nMonth)
{
    return ForecastValueGet(forecast, nYear, nMonth, kToday).value_or(-1.0);
}

std::string WhyOf(const std::string& sText) { return ForecastFromText(sText, kToday).TextGet(); }

bool MonthsEqual(const SunSpotForecast& a, const SunSpotForecast& b)
{
    return a.eSource == b.eSource
           && std::ranges::equal(
               a.aMonths, b.aMonths, [](const ForecastMonth& m, const ForecastMonth& k) {
                   return m.nYear == k.nYear && m.nMonth == k.nMonth && m.dValue == k.dValue;
               });
}

TEST(ForecastFromText, ReadsNoaasPredictedSolarCycle)
{
    const auto res = ForecastFromText(Noaa(), kToday);
    ASSERT_TRUE(res) << res.TextGet();
    const SunSpotForecast& forecast = res.ValueGet();
    EXPECT_EQ(forecast.eSource, ForecastSource::Noaa);
    EXPECT_EQ(forecast.eDating, ForecastDating::Read);
    EXPECT_EQ(forecast.dtDay, (DateTime{2026, 11, 21}));
    ASSERT_EQ(forecast.aMonths.size(), 4U);
    EXPECT_EQ(ValueOf(forecast, 2026, 10), 90.2);
    EXPECT_EQ(ValueOf(forecast, 2026, 11), 87.9);
    EXPECT_EQ(ValueOf(forecast, 2027, 1), 83.0);
    EXPECT_EQ(SunSpotEstimateGet(&forecast, 2026, 11, kToday).nNumber, 62);
}

TEST(ForecastFromText, ReadsAQuotedMailAndTakesTheInnerHeadersDate)
{
    const auto res = ForecastFromText(Quoted(), kToday);
    ASSERT_TRUE(res) << res.TextGet();
    EXPECT_EQ(res.ValueGet().eSource, ForecastSource::Noaa);
    EXPECT_EQ(res.ValueGet().eDating, ForecastDating::Mailed);
    EXPECT_EQ(res.ValueGet().dtDay, (DateTime{2026, 11, 19}));
    EXPECT_EQ(res.ValueGet().aMonths.size(), 2U);
    EXPECT_EQ(ValueOf(res.ValueGet(), 2026, 12), 85.6);
}

TEST(ForecastFromText, ReadsSilsosForecastWithBlanksOrSemicolons)
{
    for (const std::string& sText :
         {Silso(), Replaced(Replaced(Silso(), "   ", " ; "), " 2026.", ";2026.")}) {
        const auto res = ForecastFromText(sText, kToday);
        ASSERT_TRUE(res) << res.TextGet();
        EXPECT_EQ(res.ValueGet().eSource, ForecastSource::Silso);
        ASSERT_EQ(res.ValueGet().aMonths.size(), 6U);
        EXPECT_EQ(ValueOf(res.ValueGet(), 2026, 11), 89.1);
        EXPECT_EQ(ValueOf(res.ValueGet(), 2027, 2), 82.0);
    }
}

TEST(ForecastFromText, ReadsTheBulletinOfWwvWithItsDayOfIssue)
{
    const auto res = ForecastFromText(Wwv(), kToday);
    ASSERT_TRUE(res) << res.TextGet();
    EXPECT_EQ(res.ValueGet().eSource, ForecastSource::Wwv);
    EXPECT_EQ(res.ValueGet().eDating, ForecastDating::Issued);
    EXPECT_EQ(res.ValueGet().dtDay, (DateTime{2026, 11, 21}));
    EXPECT_EQ(ValueOf(res.ValueGet(), 2026, 11), 123.0);
}

TEST(ForecastFromText, FindsEachProductInAnyTextAroundIt)
{
    for (const std::string& sPlain : {Noaa(), Silso(), Wwv()}) {
        const auto resPlain = ForecastFromText(sPlain, kToday);
        ASSERT_TRUE(resPlain);
        const std::string sMail = "Received: by radio\nDate: 20 Nov 2026 10:00:00 GMT\n\n" + sPlain
                                  + "\n-- \n[end] 2026 is the year.\n";
        for (const std::string& sText :
             {sMail, Replaced(sPlain, "\n", "\r\n"), Replaced(sMail, "\n", "\r\n"),
              Replaced(sPlain, "\n", "\n\n"), WithQuoting(sPlain), WithQuoting(sMail),
              "\xEF\xBB\xBF" + sPlain, Replaced(sPlain, " ", "\xC2\xA0"),
              Replaced(sPlain, " ", "\t")}) {
            const auto res = ForecastFromText(sText, kToday);
            ASSERT_TRUE(res) << res.TextGet() << "\n" << sText;
            EXPECT_TRUE(MonthsEqual(res.ValueGet(), resPlain.ValueGet())) << sText;
        }
    }
}

TEST(ForecastFromText, MailOfADayToComeDatesNothing)
{
    const auto res = ForecastFromText("Date: 22 Nov 2026 10:00:00 GMT\n" + Silso(), kToday);
    ASSERT_TRUE(res);
    EXPECT_EQ(res.ValueGet().eDating, ForecastDating::Read);
    EXPECT_EQ(res.ValueGet().dtDay, (DateTime{2026, 11, 21}));
}

TEST(ForecastFromText, LinesTwiceCountOnce)
{
    const auto resOnce = ForecastFromText(Silso(), kToday);
    const auto resTwice = ForecastFromText(Silso() + Silso(), kToday);
    ASSERT_TRUE(resOnce && resTwice);
    EXPECT_TRUE(MonthsEqual(resOnce.ValueGet(), resTwice.ValueGet()));
    EXPECT_TRUE(ForecastFromText(Wwv() + Wwv(), kToday));
}

struct BadText {
    const char* sName;
    std::string sText;
    const char* sWhy;  // after "Cannot read a sunspot number: "
};
std::ostream& operator<<(std::ostream& stm, const BadText& c) { return stm << c.sName; }

class BadForecast : public testing::TestWithParam<BadText> {};

TEST_P(BadForecast, IsRefusedWithWhyAndWhatToDo)
{
    EXPECT_EQ(WhyOf(GetParam().sText),
              "Cannot read a sunspot number: " + std::string(GetParam().sWhy));
}

const char* const kNone =
    "none was found. Paste the whole reply: NOAA's predicted solar cycle (JSON), SILSO's forecast "
    "(KFprediCM) or a bulletin of WWV.";
const char* const kDamaged = "NOAA's forecast is damaged. Request it again.";
const char* const kTwice = "it has several WWV bulletins. Paste only the latest one.";

std::vector<BadText> BadNoaa()
{
    const std::string sFirst = "\"predicted_ssn\": 90.2";
    return {
        {"NoaaCut", Noaa().substr(0, 700),
         "NOAA's forecast ends early. Paste the whole reply, or request it again."},
        {"NoaaWithoutItsBeginning", Noaa().substr(2),
         "the beginning of NOAA's forecast is missing. Paste the whole reply, or request it "
         "again."},
        {"NoaaMonth13", Replaced(Noaa(), "2026-12", "2026-13"),
         "there is no month 2026-13. Request the forecast again."},
        {"NoaaYear1926", Replaced(Noaa(), "2026-12", "1926-12"),
         "there is no month 1926-12. Request the forecast again."},
        {"NoaaTimesTen", Replaced(Noaa(), "90.2", "902"),
         "the number 902 of 2026-10 is outside 0 to 350. Request the forecast again."},
        {"NoaaNegative", Replaced(Noaa(), "90.2", "-90.2"),
         "the number -90.2 of 2026-10 is outside 0 to 350. Request the forecast again."},
        {"NoaaJump", Replaced(Noaa(), "87.9", "187.9"),
         "the number 187.9 of 2026-11 does not fit those of the months next to it. Request the "
         "forecast again."},
        {"NoaaTwoNumbersForAMonth", Replaced(Noaa(), "2026-12", "2026-11"),
         "2026-11 has two numbers, 87.9 and 85.6. Paste only one forecast."},
        {"NoaaFluxAlone", Replaced(Noaa(), "predicted_ssn", "predicted_xxx"), kDamaged},
        {"NoaaNumberAsText", Replaced(Noaa(), sFirst, "\"predicted_ssn\": \"90.2\""), kDamaged},
        {"NoaaNull", Replaced(Noaa(), sFirst, "\"predicted_ssn\": null"), kDamaged},
        {"NoaaKeyTwice", Replaced(Noaa(), sFirst, sFirst + ", " + sFirst), kDamaged},
        {"NoaaWordForANumber", Replaced(Noaa(), "98.1", "nan"), kDamaged},
        {"NoaaPlus", Replaced(Noaa(), "90.2", "+90.2"), kDamaged},
        {"NoaaLeadingZero", Replaced(Noaa(), "90.2", "090.2"), kDamaged},
        {"NoaaBarePoint", Replaced(Noaa(), "90.2", "90."), kDamaged},
        {"NoaaBeyondADouble", Replaced(Noaa(), "90.2", "1e999"), kDamaged},
        {"NoaaNested", Replaced(Noaa(), "98.1", "[98.1]"), kDamaged},
        {"NoaaCommaAtTheEnd", Replaced(Noaa(), "113.2\n  }", "113.2\n  },"), kDamaged},
        {"NoaaDayInTheTag", Replaced(Noaa(), "2026-11", "2026-11-01"), kDamaged},
    };
}

std::vector<BadText> BadSilso()
{
    return {
        {"SilsoMeasured", SampleGet("silso_monthly_measured.txt"),
         "this is SILSO's table of measured months. Take its forecast, KFprediCM.txt."},
        {"SilsoMonth00", Replaced(Silso(), "2027 01 2027.042", "2027 00 2026.958"),
         "there is no month 2027-00. Request the forecast again."},
        {"SilsoOtherDecimalYear", Replaced(Silso(), "2026.873", "2026.973"),
         "the row of 2026 11 names another time as 2026.973. Paste the reply again."},
        {"SilsoTimesTen", Replaced(Silso(), " 89.1", "891.0"),
         "the number 891 of 2026-11 is outside 0 to 350. Request the forecast again."},
        {"SilsoMissingValue", Replaced(Silso(), "89.1", "-1.0"),
         "the number -1 of 2026-11 is outside 0 to 350. Request the forecast again."},
        {"SilsoDecimalComma", Replaced(Silso(), "89.1", "89,1"),
         "the row of 2026 11 is not a row of numbers. Paste the reply again."},
        {"SilsoRowCut", Replaced(Silso(), "   89.1   5.9", ""),
         "the row of 2026 11 is not a row of numbers. Paste the reply again."},
        {"SilsoOneRowThatMayBeCut", "2026 11 2026.873   89.1",
         "the only row of SILSO's forecast may be cut. Paste the whole reply."},
        {"SilsoTwoNumbersForAMonth", Silso() + "2026 11 2026.873   89.3   5.9\n",
         "2026-11 has two numbers, 89.1 and 89.3. Paste only one forecast."},
    };
}

std::vector<BadText> BadOthers()
{
    return {
        {"Empty", "", "the text is empty. Paste the reply, or open its file."},
        {"BlanksAndQuoting", "> \r\n>\t> \n",
         "the text is empty. Paste the reply, or open its file."},
        {"Prose", "The solar flux is high today, 2026 11 21.\n", kNone},
        {"Page", "<html><body>404 not found</body></html>", kNone},
        {"TooLong", std::string(kForecastTextMost + 1, ' '),
         "the text is longer than 256 KB. Paste only the reply."},
        {"WwvWithoutItsHeader", Wwv().substr(Wwv().find("# Prep")),
         "WWV's bulletin has no day of issue (\":Issued:\"). Paste the whole bulletin, with "
         "its "
         "header."},
        {"WwvDayThatIsNone", Replaced(Wwv(), "Nov 21", "Nov 31"),
         "the bulletin's day of issue cannot be read. Paste it again."},
        {"WwvCutInTheNumber", Wwv().substr(0, Wwv().find("23 and")),
         "WWV's bulletin is cut after \"Solar flux\". Paste the whole bulletin."},
        {"WwvTenths", Replaced(Wwv(), "flux 123", "flux 1230"),
         "the solar flux 1230 is outside 60 to 370. Request the bulletin again."},
        {"WwvNought", Replaced(Wwv(), "flux 123", "flux 0"),
         "the solar flux 0 is outside 60 to 370. Request the bulletin again."},
        {"WwvTwoFluxes", Wwv() + Replaced(Wwv(), "flux 123", "flux 125"), kTwice},
        {"WwvTwoDays", Wwv() + Replaced(Wwv(), "Nov 21", "Nov 20"), kTwice},
        {"WwvOfADayToCome", Replaced(Wwv(), "Nov 21", "Nov 23"),
         "WWV's bulletin has a future date. Check the date of this computer's clock."},
    };
}

std::string BadName(const testing::TestParamInfo<BadText>& test) { return test.param.sName; }
INSTANTIATE_TEST_SUITE_P(Noaa, BadForecast, testing::ValuesIn(BadNoaa()), BadName);
INSTANTIATE_TEST_SUITE_P(Silso, BadForecast, testing::ValuesIn(BadSilso()), BadName);
INSTANTIATE_TEST_SUITE_P(Others, BadForecast, testing::ValuesIn(BadOthers()), BadName);

TEST(ForecastFromText, MoreThan1200MonthsAreRefused)
{
    const std::string sMonth = R"({"time-tag":"2026-11","predicted_ssn":87.9},)";
    std::string sText = "[";
    for (int n = 1; n <= 1200; ++n) sText += sMonth;
    std::string sMore = sText + sMonth;
    sText.back() = ']';
    sMore.back() = ']';
    EXPECT_TRUE(ForecastFromText(sText, kToday));
    EXPECT_EQ(WhyOf(sMore),
              "Cannot read a sunspot number: NOAA's forecast has more than 1200 months. Request it "
              "again.");
}

TEST(ForecastFromText, CutAtEveryByteNeverGivesAnotherNumber)
{
    for (const std::string& sPlain : {Noaa(), Quoted(), Silso(), Wwv()}) {
        const auto resWhole = ForecastFromText(sPlain, kToday);
        ASSERT_TRUE(resWhole);
        for (std::size_t n = 0; n < sPlain.size(); ++n) {
            const auto res = ForecastFromText(sPlain.substr(0, n), kToday);
            if (!res) {
                EXPECT_TRUE(res.TextGet().starts_with("Cannot read a sunspot number: "));
                continue;
            }
            ASSERT_EQ(res.ValueGet().eSource, resWhole.ValueGet().eSource);
            for (const ForecastMonth& month : res.ValueGet().aMonths)
                EXPECT_EQ(month.dValue, ValueOf(resWhole.ValueGet(), month.nYear, month.nMonth))
                    << n;
        }
    }
}

TEST(ForecastFromText, FlippedBitGivesNumbersWithinTheirLimitsOrNone)
{
    for (const std::string& sPlain : {Noaa(), Quoted(), Silso(), Wwv()}) {
        for (std::size_t nBit = 0; nBit < sPlain.size() * 8; ++nBit) {
            std::string sText = sPlain;
            sText[nBit / 8] = static_cast<char>(sText[nBit / 8] ^ (1 << (nBit % 8)));
            const auto res = ForecastFromText(sText, kToday);
            if (!res)
                continue;
            const SunSpotForecast& forecast = res.ValueGet();
            ASSERT_FALSE(forecast.aMonths.empty());
            for (const ForecastMonth& month : forecast.aMonths) {
                EXPECT_TRUE(month.nMonth >= 1 && month.nMonth <= 12);
                EXPECT_TRUE(
                    month.dValue >= 0.0
                    && month.dValue
                           <= (forecast.eSource == ForecastSource::Wwv ? kFluxMost : kVersion2Most))
                    << nBit;
            }
        }
    }
}

TEST(ForecastText, ANumberOfHundredsOfDigitsIsToldShort)
{
    const auto res = ForecastFromText(
        ":Issued: 2026 Nov 21 1505 UTC\nSolar flux 2" + std::string(300, '9') + " and more\n",
        DateTime{2026, 11, 21, 15, 30, 0});
    ASSERT_FALSE(res);
    EXPECT_EQ(res.TextGet(),
              "Cannot read a sunspot number: the solar flux 300000000000... is outside 60 to "
              "370. Request the bulletin again.");
}

}  // namespace
