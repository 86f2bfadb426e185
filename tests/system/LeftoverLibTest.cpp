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

void AgeSet(const std::string& sFile, std::chrono::hours tAge)
{
    fs::last_write_time(sFile, fs::file_time_type::clock::now() - tAge);
}

TEST(LeftoversRemove, TakesTemporaryFilesOfHopcastsThatAreOlderThanADay)
{
    const TempFolder folder;
    for (const char* sFile : {".hopcast-4711-0", "hopcast.ini.hopcast-4711", ".hopcast-mine",
                              ".hopcast-", "hopcast.ini", "voacapw.00ff.run"})
        AgeSet(folder.Write(sFile, ""), 25h);
    AgeSet(folder.Write(".hopcast-4712-0", ""), 23h);
    LeftoversRemove(folder.Path());
    const std::vector<std::string> asExpected{".hopcast-", ".hopcast-4712-0", ".hopcast-mine",
                                              "hopcast.ini", "voacapw.00ff.run"};
    EXPECT_EQ(NamesOf(folder.Path()), asExpected);
}

TEST(LeftoversRemove, AFolderThatIsMissingIsNone)
{
    const TempFolder folder;
    LeftoversRemove(folder.Path("none"));
    EXPECT_TRUE(NamesOf(folder.Path()).empty());
}

#ifndef _WIN32  // run folders, links and permission bits exist on POSIX systems only
TEST(LeftoversRemove, TakesRunFoldersOfVoacapThatAreOlderThanADay)
{
    const TempFolder folder;
    for (const char* sFolder : {"voacapw.00ff.run", "voacapw.00fe.new", "voacapw.run.d"}) {
        folder.Write(std::string(sFolder) + "/x", "");
        AgeSet(folder.Path(sFolder), 25h);
    }
    folder.Write("voacapw.00fd.run/x", "");
    LeftoversRemove(folder.Path());
    const std::vector<std::string> asExpected{"voacapw.00fd.run", "voacapw.run.d"};
    EXPECT_EQ(NamesOf(folder.Path()), asExpected);
}

TEST(LeftoversRemove, ALinkIsLeftAndNotFollowed)
{
    const TempFolder folder;
    folder.Write("mine/voacapw.00ff.run/x", "");
    for (const char* sName : {"mine/voacapw.00ff.run", "mine"}) AgeSet(folder.Path(sName), 25h);
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
