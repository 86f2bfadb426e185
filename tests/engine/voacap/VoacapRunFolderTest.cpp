#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "engine/voacap/VoacapRunFolder.h"
#include "support/TempFolder.h"
#include "system/RunErrorText.h"

namespace fs = std::filesystem;

namespace {

TEST(VoacapRunFolderLife, AFolderIsMadeAndGoesWithItsContents)
{
    const TempFolder parent;
    std::string sFolder;
    {
        const auto resFolder = VoacapRunFolder::Make(parent.Path());
        ASSERT_TRUE(resFolder) << resFolder.TextGet();
        sFolder = resFolder.ValueGet().Path();
        EXPECT_EQ(fs::path(sFolder).parent_path(), fs::path(parent.Path()));
        fs::create_directories(resFolder.ValueGet().Path("run/deep"));
        EXPECT_TRUE(fs::is_directory(fs::path(sFolder) / "run" / "deep"));
    }
    EXPECT_TRUE(fs::is_empty(parent.Path()));
}

TEST(VoacapRunFolderLife, TwoRunsDoNotMeet)
{
    const TempFolder parent;
    const auto resOne = VoacapRunFolder::Make(parent.Path());
    const auto resTwo = VoacapRunFolder::Make(parent.Path());
    ASSERT_TRUE(resOne);
    ASSERT_TRUE(resTwo);
    EXPECT_NE(resOne.ValueGet().Path(), resTwo.ValueGet().Path());
    EXPECT_TRUE(fs::is_directory(resOne.ValueGet().Path()));
    EXPECT_TRUE(fs::is_directory(resTwo.ValueGet().Path()));
}

TEST(VoacapRunFolderLife, TheFolderOfADeadRunIsTakenAway)
{
    const TempFolder parent;
    parent.Write("voacapw.0123456789ab.run/lock", "");
    parent.Write("voacapw.0123456789ab.run/run/sound.out", "half");
    parent.Write("voacapw.ba9876543210.run/run/sound.out", "never locked");
    ASSERT_TRUE(VoacapRunFolder::Make(parent.Path()));
    EXPECT_TRUE(fs::is_empty(parent.Path()));
}

TEST(VoacapRunFolderLife, AFolderThatIsJustBeingMadeStays)
{
    const TempFolder parent;
    parent.Write("voacapw.0123456789ab.new/x", "");
    parent.Write("voacapw.ba9876543210.new/x", "");
    fs::last_write_time(parent.Path("voacapw.ba9876543210.new"),
                        fs::file_time_type::clock::now() - std::chrono::minutes(2));
    ASSERT_TRUE(VoacapRunFolder::Make(parent.Path()));
    EXPECT_TRUE(fs::exists(parent.Path("voacapw.0123456789ab.new/x")));
    EXPECT_FALSE(fs::exists(parent.Path("voacapw.ba9876543210.new")));
}

TEST(VoacapRunFolderLife, OtherFilesStay)
{
    const TempFolder parent;
    parent.Write("sound.dat", "deck");
    parent.Write("other.run/lock", "");
    parent.Write("voacapw.txt", "notes");
    ASSERT_TRUE(VoacapRunFolder::Make(parent.Path()));
    EXPECT_TRUE(fs::exists(parent.Path("sound.dat")));
    EXPECT_TRUE(fs::exists(parent.Path("other.run/lock")));
    EXPECT_TRUE(fs::exists(parent.Path("voacapw.txt")));
}

TEST(VoacapRunFolderLife, AMissingParentIsAnError)
{
    const TempFolder parent;
    const auto resFolder = VoacapRunFolder::Make((fs::path(parent.Path()) / "none").string());
    ASSERT_FALSE(resFolder);
    EXPECT_EQ(resFolder.TextGet(), kFileNotFound);
}

}  // namespace
