/// What docs/testing.md says about classes and suites, and docs/model.md about tables, is what
/// tests/ has.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "engine/rec533/Quirks.h"
#include "house/DocumentTable.h"
#include "house/HouseFiles.h"
#include "support/ProgramRun.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using Names = std::set<std::string>;

/// Names in backticks of the first column, without the arguments of a macro.
Names FirstNames(const char* sHead)
{
    static const std::regex kName("`([A-Za-z_]+)(?:\\(.*?\\))?`");
    Names asName;
    for (const TableRow& asCell : TableRead("testing.md", sHead))
        for (const std::string& sName : MatchesGet(asCell.at(0), kName)) asName.insert(sName);
    return asName;
}

const char* const kClasses = "| class | what it does while it exists |";
const char* const kProcedures = "| procedure | what it does |";

TEST(DocumentsTesting, SupportClassesAreThoseOfTheFolder)
{
    static const std::regex kClass("\nclass ([A-Za-z]+) ");
    Names asClass;
    for (const auto& entry : fs::directory_iterator(TESTS_FOLDER "/support"))
        if (entry.path().extension() == ".h")
            for (const std::string& sName : MatchesGet(BytesRead(entry.path().string()), kClass))
                asClass.insert(sName);
    EXPECT_GT(asClass.size(), 8U);
    EXPECT_EQ(FirstNames(kClasses), asClass);
}

TEST(DocumentsTesting, EveryHeaderOfTheFolderIsTold)
{
    Names asTold = FirstNames(kClasses);
    asTold.merge(FirstNames(kProcedures));
    for (const auto& entry : fs::directory_iterator(TESTS_FOLDER "/support")) {
        if (entry.path().extension() != ".h")
            continue;
        const std::string sText = BytesRead(entry.path().string());
        EXPECT_TRUE(std::any_of(asTold.begin(), asTold.end(), [&](const std::string& sName) {
            return sText.find("class " + sName + " ") != std::string::npos
                   || sText.find(" " + sName + "(") != std::string::npos;
        })) << entry.path();
    }
}

TEST(DocumentsTesting, SupportProceduresAreThere)
{
    std::string sAll;
    for (const auto& entry : fs::directory_iterator(TESTS_FOLDER "/support"))
        if (entry.path().extension() == ".h")
            sAll += BytesRead(entry.path().string());
    const Names asName = FirstNames(kProcedures);
    EXPECT_GT(asName.size(), 3U);
    for (const std::string& sName : asName)
        EXPECT_NE(sAll.find(" " + sName + "("), std::string::npos) << sName;
}

TEST(DocumentsTesting, SuitesOfPropertiesAreThoseOfTheTests)
{
    static const std::regex kSuite("\nTEST(?:_F)?\\((\\w+Property), ");
    Names asSuite;
    for (const auto& entry : fs::recursive_directory_iterator(TESTS_FOLDER))
        if (entry.path().filename().string().ends_with("PropertyTest.cpp"))
            for (const std::string& sName : MatchesGet(BytesRead(entry.path().string()), kSuite))
                asSuite.insert(sName);
    EXPECT_GT(asSuite.size(), 3U);
    EXPECT_EQ(FirstNames("| suite | what holds | cases |"), asSuite);
}

std::string RowsOf(const char* sFile)
{
    std::ifstream stm(std::string(TESTS_FOLDER "/engine/data/") + sFile);
    EXPECT_TRUE(stm.is_open()) << sFile;
    const auto nLines = std::count(std::istreambuf_iterator<char>(stm), {}, '\n');
    return std::to_string(nLines - 1);  // without the header
}

TEST(DocumentsTesting, ComparisonTablesHaveTheRowsOfTheirFiles)
{
    const std::map<std::string, std::string> rows{
        {"ITU program, all computed columns (*reference*)", RowsOf("p533_reference.csv")},
        {"its modes", RowsOf("p533_modes.csv")},
        {"its control points", RowsOf("p533_points.csv")},
        {"separate program, *corrected* and *best*, CCIR, URSI, mean",
         RowsOf("p533_variants.csv") + " each"},
        {"its parts of the rule: index, bend, limits, what each way carries",
         RowsOf("p533_variants2.csv")},
    };
    const auto aTold = TableRead("model.md", "| table | rows | greatest difference |");
    ASSERT_EQ(aTold.size(), rows.size());
    for (const TableRow& asCell : aTold) {
        const auto it = rows.find(asCell.at(0));
        ASSERT_NE(it, rows.end()) << asCell.at(0);
        EXPECT_EQ(asCell.at(1), it->second) << asCell.at(0);
    }
}

TEST(DocumentsTesting, EverySlipOfTheItuProgramIsTold)
{
    EXPECT_EQ(TableRead("model.md", "| the ITU program | here |").size(),
              sizeof(rec533::Quirks) / sizeof(bool));
}

/// What hopcast-p533 computes for one circuit with these options.
std::string CircuitRun(const TempFolder& folder, std::vector<std::string> asOption)
{
    asOption.insert(asOption.begin(), std::string(TEST_BIN "/hopcast-p533"));
    asOption.push_back(folder.Path("in.csv"));
    asOption.push_back(folder.Path("out.csv"));
    const ProgramResult res = ProgramRun(asOption);
    EXPECT_EQ(res.nStatus, 0) << res.sError;
    return res.nStatus == 0 ? BytesRead(folder.Path("out.csv")) : std::string();
}

TEST(DocumentsTesting, BehavioursAreThoseOfTheProgram)
{
    const TempFolder folder;
    (void)folder.Write(
        "in.csv",
        "id,tx_lat,tx_lon,rx_lat,rx_lon,path,month,ssn,hour,freq,pwr_w,noise,req_snr,"
        "req_rel\na,38,-122,-20,140,SHORT,11,100,6,14,100,RURAL,40,50\n");
    std::set<std::string> asOut;
    for (const TableRow& asCell : TableRead("model.md", "| behaviour | what it is | where |")) {
        const std::string sOut = CircuitRun(folder, {"--behaviour", asCell.at(0)});
        EXPECT_TRUE(asOut.insert(sOut).second) << asCell.at(0);
        EXPECT_EQ(asCell.at(2).find("default of `hopcast-p533`") != std::string::npos,
                  sOut == CircuitRun(folder, {}))
            << asCell.at(0);
        static const std::regex kOptions("`hopcast-p533 (--[a-z -]+)`");
        for (const std::string& sOptions : MatchesGet(asCell.at(2), kOptions)) {
            std::istringstream stm(sOptions);
            std::vector<std::string> asOption;
            for (std::string sWord; stm >> sWord;) asOption.push_back(sWord);
            EXPECT_EQ(CircuitRun(folder, asOption), sOut) << sOptions;
        }
    }
    EXPECT_EQ(asOut.size(), 3U);
}

}  // namespace
