/// The table of rules to break fits the sources, and scripts/mutate.sh --check reports where it
/// does not.
#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <string>

#include "support/ProgramRun.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

const std::string kScript = PROJECT_FOLDER "/scripts/mutate.sh";

constexpr const char* kRow =
    "[least]\n"
    "rule    = The least counts.\n"
    "file    = src/map/Paint.cpp\n"
    "text    = if (nSnr >= nLeast)\n"
    "becomes = if (nSnr > nLeast)\n"
    "tests   = PaintTest:Paint.*\n";
constexpr const char* kSource = "bool Is()\n{\n    if (nSnr >= nLeast)\n        return true;\n}\n";

struct CheckCase {
    const char* sName;
    const char* sFile;  ///< the path of the source
    std::string sSource;
    std::string sTable;
    bool bFits;
    const char* sSaid;  ///< what the script says about it
};

std::ostream& operator<<(std::ostream& stm, const CheckCase& cse) { return stm << cse.sName; }

std::string Replaced(std::string sText, const std::string& sOld, const std::string& sNew)
{
    return sText.replace(sText.find(sOld), sOld.size(), sNew);
}

class MutationCheck : public testing::TestWithParam<CheckCase> {};

TEST_P(MutationCheck, TellsWhetherTheRowFitsTheSources)
{
    const CheckCase& cse = GetParam();
    const TempFolder folder;
    fs::create_directory(folder.Path("scripts"));
    fs::copy(kScript, folder.Path("scripts/mutate.sh"));
    folder.Write("tests/map/CMakeLists.txt", "hopcast_test(PaintTest LABEL unit SOURCES P.cpp)\n");
    folder.Write("src/map/Other.cpp", "int OtherGet();\n");
    folder.Write(cse.sFile, cse.sSource);
    folder.Write("tests/mutation/rules.txt", cse.sTable);
    const ProgramResult res = ProgramRun({folder.Path("scripts/mutate.sh"), "--check"});
    EXPECT_EQ(res.nStatus, cse.bFits ? 0 : 1) << res.sError;
    EXPECT_NE(res.sError.find(cse.sSaid), std::string::npos) << res.sError;
    EXPECT_EQ(res.sError.empty(), cse.sSaid[0] == '\0') << res.sError;
}

constexpr const char* kPlace = "src/map/Paint.cpp";
const std::string kTwice = std::string(kSource) + kSource;

INSTANTIATE_TEST_SUITE_P(
    Rows, MutationCheck,
    testing::Values(
        CheckCase{"in its place", kPlace, kSource, kRow, true, ""},
        CheckCase{"lines above it", kPlace, "\n// moved\n\n" + std::string(kSource), kRow, true,
                  ""},
        CheckCase{"the file has moved", "src/sky/Paint.cpp", kSource, kRow, true,
                  "least: its text has moved from src/map/Paint.cpp to src/sky/Paint.cpp"},
        CheckCase{"the line has moved", "src/map/Other.cpp", kSource, kRow, true,
                  "least: its text has moved from src/map/Paint.cpp to src/map/Other.cpp"},
        CheckCase{"twice in its file", kPlace, kTwice, kRow, false, "more than once"},
        CheckCase{"moved and twice", "src/map/Other.cpp", kTwice, kRow, false, "more than once"},
        CheckCase{"gone", kPlace, "int Nothing();\n", kRow, false,
                  "src/map/Paint.cpp has no \"if (nSnr >= nLeast)\", and 0 other files have it"},
        CheckCase{"no such test program", kPlace, kSource,
                  Replaced(kRow, "PaintTest", "PaintingTest"), false,
                  "no test program PaintingTest"},
        CheckCase{"a column too few", kPlace, kSource,
                  Replaced(kRow, "rule    = The least counts.\n", ""), false, "no \"rule\""},
        CheckCase{"a name twice", kPlace, kSource, std::string(kRow) + kRow, false,
                  "rules.txt:8: neither a [name] nor a new \"column = value\""}));

TEST(Mutation, EveryRuleFindsItsTextOnce)
{
    const ProgramResult res = ProgramRun({kScript, "--check"});
    EXPECT_EQ(res.nStatus, 0) << res.sError;
}

}  // namespace
