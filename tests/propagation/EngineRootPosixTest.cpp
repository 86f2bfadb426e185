#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "propagation/itshfbc/EngineRoot.h"
#include "propagation/itshfbc/EngineRun.h"
#include "support/Faults.h"
#include "support/TempFolder.h"
#include "system/FileLib.h"
#include "system/LockLib.h"
#include "system/PathLib.h"
#include "system/RunErrorText.h"

namespace fs = std::filesystem;

namespace {

/// An empty machine: no Wine prefix and no engines, with its own home and program folder.
class EngineRootPosix : public testing::Test {
protected:
    TempFolder m_folder;
    EnvironmentSet m_home{"HOME", m_folder.Path()};
    EnvironmentSet m_prefix{"WINEPREFIX", m_folder.Path() + "/wine"};
    EnvironmentSet m_environment{"HOPCAST_ITSHFBC", std::nullopt};
    EnvironmentSet m_data{"XDG_DATA_HOME", m_folder.Path() + "/data"};
    const std::string m_sRoot = m_folder.Path() + "/data/hopcast/itshfbc";
    const std::string m_sRec533 = m_sRoot + "/bin_win/rec533w.exe";
    const std::string m_sVoacap = m_sRoot + "/bin_win/voacapw.exe";
    const std::string m_sProgramFolder = m_folder.Path() + "/app/bin";
    const std::string m_sSearch = m_folder.Path() + "/path";

    void EnginesShip(const std::string& sContent)
    {
        m_folder.Write("app/bin/rec533w.exe", sContent);
        m_folder.Write("app/bin/voacapw.exe", sContent);
    }
    void VoacaplInstall() { chmod(m_folder.Write("path/voacapl", "#!/bin/sh\n").c_str(), 0755); }
    void Provision()
    {
        const Result<void> res = EngineRootProvisionFrom(m_sProgramFolder, m_sSearch);
        EXPECT_TRUE(static_cast<bool>(res)) << res.TextGet();
    }
};

TEST_F(EngineRootPosix, TheEnvironmentComesFirst)
{
    m_folder.Write("wine/drive_c/itshfbc/bin_win/icepacw.exe", "MZ");
    const EnvironmentSet environment("HOPCAST_ITSHFBC", m_folder.Path() + "/mine/");
    EXPECT_EQ(EngineRootGet().sFolder, m_folder.Path() + "/mine");
    EXPECT_EQ(EngineRootGet().eKind, EngineRootKind::Environment);
    const EnvironmentSet relative("HOPCAST_ITSHFBC", "mine");
    EXPECT_EQ(EngineRootGet().sFolder, (fs::current_path() / "mine").string());
    const EnvironmentSet whole("HOPCAST_ITSHFBC", "/");
    EXPECT_EQ(EngineRootGet().sFolder, "/");
}

TEST_F(EngineRootPosix, AnInstalledPackageComesNext)
{
    m_folder.Write("wine/drive_c/itshfbc/bin_win/other.exe", "MZ");
    EXPECT_EQ(EngineRootGet().eKind, EngineRootKind::Private) << "none of the three programs";
    for (const char* sName : {"ITSHFBC/BIN_WIN/ICEPACW.EXE", "itshfbc/bin_win/voacapw.exe"}) {
        const TempFolder prefix;
        prefix.Write(std::string("drive_c/") + sName, "MZ");
        const EnvironmentSet environment("WINEPREFIX", prefix.Path());
        EXPECT_EQ(EngineRootGet().eKind, EngineRootKind::Installed) << sName;
        EXPECT_EQ(EngineRootGet().sFolder,
                  prefix.Path() + "/drive_c/" + std::string(sName).substr(0, 7));
    }
}

TEST_F(EngineRootPosix, ThePrivateRootFollowsTheDataHome)
{
    EXPECT_EQ(EngineRootGet().eKind, EngineRootKind::Private);
    EXPECT_EQ(EngineRootGet().sFolder, m_sRoot);
    const EnvironmentSet data("XDG_DATA_HOME", std::nullopt);
    EXPECT_EQ(EngineRootGet().sFolder, m_folder.Path() + "/.local/share/hopcast/itshfbc");
}

TEST_F(EngineRootPosix, ProvisioningMakesFoldersAndEngines)
{
    EnginesShip("one");
    Provision();
    for (const char* sFolder : {"/bin_win", "/RUN", "/areadata"})
        EXPECT_TRUE(fs::is_directory(m_sRoot + sFolder)) << sFolder;
    EXPECT_EQ(BytesRead(m_sRec533), "one");
    EXPECT_FALSE(FileExists(m_sVoacap)) << "voacapl is not installed";
    EXPECT_TRUE(EngineIsBuiltIn("rec533w.exe"));
    EXPECT_FALSE(EngineIsBuiltIn("voacapw.exe"));
    VoacaplInstall();
    Provision();
    EXPECT_EQ(BytesRead(m_sVoacap), "one");
    EXPECT_TRUE(EngineIsBuiltIn("voacapw.exe"));
    EXPECT_EQ(FilesList(m_sRoot + "/bin_win/*"),
              (std::vector<std::string>{"rec533w.exe", "voacapw.exe"}));
}

TEST_F(EngineRootPosix, EnginesOfAPackageLieInLibexec)
{
    m_folder.Write("app/libexec/hopcast/rec533w.exe", "packaged");
    Provision();
    EXPECT_EQ(BytesRead(m_sRec533), "packaged");
}

TEST_F(EngineRootPosix, AnEngineOfAnOlderHopcastIsRenewed)
{
    EnginesShip("old");
    Provision();
    fs::remove_all(m_folder.Path() + "/app");  // the link is dangling now
    m_folder.Write("app2/bin/rec533w.exe", "new");
    EXPECT_TRUE(
        static_cast<bool>(EngineRootProvisionFrom(m_folder.Path() + "/app2/bin", m_sSearch)));
    EXPECT_EQ(BytesRead(m_sRec533), "new");
    EXPECT_TRUE(EngineIsBuiltIn("rec533w.exe"));
}

TEST_F(EngineRootPosix, ACopyOfAnOlderHopcastIsRenewed)
{
    EnginesShip("new");
    m_folder.Write("data/hopcast/itshfbc/bin_win/rec533w.exe", "old");
    m_folder.Write("data/hopcast/itshfbc/hopcast-engines.txt",
                   "rec533w.exe copy 3 1a0fad1921d08076\n");  // FNV-1a of "old"
    EXPECT_TRUE(EngineIsBuiltIn("rec533w.exe"));
    Provision();
    EXPECT_EQ(BytesRead(m_sRec533), "new");
}

TEST_F(EngineRootPosix, AForeignProgramIsNeverTouched)
{
    EnginesShip("ours");
    VoacaplInstall();
    const std::string sForeign =
        m_folder.Write("data/hopcast/itshfbc/bin_win/rec533w.exe", "foreign");
    Provision();
    EXPECT_EQ(BytesRead(sForeign), "foreign");
    EXPECT_FALSE(EngineIsBuiltIn("rec533w.exe"));
    fs::remove(m_sVoacap);
    const std::string sElsewhere = m_folder.Write("somewhere/else", "foreign");
    fs::create_symlink(sElsewhere, m_sVoacap);
    Provision();
    EXPECT_EQ(fs::read_symlink(m_sVoacap), sElsewhere);
}

TEST_F(EngineRootPosix, ALinkToNothingInARootWithAListIsRenewed)
{
    EnginesShip("ours");
    m_folder.Write("data/hopcast/itshfbc/hopcast-engines.txt", "");
    fs::create_directories(m_sRoot + "/bin_win");
    fs::create_symlink(m_folder.Path() + "/an/older/hopcast/rec533w.exe", m_sRec533);
    Provision();
    EXPECT_EQ(BytesRead(m_sRec533), "ours");
    EXPECT_TRUE(EngineIsBuiltIn("rec533w.exe"));
}

TEST_F(EngineRootPosix, ALinkToNothingInARootWithoutAListIsSomebodyElses)
{
    EnginesShip("ours");
    fs::create_directories(m_sRoot + "/bin_win");
    fs::create_symlink("/on/a/disk/that/is/not/there", m_sRec533);
    Provision();
    EXPECT_EQ(fs::read_symlink(m_sRec533), "/on/a/disk/that/is/not/there");
}

TEST_F(EngineRootPosix, OurEngineThatTheListHasLostIsListedAgain)
{
    EnginesShip("ours");
    const std::string sLine = "rec533w.exe link " + m_sProgramFolder + "/rec533w.exe\n";
    Provision();
    m_folder.Write("data/hopcast/itshfbc/hopcast-engines.txt", "");
    Provision();
    EXPECT_EQ(BytesRead(m_sRoot + "/hopcast-engines.txt"), sLine);
    m_folder.Write("data/hopcast/itshfbc/hopcast-engines.txt", "");
    fs::remove(m_sRec533);
    m_folder.Write("data/hopcast/itshfbc/bin_win/rec533w.exe", "ours");
    Provision();
    EXPECT_EQ(BytesRead(m_sRoot + "/hopcast-engines.txt"), sLine);
    EXPECT_TRUE(fs::is_symlink(m_sRec533));
}

TEST_F(EngineRootPosix, StartsAtOnceKeepTheListWhole)
{
    constexpr int kRounds = 20;
    constexpr int kPrograms = 6;
    EnginesShip("ours");
    VoacaplInstall();
    for (int i = 0; i < kRounds; ++i) {
        fs::remove_all(m_sRoot);
        std::array<pid_t, kPrograms> anId{};
        for (pid_t& nId : anId) {
            nId = fork();
            if (nId == 0)
                _exit(EngineRootProvisionFrom(m_sProgramFolder, m_sSearch)
                              && EngineIsBuiltIn("rec533w.exe")
                          ? 0
                          : 1);
        }
        for (const pid_t nId : anId) {
            int nStatus = -1;
            waitpid(nId, &nStatus, 0);
            EXPECT_EQ(nStatus, 0) << "round " << i;
        }
        EXPECT_EQ(BytesRead(m_sRoot + "/hopcast-engines.txt"),
                  "voacapw.exe link " + m_sProgramFolder + "/voacapw.exe\nrec533w.exe link "
                      + m_sProgramFolder + "/rec533w.exe\n");
        EXPECT_EQ(std::distance(fs::directory_iterator(m_sRoot + "/bin_win"), {}), 2);
        EXPECT_EQ(std::distance(fs::directory_iterator(m_sRoot), {}), 4) << "and no lock is left";
    }
}

TEST_F(EngineRootPosix, OnlyTheUserMayEnterTheFolders)
{
    EnginesShip("ours");
    Provision();
    for (const char* sFolder : {"/data/hopcast", "/data/hopcast/itshfbc",
                                "/data/hopcast/itshfbc/bin_win", "/data/hopcast/itshfbc/RUN"})
        EXPECT_EQ(fs::status(m_folder.Path() + sFolder).permissions(), fs::perms::owner_all)
            << sFolder;
}

TEST_F(EngineRootPosix, WhatKilledProgramsLeftGoesAtTheNextStart)
{
    using namespace std::chrono_literals;
    EnginesShip("ours");
    Provision();
    const EnvironmentSet temporary("TMPDIR", m_folder.Path() + "/tmp");
    const auto timeOld = fs::file_time_type::clock::now() - 25h;
    for (const char* sName : {"RUN/voacapw.00.run/x", "areadata/voacapw.00.run/x", ".hopcast-1-0"})
        m_folder.Write(std::string("data/hopcast/itshfbc/") + sName, "");
    for (const char* sName : {"hopcast-000000", "hopcast-000001", "hopcast-mine00"})
        m_folder.Write(std::string("tmp/") + sName + "/hopcast-engines.txt", "");
    m_folder.Write("tmp/hopcast-backup/letter", "");
    fs::remove(m_folder.Path() + "/tmp/hopcast-mine00/hopcast-engines.txt");
    for (const char* sName : {"/RUN/voacapw.00.run", "/areadata/voacapw.00.run", "/.hopcast-1-0"})
        fs::last_write_time(m_sRoot + sName, timeOld);
    m_folder.Write("data/hopcast/itshfbc/bin_win/.hopcast-engine-1-2", "");
    const std::string sUsed = m_folder.Path() + "/tmp/hopcast-000001";
    const auto resOwner = FileLock::Take(sUsed + "/hopcast-owner.lock", 0.0);
    for (const auto& entry : fs::directory_iterator(m_folder.Path() + "/tmp"))
        fs::last_write_time(entry.path(), timeOld);
    Provision();
    for (const char* sName : {"/RUN/voacapw.00.run", "/areadata/voacapw.00.run", "/.hopcast-1-0",
                              "/bin_win/.hopcast-engine-1-2"})
        EXPECT_FALSE(fs::exists(m_sRoot + sName)) << sName;
    EXPECT_FALSE(fs::exists(m_folder.Path() + "/tmp/hopcast-000000"));
    EXPECT_TRUE(fs::exists(sUsed)) << "a program lives in it";
    EXPECT_TRUE(fs::exists(m_folder.Path() + "/tmp/hopcast-backup")) << "no root of an engine";
    EXPECT_TRUE(fs::exists(m_folder.Path() + "/tmp/hopcast-mine00"));
}

TEST_F(EngineRootPosix, TheFolderOfAKilledRunGoesUnderEveryRoot)
{
    using namespace std::chrono_literals;
    const std::string sTemporary = m_folder.Path("tmp");
    fs::create_directories(sTemporary);
    const EnvironmentSet temporary("TMPDIR", sTemporary);
    const EnvironmentSet environment("HOPCAST_ITSHFBC", m_folder.Path("mine"));
    const pid_t nId = fork();
    if (nId == 0) {
        const EnginePlace place(true);
        _exit(place.IsThere() ? 0 : 1);  // exits like a killed program, without cleaning up
    }
    int nStatus = -1;
    waitpid(nId, &nStatus, 0);
    ASSERT_EQ(nStatus, 0);
    const auto CountGet = [&] { return std::distance(fs::directory_iterator(sTemporary), {}); };
    const EnginePlace placeInUse(true);
    ASSERT_EQ(CountGet(), 2);
    Provision();
    EXPECT_EQ(CountGet(), 2) << "a program of today may be in both";
    for (const auto& entry : fs::directory_iterator(sTemporary))
        fs::last_write_time(entry.path(), fs::file_time_type::clock::now() - 25h);
    Provision();
    EXPECT_EQ(CountGet(), 1);
    EXPECT_TRUE(fs::exists(placeInUse.Path(kEngineRoot)));
}

TEST_F(EngineRootPosix, AReplacedCopyIsForeign)
{
    EnginesShip("ours");
    m_folder.Write("data/hopcast/itshfbc/bin_win/rec533w.exe", "OLD");  // same size, other content
    m_folder.Write("data/hopcast/itshfbc/hopcast-engines.txt",
                   "rec533w.exe copy 3 1a0fad1921d08076\n");
    Provision();
    EXPECT_EQ(BytesRead(m_sRec533), "OLD");
}

TEST_F(EngineRootPosix, TheLauncherGoesWithVoacapl)
{
    EnginesShip("one");
    VoacaplInstall();
    Provision();
    ASSERT_TRUE(FileExists(m_sVoacap));
    fs::remove(m_folder.Path() + "/path/voacapl");
    Provision();
    EXPECT_FALSE(FileExists(m_sVoacap));
    EXPECT_TRUE(FileExists(m_sRec533));
    EXPECT_EQ(BytesRead(m_sRoot + "/hopcast-engines.txt"),
              "rec533w.exe link " + m_sProgramFolder + "/rec533w.exe\n");
}

TEST_F(EngineRootPosix, AVoacaplThatCannotRunDoesNotCount)
{
    EnginesShip("one");
    m_folder.Write("path/voacapl", "not executable");
    Provision();
    EXPECT_FALSE(FileExists(m_sVoacap));
}

TEST_F(EngineRootPosix, NothingIsTouchedUnderAnotherRoot)
{
    EnginesShip("one");
    const std::string sProgram = m_folder.Write("wine/drive_c/itshfbc/bin_win/icepacw.exe", "MZ");
    Provision();
    EXPECT_FALSE(fs::exists(m_folder.Path() + "/data"));
    const EnvironmentSet environment("HOPCAST_ITSHFBC", m_folder.Path() + "/mine");
    Provision();
    EXPECT_FALSE(fs::exists(m_folder.Path() + "/mine"));
    EXPECT_FALSE(fs::exists(m_folder.Path() + "/data"));
    EXPECT_EQ(FilesList("c:\\itshfbc\\*"), std::vector<std::string>());
    EXPECT_TRUE(FileExists(sProgram));
}

TEST_F(EngineRootPosix, ASecondProvisioningChangesNothing)
{
    EnginesShip("one");
    Provision();
    const auto timeBefore = fs::last_write_time(m_sRoot + "/hopcast-engines.txt");
    const auto timeFolder = fs::last_write_time(m_sRoot + "/bin_win");
    Provision();
    EXPECT_EQ(fs::last_write_time(m_sRoot + "/hopcast-engines.txt"), timeBefore);
    EXPECT_EQ(fs::last_write_time(m_sRoot + "/bin_win"), timeFolder);
}

TEST_F(EngineRootPosix, ARootThatCannotBeMadeIsToldAbout)
{
    m_folder.Write("data/hopcast", "a file where the folder should be");
    const EnvironmentSet temporary("TMPDIR", m_folder.Path() + "/none");
    EXPECT_EQ(EngineRootProvisionFrom(m_sProgramFolder, m_sSearch).TextGet(), kPathFileAccessError);
    AsUnprivileged([&] {
        const EnvironmentSet data("XDG_DATA_HOME", "/usr/hopcast-test");
        EXPECT_EQ(EngineRootProvisionFrom(m_sProgramFolder, m_sSearch).TextGet(),
                  kPermissionDenied);
    });
}

/// Adds a folder for temporary files, where the root goes when the home cannot hold it.
class EngineRootPosixTemporary : public EngineRootPosix {
protected:
    EngineRootPosixTemporary()
    {
        fs::create_directory(m_sTemporary);
        chmod(m_folder.Path().c_str(), 0755);
        chmod(m_sTemporary.c_str(), 01777);
        EnginesShip("one");
    }
    const std::string m_sTemporary = m_folder.Path() + "/tmp";
    EnvironmentSet m_tmpdir{"TMPDIR", m_sTemporary};
};

TEST_F(EngineRootPosixTemporary, AUserWithoutAHomeGetsARootForTheTime)
{
    m_folder.Write("data/hopcast", "a file where the folder should be");
    Provision();
    const EngineRoot root = EngineRootGet();
    EXPECT_EQ(root.eKind, EngineRootKind::Private);
    EXPECT_EQ(fs::path(root.sFolder).parent_path(), m_sTemporary);
    EXPECT_EQ(fs::status(root.sFolder).permissions(), fs::perms::owner_all);
    EXPECT_EQ(BytesRead(root.sFolder + "/bin_win/rec533w.exe"), "one");
    EXPECT_TRUE(fs::is_directory(root.sFolder + "/RUN"));
    EXPECT_TRUE(EngineIsBuiltIn("rec533w.exe"));
    EngineRootRelease();
    EXPECT_TRUE(fs::is_empty(m_sTemporary));
    EXPECT_EQ(EngineRootGet().sFolder, m_sRoot);
}

TEST_F(EngineRootPosixTemporary, ARootThatBecameReadOnlyIsLeftAsItIs)
{
    Provision();
    EXPECT_EQ(EngineRootGet().sFolder, m_sRoot);
    chmod((m_sRoot + "/RUN").c_str(), 0555);
    AsUnprivileged([&] {
        Provision();
        EXPECT_NE(EngineRootGet().sFolder, m_sRoot);
        EXPECT_EQ(BytesRead(EngineRootGet().sFolder + "/bin_win/rec533w.exe"), "one");
        EngineRootRelease();
    });
    EXPECT_EQ(BytesRead(m_sRec533), "one");
    EXPECT_TRUE(fs::is_empty(m_sTemporary));
}

TEST_F(EngineRootPosixTemporary, AHomeThatCanBeWrittenAgainIsUsedAgain)
{
    m_folder.Write("data/hopcast", "a file where the folder should be");
    Provision();
    fs::remove(m_folder.Path() + "/data/hopcast");
    Provision();
    EXPECT_EQ(EngineRootGet().sFolder, m_sRoot);
    EXPECT_TRUE(fs::is_empty(m_sTemporary));
}

TEST_F(EngineRootPosix, ABrokenManifestOwnsNothing)
{
    EnginesShip("ours");
    m_folder.Write("data/hopcast/itshfbc/bin_win/rec533w.exe", "foreign");
    m_folder.Write("data/hopcast/itshfbc/hopcast-engines.txt",
                   std::string("rec533w.exe\nrec533w.exe \n\0\xFF rec533w.exe copy\n", 45));
    Provision();
    EXPECT_EQ(BytesRead(m_sRec533), "foreign");
}

}  // namespace
