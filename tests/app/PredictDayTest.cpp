/// A day of an area on the command line, by the real program and engines.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "support/NeedVoacapl.h"
#include "support/ProgramRun.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

class PredictDay : public testing::Test {
protected:
    ProgramResult Predict(Words asWords) const
    {
        for (const char* sWord :
             {"100", "--ssn", "11", "--month", "52.5,13.4", "--rc", TEST_BIN "/hopcast-predict"})
            asWords.insert(asWords.begin(), sWord);
        return ProgramRun(asWords);
    }
    /// SNR by place ("lat,lon"), as a single run for the hour and frequency prints it.
    std::map<std::string, std::string> SingleGet(const Words& asArea, const std::string& sHour,
                                                 const std::string& sKhz) const
    {
        Words asWords = asArea;
        for (const std::string& sWord :
             {std::string("--hour"), sHour, std::string("--frequency"), sKhz})
            asWords.push_back(sWord);
        const ProgramResult result = Predict(asWords);
        EXPECT_EQ(result.nStatus, 0) << result.sError;
        std::map<std::string, std::string> mapSnr;
        std::istringstream stm(result.sOut);
        std::string sLine;
        std::getline(stm, sLine);
        EXPECT_EQ(sLine, "lat,lon,snr_db");
        while (std::getline(stm, sLine))
            mapSnr[sLine.substr(0, sLine.rfind(','))] = sLine.substr(sLine.rfind(',') + 1);
        return mapSnr;
    }

    TempFolder m_tmp;
    EnvironmentSet m_data{"XDG_DATA_HOME", m_tmp.Path("data")};
    EnvironmentSet m_config{"XDG_CONFIG_HOME", m_tmp.Path("config")};
    EnvironmentSet m_wine{"WINEPREFIX", m_tmp.Path("wine")};
    EnvironmentSet m_root{"HOPCAST_ITSHFBC", std::nullopt};
};

std::vector<std::string> LinesOf(const std::string& sText)
{
    std::vector<std::string> asLine;
    std::istringstream stm(sText);
    for (std::string sLine; std::getline(stm, sLine);) asLine.push_back(sLine);
    return asLine;
}

TEST_F(PredictDay, EveryRowIsThatOfItsSingleRunInTheOrderOfGridHourAndFrequency)
{
    // Across longitude 180, so that the area is split into two boxes.
    const Words asArea{"--area", "60,150,-20,-140", "--grid", "4"};
    Words asDay = asArea;
    for (const char* sWord : {"--day", "--frequencies", "7050,14100"}) asDay.emplace_back(sWord);
    const ProgramResult result = Predict(asDay);
    ASSERT_EQ(result.nStatus, 0) << result.sError;
    EXPECT_EQ(result.sError, "");
    const std::vector<std::string> asLine = LinesOf(result.sOut);
    ASSERT_EQ(asLine.size(), 1U + 2 * 16 * 24 * 2);
    EXPECT_EQ(asLine[0], "lat,lon,utc,khz,snr_db");
    std::map<std::string, std::map<std::string, std::string>> mapSingle;
    for (const char* sHour : {"0", "7", "23"})
        for (const char* sKhz : {"7050", "14100"})
            mapSingle[std::string(sHour) + "," + sKhz] = SingleGet(asArea, sHour, sKhz);
    std::size_t nCompared = 0;
    for (std::size_t n = 1; n < asLine.size(); ++n) {
        const std::string& sLine = asLine[n];
        const std::size_t nHour = sLine.find(',', sLine.find(',') + 1) + 1;
        const std::size_t nSnr = sLine.rfind(',') + 1;
        const std::string sHourKhz = sLine.substr(nHour, nSnr - 1 - nHour);
        EXPECT_EQ(sHourKhz,
                  std::to_string((n - 1) / 2 % 24) + ((n - 1) % 2 == 0 ? ",7050" : ",14100"));
        if (const auto it = mapSingle.find(sHourKhz); it != mapSingle.end()) {
            EXPECT_EQ(sLine.substr(nSnr), it->second.at(sLine.substr(0, nHour - 1))) << sLine;
            ++nCompared;
        }
    }
    EXPECT_EQ(nCompared, 2U * 16 * 3 * 2);
}

TEST_F(PredictDay, AnyNumberOfJobsGivesTheSameText)
{
    const Words asDay{"--area", "60,-30,0,60", "--grid", "6", "--day", "--frequencies", "10000"};
    Words asOne = asDay;
    asOne.insert(asOne.end(), {"--jobs", "1"});
    Words asFour = asDay;
    asFour.insert(asFour.end(), {"--jobs=4", "--format", "csv"});
    EXPECT_EQ(Predict(asOne).sOut, Predict(asDay).sOut);
    EXPECT_EQ(Predict(asFour).sOut, Predict(asDay).sOut);
}

TEST_F(PredictDay, JsonHoldsTheFrequenciesAndAnArrayAnHour)
{
    const ProgramResult result = Predict({"--area", "60,-30,0,60", "--grid", "2", "--day",
                                          "--frequencies", "10000,12500.5", "--format", "json"});
    ASSERT_EQ(result.nStatus, 0) << result.sError;
    EXPECT_TRUE(
        result.sOut.starts_with("{\n  \"khz\": [10000, 12500.5],\n  \"points\": [\n"
                                "    {\"lat\": 0, \"lon\": -30, \"snr_db\": [["));
    std::size_t nArrays = 0;
    for (std::size_t n = result.sOut.find('['); n != std::string::npos;
         n = result.sOut.find('[', n + 1))
        ++nArrays;
    EXPECT_EQ(nArrays, 2U + 4 * 25);
}

TEST_F(PredictDay, AnEngineProgramGoesHourByHourAndTellsItsProgress)
{
    NEED_VOACAPL();
    const Words asArea{"--area", "60,-30,30,30", "--grid", "2", "--model", "voacap"};
    Words asDay = asArea;
    asDay.insert(asDay.end(), {"--day", "--frequencies", "14100"});
    const ProgramResult result = Predict(asDay);
    ASSERT_EQ(result.nStatus, 0) << result.sError;
    EXPECT_EQ(LinesOf(result.sError).size(), 24U);
    EXPECT_NE(result.sError.find("hopcast-predict: 24 of 24 hours\n"), std::string::npos);
    const std::vector<std::string> asLine = LinesOf(result.sOut);
    ASSERT_EQ(asLine.size(), 1U + 4 * 24);
    for (const auto& [sPlace, sSnr] : SingleGet(asArea, "5", "14100"))
        EXPECT_NE(result.sOut.find(sPlace + ",5,14100," + sSnr + "\n"), std::string::npos)
            << sPlace;
}

TEST_F(PredictDay, AFailureEndsItWithTheEnginesWords)
{
    const EnvironmentSet root("HOPCAST_ITSHFBC", m_tmp.Path("root"));
    const std::string sProgram =
        m_tmp.Write("root/bin_win/rec533w.exe", "#!/bin/sh\necho no map; exit 1\n");
    fs::permissions(sProgram, fs::perms::owner_all);
    m_tmp.Write("root/areadata/x", "");
    m_tmp.Write("root/RUN/x", "");
    const ProgramResult result =
        Predict({"--area", "60,-30,30,30", "--grid", "2", "--day", "--frequencies", "14100"});
    EXPECT_EQ(result.nStatus, 1);
    EXPECT_EQ(result.sOut, "");
    EXPECT_EQ(result.sError,
              "hopcast-predict: PropagationAreaOpen, Shell do not finish.\n"
              "hopcast-predict: no map\n");
}

TEST_F(PredictDay, ADayThatNobodyCouldReadIsRefused)
{
    const ProgramResult result = Predict({"--area", "60,-30,30,30", "--grid", "900", "--day"});
    EXPECT_EQ(result.nStatus, 1);
    EXPECT_EQ(result.sError,
              "hopcast-predict: A day of this area is too long a list; give a smaller --grid or "
              "fewer --frequencies.\n");
}

}  // namespace
