// The console that a Windows program prints to: its code page during the run and afterwards.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/TempFolder.h"
#include "system/FileLib.h"
#include "system/ProcessLib.h"

namespace {

/// What the child program prints, in a console of its own that has no window.
std::string ChildRun(std::vector<std::string> asWords)
{
    const TempFolder folder;
    asWords.insert(asWords.begin(), CHILD_PROGRAM);
    const auto resId = ProcessStart({asWords, {}, folder.Path("said")});
    EXPECT_TRUE(resId) << resId.TextGet();
    EXPECT_TRUE(resId && ProcessWait(resId.ValueGet(), 30.0));
    return BytesRead(folder.Path("said"));
}

TEST(ProgramsWin32, TheConsoleTakesUtf8WhateverIsPrintedAndGetsItsOwnAlphabetBack)
{
    using Words = std::vector<std::string>;
    for (const Words& asWords :
         {Words{"/hopcast-predict.exe", "--help"}, Words{"/hopcast-predict.exe", "--wrong"},
          Words{"/hopcast-p533.exe"}, Words{"/rec533w.exe"}}) {
        Words asWatch = asWords;
        asWatch[0] = TEST_BIN + asWatch[0];
        asWatch.insert(asWatch.begin(), "watch");
        EXPECT_EQ(ChildRun(asWatch), "during 65001 after 437\r\n") << asWords[0];
    }
}

TEST(ProgramsWin32, TheConsoleUnderstandsColoursOnlyWhileTheProgramRuns)
{
    EXPECT_EQ(ChildRun({"color"}), "colours 1 kept 1\r\n");
}

TEST(ProgramsWin32, TheEngineWorksInARootOfAnyAlphabet)
{
    for (const char* sName : {"Gr\xC3\xB6\xC3\x9F"
                              "e",
                              "\xCE\x9A\xCF\x8D \xE6\xB3\xA2"}) {
        const TempFolder folder;
        const std::string sRoot = folder.Path(sName);
        const auto resDeck = FileRead(RECORDED_DECK, std::size_t{1} << 20);
        ASSERT_TRUE(resDeck) << resDeck.TextGet();
        folder.Write(std::string(sName) + "/RUN/sound.dat", resDeck.ValueGet());
        const auto resId = ProcessStart(
            {{TEST_BIN "/rec533w.exe", sRoot, "sound.dat", "sound.out"}, {}, folder.Path("said")});
        ASSERT_TRUE(resId) << resId.TextGet();
        EXPECT_TRUE(ProcessWait(resId.ValueGet(), 30.0)) << BytesRead(folder.Path("said"));
        EXPECT_TRUE(FileExists(sRoot + "\\RUN\\sound.out")) << sName;
    }
}

}  // namespace
