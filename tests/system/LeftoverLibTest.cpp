#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "support/TempFolder.h"
#include "system/LeftoverLib.h"

namespace fs = std::filesystem;

namespace {

using namespace std::chrono_literals;

std::vector<std::string> NamesOf(const std::string& sFolder)
{
    std::vector<std::string> asNames;
    for (const auto& entry : fs::directory_iterator(sFolder))
        asNames.push_back(entry.path().filename().string());
    std::sort(asNames.begin(), asNames.end());
    return asNames;
}

TEST(LeftoversRemove, TakesWhatIsHopcastsAndOlderThanADay)
{
    const TempFolder folder;
    for (const char* sFile :
         {".hopcast-4711-0", "hopcast.ini.hopcast-4711", "voacapw.00ff.run/x", "voacapw.00fe.new/x",
          ".hopcast-mine", "hopcast.ini", "voacapw.txt", ".hopcast-", "voacapw.run.d/x"})
        folder.Write(sFile, "");
    for (const auto& entry : fs::directory_iterator(folder.Path()))
        fs::last_write_time(entry.path(), fs::file_time_type::clock::now() - 25h);
    folder.Write(".hopcast-4712-0", "");
    folder.Write("voacapw.00fd.run/x", "");
    fs::last_write_time(folder.Path(".hopcast-4712-0"), fs::file_time_type::clock::now() - 23h);
    LeftoversRemove(folder.Path());
    const std::vector<std::string> asExpected{".hopcast-",   ".hopcast-4712-0",  ".hopcast-mine",
                                              "hopcast.ini", "voacapw.00fd.run", "voacapw.run.d",
                                              "voacapw.txt"};
    EXPECT_EQ(NamesOf(folder.Path()), asExpected);
}

TEST(LeftoversRemove, AFolderThatIsMissingIsNone)
{
    const TempFolder folder;
    LeftoversRemove(folder.Path("none"));
    EXPECT_TRUE(NamesOf(folder.Path()).empty());
}

#ifndef _WIN32
TEST(LeftoversRemove, ALinkIsLeftAndNotFollowed)
{
    const TempFolder folder;
    folder.Write("mine/voacapw.00ff.run/x", "");
    for (const char* sName : {"mine/voacapw.00ff.run", "mine"})
        fs::last_write_time(folder.Path(sName), fs::file_time_type::clock::now() - 25h);
    fs::create_directory(folder.Path("RUN"));
    fs::create_directory_symlink(folder.Path("mine"), folder.Path("RUN/voacapw.00ff.run"));
    LeftoversRemove(folder.Path("RUN"));
    EXPECT_TRUE(fs::exists(folder.Path("RUN/voacapw.00ff.run/voacapw.00ff.run/x")));
}

TEST(FolderMakePrivate, LetsNobodyElseIntoWhatIsNew)
{
    const TempFolder folder;
    fs::create_directory(folder.Path("old"));
    fs::permissions(folder.Path("old"), fs::perms(0755));
    std::error_code ec;
    FolderMakePrivate(folder.Path("old") + "/new/inner", ec);
    EXPECT_FALSE(ec);
    EXPECT_EQ(fs::status(folder.Path("old")).permissions(), fs::perms(0755));
    EXPECT_EQ(fs::status(folder.Path("old") + "/new").permissions(), fs::perms(0700));
    EXPECT_EQ(fs::status(folder.Path("old") + "/new/inner").permissions(), fs::perms(0700));
    folder.Write("file", "");
    FolderMakePrivate(folder.Path("file") + "/below", ec);
    EXPECT_TRUE(ec);
}
#endif

}  // namespace
