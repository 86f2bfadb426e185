#include <gtest/gtest.h>

#include <filesystem>

#include "app/engines/EngineList.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

TEST(EngineMake, Rec533IsInThisProcessOnlyWhereTheRootsProgramIsOurs)
{
    const TempFolder folder;
    const EnvironmentSet root("HOPCAST_ITSHFBC", folder.Path());
    EXPECT_EQ(EngineMake(kEngineRec533)->VersionGet(), "") << "none is there";
    EXPECT_TRUE(EngineMake(kEngineRec533)->ObstacleGet());
    folder.Write("bin_win/rec533w.exe", "MZ somebody else's");
    EXPECT_EQ(EngineMake(kEngineRec533)->VersionGet(), "");
    EXPECT_EQ(EngineMake(kEngineRec533)->LimitsGet().nFrequencies, 10);
    fs::remove(folder.Path("bin_win/rec533w.exe"));
    fs::create_symlink(TEST_BIN "/rec533w.exe", folder.Path("bin_win/rec533w.exe"));
    folder.Write("hopcast-engines.txt", "rec533w.exe link " TEST_BIN "/rec533w.exe\n");
    const auto pOurs = EngineMake(kEngineRec533);
    EXPECT_TRUE(pOurs->VersionGet().starts_with("built-in"));
    EXPECT_EQ(pOurs->LimitsGet().nFrequencies, 15);
    EXPECT_EQ(EngineMake(kEngineVoacap)->NameGet(), "VOACAP");
}

}  // namespace
