// What only this family of systems has: permission bits, links, pipes, devices and limits.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/Faults.h"
#include "support/TempFolder.h"
#include "system/FileLib.h"
#include "system/RunErrorText.h"

namespace fs = std::filesystem;

namespace {

mode_t ModeGet(const std::string& sPath)
{
    struct stat info {};
    EXPECT_EQ(stat(sPath.c_str(), &info), 0) << sPath;
    return info.st_mode & 07777U;
}

TEST(TextFilePosix, ANamedPipeIsNoFileAndNobodyWaitsForIt)
{
    const TempFolder folder;
    const std::string sPipe = folder.Path() + "/pipe";
    ASSERT_EQ(mkfifo(sPipe.c_str(), 0666), 0);
    EXPECT_EQ(TextFile::Open(sPipe).TextGet(), kPathFileAccessError);
}

TEST(TextFilePosix, AReadErrorIsNotTheEndOfTheFile)
{
    auto resFile = TextFile::Open("/proc/self/mem");  // nothing is mapped at its start
    ASSERT_TRUE(static_cast<bool>(resFile));
    std::string sLine;
    EXPECT_FALSE(resFile.ValueGet().AtEnd());
    EXPECT_EQ(resFile.ValueGet().LineRead(sLine).TextGet(), kPathFileAccessError);
    EXPECT_EQ(FileRead("/proc/self/mem", 10).TextGet(), kPathFileAccessError);
}

TEST(OutputFilePosix, AFullDeviceIsDiskFull)
{
    auto resFile = OutputFile::Open("/dev/full");
    ASSERT_TRUE(static_cast<bool>(resFile));
    Result<void> res = resFile.ValueGet().Write("one\n");
    if (res)
        res = resFile.ValueGet().Close();
    EXPECT_EQ(res.TextGet(), kDiskFull);
}

TEST(OutputFilePosix, ASizeLimitIsDiskFull)
{
    const TempFolder folder;
    const FileSizeLimit limit(100);
    auto resFile = OutputFile::Open(folder.Path() + "/sound.dat");
    ASSERT_TRUE(static_cast<bool>(resFile));
    Result<void> res = resFile.ValueGet().Write(std::string(200, 'x'));
    if (res)
        res = resFile.ValueGet().Close();
    EXPECT_EQ(res.TextGet(), kDiskFull);
}

TEST(OutputFilePosix, ANewFileTakesThePlaceOfALinkAndOfANamedPipe)
{
    const TempFolder folder;
    const std::string sMine = folder.Write("mine", "kept");
    const std::string sFile = folder.Path("sound.dat");
    for (const bool bPipe : {false, true}) {
        fs::remove(sFile);
        if (bPipe)
            ASSERT_EQ(mkfifo(sFile.c_str(), 0666), 0);
        else
            fs::create_symlink(sMine, sFile);
        auto resFile = OutputFile::OpenNew(sFile);
        ASSERT_TRUE(static_cast<bool>(resFile)) << resFile.TextGet();
        EXPECT_TRUE(static_cast<bool>(resFile.ValueGet().Write("new")));
        EXPECT_TRUE(static_cast<bool>(resFile.ValueGet().Close()));
        EXPECT_EQ(BytesRead(sFile), "new");
        EXPECT_EQ(BytesRead(sMine), "kept");
    }
}

TEST(FileLibPosix, AUserWithoutRightsIsDenied)
{
    const TempFolder folder;
    const std::string sSecret = folder.Write("secret", "x");
    chmod(sSecret.c_str(), 0600);
    chmod(folder.Path().c_str(), 0755);
    AsUnprivileged([&] {
        if (geteuid() != 0)
            chmod(sSecret.c_str(), 0);  // when it is the tester's own file
        EXPECT_EQ(TextFile::Open(sSecret).TextGet(), kPermissionDenied);
        EXPECT_EQ(FileRead(sSecret, 10).TextGet(), kPermissionDenied);
        EXPECT_EQ(OutputFile::Open(sSecret).TextGet(), kPermissionDenied);
        EXPECT_EQ(FileReplace(sSecret, "y").TextGet(), kPermissionDenied);
    });
    chmod(folder.Path().c_str(), 0555);
    AsUnprivileged([&] {
        EXPECT_EQ(OutputFile::Open(folder.Path() + "/new").TextGet(), kPermissionDenied);
        EXPECT_EQ(FileReplace(folder.Path() + "/new", "y").TextGet(), kPermissionDenied);
        EXPECT_EQ(FileDelete(sSecret).TextGet(), kPermissionDenied);
    });
    chmod(folder.Path().c_str(), 0755);
}

TEST(FileReplacePosix, KeepsPermissionsAndFollowsLinks)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("real/hopcast.ini", "old");
    chmod(sFile.c_str(), 0640);
    const std::string sLink = folder.Path() + "/link.ini";
    fs::create_symlink("middle.ini", sLink);
    fs::create_symlink("real/hopcast.ini", folder.Path() + "/middle.ini");
    EXPECT_TRUE(static_cast<bool>(FileReplace(sLink, "new")));
    EXPECT_TRUE(fs::is_symlink(sLink));
    EXPECT_EQ(BytesRead(sFile), "new");
    EXPECT_EQ(ModeGet(sFile), 0640u);
}

TEST(FileReplacePosix, MakesTheFileBehindADanglingLink)
{
    const TempFolder folder;
    fs::create_symlink("real.ini", folder.Path() + "/link.ini");
    EXPECT_TRUE(static_cast<bool>(FileReplace(folder.Path() + "/link.ini", "new")));
    EXPECT_EQ(BytesRead(folder.Path() + "/real.ini"), "new");
}

TEST(FileReplacePosix, ANewFileFollowsTheUsersMask)
{
    const TempFolder folder;
    const mode_t nBefore = umask(027);
    EXPECT_TRUE(static_cast<bool>(FileReplace(folder.Path() + "/a", "x")));
    umask(nBefore);
    EXPECT_EQ(ModeGet(folder.Path() + "/a"), 0640u);
}

TEST(FileReplacePosix, LeavesAReadOnlyFileAloneEvenForTheSuperuser)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("hopcast.ini", "old");
    chmod(sFile.c_str(), 0444);
    EXPECT_EQ(FileReplace(sFile, "new").TextGet(), kPermissionDenied);
    EXPECT_EQ(BytesRead(sFile), "old");
}

TEST(FileReplacePosix, AFullDiskLeavesTheOldFileWhole)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("hopcast.ini", "old");
    {
        const FileSizeLimit limit(100);
        EXPECT_EQ(FileReplace(sFile, std::string(5000, 'x')).TextGet(), kDiskFull);
    }
    EXPECT_EQ(BytesRead(sFile), "old");
    EXPECT_EQ(FilesList(folder.Path() + "/*"), std::vector<std::string>{"hopcast.ini"});
}

TEST(FileReplacePosix, ADeviceIsWrittenAndNotReplaced)
{
    EXPECT_EQ(FileReplace("/dev/full", "x").TextGet(), kDiskFull);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST(FileReplacePosix, AnAbandonedTemporaryFileIsNoObstacle)
{
    const TempFolder folder;
    folder.Write(".hopcast-" + std::to_string(getpid()) + "-0", "left by a killed program");
    EXPECT_TRUE(static_cast<bool>(FileReplace(folder.Path() + "/a", "x")));
    EXPECT_EQ(BytesRead(folder.Path() + "/a"), "x");
}

}  // namespace
