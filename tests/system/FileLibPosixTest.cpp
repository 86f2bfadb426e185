// What only POSIX systems have: permission bits, links, pipes, devices and limits.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
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
            chmod(sSecret.c_str(), 0);  // the file belongs to the user who runs the test
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

TEST(FileLibPosix, AFileWhoseFolderTakesNoNewOneIsWrittenInPlace)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("in/a.txt", "an older and longer text");
    chmod(sFile.c_str(), 0666);
    chmod(folder.Path().c_str(), 0755);
    chmod(folder.Path("in").c_str(), 0555);
    AsUnprivileged([&] {
        EXPECT_TRUE(FileReplace(sFile, "new"));
        EXPECT_EQ(FileReplace(folder.Path() + "/in/b.txt", "new").TextGet(), kPermissionDenied);
    });
    EXPECT_EQ(BytesRead(sFile), "new");
    AsUnprivileged([&] {
        const FileSizeLimit limit(100);
        EXPECT_EQ(FileReplace(sFile, std::string(200, 'x')).TextGet(), kDiskFull);
    });
    EXPECT_EQ(BytesRead(sFile), "new") << "a full disk leaves it whole";
    chmod(folder.Path("in").c_str(), 0755);
}

TEST(FileLibPosix, AnOpenDescriptorIsWrittenAtItsPlace)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("a.txt", "before,");
    const int nFile = open(sFile.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
    ASSERT_GE(nFile, 0);
    const std::string sLink = folder.Path() + "/link";
    fs::create_symlink("/dev/fd/" + std::to_string(nFile), sLink);
    EXPECT_TRUE(FileReplace("/dev/fd/" + std::to_string(nFile), "one,"));
    EXPECT_TRUE(FileReplace(sLink, "two"));
    close(nFile);
    EXPECT_EQ(BytesRead(sFile), "before,one,two");
    EXPECT_FALSE(FileReplace("/dev/fd/" + std::to_string(nFile), "closed"));
}

TEST(FileLibPosix, APipeIsWrittenDirectly)
{
    const TempFolder folder;
    const std::string sPipe = folder.Path() + "/pipe";
    ASSERT_EQ(mkfifo(sPipe.c_str(), 0600), 0);
    std::string sRead;
    std::thread reader([&] {
        std::ifstream stm(sPipe, std::ios::binary);
        std::getline(stm, sRead);
    });
    EXPECT_TRUE(FileReplace(sPipe, "through\n"));
    reader.join();
    EXPECT_EQ(sRead, "through");
}

TEST(FileLibPosix, OneFileUnderTwoNamesIsTheSame)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("a.txt", "");
    const std::string sLink = folder.Path() + "/link";
    fs::create_symlink(sFile, sLink);
    EXPECT_TRUE(FileSame(sFile, sLink));
    EXPECT_TRUE(FileSame(sFile, folder.Path() + "/./a.txt"));
    EXPECT_FALSE(FileSame(sFile, folder.Write("b.txt", "")));
    EXPECT_FALSE(FileSame(sFile, folder.Path() + "/none"));
}

}  // namespace
