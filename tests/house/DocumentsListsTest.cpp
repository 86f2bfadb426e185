/// The documents' lists are complete: the labels of the tests, the fuzz programs, the benchmarks,
/// the files of the built-in method, the engines, the colours, the columns of the details and of
/// the programs' tables, the environment variables.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "house/HouseFiles.h"
#include "support/ProgramRun.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using Names = std::set<std::string>;

const fs::path kRoot = PROJECT_FOLDER;
const std::regex kQuoted("`([^`\n]+)`");

Names NamesIn(const std::string& sText, const std::regex& rgx)
{
    const std::vector<std::string> asFound = MatchesGet(sText, rgx);
    return {asFound.begin(), asFound.end()};
}

/// The rows below the header of a document's table.
std::vector<std::string> RowsGet(const char* sDocument, const std::string& sHead)
{
    const std::string sText = BytesRead((kRoot / "docs" / sDocument).string());
    const std::size_t nHead = sText.find("\n" + sHead + "\n");
    EXPECT_NE(nHead, std::string::npos) << sHead;
    std::vector<std::string> asRow;
    if (nHead == std::string::npos)
        return asRow;
    std::istringstream stm(sText.substr(nHead + sHead.size() + 2));
    std::string sLine;
    std::getline(stm, sLine);  // the line of hyphens
    while (std::getline(stm, sLine) && sLine.starts_with("| ")) asRow.push_back(sLine);
    return asRow;
}

std::string FirstColumnGet(const char* sDocument, const std::string& sHead)
{
    std::string sColumn;
    for (const std::string& sRow : RowsGet(sDocument, sHead))
        sColumn += sRow.substr(2, sRow.find(" | ") - 2) + "\n";
    return sColumn;
}

/// The files in a folder and below it whose names end like this.
std::vector<fs::path> FilesBelow(const char* sFolder, const std::string& sEnd)
{
    std::vector<fs::path> aFile;
    for (const auto& entry : fs::recursive_directory_iterator(kRoot / sFolder))
        if (entry.path().filename().string().ends_with(sEnd))
            aFile.push_back(entry.path());
    return aFile;
}

TEST(DocumentsLists, LabelsAreThoseOfTheTests)
{
    static const std::regex kLabel("LABELS? ([a-z0-9]+)");
    Names asLabel;
    for (const fs::path& pthFile : FilesBelow("tests", "CMakeLists.txt"))
        asLabel.merge(NamesIn(BytesRead(pthFile.string()), kLabel));
    EXPECT_GT(asLabel.size(), 5U);
    EXPECT_EQ(NamesIn(FirstColumnGet("testing.md", "| label | what it is | needs |"), kQuoted),
              asLabel);
}

TEST(DocumentsLists, FuzzProgramsAreThoseOfTheFolder)
{
    Names asProgram;
    for (const fs::path& pthFile : FilesBelow("tests/fuzz", ".cpp"))
        asProgram.insert(pthFile.stem().string());
    EXPECT_GT(asProgram.size(), 10U);
    EXPECT_EQ(
        NamesIn(FirstColumnGet("testing.md", "| program | the input is | promises |"), kQuoted),
        asProgram);
}

TEST(DocumentsLists, BenchmarksAreThoseOfThePrograms)
{
    static const std::regex kBenchmark("\nBENCHMARK(?:_CAPTURE)?\\((\\w+?)(?:Bench)?[,)]");
    Names asBenchmark;
    for (const fs::path& pthFile : FilesBelow("bench", ".cpp"))
        asBenchmark.merge(NamesIn(BytesRead(pthFile.string()), kBenchmark));
    EXPECT_GT(asBenchmark.size(), 15U);
    EXPECT_EQ(NamesIn(FirstColumnGet("performance.md", "| benchmark | what is timed |"), kQuoted),
              asBenchmark);
}

TEST(DocumentsLists, StepsOfTheMethodNameFilesThatAreThere)
{
    int nFiles = 0;
    for (const std::string& sRow : RowsGet("model.md", "| step | source | file |")) {
        for (const std::string& sFile : MatchesGet(sRow.substr(sRow.rfind(" | ")), kQuoted)) {
            EXPECT_TRUE(fs::exists(kRoot / "src/engine/rec533" / (sFile + ".cpp"))) << sFile;
            ++nFiles;
        }
    }
    EXPECT_GT(nFiles, 15);
}

/// Covers both tables of hopcast-p533's columns, those it reads and those it adds.
TEST(DocumentsLists, ColumnsOfTheTableOfCircuitsAreThoseOfTheSource)
{
    static const std::regex kColumn("([a-z0-9_]+)");
    static const std::regex kText("\"([a-z0-9_,]+)\"");
    const std::string sSource = BytesRead(SOURCE_FOLDER "/engine/run533/CircuitTable.cpp");
    const std::size_t nFrom = sSource.find("kInputNames{");
    const std::size_t nTo = sSource.find(";", sSource.find("kOutputNames ="));
    ASSERT_NE(nFrom, std::string::npos);
    ASSERT_NE(nTo, std::string::npos);
    Names asColumn;
    for (const std::string& sText : MatchesGet(sSource.substr(nFrom, nTo - nFrom), kText))
        asColumn.merge(NamesIn(sText, kColumn));
    EXPECT_GT(asColumn.size(), 50U);

    const std::string sDocument = BytesRead(DOCS_FOLDER "/model.md");
    Names asTold;
    for (std::size_t nHead = sDocument.find("\n| column | meaning |\n"); nHead != std::string::npos;
         nHead = sDocument.find("\n| column | meaning |\n", nHead + 1)) {
        std::istringstream stm(sDocument.substr(nHead + 1));
        std::string sLine;
        std::getline(stm, sLine);
        std::getline(stm, sLine);
        while (std::getline(stm, sLine) && sLine.starts_with("| "))
            asTold.merge(NamesIn(sLine.substr(2, sLine.find(" | ") - 2), kColumn));
    }
    EXPECT_EQ(asTold, asColumn);
}

TEST(DocumentsLists, EnginesAreThoseOfTheSource)
{
    static const std::regex kName("EngineProgram\\{\\w+, +\"[a-z0-9.]+\", \"([A-Z0-9]+)\"");
    static const std::regex kProgram("EngineProgram\\{\\w+, +\"([a-z0-9.]+)\"");
    const std::string sSource = BytesRead(SOURCE_FOLDER "/propagation/itshfbc/EngineProgram.cpp");
    const std::vector<std::string> asName = MatchesGet(sSource, kName);
    const std::vector<std::string> asProgram = MatchesGet(sSource, kProgram);
    const std::vector<std::string> asRow =
        RowsGet("engines.md", "| number | engine | program | who brings it |");
    ASSERT_EQ(asName.size(), 3U);
    ASSERT_EQ(asProgram.size(), asName.size());
    ASSERT_EQ(asRow.size(), asName.size());
    for (std::size_t i = 0; i < asRow.size(); ++i)
        EXPECT_TRUE(asRow[i].starts_with("| " + std::to_string(i + 1) + " | " + asName[i] + " | `"
                                         + asProgram[i] + "` | "))
            << asRow[i];
}

/// The colours' names are the comments after their rows.
TEST(DocumentsLists, ColoursOfTheGuideAreThoseOfTheScale)
{
    static const std::regex kLowest("BandRow\\{([0-9]+)[.]0F,");
    static const std::regex kColour("BandRow\\{[^\n]*// (?:Standard: )?([a-z ]+)\n");
    const std::string sSource = BytesRead(SOURCE_FOLDER "/propagation/SnrScale.cpp");
    const std::vector<std::string> asLowest = MatchesGet(sSource, kLowest);
    const std::vector<std::string> asColour = MatchesGet(sSource, kColour);
    ASSERT_GT(asLowest.size(), 5U);
    ASSERT_EQ(asColour.size(), asLowest.size() + 1);
    const std::vector<std::string> asRow =
        RowsGet("guide.md", "| colour | SNR in dB | as a rule of thumb |");
    ASSERT_EQ(asRow.size(), asColour.size());
    for (std::size_t i = 0; i < asRow.size(); ++i) {
        std::string sBand = "below " + asLowest.back();
        if (i == 0)
            sBand = asLowest[0] + " and above";
        else if (i < asLowest.size())
            sBand = asLowest[i] + " to " + asLowest[i - 1];
        EXPECT_TRUE(asRow[i].starts_with("| " + asColour[i] + " | " + sBand + " | ")) << asRow[i];
    }
}

TEST(DocumentsLists, ColumnsOfTheDetailsAreThoseOfTheWindow)
{
    static const std::regex kHeader("\n    \\{QT_TRANSLATE_NOOP\\(\"frmDetails\", \"([^\"]+)\"\\), \"-");
    static const std::regex kColumn("([A-Z][A-Za-z -]*)");
    const std::string sSource = BytesRead(SOURCE_FOLDER "/ui/details/frmDetails.cpp");
    const Names asHeader = NamesIn(sSource, kHeader);
    EXPECT_GT(asHeader.size(), 5U);
    EXPECT_EQ(NamesIn(FirstColumnGet("guide.md", "| column | what it is |"), kColumn), asHeader);
}

TEST(DocumentsLists, EveryVariableOfTheEnvironmentIsNamed)
{
    static const std::regex kVariable("(?:EnvironmentGet|BaseFolderGet|getenv)\\(\"([A-Za-z_]+)\"");
    Names asVariable;
    for (const char* sFolder : {"src/system", "src/propagation/itshfbc"})
        for (const fs::path& pthFile : FilesBelow(sFolder, ".cpp"))
            asVariable.merge(NamesIn(BytesRead(pthFile.string()), kVariable));
    EXPECT_GT(asVariable.size(), 6U);
    const std::string sDocument = BytesRead(DOCS_FOLDER "/files.md");
    for (const std::string& sVariable : asVariable)
        EXPECT_NE(sDocument.find("`" + sVariable + "`"), std::string::npos) << sVariable;
}

TEST(DocumentsLists, ColumnsOfTheHelpAreInTheManualPage)
{
    const std::string sProgram = TEST_BIN "/hopcast-predict";
    const ProgramResult res = ProgramRun({sProgram, "--help"});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    const std::size_t nFrom = res.sOut.find("\nColumns of csv");
    ASSERT_NE(nFrom, std::string::npos);
    static const std::regex kColumn("\n  ([a-z][A-Za-z_]*)  ");
    const Names asColumn = NamesIn(res.sOut.substr(nFrom), kColumn);
    EXPECT_GT(asColumn.size(), 25U);
    const std::string sPage = BytesRead(PROJECT_FOLDER "/packaging/man/hopcast-predict.1");
    const std::size_t nColumns = sPage.find(".SH COLUMNS");
    ASSERT_NE(nColumns, std::string::npos);
    static const std::regex kWord("([A-Za-z_]+)");
    const Names asWord =
        NamesIn(sPage.substr(nColumns, sPage.find(".SH", nColumns + 1) - nColumns), kWord);
    for (const std::string& sColumn : asColumn) EXPECT_TRUE(asWord.contains(sColumn)) << sColumn;
}

}  // namespace
