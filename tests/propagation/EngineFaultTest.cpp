#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <chrono>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>

#include "propagation/EngineCases.h"
#include "propagation/FakeEngine.h"
#include "propagation/PropagationLib.h"
#include "propagation/PropagationTable.h"
#include "support/MsgRecorder.h"
#include "system/LockLib.h"
#ifndef _WIN32
#include "support/Faults.h"
#endif

namespace fs = std::filesystem;

namespace {

/// Every fault must be over within this time, including both attempts.
constexpr double kFaultSecondsMax = 12.0;

struct Model {
    const char* sName;
    const char* sCircuit;
    const char* sProgram;
    const char* sPrefix;
    const char* sInput;      // start of the messages about reading
    const char* sLastLabel;  // label of the last row that is read
};

constexpr Model kModels[] = {
    {"Voacap", "voacap/p2p_01", "voacapw.exe", "PropagationIcepacVoacap, ",
     "PropagationIcepacVoacap, Input, ", "SNRxx"},
    {"Rec533", "rec533/p2p_01", "rec533w.exe", "PropagationRec533, ", "PropagationRec533, Input ",
     "SNxx"},
};

std::ostream& operator<<(std::ostream& stm, const Model& model) { return stm << model.sName; }

class EngineFault : public testing::TestWithParam<Model> {
protected:
    EngineFault() : m_input(InputMake(CircuitCaseGet(m_model.sCircuit))), m_table(m_input.nData) {}

    void TearDown() override
    {
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - m_tmStart;
        EXPECT_LT(time.count(), kFaultSecondsMax);
    }
    [[nodiscard]] std::string Output() const
    {
        return BytesRead(CapturedPath(m_model.sCircuit, ".out"));
    }
    void Script(const std::string& sScript) const { m_root.Engine(m_model.sProgram, sScript); }
    /// An engine that succeeds and leaves these bytes as its output.
    void OutputOf(const std::string& sBytes)
    {
        m_root.EngineCopying(m_model.sProgram, m_folder.Write("output", sBytes));
    }
    /// Predicts, expects a failure, and returns the only text shown.
    std::string TextOfFailure()
    {
        const MsgRecorder msg;
        EXPECT_FALSE(PropagationRun(m_input, m_table, ToldFailures()));
        EXPECT_EQ(msg.m_aShown.size(), 1U);
        return msg.m_aShown.empty() ? "" : msg.m_aShown[0].sText;
    }
    /// One attempt with messages.
    bool Attempt()
    {
        if (m_input.iModel == kEngineRec533)
            return Succeeded(PropagationRec533(m_input, 1, m_input.nData, m_table));
        return Succeeded(PropagationIcepacVoacap(m_input, 1, m_input.nData, m_table));
    }
    [[nodiscard]] std::string Stage(const std::string& sText) const
    {
        return m_model.sPrefix + sText;
    }
    [[nodiscard]] std::string InputStage(const std::string& sText) const
    {
        return m_model.sInput + sText;
    }

    const Model& m_model = GetParam();
    const std::chrono::steady_clock::time_point m_tmStart = std::chrono::steady_clock::now();
    TempFolder m_folder;
    FakeRoot m_root;
    Request m_input;
    PropagationTable m_table;
};

INSTANTIATE_TEST_SUITE_P(Models, EngineFault, testing::ValuesIn(kModels),
                         [](const auto& test) { return std::string(test.param.sName); });

// --- the start ---------------------------------------------------------------------------------

TEST_P(EngineFault, ProgramMissing)
{
    EXPECT_EQ(TextOfFailure(),
              std::string("Propagation Model ")
                  + (m_input.iModel == kEngineVoacap ? "VOACAP" : "REC533")
                  + " not found.\r\n\r\nPlease check that ITS HF propagation prediction software has "
                    "been installed.");
}

TEST_P(EngineFault, ProgramIsAFolder)
{
    fs::create_directories(m_root.Path("bin_win") + "/" + m_model.sProgram);
    EXPECT_TRUE(TextOfFailure().starts_with("Propagation Model "));
}

#ifndef _WIN32
TEST_P(EngineFault, ProgramNotExecutable)
{
    Script("exit 0");
    fs::permissions(m_root.Path("bin_win") + "/" + m_model.sProgram,
                    fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(TextOfFailure(), Stage("Shell Permission denied"));
}

#endif

TEST_P(EngineFault, ProgramCannotBeStarted)
{
    Script("");
    std::ofstream(m_root.Path("bin_win") + "/" + m_model.sProgram, std::ios::trunc) << "\x7F"
                                                                                       "ELFnot one";
    EXPECT_EQ(TextOfFailure(), Stage("Shell Invalid procedure call or argument"));
}

// --- the end -----------------------------------------------------------------------------------

TEST_P(EngineFault, ExitsWithOne)
{
    Script("cp '" + CapturedPath(m_model.sCircuit, ".out") + "' $out; exit 1");
    EXPECT_EQ(TextOfFailure(), Stage("Shell do not finish."));
    EXPECT_EQ(m_table.fSnr(1, 1), 0.0F) << "a failed engine's output is not read";
}

TEST_P(EngineFault, DiesByASignal)
{
    Script("cp '" + CapturedPath(m_model.sCircuit, ".out") + "' $out; kill -9 $$");
    EXPECT_EQ(TextOfFailure(), Stage("Shell do not finish."));
}

TEST_P(EngineFault, NeverEnds)
{
    // One attempt against the real limit.
    Script("exec sleep 100");
    const MsgRecorder msg;
    const auto tmStart = std::chrono::steady_clock::now();
    EXPECT_FALSE(Attempt());
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - tmStart;
    EXPECT_GT(time.count(), 4.9);
    EXPECT_LT(time.count(), 7.0);
    ASSERT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(msg.m_aShown[0].sText, Stage("Shell do not finish."));
}

#ifndef _WIN32  // the fake engine on Windows starts no children
TEST_P(EngineFault, NeverEndsWithChildrenOfItsOwn)
{
    const EngineLimit limit(0.4);
    Script(
        "sleep 100 & echo $! >> pids\n(sleep 100 & echo $! >> pids; wait) &\n"
        "trap '' TERM INT HUP\nwhile :; do sleep 100; done");
    EXPECT_EQ(TextOfFailure(), Stage("Shell do not finish."));
}

#endif

TEST_P(EngineFault, WaitsForItsInput)
{
    Script("cat > /dev/null; exit 1");
    EXPECT_EQ(TextOfFailure(), Stage("Shell do not finish."));
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - m_tmStart;
    EXPECT_LT(time.count(), 3.0);
}

// --- the output --------------------------------------------------------------------------------

TEST_P(EngineFault, ExitsWithZeroWithoutOutput)
{
    Script("exit 0");
    EXPECT_EQ(TextOfFailure(), InputStage("File not found"));
}

TEST_P(EngineFault, WritesNothing)
{
    OutputOf("");
    EXPECT_EQ(TextOfFailure(), InputStage("Input past end of file"));
}

TEST_P(EngineFault, WritesHalfAFile)
{
    const std::string sOutput = Output();
    OutputOf(sOutput.substr(0, sOutput.rfind('\n', sOutput.size() / 2) + 1));
    EXPECT_EQ(TextOfFailure(), InputStage("Type mismatch"));
    EXPECT_NE(m_table.fSnr(1, 1), 0.0F) << "what was read before stays";
    EXPECT_EQ(m_table.fSnr(24, 1), 0.0F);
}

TEST_P(EngineFault, OutputCutInMidLine)
{
    const std::string sOutput = Output();
    OutputOf(sOutput.substr(0, sOutput.rfind(m_model.sLastLabel) - 30));
    EXPECT_EQ(TextOfFailure(), InputStage("Type mismatch"));
    EXPECT_NE(m_table.fSnr(23, 1), 0.0F);
    EXPECT_EQ(m_table.fSnr(24, 1), 0.0F);
}

TEST_P(EngineFault, StarsBlanksOrLettersInANumber)
{
    for (const char* sField : {"*****", "     ", " 1x2 "}) {
        std::string sOutput = Output();
        const std::size_t nStart = sOutput.rfind('\n', sOutput.rfind(m_model.sLastLabel)) + 1;
        const std::size_t nFirst = m_input.iModel == kEngineRec533 ? 8 : 11;
        sOutput.replace(nStart + nFirst + 5, 5, sField);
        OutputOf(sOutput);
        m_table = PropagationTable(m_input.nData);
        EXPECT_EQ(TextOfFailure(), InputStage("Type mismatch")) << sField;
        EXPECT_NE(m_table.fSnr(24, 1), 0.0F);
        EXPECT_EQ(m_table.fSnr(24, 2), 0.0F);
    }
}

TEST_P(EngineFault, LabelMissing)
{
    std::string sOutput = Output();
    sOutput.replace(sOutput.rfind(m_model.sLastLabel), 4, "????");
    OutputOf(sOutput);
    EXPECT_EQ(TextOfFailure(), InputStage("Type mismatch"));
    EXPECT_EQ(m_table.fSnr(24, 1), 0.0F);
}

TEST_P(EngineFault, BlocksInWrongOrder)
{
    // The path comes last, after the hours, but the reader searches forwards only.
    std::string sOutput = Output();
    const std::size_t nHead =
        sOutput.find(m_input.iModel == kEngineRec533 ? " UT  MUF" : " METHOD 20");
    ASSERT_NE(nHead, std::string::npos);
    OutputOf(sOutput.substr(nHead) + sOutput.substr(0, nHead));
    const std::string sText = TextOfFailure();
    EXPECT_TRUE(sText == InputStage("Input past end of file")
                || sText == InputStage("Type mismatch"))
        << sText;
}

TEST_P(EngineFault, BinaryRubbish)
{
    std::string sRubbish;
    unsigned nState = 12345;
    for (int i = 0; i < 200000; ++i) {
        nState = nState * 1664525U + 1013904223U;
        sRubbish += static_cast<char>(nState >> 24U);
    }
    OutputOf(sRubbish);
    EXPECT_EQ(TextOfFailure(), InputStage("Input past end of file"));
    OutputOf("MUF    LUF\n\n" + sRubbish + "AZIMUTHS\n" + sRubbish);
    EXPECT_EQ(TextOfFailure(), InputStage("Type mismatch"));
}

#ifndef _WIN32  // the fake engine on Windows makes no such output
TEST_P(EngineFault, OutputOf100Megabytes)
{
    const EngineLimit limit(20.0);  // slow disks: the engine's time is not what is tested
    Script("yes '  a line that holds nothing that is looked for' | head -c 100000000 > $out");
    const MsgRecorder msg;
    EXPECT_FALSE(Attempt());
    ASSERT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(msg.m_aShown[0].sText, InputStage("Input past end of file"));
}

TEST_P(EngineFault, OutputOf100MegabytesInOneLineAndAsMuchOnTheConsole)
{
    const EngineLimit limit(20.0);
    Script("head -c 100000000 /dev/zero | tr '\\000' 'a' > $out\ncat $out\n");
    const MsgRecorder msg;
    EXPECT_FALSE(Attempt());
    ASSERT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(msg.m_aShown[0].sText, InputStage("Input past end of file"));
    EXPECT_EQ(FailureLast().sDetail, std::string(200, 'a'));
}

#endif

#ifndef _WIN32  // the fake engine on Windows prints nothing
TEST_P(EngineFault, BlankLinesForEverEndAtTheLimit)
{
    const EngineLimit limit(0.5);
    Script("yes ''");
    const MsgRecorder msg;
    const auto tmStart = std::chrono::steady_clock::now();
    EXPECT_FALSE(Attempt());
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - tmStart;
    EXPECT_LT(time.count(), 2.5);
    ASSERT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(msg.m_aShown[0].sText, Stage("Shell do not finish."));
    EXPECT_EQ(FailureLast().sDetail, "gave up after 0.5 s");
}

#endif

TEST_P(EngineFault, OutputReplacedByAFolder)
{
    Script("mkdir -p $out; exit 0");
    EXPECT_EQ(TextOfFailure(), InputStage("Path/File access error"));
    Script("exit 0");
    EXPECT_EQ(TextOfFailure(), InputStage("Path/File access error"));
}

#ifndef _WIN32  // permissions are set in the POSIX way
TEST_P(EngineFault, OldOutputThatCannotBeDeletedNorEmptiedIsNotReadAsNew)
{
    Script("exit 0");
    fs::copy_file(CapturedPath(m_model.sCircuit, ".out"), m_root.Path("RUN/sound.out"));
    for (const char* sName :
         {"RUN/sound.dat", "RUN/hopcast.txt", "pids", "calls", "deck.1", "deck.2"}) {
        std::ofstream(m_root.Path(sName), std::ios::app).flush();
        fs::permissions(m_root.Path(sName), static_cast<fs::perms>(0666));
    }
    fs::permissions(m_root.Path("RUN/sound.out"), static_cast<fs::perms>(0444));
    fs::permissions(m_root.Path("RUN"), static_cast<fs::perms>(0555));
    fs::permissions(m_root.Path(""), static_cast<fs::perms>(0777));
    AsUnprivileged([&] {
        EXPECT_EQ(TextOfFailure(), InputStage("Permission denied"));
        EXPECT_EQ(m_table.fSnr(1, 1), 0.0F);
    });
    fs::permissions(m_root.Path("RUN"), static_cast<fs::perms>(0755));
    fs::remove(m_root.Path("RUN/hopcast.txt"));
}

#endif

// --- the deck ----------------------------------------------------------------------------------

TEST_P(EngineFault, DeckFolderMissing)
{
    Script("exit 0");
    fs::remove_all(m_root.Path("RUN"));
    EXPECT_EQ(TextOfFailure(), Stage("Open Path not found"));
    EXPECT_EQ(m_root.CallCount(), 0);
    fs::create_directory(m_root.Path("RUN"));
}

#ifndef _WIN32
TEST_P(EngineFault, DeckFolderReadOnly)
{
    Script("exit 0");
    fs::permissions(m_root.Path(""), static_cast<fs::perms>(0777));
    fs::permissions(m_root.Path("RUN"), static_cast<fs::perms>(0555));
    AsUnprivileged([&] { EXPECT_EQ(TextOfFailure(), Stage("Open Permission denied")); });
    fs::permissions(m_root.Path("RUN"), static_cast<fs::perms>(0755));
    EXPECT_EQ(m_root.CallCount(), 0);
}

#endif

TEST_P(EngineFault, DeckIsAFolder)
{
    Script("exit 0");
    fs::create_directory(m_root.Path("RUN") + "/sound.dat");
    EXPECT_EQ(TextOfFailure(), Stage("Open Path/File access error"));
}

#ifndef _WIN32
TEST_P(EngineFault, DiskFull)
{
    // A limit on file sizes stands for the full disk.
    Script("exit 0");
    {
        const FileSizeLimit limit(100);
        EXPECT_EQ(TextOfFailure(), Stage("Output Disk full"));
    }
    EXPECT_EQ(m_root.CallCount(), 0);
}

TEST_P(EngineFault, DiskFullForTheEngine)
{
    Script("trap '' XFSZ; ulimit -f 8; cat '" + CapturedPath(m_model.sCircuit, ".out")
           + "' > $out 2> /dev/null; exit 0");
    EXPECT_EQ(TextOfFailure(), InputStage("Type mismatch"));
}

#endif

// --- the lock ----------------------------------------------------------------------------------

TEST_P(EngineFault, RootHeldByAnotherFailsAtTheOpeningOfTheDeck)
{
    OutputOf(Output());
    {
        const EngineLimit limit(0.2);
        const auto resLock = FileLock::Take(m_root.Path("hopcast.lock"), 0.0);
        ASSERT_TRUE(resLock);
        EXPECT_EQ(TextOfFailure(), Stage("Open Permission denied"));
        EXPECT_EQ(m_root.CallCount(), 0);
        EXPECT_TRUE(m_root.Names("RUN").empty());
        EXPECT_EQ(FailureLast().eKind, FailureKind::Busy);
        EXPECT_EQ(FailureLast().sDetail, "another Hopcast is using the engine folder");
    }
    EXPECT_TRUE(PropagationRun(m_input, m_table, ToldFailures()));
    EXPECT_EQ(FailureLast().eKind, FailureKind::Cancelled);
    EXPECT_EQ(FailureLast().sDetail, "");
}

TEST_P(EngineFault, RunThatTookTooLongIsToldFromOneThatFailed)
{
    {
        const EngineLimit limit(0.3);
        Script("sleep 60");
        const MsgRecorder msg;
        EXPECT_FALSE(PropagationRun(m_input, m_table, ToldFailures()));
        EXPECT_EQ(FailureLast().eKind, FailureKind::Timeout);
        EXPECT_EQ(FailureLast().sDetail, "gave up after 0.3 s");
    }
    Script("echo no map; exit 1");
    const MsgRecorder msg;
    EXPECT_FALSE(PropagationRun(m_input, m_table, ToldFailures()));
    EXPECT_EQ(FailureLast().eKind, FailureKind::BadOutput);
    EXPECT_EQ(FailureLast().sDetail, "no map");
}

TEST_P(EngineFault, TroubleOfAnEarlierRunIsForgottenWhenTheEngineIsMissing)
{
    Script("echo no map; exit 1");
    const MsgRecorder msg;
    EXPECT_FALSE(PropagationRun(m_input, m_table, ToldFailures()));
    EXPECT_EQ(FailureLast().sDetail, "no map");
    fs::remove_all(m_root.Path("bin_win"));
    EXPECT_FALSE(PropagationRun(m_input, m_table, ToldFailures()));
    EXPECT_EQ(FailureLast().sDetail, "");
}

#ifndef _WIN32  // they fork
TEST_P(EngineFault, WaitForTheRootCountsWithinTheAttempt)
{
    // Another program holds the root for most of the second that an attempt has; the engine then
    // needs longer than the rest.
    const EngineLimit limit(1.0);
    Script("sleep 0.7");
    const std::string sLock = m_root.Path("hopcast.lock");
    const MsgRecorder msg;
    int aiReady[2];
    ASSERT_EQ(pipe(aiReady), 0);
    const pid_t nChild = fork();
    if (nChild == 0) {
        const auto resLock = FileLock::Take(sLock, 0.0);
        (void)!write(aiReady[1], "x", 1);
        usleep(600000);
        _exit(resLock ? 0 : 1);
    }
    char cReady = 0;
    ASSERT_EQ(read(aiReady[0], &cReady, 1), 1);
    const auto tmStart = std::chrono::steady_clock::now();
    const bool bOk = Attempt();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - tmStart;
    int nStatus = 0;
    waitpid(nChild, &nStatus, 0);
    close(aiReady[0]);
    close(aiReady[1]);
    EXPECT_FALSE(bOk);
    EXPECT_EQ(nStatus, 0);
    EXPECT_GT(time.count(), 0.9);
    EXPECT_LT(time.count(), 3.0);
    EXPECT_EQ(FailureLast().eKind, FailureKind::Busy);  // waiting took most of the time
    ASSERT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(msg.m_aShown[0].sText, Stage("Shell do not finish."));
}

/// Predicts a circuit several times and compares. @return what went wrong, or nothing
std::string RepeatedPredictions(const CircuitCase& c, const PropagationTable& tableExpected)
{
    const Request input = InputMake(c);
    for (int i = 0; i < 6; ++i) {
        PropagationTable table(input.nData);
        if (!PropagationRun(input, table, ToldFailures()))
            return "failed";
        if (table.fAzimuthTxRc != tableExpected.fAzimuthTxRc)
            return "another's path";
        for (int iHour = 1; iHour <= kHourCount; ++iHour)
            for (int j = 1; j <= input.nData; ++j)
                if (table.fSnr(iHour, j) != tableExpected.fSnr(iHour, j))
                    return "another's SNR";
    }
    return {};
}

TEST_P(EngineFault, TwoProgramsOnOneRootDoNotMixTheirFiles)
{
    const CircuitCase& cOther =
        CircuitCaseGet(m_input.iModel == kEngineRec533 ? "rec533/p2p_04" : "voacap/p2p_04");
    // The script reads the deck first and answers later, so that a deck or output written by the
    // other program in between would be noticed.
    Script("grep -q 'SUNSPOT   170.0' $deck && from='" + CapturedPath(m_model.sCircuit, ".out")
           + "' || from='" + CapturedPath(cOther.sName, ".out")
           + "'\nsleep 0.05\ncp \"$from\" $out\nsleep 0.05");
    PropagationTable tableMine(m_input.nData);
    PropagationTable tableOther(m_input.nData);
    ASSERT_TRUE(PropagationRun(m_input, tableMine, ToldFailures()));
    ASSERT_TRUE(PropagationRun(InputMake(cOther), tableOther, ToldFailures()));
    ASSERT_NE(tableMine.fSnr(1, 1), tableOther.fSnr(1, 1));
    const pid_t nChild = fork();
    if (nChild == 0)
        _exit(RepeatedPredictions(cOther, tableOther).empty() ? 0 : 1);
    EXPECT_EQ(RepeatedPredictions(CircuitCaseGet(m_model.sCircuit), tableMine), "");
    int nStatus = -1;
    EXPECT_EQ(waitpid(nChild, &nStatus, 0), nChild);
    EXPECT_EQ(nStatus, 0);
    EXPECT_EQ(m_root.CallCount(), 14);
}
#endif

}  // namespace
