/// The window program from its command line, on Qt's offscreen platform.
#include <gtest/gtest.h>

#include <filesystem>

#include "support/ProgramRun.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

const std::string kProgram = TEST_BIN "/hopcast";

/// A user without anything: no engine package, no Airmail, no profile.
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

}  // namespace
