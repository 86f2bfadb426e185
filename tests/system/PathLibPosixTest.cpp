#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>

#include "support/Faults.h"
#include "support/TempFolder.h"
#include "system/DrivePath.h"
#include "system/FileLib.h"
#include "system/HostPath.h"
#include "system/PathLib.h"

namespace fs = std::filesystem;

namespace {

/// A Wine prefix and a home for one test.
class PathLibPosix : public testing::Test {
protected:
    TempFolder m_folder;
    EnvironmentSet m_home{"HOME", m_folder.Path()};
    EnvironmentSet m_prefix{"WINEPREFIX", m_folder.Path() + "/wine"};
    EnvironmentSet m_config{"XDG_CONFIG_HOME", std::nullopt};
    const std::string m_sDriveC = m_folder.Path() + "/wine/drive_c";
};

TEST_F(PathLibPosix, OnlyADriveMakesAWindowsPath)
{
    EXPECT_TRUE(PathHasDrive("c:\\itshfbc"));
    EXPECT_TRUE(PathHasDrive("Z:/tmp"));
    EXPECT_TRUE(PathHasDrive("d:"));
    EXPECT_FALSE(PathHasDrive("sound.dat"));
    EXPECT_FALSE(PathHasDrive("/tmp/c:\\x"));
    EXPECT_FALSE(PathHasDrive("1:\\x"));
    EXPECT_FALSE(PathHasDrive("c:x"));
    EXPECT_FALSE(PathHasDrive(""));
    EXPECT_EQ(DrivePath("sound.dat"), "sound.dat");
    EXPECT_EQ(DrivePath("/etc/hosts"), "/etc/hosts");
    EXPECT_EQ(DrivePath(""), "");
}

TEST_F(PathLibPosix, AComponentIsFoundWithoutRegardToCase)
{
    m_folder.Write("wine/drive_c/mail/run/Sound.DAT", "");
    const std::string sMail = m_sDriveC + "/mail";
    EXPECT_EQ(DrivePath("c:\\MAIL\\RUN\\sound.dat"), sMail + "/run/Sound.DAT");
    EXPECT_EQ(DrivePath("c:\\mail\\RUN\\new.dat"), sMail + "/run/new.dat");
    EXPECT_EQ(DrivePath("C:/mail\\DATA\\new.dat"), sMail + "/DATA/new.dat");
    m_folder.Write("wine/drive_c/mail/RUN/sound.dat", "");
    EXPECT_EQ(DrivePath("c:\\mail\\RUN\\sound.dat"), sMail + "/RUN/sound.dat")
        << "the spelling itself comes first";
}

TEST_F(PathLibPosix, OtherPathsOfDriveCLieInTheWinePrefix)
{
    m_folder.Write("wine/drive_c/Program Files/AirMail/Airmail.ini", "");
    EXPECT_EQ(DrivePath("C:\\PROGRAM FILES\\Airmail\\AIRMAIL.INI"),
              m_sDriveC + "/Program Files/AirMail/Airmail.ini");
    EXPECT_FALSE(FileExists("C:\\Program Files\\AirMail\\airmail.ini"))
        << "the file services know paths of this host alone";
}

TEST_F(PathLibPosix, OtherDrivesFollowThePrefix)
{
    m_folder.Write("wine/dosdevices/d:/Data/x.ini", "");
    EXPECT_EQ(DrivePath("D:\\data\\X.INI"), m_folder.Path() + "/wine/dosdevices/d:/Data/x.ini");
    EXPECT_EQ(DrivePath("z:" + m_folder.Path() + "/a"), m_folder.Path() + "/a");
    EXPECT_EQ(DrivePath("Z:\\"), "/");
    EXPECT_EQ(DrivePath("Z:"), "/");
}

TEST_F(PathLibPosix, TheWinePrefixHasADefault)
{
    EXPECT_EQ(WinePrefixGet(), m_folder.Path() + "/wine");
    const EnvironmentSet slash("WINEPREFIX", m_folder.Path() + "/other/");
    EXPECT_EQ(WinePrefixGet(), m_folder.Path() + "/other");
    const EnvironmentSet none("WINEPREFIX", std::nullopt);
    EXPECT_EQ(WinePrefixGet(), m_folder.Path() + "/.wine");
}

TEST_F(PathLibPosix, WithoutHomeTheHomeFolderIsThatOfTheUsersEntry)
{
    const passwd* pEntry = getpwuid(getuid());
    const std::string sOfEntry = pEntry ? pEntry->pw_dir : "";
    ASSERT_NE(sOfEntry, m_folder.Path());
    EXPECT_EQ(HomeFolderGet(), m_folder.Path());
    const EnvironmentSet empty("HOME", "");
    EXPECT_EQ(HomeFolderGet(), sOfEntry);
    const EnvironmentSet none("HOME", std::nullopt);
    EXPECT_EQ(HomeFolderGet(), sOfEntry);
}

TEST_F(PathLibPosix, HostPathsHaveWindowsNames)
{
    EXPECT_EQ(PathToWindows("/tmp/root/RUN"), "Z:\\tmp\\root\\RUN");
    EXPECT_EQ(PathToWindows(m_sDriveC + "/itshfbc"), "C:\\itshfbc");
    EXPECT_EQ(PathToWindows(m_sDriveC), "C:\\");
    EXPECT_EQ(PathToWindows(m_sDriveC + "2/x").substr(0, 3), "Z:\\");
    EXPECT_EQ(PathToWindows(m_folder.Path() + "/wine/dosdevices/d:/x"), "D:\\x");
    EXPECT_EQ(PathToWindows("sound.dat"), "sound.dat");
}

TEST_F(PathLibPosix, JoinsWithoutDoublingTheSeparator)
{
    EXPECT_EQ(PathJoin("/a", "b"), "/a/b");
    EXPECT_EQ(PathJoin("/a/", "b"), "/a/b");
    EXPECT_EQ(PathJoin("", "b"), "b");
    EXPECT_EQ(PathJoin("/", "b"), "/b");
}

TEST_F(PathLibPosix, KnowsItsOwnProgram)
{
    EXPECT_TRUE(FileExists(ProgramFileGet()));
    EXPECT_EQ(ProgramFolderGet() + "/SystemTest", ProgramFileGet());
}

TEST_F(PathLibPosix, TheProfileLiesBesideTheProgram)
{
    EXPECT_EQ(ProfileFileFor(m_folder.Path() + "/hopcast"), m_folder.Path() + "/hopcast.ini");
    EXPECT_EQ(ProfileFileFor(m_folder.Path() + "/Hopcast.EXE"), m_folder.Path() + "/Hopcast.ini");
    EXPECT_EQ(ProfileFileFor(m_folder.Path() + "/hopcast-0.1"),
              m_folder.Path() + "/hopcast-0.1.ini");
}

TEST_F(PathLibPosix, APackagedProgramsProfileIsTheUsers)
{
    EXPECT_EQ(ProfileFileFor("/usr/bin/hopcast"), m_folder.Path() + "/.config/hopcast/hopcast.ini");
    EXPECT_TRUE(fs::is_directory(m_folder.Path() + "/.config/hopcast"));
    const EnvironmentSet config("XDG_CONFIG_HOME", m_folder.Path() + "/config");
    EXPECT_EQ(ProfileFileFor("/usr/local/bin/hopcast"),
              m_folder.Path() + "/config/hopcast/hopcast.ini");
    const EnvironmentSet relative("XDG_CONFIG_HOME", "config");
    EXPECT_EQ(ProfileFileFor("/usr/bin/hopcast"), m_folder.Path() + "/.config/hopcast/hopcast.ini")
        << "only an absolute folder counts";
}

TEST_F(PathLibPosix, TheFirstUseCopiesTheShippedProfileOnce)
{
    const std::string sProgram = m_folder.Path("program/hopcast");
    m_folder.Write("program/hopcast.ini", "shipped");
    fs::permissions(m_folder.Path() + "/program", fs::perms::owner_read | fs::perms::owner_exec);
    const std::string sProfile = ProfileFileFor(sProgram);
    EXPECT_EQ(sProfile, m_folder.Path() + "/.config/hopcast/hopcast.ini");
    EXPECT_EQ(BytesRead(sProfile), "shipped");
    m_folder.Write(".config/hopcast/hopcast.ini", "the user's");
    EXPECT_EQ(ProfileFileFor(sProgram), sProfile);
    EXPECT_EQ(BytesRead(sProfile), "the user's");
    fs::permissions(m_folder.Path() + "/program", fs::perms::owner_all);
}

TEST_F(PathLibPosix, APackagesProfileLiesInItsShareFolder)
{
    const std::string sProgram = m_folder.Path("usr/bin/hopcast");
    m_folder.Write("usr/share/hopcast/hopcast.ini", "packaged");
    chmod((m_folder.Path() + "/usr/bin").c_str(), 0555);
    const std::string sProfile = ProfileFileFor(sProgram);
    EXPECT_EQ(sProfile, m_folder.Path() + "/.config/hopcast/hopcast.ini");
    EXPECT_EQ(BytesRead(sProfile), "packaged");
    chmod((m_folder.Path() + "/usr/bin").c_str(), 0755);
    EXPECT_EQ(ProfileFileFor(sProgram), m_folder.Path() + "/usr/bin/hopcast.ini");
    EXPECT_FALSE(FileExists(m_folder.Path() + "/usr/bin/hopcast.ini")) << "not copied there";
}

TEST_F(PathLibPosix, WhereNoProfileCanBeMadeTheShippedOneIsRead)
{
    const std::string sProgram = m_folder.Path("usr/bin/hopcast");
    const std::string sShipped = m_folder.Write("usr/share/hopcast/hopcast.ini", "packaged");
    chmod((m_folder.Path() + "/usr/bin").c_str(), 0555);
    m_folder.Write(".config", "a file where the folder should be");
    const std::string sProfile = ProfileFileFor(sProgram);
    EXPECT_FALSE(FileExists(sProfile));
    EXPECT_EQ(ProfileFileToReadFor(sProgram, sProfile), sShipped);
    EXPECT_EQ(ProfileFileToReadFor(sProgram, "/no/other.ini"), "/no/other.ini")
        << "a profile that the user named is never replaced";
    fs::remove(m_folder.Path() + "/.config");
    EXPECT_EQ(ProfileFileToReadFor(sProgram, sProfile), sProfile);
    EXPECT_EQ(BytesRead(sProfile), "packaged");
    chmod((m_folder.Path() + "/usr/bin").c_str(), 0755);
}

TEST_F(PathLibPosix, OnlyTheDefaultProfilesFolderIsMadeAnew)
{
    const std::string sProfile = ProfileFileFor("/usr/bin/hopcast");
    fs::remove_all(m_folder.Path() + "/.config");
    EXPECT_EQ(ProfileFolderMakeFor("/usr/bin/hopcast", sProfile), 0);
    EXPECT_TRUE(fs::is_directory(m_folder.Path() + "/.config/hopcast"));
    EXPECT_EQ(ProfileFolderMakeFor("/usr/bin/hopcast", m_folder.Path() + "/none/mine.ini"), 0);
    EXPECT_FALSE(fs::exists(m_folder.Path() + "/none"));
    chmod(m_folder.Path().c_str(), 0755);
    AsUnprivileged([&] {
        const EnvironmentSet config("XDG_CONFIG_HOME", m_folder.Path() + "/read-only");
        EXPECT_EQ(ProfileFolderMakeFor("/usr/bin/hopcast", ProfileFileFor("/usr/bin/hopcast")),
                  EACCES)
            << "the reason, not that the folder is missing";
    });
}

TEST_F(PathLibPosix, AnotherUsersFolderIsNotWritable)
{
    const std::string sHome = m_folder.Path("home/");
    chmod(sHome.c_str(), 0777);
    const std::string sProgram = m_folder.Path("program/hopcast");
    chmod((m_folder.Path() + "/program").c_str(), 0555);
    AsUnprivileged([&] {
        const EnvironmentSet home("HOME", m_folder.Path() + "/home");
        EXPECT_EQ(ProfileFileFor(sProgram), m_folder.Path() + "/home/.config/hopcast/hopcast.ini");
    });
    chmod((m_folder.Path() + "/program").c_str(), 0755);
}

}  // namespace
