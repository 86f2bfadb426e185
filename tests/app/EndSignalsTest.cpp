/// hopcast-predict asked to end, or killed, while its engine computes.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "app/StartedProgram.h"
#include "support/NeedVoacapl.h"
#include "support/ProgramRun.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using namespace std::chrono_literals;
using Words = std::vector<std::string>;

const std::string kPredict = TEST_BIN "/hopcast-predict";

/// A run that takes some seconds.
Words LongRun(const char* sGrid = "600")
{
    return {kPredict, "--rc", "24,-110",     "--area", "60,-130,10,-60", "--hour", "12",
            "--ssn",  "100",  "--frequency", "14100",  "--grid",         sGrid};
}

Words Circuit(const std::string& sModel = "rec533")
{
    return {kPredict,  "--tx", "38,-122", "--rc", "24,-110",  "--ssn", "100",
            "--month", "11",   "--model", sModel, "--format", "csv"};
}

/// Gives the programs user folders of their own.
class EndSignals : public testing::Test {
protected:
    /// Starts a run and waits until its engine computes.
    void EngineAwait() const
    {
        ASSERT_TRUE(Await([&] { return !ProcessesBelow(m_tmp.Path("data")).empty(); }, 20s))
            << BytesRead(m_tmp.Path("out"));
    }
    void NoEngineWithinASecond() const
    {
        EXPECT_TRUE(Await([&] { return ProcessesBelow(m_tmp.Path("data")).empty(); }, 1s));
    }

    TempFolder m_tmp;

private:
    EnvironmentSet m_data{"XDG_DATA_HOME", m_tmp.Path("data")};
    EnvironmentSet m_config{"XDG_CONFIG_HOME", m_tmp.Path("config")};
    EnvironmentSet m_wine{"WINEPREFIX", m_tmp.Path("wine")};
    EnvironmentSet m_root{"HOPCAST_ITSHFBC", std::nullopt};
};

TEST_F(EndSignals, EachEndsTheEngineAndThenTheProgramByItself)
{
    for (const int nSignal : {SIGINT, SIGTERM, SIGHUP, SIGKILL}) {
        StartedProgram program(LongRun(), m_tmp.Path("out"));
        EngineAwait();
        program.Signal(nSignal);
        const auto end = program.EndAwait(2s);
        ASSERT_TRUE(end) << nSignal;
        EXPECT_EQ(end->nSignal, nSignal);
        NoEngineWithinASecond();
        EXPECT_EQ(BytesRead(m_tmp.Path("out")), "") << "nobody is told of the engine's end";
    }
}

TEST_F(EndSignals, AHangUpThatIsIgnoredStaysIgnored)
{
    Words asWords = Circuit();
    asWords.insert(asWords.begin(),
                   {"/bin/sh", "-c", "trap '' HUP; kill -HUP $$; exec \"$@\"", "sh"});
    StartedProgram program(asWords, m_tmp.Path("out"));
    // Once the engine folder exists, the program has replaced the shell; its engine is too quick to
    // be seen.
    ASSERT_TRUE(Await([&] { return fs::exists(m_tmp.Path("data") + "/hopcast"); }, 20s));
    program.Signal(SIGHUP);
    const auto end = program.EndAwait(20s);
    ASSERT_TRUE(end);
    EXPECT_EQ(end->nStatus, 0);
}

TEST_F(EndSignals, TheTemporaryRootGoesWithTheProgram)
{
    m_tmp.Write("data", "a file where the folder should be");
    fs::create_directory(m_tmp.Path("tmp"));
    const EnvironmentSet temporary("TMPDIR", m_tmp.Path("tmp"));
    for (const int nSignal : {SIGINT, SIGTERM, SIGHUP}) {
        StartedProgram program(LongRun(), m_tmp.Path("out"));
        ASSERT_TRUE(Await([&] { return !ProcessesBelow(m_tmp.Path("tmp")).empty(); }, 20s));
        program.Signal(nSignal);
        ASSERT_TRUE(program.EndAwait(2s));
        EXPECT_TRUE(fs::is_empty(m_tmp.Path("tmp"))) << nSignal;
    }
}

TEST_F(EndSignals, VoacaplDiesWithALauncherThatIsKilled)
{
    NEED_VOACAPL();
    Words asWords = LongRun();
    asWords.insert(asWords.end(), {"--model", "voacap"});
    StartedProgram program(asWords, m_tmp.Path("out"));
    ASSERT_TRUE(Await([&] { return ProcessesBelow(m_tmp.Path("data")).size() >= 2; }, 20s));
    program.Signal(SIGKILL);
    ASSERT_TRUE(program.EndAwait(2s));
    NoEngineWithinASecond();
}

// --- stress ------------------------------------------------------------------------------------

/// nFull rounds with HOPCAST_SOAK=full in the environment, else nFew.
int RoundsGet(int nFull, int nFew)
{
    const char* sSoak = std::getenv("HOPCAST_SOAK");
    return sSoak != nullptr && std::string(sSoak) == "full" ? nFull : nFew;
}

using Stress = EndSignals;

TEST_F(Stress, AfterAKillNoEngineIsLeftAndTheNextCircuitIsRight)
{
    const int nKills = RoundsGet(100, 12);
    const std::vector<std::string> asModels =
        VoacaplIsInstalled() ? Words{"rec533", "voacap"} : Words{"rec533"};
    std::vector<std::string> asRight;
    for (const std::string& sModel : asModels) {
        asRight.push_back(ProgramRun(Circuit(sModel)).sOut);
        ASSERT_GT(asRight.back().size(), 1000U) << sModel;
    }
    constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP, SIGKILL};
    double dSlowest = 0.0;
    for (int i = 0; i < nKills; ++i) {
        const bool bLong = i % 8 < 4;
        const std::size_t iModel = static_cast<std::size_t>(i / 8) % asModels.size();
        {
            // Another circuit, or an area, so that its output would not pass for the right one.
            Words asWords = bLong ? LongRun() : Circuit(asModels[iModel]);
            asWords[2] = bLong ? "52,13" : "-33,151";
            if (bLong)
                asWords.insert(asWords.end(), {"--model", asModels[iModel]});
            StartedProgram program(asWords, m_tmp.Path("out"));
            if (bLong)
                EngineAwait();
            std::this_thread::sleep_for(std::chrono::milliseconds((i * 37) % 150));
            const int nSignal = kSignals[static_cast<std::size_t>(i) % kSignals.size()];
            program.Signal(nSignal);
            const auto tmKilled = std::chrono::steady_clock::now();
            const auto end = program.EndAwait(2s);
            ASSERT_TRUE(end) << i;
            NoEngineWithinASecond();
            const std::chrono::duration<double> tTaken =
                std::chrono::steady_clock::now() - tmKilled;
            dSlowest = std::max(dSlowest, tTaken.count());
        }
        const ProgramResult res = ProgramRun(Circuit(asModels[iModel]));
        EXPECT_EQ(res.nStatus, 0) << i << ": " << res.sError;
        EXPECT_EQ(res.sOut, asRight[iModel]) << i;
    }
    std::printf("%d kills; until program and engine were gone at most %.3f s\n", nKills, dSlowest);
}

class FirstStarts : public Stress {
protected:
    /// One round in a new home: nPrograms first starts at the same time.
    void Round(int nPrograms, int iRound)
    {
        const std::string sHome = m_tmp.Path("home" + std::to_string(iRound));
        const EnvironmentSet data("XDG_DATA_HOME", sHome);
        Words asWords = Circuit();
        asWords.insert(asWords.end(), {"--frequencies", "7000,14000"});
        std::vector<std::unique_ptr<StartedProgram>> apPrograms;
        for (int i = 0; i < nPrograms; ++i)
            apPrograms.push_back(std::make_unique<StartedProgram>(asWords, OutputOf(i)));
        for (int i = 0; i < nPrograms; ++i) {
            const auto end = apPrograms[static_cast<std::size_t>(i)]->EndAwait(60s);
            ASSERT_TRUE(end) << "round " << iRound << ", program " << i;
            EXPECT_EQ(end->nStatus, 0)
                << "round " << iRound << ", program " << i << ": " << BytesRead(OutputOf(i));
            EXPECT_EQ(BytesRead(OutputOf(i)), BytesRead(OutputOf(0))) << "round " << iRound;
        }
        const std::string sList = BytesRead(sHome + "/hopcast/itshfbc/hopcast-engines.txt");
        EXPECT_NE(sList.find("rec533w.exe link "), std::string::npos) << sList;
        EXPECT_EQ(sList.find("voacapw.exe link ") != std::string::npos, VoacaplIsInstalled());
        EXPECT_GT(BytesRead(OutputOf(0)).size(), 500U);
        fs::remove_all(sHome);
    }

private:
    std::string OutputOf(int i) const { return m_tmp.Path("out" + std::to_string(i)); }
};

TEST_F(FirstStarts, OfTwoAtOnceEachPredictsAndTheListIsWhole)
{
    const int nRounds = RoundsGet(200, 10);
    for (int i = 0; i < nRounds && !HasFailure(); ++i) Round(2, i);
    std::printf("%d rounds of two\n", nRounds);
}

TEST_F(FirstStarts, OfTwentyAtOnceEachPredictsAndTheListIsWhole)
{
    const int nRounds = RoundsGet(20, 1);
    for (int i = 0; i < nRounds && !HasFailure(); ++i) Round(20, i);
    std::printf("%d rounds of twenty\n", nRounds);
}

}  // namespace
