/// The tests themselves: the tests that headers name exist, and none is skipped without notice.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "support/TempFolder.h"
#include "system/FileLib.h"

namespace fs = std::filesystem;

namespace {

const fs::path kTests = TESTS_FOLDER;

std::vector<fs::path> FilesBelow(const fs::path& pthFolder, const std::string& sExtension)
{
    std::vector<fs::path> aFile;
    for (const auto& entry : fs::recursive_directory_iterator(pthFolder)) {
        if (entry.path().extension() == sExtension)
            aFile.push_back(entry.path());
    }
    return aFile;
}

/// The words of a header's comment that are files or patterns below tests/.
std::vector<std::string> TestsNamed(const std::string& sHeader)
{
    std::vector<std::string> asTest;
    std::istringstream stm(sHeader);
    for (std::string sWord; stm >> sWord;) {
        if (sWord.starts_with("tests/"))
            asTest.push_back(sWord.substr(6, sWord.find_first_of(",;") - 6));
    }
    return asTest;
}

TEST(Tests, ThatHeadersNameExist)
{
    std::size_t nNamed = 0;
    for (const fs::path& pthHeader : FilesBelow(SOURCE_FOLDER, ".h")) {
        for (const std::string& sTest : TestsNamed(BytesRead(pthHeader.string()))) {
            EXPECT_FALSE(FilesList((kTests / sTest).string()).empty())
                << pthHeader << " names " << sTest;
            ++nNamed;
        }
    }
    EXPECT_GT(nNamed, 50U);
}

TEST(Tests, AreSkippedForTheRealVoacapAlone)
{
    // In two pieces, so that this file does not match its own search.
    const std::string sSkip = std::string("GTEST_") + "SKIP";
    for (const fs::path& pthTest : FilesBelow(kTests, ".cpp"))
        EXPECT_TRUE(BytesRead(pthTest.string()).find(sSkip) == std::string::npos)
            << pthTest << " skips: NEED_VOACAPL() tells the reason and fails in CI";
}

}  // namespace
