// The rules that Hopcast's own reader and writer add to those of the Windows calls.
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

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
    EXPECT_EQ(PrivateProfileGet("Data", "Key", "", 4, sFile), "38\xC2\xB0") << "3 characters";
    EXPECT_EQ(PrivateProfileGet("Data", "Key", "", 3, sFile), "38");
    EXPECT_EQ(KeyWrite(sFile, "\xC2\xB0"), 0);
    EXPECT_EQ(BytesRead(sFile), "\xEF\xBB\xBF[Data]\r\nKey=\xC2\xB0\r\n");
    const std::string sBare = folder.Write("b.ini", "\xEF\xBB\xBF");
    EXPECT_EQ(KeyWrite(sBare, "1"), 0);
    EXPECT_EQ(BytesRead(sBare), "\xEF\xBB\xBF[Data]\r\nKey=1\r\n");
}

TEST(PrivateProfilePosix, WhatIsNotUtf8BehindItsMarkIsReplaced)
{
    const TempFolder folder;
    const std::string sFile =
        folder.Write("a.ini", "\xEF\xBB\xBF[Data]\nOld=\xF6\nKey=Malm\xF6ya\xC3\n");
    EXPECT_EQ(KeyGet(sFile), "Malm\xEF\xBF\xBDya\xEF\xBF\xBD");
    EXPECT_EQ(KeyWrite(sFile, "1"), 0);
    EXPECT_EQ(BytesRead(sFile), "\xEF\xBB\xBF[Data]\nOld=\xF6\nKey=1\n") << "others stay";
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

TEST(PrivateProfilePosix, ManyKeysAtOnceGiveTheBytesOfOneAfterTheOther)
{
    const std::vector<PrivateProfileValue> aValue{
        {"Data", "Key", "1"}, {"New", "A", "2"},    {"data", "b", "3"}, {"Other", "Key", "4"},
        {"New", "B", "5"},    {"Data", "KEY", "6"}, {"New", "a", "7"},  {"Last", "C", "8"}};
    for (const std::string sBefore :
         {"", "\xEF\xBB\xBF", "; c", "[Data]", "[Data]\nb=\n\n",
          "[Other]\r\nKey=x\r\n\r\n[Data]\r\n", "[Data]\rKey = \"old\" \r[Other]\r",
          "[Data]\nA=1\n[Data]\nKey=2\n[Other", "=\n[]\n=1\n", "[Other]\n\n\n[Data]\nKey=1\n\n\n",
          "[Data]\nKey="}) {
        const TempFolder folder;
        const std::string sOne = folder.Write("one.ini", sBefore);
        const std::string sAll = folder.Write("all.ini", sBefore);
        for (const PrivateProfileValue& value : aValue)
            EXPECT_EQ(PrivateProfileWrite(value.sSection, value.sKey, value.sValue, sOne), 0);
        EXPECT_EQ(PrivateProfileWriteAll(aValue, sAll), 0);
        EXPECT_EQ(BytesRead(sAll), BytesRead(sOne)) << sBefore;
        for (const PrivateProfileValue& value :
             {aValue[2], aValue[3], aValue[4], aValue[5], aValue[7]})
            EXPECT_EQ(PrivateProfileGet(value.sSection, value.sKey, "", kBuffer, sAll),
                      value.sValue)
                << sBefore;
    }
}

TEST(PrivateProfilePosix, ManyKeysReplaceTheFileOnce)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("a.ini", "");
    const int nWatch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    ASSERT_GE(nWatch, 0);
    ASSERT_GE(inotify_add_watch(nWatch, folder.Path().c_str(), IN_MOVED_TO), 0);
    EXPECT_EQ(PrivateProfileWriteAll(
                  std::vector<PrivateProfileValue>{{"A", "1", "x"}, {"B", "2", "y"}}, sFile),
              0);
    alignas(inotify_event) std::array<char, 4096> aEvents{};
    const ssize_t nRead = read(nWatch, aEvents.data(), aEvents.size());
    close(nWatch);
    ASSERT_GT(nRead, 0);
    const auto* pEvent = reinterpret_cast<const inotify_event*>(aEvents.data());
    EXPECT_EQ(static_cast<std::size_t>(nRead), sizeof(inotify_event) + pEvent->len) << "one event";
}

TEST(PrivateProfilePosix, AUtf16FileIsReadAndStaysOne)
{
    const TempFolder folder;
    using namespace std::string_literals;
    const std::string sFile = folder.Write(
        "a.ini", "\xFF\xFE[\0D\0a\0t\0a\0]\0\n\0K\0e\0y\0=\0\xB0\0\x3D\xD8\x00\xDE\n\0"s);
    EXPECT_EQ(KeyGet(sFile), "\xC2\xB0\xF0\x9F\x98\x80");
    EXPECT_EQ(KeyWrite(sFile, "\xF0\x9F\x98\x80"), 0);
    EXPECT_EQ(BytesRead(sFile), "\xFF\xFE[\0D\0a\0t\0a\0]\0\n\0K\0e\0y\0=\0\x3D\xD8\x00\xDE\n\0"s);
    const std::string sBig =
        folder.Write("b.ini", "\xFE\xFF\0[\0D\0a\0t\0a\0]\0\n\0K\0e\0y\0=\0x\xD8\x00\0\n\0"s);
    EXPECT_EQ(KeyGet(sBig), "x\xEF\xBF\xBD") << "half a pair is replaced, half a unit dropped";
}

TEST(PrivateProfilePosix, MalformedUtf8NeverEndsALineOfAUtf16File)
{
    using namespace std::string_literals;
    const TempFolder folder;
    const std::string sFile = folder.Write("a.ini", "\xFF\xFE[\0D\0a\0t\0a\0]\0\n\0"s);
    // A line feed in two, three and four bytes, half a surrogate pair, and a code beyond the last
    // character.
    ASSERT_EQ(KeyWrite(sFile,
                       "a\xC0\x8A"
                       "b\xE0\x80\x8A"
                       "c\xF0\x80\x80\x8A"
                       "d\xED\xA0\x80"
                       "e\xF4\x90\x80\x80"
                       "f"),
              0);
    const std::string sBad = "\xEF\xBF\xBD";
    EXPECT_EQ(KeyGet(sFile), "a" + sBad + "b" + sBad + "c" + sBad + "d" + sBad + "e" + sBad + "f");
}

TEST(PrivateProfilePosix, APipeIsNeverWrittenTo)
{
    const TempFolder folder;
    const std::string sPipe = folder.Path() + "/pipe";
    ASSERT_EQ(mkfifo(sPipe.c_str(), 0600), 0);
    EXPECT_EQ(KeyWrite(sPipe, "new"), ENXIO);
    EXPECT_EQ(KeyGet(sPipe), "") << "nor waited for, where it was not named by the user";
}

}  // namespace
