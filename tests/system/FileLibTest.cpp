#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/TempFolder.h"
#include "system/FileHost.h"
#include "system/FileLib.h"
#include "system/RunErrorText.h"

namespace fs = std::filesystem;

namespace {

std::vector<std::string> LinesRead(const std::string& sPath)
{
    std::vector<std::string> asLines;
    auto resFile = TextFile::Open(sPath);
    EXPECT_TRUE(static_cast<bool>(resFile)) << resFile.TextGet();
    std::string sLine;
    while (resFile) {
        const auto resLine = resFile.ValueGet().LineRead(sLine);
        EXPECT_TRUE(static_cast<bool>(resLine));
        if (!resLine || !resLine.ValueGet())
            break;
        asLines.push_back(sLine);
    }
    return asLines;
}

using Lines = std::vector<std::string>;

TEST(WildcardMatch, FollowsTheRulesOfListings)
{
    EXPECT_TRUE(WildcardMatch("System.*.ini", "SYSTEM.Ham.INI"));
    EXPECT_TRUE(WildcardMatch("System.*.ini", "System..ini"));
    EXPECT_FALSE(WildcardMatch("System.*.ini", "System.ini"));
    EXPECT_FALSE(WildcardMatch("System.*.ini", "System.Ham.ini.bak"));
    EXPECT_TRUE(WildcardMatch("*a*ab", "xaaab"));
    EXPECT_FALSE(WildcardMatch("*a*ab", "xab"));
    EXPECT_TRUE(WildcardMatch("a?c", "abc"));
    EXPECT_FALSE(WildcardMatch("a?c", "ac"));
    EXPECT_TRUE(WildcardMatch("*.*", "noextension"));
    EXPECT_TRUE(WildcardMatch("**", ""));
    EXPECT_FALSE(WildcardMatch("", "a"));
}

TEST(FilesList, ListsMatchingFilesInAlphabeticalOrderWithoutFolders)
{
    const TempFolder folder;
    for (const char* sName : {"System.SailMail.ini", "system.ham.INI", "System.ini", "other.txt"})
        folder.Write(sName, "");
    folder.Write("System.Folder.ini/x", "");
    EXPECT_EQ(FilesList(folder.Path() + "/System.*.ini"),
              (Lines{"system.ham.INI", "System.SailMail.ini"}));
}

TEST(FilesList, IsEmptyForAMissingFolder)
{
    const TempFolder folder;
    EXPECT_TRUE(FilesList(folder.Path() + "/none/*").empty());
}

TEST(FileExists, KnowsFilesFromFoldersAndFromNothing)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("rec533w.exe", "");
    EXPECT_TRUE(FileExists(sFile));
    EXPECT_FALSE(FileExists(folder.Path()));
    EXPECT_FALSE(FileExists(folder.Path() + "/"));
#ifndef _WIN32  // Windows ignores the separator
    EXPECT_FALSE(FileExists(sFile + "/"));
#endif
    EXPECT_FALSE(FileExists(folder.Path() + "/none"));
    EXPECT_FALSE(FileExists(""));
}

TEST(FileDelete, DeletesAFileAndTellsWhyNot)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("sound.out", "x");
    EXPECT_TRUE(static_cast<bool>(FileDelete(sFile)));
    EXPECT_FALSE(FileExists(sFile));
    EXPECT_EQ(FileDelete(sFile).TextGet(), kFileNotFound);
    EXPECT_EQ(FileDelete(folder.Path() + "/none/sound.out").TextGet(), kPathNotFound);
    fs::create_directory(folder.Path() + "/kept");
    EXPECT_EQ(FileDelete(folder.Path() + "/kept").TextGet(), kPathFileAccessError);
    EXPECT_TRUE(fs::is_directory(folder.Path() + "/kept"));
}

TEST(TextFile, TakesEveryLineEnd)
{
    const TempFolder folder;
    EXPECT_EQ(LinesRead(folder.Write("a", "one\ntwo\r\n\r\nfour")),
              (Lines{"one", "two", "", "four"}));
    EXPECT_EQ(LinesRead(folder.Write("b", "one\r\n")), Lines{"one"});
    EXPECT_EQ(LinesRead(folder.Write("c", "one\r")), Lines{"one"}) << "half a line end at the cut";
    EXPECT_EQ(LinesRead(folder.Write("d", "o\rne\n")), Lines{"o\rne"});
    EXPECT_EQ(LinesRead(folder.Write("e", "")), Lines{});
    EXPECT_EQ(LinesRead(folder.Write("f", "\n")), Lines{""});
    EXPECT_EQ(LinesRead(folder.Write("g", std::string("a\0b\n\xFF", 5))),
              (Lines{std::string("a\0b", 3), "\xFF"}));
}

TEST(TextFile, ReadsAcrossItsBuffer)
{
    const TempFolder folder;
    Lines asExpected;
    std::string sBytes;
    for (int i = 0; i < 30000; ++i) {
        asExpected.push_back(std::string(static_cast<std::size_t>(i % 13), 'x')
                             + std::to_string(i));
        sBytes += asExpected.back() + "\r\n";
    }
    EXPECT_EQ(LinesRead(folder.Write("long", sBytes)), asExpected);
}

TEST(TextFile, DropsTheRestOfAnEndlessLine)
{
    const TempFolder folder;
    const Lines asLines =
        LinesRead(folder.Write("long", std::string(TextFile::kLineMax + 5, 'x') + "\nnext\n"));
    ASSERT_EQ(asLines.size(), 2u);
    EXPECT_EQ(asLines[0].size(), TextFile::kLineMax);
    EXPECT_EQ(asLines[1], "next");
}

TEST(TextFile, TellsWhyItCannotBeOpened)
{
    const TempFolder folder;
    EXPECT_EQ(TextFile::Open(folder.Path() + "/none").TextGet(), kFileNotFound);
    EXPECT_EQ(TextFile::Open(folder.Path() + "/none/sound.out").TextGet(), kPathNotFound);
    EXPECT_EQ(TextFile::Open(folder.Path()).TextGet(), kPathFileAccessError);
}

TEST(FileRead, ReadsBytesUpToItsLimit)
{
    const TempFolder folder;
    const std::string sBytes = std::string("a\r\n\0\xFF", 5) + std::string(200000, 'x');
    const std::string sFile = folder.Write("a", sBytes);
    EXPECT_EQ(FileRead(sFile, sBytes.size()).ValueGet(), sBytes);
    EXPECT_EQ(FileRead(sFile, sBytes.size() - 1).TextGet(), kOverflow);
    EXPECT_EQ(FileRead(folder.Path() + "/none", 10).TextGet(), kFileNotFound);
    EXPECT_EQ(FileRead(folder.Write("empty", ""), 0).ValueGet(), "");
}

TEST(OutputFile, ReplacesTheOldFile)
{
    const TempFolder folder;
    const std::string sFile = folder.Write("sound.dat", "a longer text that was here before");
    auto resFile = OutputFile::Open(sFile);
    ASSERT_TRUE(static_cast<bool>(resFile));
    EXPECT_TRUE(static_cast<bool>(resFile.ValueGet().Write("one\r\n")));
    EXPECT_TRUE(static_cast<bool>(resFile.ValueGet().Write("two\n")));
    EXPECT_TRUE(static_cast<bool>(resFile.ValueGet().Close()));
    EXPECT_TRUE(static_cast<bool>(resFile.ValueGet().Close())) << "a second close does nothing";
    EXPECT_EQ(BytesRead(sFile), "one\r\ntwo\n");
}

TEST(OutputFile, TellsWhyItCannotBeOpened)
{
    const TempFolder folder;
    EXPECT_EQ(OutputFile::Open(folder.Path() + "/none/sound.dat").TextGet(), kPathNotFound);
    EXPECT_EQ(OutputFile::Open(folder.Path()).TextGet(), kPathFileAccessError);
    const std::string sFile = folder.Write("file", "");
    EXPECT_EQ(OutputFile::Open(sFile + "/sound.dat").TextGet(), kPathNotFound);
}

TEST(FileReplace, WritesNewAndOldFilesWhole)
{
    const TempFolder folder;
    const std::string sFile = folder.Path() + "/hopcast.ini";
    EXPECT_TRUE(static_cast<bool>(FileReplace(sFile, "one")));
    EXPECT_EQ(BytesRead(sFile), "one");
    EXPECT_TRUE(static_cast<bool>(FileReplace(sFile, "three")));
    EXPECT_EQ(BytesRead(sFile), "three");
    EXPECT_EQ(FilesList(folder.Path() + "/*"), Lines{"hopcast.ini"}) << "no temporary file left";
    EXPECT_EQ(FileReplace(folder.Path() + "/none/a", "x").TextGet(), kPathNotFound);
    EXPECT_EQ(FileReplace(folder.Path(), "x").TextGet(), kPathFileAccessError);
}

}  // namespace
