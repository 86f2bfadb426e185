/// The maps that the console program computes with: real program, real engine, and a foreign
/// engine.
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "propagation/EngineCases.h"
#include "support/ProgramRun.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

class PredictMaps : public testing::Test {
protected:
    /// The program's output with these additional words.
    static std::string OutputGet(const Words& asMore,
                                 Words asWords = {"--frequencies", "7100,14100", "--month", "3",
                                                  "--ssn", "50"})
    {
        asWords.insert(asWords.begin(), TEST_BIN "/hopcast-predict");
        asWords.insert(asWords.end(), asMore.begin(), asMore.end());
        const ProgramResult res = ProgramRun(asWords);
        EXPECT_EQ(res.nStatus, 0) << res.sError;
        EXPECT_EQ(res.sError, "");
        return res.sOut;
    }

    const TempFolder m_tmp;
    const EnvironmentSet m_data{"XDG_DATA_HOME", m_tmp.Path("data")};
    const EnvironmentSet m_config{"XDG_CONFIG_HOME", m_tmp.Path("config")};
    const EnvironmentSet m_wine{"WINEPREFIX", m_tmp.Path("wine")};
    const EnvironmentSet m_root{"HOPCAST_ITSHFBC", std::nullopt};
};

TEST_F(PredictMaps, AreTheMeanOfBothUnlessOneIsNamed)
{
    const std::string sDefault = OutputGet({"--format", "csv"});
    EXPECT_EQ(OutputGet({"--format", "csv", "--coefficients", "MEAN"}), sDefault);
    const std::string sUrsi = OutputGet({"--format", "csv", "--coefficients", "URSI"});
    const std::string sCcir = OutputGet({"--format", "csv", "--coefficients", "CCIR"});
    EXPECT_NE(sUrsi, sDefault);
    EXPECT_NE(sCcir, sDefault);
    EXPECT_NE(sCcir, sUrsi);
    EXPECT_NE(OutputGet({}).find("\nCoefficients MEAN\n"), std::string::npos);
    EXPECT_NE(OutputGet({"--coefficients", "ccir"}).find("\nCoefficients CCIR\n"),
              std::string::npos);
    EXPECT_NE(OutputGet({"--format", "json"}).find("\"coefficients\": \"MEAN\""),
              std::string::npos);
}

TEST_F(PredictMaps, OfAnAreaAreTheMeanOfBothUnlessOneIsNamed)
{
    const Words asArea{
        "--area", "30,-15,10,15", "--hour", "18",      "--frequency", "14100", "--grid",
        "4",      "--rc",         "50,0",   "--month", "3",           "--ssn", "50"};
    const std::string sDefault = OutputGet({}, asArea);
    EXPECT_EQ(OutputGet({"--coefficients", "MEAN"}, asArea), sDefault);
    EXPECT_NE(OutputGet({"--coefficients", "URSI"}, asArea), sDefault);
    EXPECT_NE(OutputGet({"--coefficients", "CCIR"}, asArea), sDefault);
}

TEST_F(PredictMaps, OfAProfileAreInForce)
{
    const std::string sProfile =
        m_tmp.Write("maps.ini", "[Propagation Model]\nMaps Option=False\nIon Coeficients=CCIR\n");
    EXPECT_NE(OutputGet({"--profile", sProfile}).find("\nCoefficients CCIR\n"), std::string::npos);
    EXPECT_NE(
        OutputGet({"--profile", sProfile, "--coefficients", "MEAN"}).find("\nCoefficients MEAN\n"),
        std::string::npos);
}

TEST_F(PredictMaps, AnotherEngineIsAskedForTheListsChoice)
{
    const std::string sProgram =
        m_tmp.Write("root/bin_win/rec533w.exe", "#!/bin/sh\ncp \"$1/RUN/$2\" \"$1/deck\"\ncp '"
                                                    + CapturedPath("rec533/p2p_09", ".out")
                                                    + "' \"$1/RUN/$3\"\n");
    fs::permissions(sProgram, fs::perms::owner_all);
    fs::create_directories(m_tmp.Path("root/RUN"));
    fs::create_directories(m_tmp.Path("root/areadata"));
    const EnvironmentSet root("HOPCAST_ITSHFBC", m_tmp.Path("root"));
    const Words asWords{"--frequencies", "14100", "--ssn", "70"};
    for (const Words& asMore : {Words{}, Words{"--coefficients", "MEAN"}}) {
        EXPECT_NE(OutputGet(asMore, asWords).find("\nCoefficients URSI\n"), std::string::npos);
        EXPECT_NE(BytesRead(m_tmp.Path("root/deck")).find("\nCOEFFS    URSI\r"), std::string::npos);
    }
    EXPECT_NE(OutputGet({"--coefficients", "CCIR"}, asWords).find("\nCoefficients CCIR\n"),
              std::string::npos);
    EXPECT_NE(BytesRead(m_tmp.Path("root/deck")).find("\nCOEFFS    CCIR\r"), std::string::npos);
}

}  // namespace
