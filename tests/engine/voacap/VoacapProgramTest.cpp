// voacapw.exe as Hopcast starts it, with the real VOACAP behind it.

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <thread>
#include <vector>

#include "engine/voacap/VoacapSample.h"
#include "support/ChildRun.h"
#include "support/NeedVoacapl.h"
#include "system/ProcessLib.h"

namespace fs = std::filesystem;

namespace {

constexpr double kSeconds = 5.0;  // Hopcast's limit

struct RunCase {
    const char* sName;
    /// The echo of the deck's CIRCUIT card differs: the captured output was made from a deck that
    /// printed a latitude of 0 as ".00".
    bool bEchoDiffers = false;
};
std::ostream& operator<<(std::ostream& stm, const RunCase& c) { return stm << c.sName; }

std::string WithoutCircuitEcho(std::string sOutput)
{
    const std::size_t nLine = sOutput.find("\n CIRCUIT ");
    return sOutput.erase(nLine, sOutput.find('\n', nLine + 1) - nLine);
}

class VoacapProgram : public testing::TestWithParam<RunCase> {
protected:
    VoacapProgram()
        // Long and with blanks, which voacapl itself cannot handle.
        : m_sRoot(
            m_folder.Path("a root of engines that lies below a folder with a rather long name "
                          "with many blanks in it, as homes on network shares may have/itshfbc"))
    {
        fs::create_directories(m_sRoot + "/RUN");
        fs::create_directories(m_sRoot + "/areadata");
    }

    void FileWrite(const std::string& sName, const std::string& sBytes) const
    {
        std::ofstream(m_sRoot + "/" + sName, std::ios::binary) << sBytes;
    }
    [[nodiscard]] Result<int> Start(std::vector<std::string> asWords) const
    {
        ProcessCommand command;
        asWords.insert(asWords.begin(), {TEST_BIN "/voacapw.exe", m_sRoot});
        command.asWords = std::move(asWords);
        command.sOutputFile = m_sRoot + "/said.txt";
        return ProcessStart(command);
    }
    [[nodiscard]] bool PointRun(double dSeconds = kSeconds) const
    {
        const auto resId = Start({"sound.dat", "sound.out"});
        EXPECT_TRUE(resId) << resId.TextGet();
        return resId && ProcessWait(resId.ValueGet(), dSeconds);
    }
    [[nodiscard]] bool AreaRun() const
    {
        const auto resId = Start({"AREA", "CALC", "working.voa"});
        EXPECT_TRUE(resId) << resId.TextGet();
        return resId && ProcessWait(resId.ValueGet(), kSeconds);
    }
    [[nodiscard]] std::string Said() const { return BytesRead(m_sRoot + "/said.txt"); }
    [[nodiscard]] std::vector<std::string> Names(const std::string& sFolder) const
    {
        std::vector<std::string> asNames;
        for (const auto& entry : fs::directory_iterator(m_sRoot + "/" + sFolder))
            asNames.push_back(entry.path().filename().string());
        std::sort(asNames.begin(), asNames.end());
        return asNames;
    }

    TempFolder m_folder;
    std::string m_sRoot;
};

class VoacapProgramPoint : public VoacapProgram {};
TEST_P(VoacapProgramPoint, GivesTheCapturedOutput)
{
    NEED_VOACAPL();
    const RunCase& c = GetParam();
    FileWrite("RUN/sound.dat", Sample(std::string(c.sName) + ".dat"));
    EXPECT_TRUE(PointRun()) << Said();
    EXPECT_EQ(Said(), "");
    const std::string sMade = BytesRead(m_sRoot + "/RUN/sound.out");
    const std::string sCaptured = Sample(std::string(c.sName) + ".out");
    if (c.bEchoDiffers)
        EXPECT_TRUE(WithoutCircuitEcho(sMade) == WithoutCircuitEcho(sCaptured));
    else
        EXPECT_TRUE(sMade == sCaptured);
    EXPECT_EQ(Names("RUN"), (std::vector<std::string>{"sound.dat", "sound.out"}));
}
INSTANTIATE_TEST_SUITE_P(Circuits, VoacapProgramPoint,
                         testing::Values(RunCase{"p2p_01"}, RunCase{"p2p_02"}, RunCase{"p2p_03"},
                                         RunCase{"p2p_04"}, RunCase{"p2p_05"}, RunCase{"p2p_06"},
                                         RunCase{"p2p_07"}, RunCase{"p2p_08"},
                                         RunCase{"p2p_09", true}, RunCase{"p2p_10"},
                                         RunCase{"p2p_11"}, RunCase{"p2p_12", true},
                                         RunCase{"p2p_13"}),
                         [](const auto& run) { return std::string(run.param.sName); });

class VoacapProgramArea : public VoacapProgram {};
TEST_P(VoacapProgramArea, GivesTheCapturedGrid)
{
    NEED_VOACAPL();
    const RunCase& c = GetParam();
    FileWrite("areadata/working.voa", Sample(std::string(c.sName) + ".voa"));
    EXPECT_TRUE(AreaRun()) << Said();
    EXPECT_EQ(Said(), "");
    EXPECT_TRUE(BytesRead(m_sRoot + "/areadata/working.vg1")
                == Sample(std::string(c.sName) + ".vg1"));
    EXPECT_EQ(Names("areadata"), (std::vector<std::string>{"working.vg1", "working.voa"}));
}
INSTANTIATE_TEST_SUITE_P(Areas, VoacapProgramArea,
                         testing::Values(RunCase{"area_01"}, RunCase{"area_02"}, RunCase{"area_03"},
                                         RunCase{"area_04"}, RunCase{"area_05"}),
                         [](const auto& run) { return std::string(run.param.sName); });

// The decks' powers (propagation/PowerTable.h) rely on this: without antenna cards it is 1 kW.
TEST_F(VoacapProgram, PowerOfTheSystemCardIsNotUsed)
{
    NEED_VOACAPL();
    std::string sDeck = Sample("p2p_13.dat");
    const std::size_t nPower = sDeck.find("SYSTEM      1.0");
    ASSERT_NE(nPower, std::string::npos);
    FileWrite("RUN/sound.dat", sDeck.replace(nPower, 15, "SYSTEM     50.0"));
    EXPECT_TRUE(PointRun()) << Said();
    const std::string sMade = BytesRead(m_sRoot + "/RUN/sound.out");
    const std::string sCaptured = Sample("p2p_13.out");
    constexpr const char* kFirstPage = "METHOD 26   VOACAP";  // after the echo of the deck
    ASSERT_NE(sMade.find(kFirstPage), std::string::npos);
    EXPECT_TRUE(sMade.substr(sMade.find(kFirstPage))
                == sCaptured.substr(sCaptured.find(kFirstPage)));
}

class VoacapProgramFault : public VoacapProgram {
protected:
    /// Puts a fake voacapl first in the search path of programs started from now on.
    void FakeMake(const std::string& sScript)
    {
        const std::string sFake =
            m_folder.Write("bin/voacapl", "#!/bin/sh\necho $$ >" + PidFile() + "\n" + sScript);
        fs::permissions(sFake, fs::perms::owner_all);
        m_path.emplace("PATH", m_folder.Path("bin") + ":" + std::getenv("PATH"));
    }
    void FakeRemove()
    {
        m_path.reset();
        fs::remove(PidFile());
    }
    [[nodiscard]] std::string PidFile() const { return m_folder.Path() + "/pid.txt"; }
    /// The fake's process id, once it runs.
    [[nodiscard]] int FakePid() const
    {
        for (int i = 0; i < 500; ++i) {
            int nPid = 0;
            if (std::ifstream(PidFile()) >> nPid)
                return nPid;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        ADD_FAILURE() << "the fake voacapl was not started";
        return 0;
    }
    /// True once the process is gone, or a zombie that its new parent has not collected; waits up
    /// to 2 s.
    static bool ProcessIsGone(int nPid)
    {
        for (int i = 0; i < 200; ++i) {
            std::string sState;
            std::ifstream stmStat("/proc/" + std::to_string(nPid) + "/stat");
            if (!(stmStat >> sState >> sState >> sState) || sState == "Z")
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return false;
    }
    void PointDeckWrite() const { FileWrite("RUN/sound.dat", Sample("p2p_01.dat")); }

    std::optional<EnvironmentSet> m_path;
};

/// How the real voacapl fails on decks that it cannot use.
struct FailureCase {
    const char* sName;
    bool bArea;
    const char* sSaid;
};

TEST_F(VoacapProgramFault, FailsOnDecksThatVoacapCannotUse)
{
    NEED_VOACAPL();
    constexpr FailureCase kCases[] = {
        {"voacap_missing_antenna_file", false, "no antenna file DEFAULT\\NOSUCH.VOA"},
        {"voacap_month_13", false,
         "VOACAP failed: Fortran runtime error: Non-existing record number"},
        {"voacap_number_not_readable", false,
         "VOACAP failed: Fortran runtime error: Bad value during floating point read"},
        {"voacap_no_quit", false,
         "VOACAP's output is not complete (0 of 24 hour blocks): STOP EOF read in monitr"},
        {"voacap_area_missing_antenna_file", true, "no antenna file DEFAULT\\NOSUCH.VOA"}};
    for (const FailureCase& c : kCases) {
        FileWrite(c.bArea ? "areadata/working.voa" : "RUN/sound.dat",
                  BytesRead(std::string(ENGINE_DATA) + "/failures/" + c.sName + ".deck"));
        FileWrite("RUN/sound.out", "old");
        FileWrite("areadata/working.vg1", "old");
        EXPECT_FALSE(c.bArea ? AreaRun() : PointRun()) << c.sName;
        EXPECT_EQ(Said(), std::string("voacapw: ") + c.sSaid + "\n");
        EXPECT_FALSE(fs::exists(m_sRoot + (c.bArea ? "/areadata/working.vg1" : "/RUN/sound.out")));
    }
    EXPECT_EQ(Names("RUN"), (std::vector<std::string>{"sound.dat", "sound.out"}));
    EXPECT_EQ(Names("areadata"), (std::vector<std::string>{"working.voa"}));
}

TEST_F(VoacapProgramFault, EndsWithStatusTwoOnAWrongCommandLineAndOneOnAFailure)
{
    NEED_VOACAPL();
    ProcessCommand command;
    command.sOutputFile = m_sRoot + "/said.txt";
    command.asWords = {TEST_BIN "/voacapw.exe"};
    auto resEnded = ChildRun(command, kSeconds);
    ASSERT_TRUE(resEnded);
    EXPECT_EQ(resEnded.ValueGet().nCode, 2);
    EXPECT_EQ(Said(),
              "voacapw: usage: voacapw.exe ROOT DECK OUTPUT, or voacapw.exe ROOT AREA CALC DECK\n");
    FakeMake("exit 3\n");
    PointDeckWrite();
    command.asWords.insert(command.asWords.end(), {m_sRoot, "sound.dat", "sound.out"});
    resEnded = ChildRun(command, kSeconds);
    ASSERT_TRUE(resEnded);
    EXPECT_EQ(resEnded.ValueGet().nCode, 1);
    EXPECT_EQ(Said(), "voacapw: VOACAP failed\n");
}

TEST_F(VoacapProgramFault, FailsOnAFullDiskAndLeavesNothing)
{
    NEED_VOACAPL();
    PointDeckWrite();
    for (const char* pszBlocks :
         {"0", "1", "60"}) {  // of 512 bytes: no deck, no antenna, half a run
        ProcessCommand command;
        command.asWords = {"sh", "-c",
                           std::string("ulimit -f ") + pszBlocks
                               + "; exec \"$0\" \"$1\" sound.dat sound.out 2>/dev/null",
                           TEST_BIN "/voacapw.exe", m_sRoot};
        const auto resEnded = ChildRun(command, kSeconds);
        ASSERT_TRUE(resEnded);
        EXPECT_EQ(resEnded.ValueGet().eEnd, ChildEnd::Exited) << pszBlocks;
        EXPECT_EQ(resEnded.ValueGet().nCode, 1) << pszBlocks;
        EXPECT_EQ(Names("RUN"), (std::vector<std::string>{"sound.dat"})) << pszBlocks;
    }
}

TEST_F(VoacapProgramFault, TellsWhereVoacapCrashed)
{
    NEED_VOACAPL();
    std::string sDeck = Sample("area_02.voa");  // a grid of one point makes it divide by zero
    sDeck.replace(sDeck.find("   11    1"), 5, "    1");
    FileWrite("areadata/working.voa", sDeck);
    EXPECT_FALSE(AreaRun());
    EXPECT_TRUE(Said().starts_with("voacapw: VOACAP crashed: Program received signal SIG"))
        << Said();
    EXPECT_EQ(Names("areadata"), (std::vector<std::string>{"working.voa"}));
}

TEST_F(VoacapProgramFault, GivesUpAndCleansUpBeforeHopcastsLimit)
{
    NEED_VOACAPL();
    FakeMake("exec sleep 60\n");
    PointDeckWrite();
    EXPECT_FALSE(PointRun());
    EXPECT_EQ(Said(), "voacapw: VOACAP did not finish in time\n");
    EXPECT_EQ(Names("RUN"), (std::vector<std::string>{"sound.dat"}));
    EXPECT_TRUE(ProcessIsGone(FakePid()));
}

TEST_F(VoacapProgramFault, CleansUpWhenItIsAskedToEnd)
{
    NEED_VOACAPL();
    for (const int nSignal : {SIGTERM, SIGINT, SIGHUP}) {
        FakeMake("exec sleep 60\n");
        PointDeckWrite();
        const auto resId = Start({"sound.dat", "sound.out"});
        ASSERT_TRUE(resId) << resId.TextGet();
        const int nFake = FakePid();
        kill(resId.ValueGet(), nSignal);
        EXPECT_FALSE(ProcessWait(resId.ValueGet(), kSeconds));
        EXPECT_EQ(Said(), "voacapw: interrupted\n");
        EXPECT_EQ(Names("RUN"), (std::vector<std::string>{"sound.dat"}));
        EXPECT_TRUE(ProcessIsGone(nFake));
        FakeRemove();
    }
}

TEST_F(VoacapProgramFault, LeavesNothingWhenHopcastsLimitIsOver)
{
    NEED_VOACAPL();
    FakeMake("exec sleep 60\n");
    PointDeckWrite();
    EXPECT_FALSE(PointRun(1.0));
    EXPECT_TRUE(ProcessIsGone(FakePid()));
    EXPECT_EQ(Names("RUN"), (std::vector<std::string>{"sound.dat"}));
}

TEST_F(VoacapProgramFault, LeavesNoProcessWhenItsGroupIsKilledAndTheNextRunCleansUp)
{
    NEED_VOACAPL();
    FakeMake("exec sleep 60\n");
    PointDeckWrite();
    const auto resId = Start({"sound.dat", "sound.out"});
    ASSERT_TRUE(resId) << resId.TextGet();
    const int nFake = FakePid();
    kill(-resId.ValueGet(), SIGKILL);
    EXPECT_FALSE(ProcessWait(resId.ValueGet(), kSeconds));
    EXPECT_TRUE(ProcessIsGone(nFake));
    EXPECT_EQ(Names("RUN").size(), 2u);  // nobody was left to delete the run's folder
    FakeRemove();
    EXPECT_TRUE(PointRun()) << Said();
    EXPECT_EQ(Names("RUN"), (std::vector<std::string>{"sound.dat", "sound.out"}));
}

TEST_F(VoacapProgramFault, RunsAtOnceOnOneRootDoNotMix)
{
    NEED_VOACAPL();
    std::vector<int> anIds;
    for (int i = 1; i <= 8; ++i) {
        const std::string sName = PointName(i);
        FileWrite("RUN/" + sName + ".dat", Sample(sName + ".dat"));
        const auto resId = Start({sName + ".dat", sName + ".out"});
        ASSERT_TRUE(resId) << resId.TextGet();
        anIds.push_back(resId.ValueGet());
    }
    for (const int nId : anIds) EXPECT_TRUE(ProcessWait(nId, kSeconds)) << Said();
    for (int i = 1; i <= 8; ++i) {
        const std::string sName = PointName(i) + ".out";
        EXPECT_TRUE(BytesRead(m_sRoot + "/RUN/" + sName) == Sample(sName)) << sName;
    }
    EXPECT_EQ(Names("RUN").size(), 16u);
}

}  // namespace
