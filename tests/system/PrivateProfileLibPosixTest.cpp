// The rules that our own reader and writer add to those of the Windows calls.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>

#include "support/Faults.h"
#include "support/TempFolder.h"
#include "system/FileLib.h"
#include "system/PrivateProfileLib.h"

namespace fs = std::filesystem;

namespace {

constexpr int kBuffer = 256;

int KeyWrite(const std::string& sFile, const std::string& sValue)
{
    return PrivateProfileWrite("Data", "Key", sValue, sFile);
}

std::string KeyGet(const std::string& sFile)
{
    return PrivateProfileGet("Data", "Key", "", kBuffer, sFile);
}

TEST(PrivateProfilePosix, KeepsTheFilesOwnLineEnds)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("a.ini", "[Data]\nA=1");
    EXPECT_EQ(KeyWrite(sFile, "new"), 0);
    EXPECT_EQ(PrivateProfileWrite("Other", "B", "2", sFile), 0);
    EXPECT_EQ(BytesRead(sFile), "[Data]\nA=1\nKey=new\n[Other]\nB=2\n");
}

TEST(PrivateProfilePosix, KeepsTheSpellingBeforeTheValue)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("a.ini", "[data]\n  KEY =  old \n");
    EXPECT_EQ(KeyWrite(sFile, "new"), 0);
    EXPECT_EQ(BytesRead(sFile), "[data]\n  KEY =  new\n");
}

TEST(PrivateProfilePosix, AByteOrderMarkMeansUtf8AndStays)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("a.ini", "\xEF\xBB\xBF[Data]\r\nKey=38\xC2\xB0\r\n");
    EXPECT_EQ(KeyGet(sFile), "38\xC2\xB0");
    EXPECT_EQ(PrivateProfileGet("Data", "Key", "", 4, sFile), "38") << "never half a character";
    EXPECT_EQ(KeyWrite(sFile, "\xC2\xB0"), 0);
    EXPECT_EQ(BytesRead(sFile), "\xEF\xBB\xBF[Data]\r\nKey=\xC2\xB0\r\n");
    const std::string sBare = folder.Write("b.ini", "\xEF\xBB\xBF");
    EXPECT_EQ(KeyWrite(sBare, "1"), 0);
    EXPECT_EQ(BytesRead(sBare), "\xEF\xBB\xBF[Data]\r\nKey=1\r\n");
}

TEST(PrivateProfilePosix, ALineEndInAValueMakesNoLine)
{
    const TempFolder folder;
    const std::string sFile = folder.Path() + "/a.ini";
    EXPECT_EQ(KeyWrite(sFile, "a\r\n[Other]\nb"), 0);
    EXPECT_EQ(BytesRead(sFile), "[Data]\r\nKey=a  [Other] b\r\n");
}

TEST(PrivateProfilePosix, ALineEndInALongerFormThanItNeedsMakesNoLine)
{
    const TempFolder folder;
    const std::string sFile = folder.Path() + "/a.ini";
    EXPECT_EQ(KeyWrite(sFile, "a\xC0\x8A[Other]"), 0);
    EXPECT_EQ(BytesRead(sFile), "[Data]\r\nKey=a??[Other]\r\n");
}

TEST(PrivateProfilePosix, AReadOnlyFileIsLeftAloneEvenWhereItsFolderIsWritable)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("a.ini", "[Data]\r\nKey=old\r\n");
    chmod(sFile.c_str(), 0444);
    chmod(folder.Path().c_str(), 0777);
    EXPECT_EQ(KeyWrite(sFile, "new"), EACCES);
    EXPECT_EQ(KeyWrite(sFile, "old"), EACCES) << "also when nothing would change";
    AsUnprivileged([&] { EXPECT_EQ(KeyWrite(sFile, "new"), EACCES); });
    chmod(sFile.c_str(), 0644);
    if (geteuid() == 0)
        AsUnprivileged([&] { EXPECT_EQ(KeyWrite(sFile, "new"), EACCES) << "another user's"; });
    EXPECT_EQ(BytesRead(sFile), "[Data]\r\nKey=old\r\n");
}

TEST(PrivateProfilePosix, AFileThatCannotBeReadIsNotReplaced)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("a.ini", "[Data]\r\nKey=old\r\n");
    chmod(sFile.c_str(), 0222);
    chmod(folder.Path().c_str(), 0777);
    AsUnprivileged([&] {
        EXPECT_EQ(KeyWrite(sFile, "new"), EACCES);
        EXPECT_EQ(KeyGet(sFile), "");
    });
    chmod(sFile.c_str(), 0644);
    EXPECT_EQ(BytesRead(sFile), "[Data]\r\nKey=old\r\n");
}

TEST(PrivateProfilePosix, AFullDiskLeavesTheOldFileWhole)
{
    const TempFolder folder;
    const std::string sOld = "[Data]\r\nKey=old\r\n" + std::string(500, ';');
    const std::string sFile = folder.Write("a.ini", sOld);
    {
        const FileSizeLimit limit(100);
        EXPECT_EQ(KeyWrite(sFile, "new"), EFBIG);
    }
    EXPECT_EQ(BytesRead(sFile), sOld);
    EXPECT_EQ(FilesList(folder.Path() + "/*").size(), 1u);
    EXPECT_EQ(KeyWrite("/dev/full", "new"), ENOSPC);
}

TEST(PrivateProfilePosix, TellsWhatIsInTheWay)
{
    const TempFolder folder;
    EXPECT_EQ(KeyWrite(folder.Path() + "/none/a.ini", "new"), ENOENT);
    EXPECT_EQ(KeyWrite(folder.Path(), "new"), EISDIR);
}

TEST(PrivateProfilePosix, AWriteThatChangesNothingTouchesNothing)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("a.ini", "[Data]\r\nKey=old\r\n");
    struct stat infoBefore {};
    struct stat infoAfter {};
    ASSERT_EQ(stat(sFile.c_str(), &infoBefore), 0);
    EXPECT_EQ(KeyWrite(sFile, "old"), 0);
    ASSERT_EQ(stat(sFile.c_str(), &infoAfter), 0);
    EXPECT_EQ(infoBefore.st_ino, infoAfter.st_ino);
}

TEST(PrivateProfilePosix, AFileCutAnywhereIsReadAndWritten)
{
    const std::string sWhole = "; c\r\n[Other]\r\nKey=1\r\n\r\n[Data]\r\n Key = \" x \"\r\nB=2\r\n";
    for (std::size_t n = 0; n <= sWhole.size(); ++n) {
        const TempFolder folder;
        const std::string sFile = folder.Write("a.ini", sWhole.substr(0, n));
        EXPECT_EQ(KeyWrite(sFile, "new"), 0);
        EXPECT_EQ(KeyGet(sFile), "new") << n;
        const std::string sNew = BytesRead(sFile);
        EXPECT_EQ(sNew.substr(0, std::min<std::size_t>(n, 22)),
                  sWhole.substr(0, std::min<std::size_t>(n, 22)));
    }
}

}  // namespace
