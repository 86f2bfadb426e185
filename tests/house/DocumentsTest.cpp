/// The documents are true: examples are rows of real decks and outputs below a correct ruler, and
/// no key of the profile is missing.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "settings/ProfileLib.h"
#include "support/MsgRecorder.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using Lines = std::vector<std::string>;

/// Lines of a text file without trailing blanks and line ends.
Lines LinesRead(const fs::path& pthFile)
{
    Lines asLine;
    std::ifstream stm(pthFile, std::ios::binary);
    EXPECT_TRUE(stm.is_open()) << pthFile;
    for (std::string sLine; std::getline(stm, sLine);)
        asLine.push_back(sLine.substr(0, sLine.find_last_not_of(" \r") + 1));
    return asLine;
}

bool RulerIs(const std::string& sLine) { return sLine.starts_with("1234567890"); }

/// The fenced blocks whose second line is a ruler of columns.
std::vector<Lines> ExamplesGet(const Lines& asDocument)
{
    std::vector<Lines> aExample;
    Lines asBlock;
    bool bInside = false;
    for (const std::string& sLine : asDocument) {
        if (!sLine.starts_with("```")) {
            asBlock.push_back(sLine);
            continue;
        }
        if (bInside && asBlock.size() > 2 && RulerIs(asBlock[1]))
            aExample.push_back(asBlock);
        asBlock.clear();
        bInside = !bInside;
    }
    return aExample;
}

/// Every line of the captured decks and outputs, sorted.
Lines CapturedLines()
{
    Lines asAll;
    for (const auto& entry : fs::recursive_directory_iterator(CAPTURED_FOLDER)) {
        if (!entry.is_regular_file() || entry.path().extension() == ".md")
            continue;
        const Lines asLine = LinesRead(entry.path());
        asAll.insert(asAll.end(), asLine.begin(), asLine.end());
    }
    std::sort(asAll.begin(), asAll.end());
    return asAll;
}

TEST(Documents, ExamplesOfDecksAreRowsOfRealFiles)
{
    const Lines asCaptured = CapturedLines();
    const auto aExample = ExamplesGet(LinesRead(DOCS_FOLDER "/decks.md"));
    EXPECT_GE(aExample.size(), 8u);
    for (const Lines& asExample : aExample) {
        for (std::size_t i = 2; i < asExample.size(); ++i) {
            // An example may show only the beginning of a long row.
            const auto it = std::lower_bound(asCaptured.begin(), asCaptured.end(), asExample[i]);
            EXPECT_TRUE(it != asCaptured.end() && it->starts_with(asExample[i])) << asExample[i];
            EXPECT_LE(asExample[i].size(), asExample[1].size()) << asExample[i];
        }
    }
}

TEST(Documents, RulersCountColumnsFromOne)
{
    for (const Lines& asExample : ExamplesGet(LinesRead(DOCS_FOLDER "/decks.md"))) {
        const std::string& sTens = asExample[0];
        const std::string& sUnits = asExample[1];
        for (std::size_t i = 0; i < sUnits.size(); ++i)
            EXPECT_EQ(sUnits[i], "1234567890"[i % 10]) << sUnits;
        for (std::size_t nColumn = 10; nColumn <= sUnits.size(); nColumn += 10) {
            const std::string sNumber = std::to_string(nColumn / 10);
            ASSERT_GE(sTens.size(), nColumn) << sTens;
            EXPECT_EQ(sTens.substr(nColumn - sNumber.size(), sNumber.size()), sNumber) << sTens;
        }
    }
}

TEST(Documents, EveryKeyOfTheProfileIsTold)
{
    const TempFolder folder;
    Settings settings;
    settings.m_sProfileFile = folder.Path("all.ini");
    ASSERT_TRUE(ProfileSave(settings, WindowData{}, CallMessages()));
    const std::string sDocument = BytesRead(DOCS_FOLDER "/files.md");
    int nKeys = 0;
    for (const std::string& sLine : LinesRead(settings.m_sProfileFile)) {
        const bool bSection = sLine.starts_with("[");
        const std::string sName =
            bSection ? sLine.substr(1, sLine.size() - 2) : sLine.substr(0, sLine.find('='));
        const std::size_t nBlank = sName.find_last_of(' ');
        const std::string sIndex = nBlank == std::string::npos ? "" : sName.substr(nBlank + 1);
        const bool bIndexed = sIndex.find_first_not_of("0123456789") == std::string::npos;
        if (sLine.empty() || (bIndexed && !sIndex.empty() && sIndex != "1"))
            continue;
        EXPECT_NE(sDocument.find("`" + sName + "`"), std::string::npos) << sName;
        nKeys += bSection ? 0 : 1;
    }
    EXPECT_GT(nKeys, 25);
}

}  // namespace
