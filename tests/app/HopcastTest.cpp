/// The window program from its command line, on Qt's offscreen platform.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>

#include "app/StartedProgram.h"
#include "support/ProgramRun.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using namespace std::chrono_literals;

const std::string kProgram = TEST_BIN "/hopcast";

/// A user with nothing installed: no engine package, no Airmail, no profile.
class HopcastProgram : public testing::Test {
protected:
    std::string Profile(const std::string& sBytes) const
    {
        return m_folder.Write("hopcast.ini", sBytes);
    }
    TempFolder m_folder;

private:
    EnvironmentSet m_envHome{"HOME", m_folder.Path("home")};
    EnvironmentSet m_envRoot{"HOPCAST_ITSHFBC", std::nullopt};
    EnvironmentSet m_envWine{"WINEPREFIX", m_folder.Path("wine")};
    EnvironmentSet m_envConfig{"XDG_CONFIG_HOME", m_folder.Path("config")};
    EnvironmentSet m_envData{"XDG_DATA_HOME", m_folder.Path("data")};
    EnvironmentSet m_envPlatform{"QT_QPA_PLATFORM", "offscreen"};
};

const char* const kFirstProfile = "[Propagation Model]\nSunSpot Option=False\nSunSpot Number=100\n";

TEST_F(HopcastProgram, TellsVersionAndHelpWithoutADisplay)
{
    const EnvironmentSet envPlatform("QT_QPA_PLATFORM", "no such platform");
    const ProgramResult resVersion = ProgramRun({kProgram, "--version"});
    EXPECT_EQ(resVersion.nStatus, 0);
    EXPECT_EQ(resVersion.sOut, "hopcast " HOPCAST_VERSION "\n");
    const ProgramResult resHelp = ProgramRun({kProgram, "--help"});
    EXPECT_EQ(resHelp.nStatus, 0);
    EXPECT_NE(resHelp.sOut.find("--profile FILE"), std::string::npos);
    EXPECT_EQ(resHelp.sError, "");
}

TEST_F(HopcastProgram, RefusesWhatItDoesNotKnow)
{
    for (const std::vector<std::string>& asWords :
         {std::vector<std::string>{kProgram, "--frobnicate"},
          {kProgram, "--profile"},
          {kProgram, "--profile", ""},
          {kProgram, "file.ini"}}) {
        const ProgramResult res = ProgramRun(asWords);
        EXPECT_EQ(res.nStatus, 2) << asWords[1];
        EXPECT_EQ(res.sOut, "");
        EXPECT_NE(res.sError.find("hopcast: "), std::string::npos);
    }
}

TEST_F(HopcastProgram, FirstStartPredictsWithTheBuiltInEngineWithoutAnySetUp)
{
    const std::string sProfile = Profile(kFirstProfile);
    const ProgramResult res = ProgramRun({kProgram, "--once", "--profile", sProfile});
    EXPECT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_GT(std::atoi(res.sOut.c_str()), 0);
    const std::string sRoot = m_folder.Path("data") + "/hopcast/itshfbc";
    EXPECT_TRUE(fs::exists(sRoot + "/bin_win/rec533w.exe"));
    EXPECT_GT(fs::file_size(sRoot + "/RUN/sound.out"), 1000u);
    EXPECT_NE(BytesRead(sProfile).find("[Window Data]"), std::string::npos);  // saved at the end
}

TEST_F(HopcastProgram, SignalsThatEndAProgramAreItsCloseBoxAndTheProfileIsSaved)
{
    for (const int nSignal : {SIGTERM, SIGINT, SIGHUP}) {
        const std::string sProfile = Profile(kFirstProfile);
        const std::string sOutput = m_folder.Path("data") + "/hopcast/itshfbc/RUN/sound.out";
        fs::remove(sOutput);
        StartedProgram program({kProgram, "--profile", sProfile}, m_folder.Path("out"));
        ASSERT_TRUE(Await([&] { return fs::exists(sOutput); }, 30s))
            << BytesRead(m_folder.Path("out"));
        program.Signal(nSignal);
        const auto end = program.EndAwait(10s);
        ASSERT_TRUE(end) << nSignal;
        EXPECT_EQ(end->nStatus, 0) << nSignal;
        EXPECT_NE(BytesRead(sProfile).find("[Window Data]"), std::string::npos);
    }
}

TEST_F(HopcastProgram, ASignalDuringARunThatFailsClosesItsBoxTooAndLeavesNoEngine)
{
    const std::string sProfile = Profile(kFirstProfile);
    const std::string sEngine =
        m_folder.Write("root/bin_win/rec533w.exe", "#!/bin/sh\ntouch started\nsleep 0.5\nexit 1\n");
    fs::permissions(sEngine, fs::perms::owner_all);
    fs::create_directories(m_folder.Path("root/RUN"));
    const EnvironmentSet root("HOPCAST_ITSHFBC", m_folder.Path("root"));
    StartedProgram program({kProgram, "--profile", sProfile}, m_folder.Path("out"));
    ASSERT_TRUE(Await([&] { return fs::exists(m_folder.Path("root/started")); }, 30s));
    program.Signal(SIGTERM);
    const auto end = program.EndAwait(20s);
    ASSERT_TRUE(end);
    EXPECT_EQ(end->nStatus, 0);
    EXPECT_NE(BytesRead(sProfile).find("[Window Data]"), std::string::npos);
    EXPECT_TRUE(ProcessesBelow(m_folder.Path("root")).empty());
}

TEST_F(HopcastProgram, AProgramKilledDuringARunLeavesNoEngine)
{
    const std::string sProfile = Profile(kFirstProfile);
    const std::string sEngine =
        m_folder.Write("root/bin_win/rec533w.exe", "#!/bin/sh\nexec sleep 60\n");
    fs::permissions(sEngine, fs::perms::owner_all);
    fs::create_directories(m_folder.Path("root/RUN"));
    const EnvironmentSet root("HOPCAST_ITSHFBC", m_folder.Path("root"));
    StartedProgram program({kProgram, "--profile", sProfile}, m_folder.Path("out"));
    ASSERT_TRUE(Await([&] { return !ProcessesBelow(m_folder.Path("root")).empty(); }, 30s));
    program.Signal(SIGKILL);
    ASSERT_TRUE(program.EndAwait(2s));
    EXPECT_TRUE(Await([&] { return ProcessesBelow(m_folder.Path("root")).empty(); }, 1s));
}

TEST_F(HopcastProgram, LeftoversBesideTheProfileGoAtTheNextStart)
{
    const std::string sProfile = Profile(kFirstProfile);
    const std::string sOld = m_folder.Write(".hopcast-4711-0", "half a profile");
    fs::last_write_time(sOld, fs::file_time_type::clock::now() - 25h);
    EXPECT_EQ(ProgramRun({kProgram, "--once", "--profile", sProfile}).nStatus, 0);
    EXPECT_FALSE(fs::exists(sOld));
}

TEST_F(HopcastProgram, ProfileNamedWithoutAFolderIsInTheCurrentOne)
{
    Profile(kFirstProfile);
    const fs::path pthBefore = fs::current_path();
    fs::current_path(m_folder.Path());
    const ProgramResult res = ProgramRun({kProgram, "--once", "--profile", "hopcast.ini"});
    fs::current_path(pthBefore);
    EXPECT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_NE(BytesRead(m_folder.Path("hopcast.ini")).find("[Window Data]"), std::string::npos);
}

TEST_F(HopcastProgram, AProfileThatDoesNotExistYetStartsWithTheShippedValues)
{
    const std::string sProfile = m_folder.Path("new.ini");
    const ProgramResult res = ProgramRun({kProgram, "--once", "--profile", sProfile});
    EXPECT_EQ(res.nStatus, 0) << res.sError;
    const std::string sSaved = BytesRead(sProfile);
    EXPECT_NE(sSaved.find("SunSpot Option=False"), std::string::npos) << sSaved;
    EXPECT_NE(sSaved.find("Forecast Option=True"), std::string::npos) << sSaved;
    EXPECT_NE(sSaved.find("Power=100"), std::string::npos) << sSaved;
}

TEST_F(HopcastProgram, AProfileThatCannotBeReadOrABadHomeIsRefusedWithTheReason)
{
    ProgramResult res = ProgramRun({kProgram, "--once", "--profile", "/dev/null"});
    EXPECT_EQ(res.nStatus, 2);
    EXPECT_TRUE(res.sError.ends_with("hopcast: --profile: it is a device, /dev/null\n"))
        << res.sError;
    res = ProgramRun({kProgram, "--once", "--profile", m_folder.Path()});
    EXPECT_EQ(res.nStatus, 2);
    EXPECT_TRUE(
        res.sError.ends_with("hopcast: --profile: it is a folder, " + m_folder.Path() + "\n"))
        << res.sError;
    const EnvironmentSet home("HOME", "somewhere");
    res = ProgramRun({kProgram, "--once"});
    EXPECT_EQ(res.nStatus, 2);
    EXPECT_NE(res.sError.find("HOME is \"somewhere\""), std::string::npos) << res.sError;
}

}  // namespace
