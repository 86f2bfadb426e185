/// Power, sunspot number and need of the console program's runs, by the real program and engine.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "app/HopcastPredictRig.h"
#include "settings/ForecastFile.h"
#include "support/TempFolder.h"
#include "system/ClockLib.h"

namespace {

/// A column of the program's csv, counted from 0.
std::vector<std::string> ColumnGet(const std::string& sCsv, std::size_t nColumn)
{
    std::vector<std::string> asValue;
    std::istringstream stm(sCsv);
    for (std::string sLine; std::getline(stm, sLine);) {
        std::istringstream stmLine(sLine);
        std::string sField;
        for (std::size_t n = 0; n <= nColumn; ++n) std::getline(stmLine, sField, ',');
        asValue.push_back(sField);
    }
    return asValue;
}

class PredictSources : public HopcastPredict {
protected:
    [[nodiscard]] static std::string OutputGet(const Words& asMore)
    {
        Words asWords{"--frequencies", "7100,14100"};
        asWords.insert(asWords.end(), asMore.begin(), asMore.end());
        const ProgramResult res = Predict(asWords);
        EXPECT_EQ(res.nStatus, 0) << res.sError;
        EXPECT_EQ(res.sError, "");
        return res.sOut;
    }
    static constexpr std::size_t kSignal = 9, kSnr = 11, kSsn = 14, kSource = 15, kPower = 16;
};

TEST_F(PredictSources, TenTimesThePowerIsTenDecibelInPathsAndAreas)
{
    const auto Power = [](const char* sPower) {
        return OutputGet({"--ssn", "62", "--format", "csv", "--power", sPower});
    };
    const std::string sLow = Power("100"), sHigh = Power("1000");
    EXPECT_EQ(ColumnGet(sLow, kPower)[1], "100");
    EXPECT_EQ(ColumnGet(sHigh, kPower)[1], "1000");
    for (const std::size_t nColumn : {kSignal, kSnr}) {
        const auto asLow = ColumnGet(sLow, nColumn), asHigh = ColumnGet(sHigh, nColumn);
        ASSERT_EQ(asLow.size(), 49U);
        int nMoved = 0;
        for (std::size_t n = 1; n < asLow.size(); ++n) {
            const double dRise = std::stod(asHigh[n]) - std::stod(asLow[n]);
            EXPECT_TRUE(std::abs(dRise - 10.0) < 1e-3 || asLow[n] == asHigh[n]) << asLow[n];
            nMoved += dRise > 0.0 ? 1 : 0;
        }
        EXPECT_GT(nMoved, 24);
    }
    const auto Area = [](const char* sPower) {
        return Predict({"--area", "40,-10,20,10", "--hour", "12", "--frequency", "14100", "--grid",
                        "2", "--ssn", "62", "--rc", "30,0", "--power", sPower})
            .sOut;
    };
    const auto asLow = ColumnGet(Area("100"), 2), asHigh = ColumnGet(Area("1000"), 2);
    ASSERT_EQ(asLow.size(), 5U);
    for (std::size_t n = 1; n < asLow.size(); ++n)
        EXPECT_NEAR(std::stod(asHigh[n]) - std::stod(asLow[n]), 10.0, 1e-3);
}

TEST_F(PredictSources, WithoutAnOwnPowerTheAntennaChoiceIsNamed)
{
    const std::string sOut = OutputGet({"--ssn", "62"});
    EXPECT_NE(sOut.find("\nPower 5 kW, as the antenna choice\n"), std::string::npos) << sOut;
    EXPECT_NE(
        OutputGet({"--ssn", "62", "--antenna", "0"}).find("\nPower 100 W, as the antenna choice\n"),
        std::string::npos);
    EXPECT_NE(OutputGet({"--ssn", "62", "--power", "25"}).find("\nPower 25 W\n"),
              std::string::npos);
}

TEST_F(PredictSources, TheForecastIsTheKeptOneElseTheMeanCycle)
{
    const std::string sProfile = m_tmp.Write("boat.ini", "[Propagation Data]\nCount=15\n");
    const Words asForecast{"--profile", sProfile, "--ssn", "forecast", "--format", "csv"};
    EXPECT_EQ(ColumnGet(OutputGet(asForecast), kSource)[1], "mean cycle");
    const DateTime dtToday = UtcNow();
    ASSERT_TRUE(ForecastSave(sProfile, {ForecastSource::Noaa,
                                        ForecastDating::Mailed,
                                        dtToday,
                                        {{dtToday.nYear, dtToday.nMonth, 100.0}}}));
    const std::string sOut = OutputGet(asForecast);
    EXPECT_EQ(ColumnGet(sOut, kSource)[1], "NOAA forecast");
    EXPECT_EQ(ColumnGet(sOut, kSsn)[1], "70") << "version-2 numbers times 0.7";
    EXPECT_NE(OutputGet({"--profile", sProfile, "--ssn", "forecast"})
                  .find("sunspot number 70 (NOAA forecast)\nSunspot number: version-2 number 100 "
                        "times 0.7"),
              std::string::npos);
    EXPECT_EQ(
        ColumnGet(OutputGet({"--profile", sProfile, "--ssn", "33", "--format", "csv"}), kSource)[1],
        "given");
}

TEST_F(PredictSources, AKeptForecastThatIsDamagedIsToldAndTheMeanCycleTaken)
{
    const std::string sProfile = m_tmp.Write("boat.ini", "[Propagation Data]\nCount=15\n");
    m_tmp.Write("boat.forecast.txt", "spoilt");
    const ProgramResult res =
        Predict({"--profile", sProfile, "--ssn", "forecast", "--frequencies", "7100"});
    EXPECT_EQ(res.nStatus, 0);
    EXPECT_NE(res.sError.find("boat.forecast.txt"), std::string::npos) << res.sError;
    EXPECT_NE(res.sOut.find("(mean cycle)"), std::string::npos) << res.sOut;
}

TEST_F(PredictSources, ANamedForecastIsTakenInPlaceOfTheKeptOne)
{
    const DateTime dtToday = UtcNow();
    const std::string sFile =
        m_tmp.Write("mine.txt", ForecastFileText({ForecastSource::Silso,
                                                  ForecastDating::Issued,
                                                  dtToday,
                                                  {{dtToday.nYear, dtToday.nMonth, 50.0}}}));
    const std::string sOut = OutputGet({"--ssn-file", sFile, "--format", "csv"});
    EXPECT_EQ(ColumnGet(sOut, kSource)[1], "SILSO forecast");
    EXPECT_EQ(ColumnGet(sOut, kSsn)[1], "35");
}

TEST_F(PredictSources, ANamedForecastThatGivesNoNumberIsRefusedWithTheReason)
{
    const auto Error = [](const std::string& sFile) {
        const ProgramResult res = Predict({"--ssn-file", sFile});
        EXPECT_EQ(res.nStatus, 1);
        EXPECT_EQ(res.sOut, "");
        return res.sError;
    };
    const std::string sNone = m_tmp.Path("none.txt");
    EXPECT_EQ(Error(sNone), "hopcast-predict: --ssn-file: Cannot read " + sNone
                                + ": File not found. Choose a file that can be read.\n");
    EXPECT_TRUE(Error(m_tmp.Write("empty.txt", "hello\n"))
                    .starts_with("hopcast-predict: --ssn-file: Cannot read a sunspot number: "));
}

}  // namespace
