/// Studies on the command line under fault: engines that misbehave, a full disk, signals, many
/// programs at once, little memory.
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "app/HopcastPredictRig.h"
#include "app/StartedProgram.h"

namespace fs = std::filesystem;

namespace {

using namespace std::chrono_literals;

constexpr const char* kNotFinished = "Shell do not finish.";

Words Joined(Words asWords, const Words& asMore)
{
    asWords.insert(asWords.end(), asMore.begin(), asMore.end());
    return asWords;
}

class PredictFault : public HopcastPredict {
protected:
    PredictFault()
    {
        m_tmp.Write("boat.places.csv",
                    "name,position,frequencies,note\nHome,\"52.5, 13.4\",7050,\n");
    }
    /// One place on one frequency.
    [[nodiscard]] Words Reach() const
    {
        return Joined(m_asBase, {"--reach", "places", "--need", "40"});
    }
    /// A day of an area on one frequency.
    [[nodiscard]] Words Day() const
    {
        return Joined(m_asBase, {"--area", "60,-30,0,60", "--grid", "4", "--day", "--frequencies",
                                 "10000", "--jobs", "8"});
    }
    [[nodiscard]] Words Compare() const
    {
        return Joined(m_asBase,
                      {"--tx", "38,-122", "--compare", "rec533", "--frequencies", "7000,14000"});
    }
    /// Runs the program with its files limited to 512 bytes, as on a full disk.
    static ProgramResult OnFullDisk(const Words& asWords)
    {
        return ProgramRun(Joined({"/bin/sh", "-c", "trap '' XFSZ; ulimit -f 1; exec \"$0\" \"$@\"",
                                  TEST_BIN "/hopcast-predict"},
                                 asWords));
    }

    std::string m_sProfile = m_tmp.Write("boat.ini", "");
    Words m_asBase{"--profile", m_sProfile, "--rc", "24,-110", "--ssn", "62", "--month", "11"};
};

// --- the engine ----------------------------------------------------------------------------------

TEST_F(PredictFault, AnEngineThatHangsFailsThePlaceInWordsAndIsEnded)
{
    const EnvironmentSet root("HOPCAST_ITSHFBC", RootMake("exec sleep 100\n"));
    const ProgramResult res = Predict(Reach());
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sOut, "");
    EXPECT_EQ(res.sError, std::string("hopcast-predict: 1 place cannot be used: places Home "
                                      "(PropagationRec533, ")
                              + kNotFinished
                              + ")\nhopcast-predict: The lists have no place that can be used.\n");
    EXPECT_TRUE(ProcessesBelow(m_tmp.Path()).empty());
}

TEST_F(PredictFault, AnEngineThatPrintsForEverEndsADayInWordsAndIsEnded)
{
    const EnvironmentSet root("HOPCAST_ITSHFBC", RootMake("exec yes no map\n"));
    const ProgramResult res = Predict(Day());
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sOut, "");
    EXPECT_EQ(res.sError, std::string("hopcast-predict: PropagationAreaOpen, ") + kNotFinished
                              + "\nhopcast-predict: gave up after 5 s; a smaller grid, for example 2, is "
"faster\n");
    EXPECT_TRUE(ProcessesBelow(m_tmp.Path()).empty());
}

TEST_F(PredictFault, AnEngineThatDiesEndsAComparisonInWords)
{
    const EnvironmentSet root("HOPCAST_ITSHFBC", RootMake("kill -9 $$\n"));
    const ProgramResult res = Predict(Compare());
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sOut, "");
    EXPECT_EQ(res.sError,
              std::string("hopcast-predict: PropagationRec533, ") + kNotFinished + "\n");
}

TEST_F(PredictFault, ASignalDuringAStudyEndsItsEngine)
{
    const EnvironmentSet root("HOPCAST_ITSHFBC", RootMake("exec sleep 100\n"));
    for (const Words& asWords : {Reach(), Day(), Compare()}) {
        StartedProgram program(Joined({TEST_BIN "/hopcast-predict"}, asWords), m_tmp.Path("out"));
        ASSERT_TRUE(Await([&] { return ProcessesBelow(m_tmp.Path("root")).size() == 1; }, 20s));
        program.Signal(SIGTERM);
        const auto end = program.EndAwait(20s);
        ASSERT_TRUE(end);
        EXPECT_EQ(end->nSignal, SIGTERM);
        EXPECT_TRUE(Await([&] { return ProcessesBelow(m_tmp.Path("root")).empty(); }, 5s));
    }
}

// --- the disk ------------------------------------------------------------------------------------

TEST_F(PredictFault, AFullDiskLeavesTheOldFileOfEveryStudyWhole)
{
    ASSERT_EQ(Predict(Day()).nStatus, 0) << "and provisions the engine root";
    for (const Words& asWords : {Reach(), Day(), Compare()}) {
        const std::string sFile = m_tmp.Write("out/a.csv", "what was there before");
        const Words asToFile = Joined(asWords, {"--output", sFile});
        const ProgramResult res = OnFullDisk(asToFile);
        EXPECT_EQ(res.nStatus, 1);
        EXPECT_TRUE(res.sError.ends_with("hopcast-predict: --output: " + sFile + ": Disk full\n"))
            << res.sError;
        EXPECT_EQ(BytesRead(sFile), "what was there before");
        EXPECT_EQ(std::distance(fs::directory_iterator(m_tmp.Path("out")), {}), 1);
        EXPECT_EQ(Predict(asToFile).nStatus, 0);
        EXPECT_GT(fs::file_size(sFile), 512U);
    }
}

// --- many at once --------------------------------------------------------------------------------

TEST_F(PredictFault, TwentyStudiesAtOncePrintWhatEachPrintsAlone)
{
    std::vector<Words> aAsked;
    for (int n = 0; n < 20; ++n) {
        const std::string sSsn = std::to_string(10 * n);
        Words asWords = n % 2 == 0 ? Day() : n % 4 == 1 ? Reach() : Compare();
        for (std::size_t i = 1; i < asWords.size(); ++i)
            if (asWords[i - 1] == "--ssn")
                asWords[i] = sSsn;
        aAsked.push_back(asWords);
    }
    // They all start in a home where nothing has been provisioned yet.
    std::vector<ProgramResult> aTogether(aAsked.size());
    {
        std::vector<std::jthread> aThreads;
        for (std::size_t n = 0; n < aAsked.size(); ++n)
            aThreads.emplace_back([&, n] { aTogether[n] = Predict(aAsked[n]); });
    }
    for (std::size_t n = 0; n < aAsked.size(); ++n) {
        const ProgramResult alone = Predict(aAsked[n]);
        EXPECT_EQ(alone.nStatus, 0) << alone.sError;
        EXPECT_EQ(aTogether[n].nStatus, 0) << aTogether[n].sError;
        EXPECT_EQ(aTogether[n].sOut, alone.sOut) << n;
        EXPECT_EQ(aTogether[n].sError, alone.sError) << n;
        for (std::size_t nOther = 0; nOther < n; ++nOther)
            EXPECT_NE(aTogether[n].sOut, aTogether[nOther].sOut) << "the test tells them apart";
    }
    EXPECT_EQ(fs::file_size(m_sProfile), 0U) << "none writes the profile";
}

// --- memory --------------------------------------------------------------------------------------

#ifndef __SANITIZE_ADDRESS__  // its shadow memory needs the whole address space
ProgramResult WithMegabytes(int nMegabytes, const Words& asWords)
{
    return ProgramRun(Joined(
        {"/bin/sh", "-c", "ulimit -v " + std::to_string(nMegabytes * 1024) + "; exec \"$0\" \"$@\"",
         TEST_BIN "/hopcast-predict"},
        asWords));
}

using PredictMemory = PredictFault;

TEST_F(PredictMemory, StudiesNeedNoMoreThan200Megabytes)
{
    ASSERT_EQ(Predict(Day()).nStatus, 0) << "and provisions the engine root";
    for (const Words& asWords :
         {Reach(), Day(), Compare(),
          Joined(m_asBase, {"--area", "60,-30,0,60", "--grid", "40", "--day", "--frequencies",
                            "5000,7000,10000,14000", "--jobs", "8"})}) {
        const ProgramResult res = WithMegabytes(200, asWords);
        EXPECT_EQ(res.nStatus, 0) << res.sError;
        EXPECT_EQ(res.sOut, Predict(asWords).sOut);
    }
}

TEST_F(PredictMemory, ADayForWhichThereIsNoMemoryEndsInWords)
{
    ASSERT_EQ(Predict(Day()).nStatus, 0);
    const std::string sFile = m_tmp.Write("a.csv", "what was there before");
    const ProgramResult res =
        WithMegabytes(60, Joined(m_asBase, {"--area", "60,-30,0,60", "--grid", "70", "--day",
                                            "--jobs", "8", "--output", sFile}));
    EXPECT_EQ(res.nStatus, 1);
    EXPECT_EQ(res.sError,
              "hopcast-predict: Out of memory. Ask for less at once: a smaller grid, fewer "
              "frequencies or stations.\n");
    EXPECT_EQ(BytesRead(sFile), "what was there before");
}
#endif

}  // namespace
