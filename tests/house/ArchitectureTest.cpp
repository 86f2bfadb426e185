/// docs/architecture.md matches the tree: what it names exists, and it names every part of the
/// windows.
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using Names = std::set<std::string>;

const fs::path kRoot = PROJECT_FOLDER;

std::string DocumentGet() { return BytesRead(DOCS_FOLDER "/architecture.md"); }

std::vector<std::string> WordsGet(const std::string& sText, const std::regex& rgx)
{
    std::vector<std::string> asWord;
    for (std::sregex_iterator it(sText.begin(), sText.end(), rgx), itEnd; it != itEnd; ++it)
        asWord.push_back((*it)[it->size() > 1 ? 1 : 0].str());
    return asWord;
}

std::vector<std::string> QuotedGet(const std::string& sText)
{
    static const std::regex kQuoted("`([^`\n]+)`");
    return WordsGet(sText, kQuoted);
}

/// Files and identifiers of the project's own folders.
struct Tree {
    Names asFile;  ///< "Request.h"
    Names asStem;  ///< "Request"
    Names asWord;  ///< every word in sources, build files and forms
};

void WordsAdd(const std::string& sText, Names& asWord)
{
    std::string sWord;
    for (const char c : sText + ' ') {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_') {
            sWord += c;
        } else if (!sWord.empty()) {
            asWord.insert(std::move(sWord));
            sWord.clear();
        }
    }
}

Tree TreeRead()
{
    Tree tree;
    for (const char* sFolder : {"src", "tests", "tools", "cmake", "scripts", "assets"}) {
        for (const auto& entry : fs::recursive_directory_iterator(kRoot / sFolder)) {
            tree.asFile.insert(entry.path().filename().string());
            tree.asStem.insert(entry.path().stem().string());
            const std::string sEnd = entry.path().extension().string();
            if (sEnd != ".cpp" && sEnd != ".h" && sEnd != ".ui" && sEnd != ".txt")
                continue;
            WordsAdd(BytesRead(entry.path().string()), tree.asWord);
        }
    }
    return tree;
}

const Tree& TreeGet()
{
    static const Tree s_tree = TreeRead();
    return s_tree;
}

/// True for a path from the root or from src/, with or without its extension.
bool PathIsThere(const std::string& sPath)
{
    for (const char* sFrom : {"", "src"})
        for (const char* sEnd : {"", ".h", ".cpp"})
            if (fs::exists(kRoot / sFrom / (sPath + sEnd)))
                return true;
    return false;
}

bool NamesAFile(const std::string& sName)
{
    static const std::regex kFile(R"([A-Za-z]\w*\.(h|cpp|ui|py|sh))");
    return std::regex_match(sName, kFile);
}

/// True for the name of a class, procedure, constant or file without extension; "frmMain::Update".
bool NamesAThing(const std::string& sName)
{
    static const std::regex kThing(R"(\w+(::\w+)*)");
    return std::regex_match(sName, kThing);
}

TEST(Architecture, NamesOnlyFilesThatAreThere)
{
    static const std::regex kPath(R"([a-z]\w*(/[A-Za-z0-9_.]+)+/?)");
    const Tree& tree = TreeGet();
    int nFiles = 0;
    for (const std::string& sName : QuotedGet(DocumentGet())) {
        if (NamesAFile(sName))
            EXPECT_TRUE(tree.asFile.contains(sName)) << sName;
        else if (std::regex_match(sName, kPath))
            EXPECT_TRUE(PathIsThere(sName)) << sName;
        else
            continue;
        ++nFiles;
    }
    EXPECT_GT(nFiles, 100);
}

TEST(Architecture, NamesOnlyWhatTheSourceHas)
{
    static const std::regex kPart(R"(\w+)");
    const Tree& tree = TreeGet();
    int nThings = 0;
    for (const std::string& sName : QuotedGet(DocumentGet())) {
        if (!NamesAThing(sName))
            continue;
        for (const std::string& sPart : WordsGet(sName, kPart))
            EXPECT_TRUE(tree.asWord.contains(sPart) || tree.asStem.contains(sPart)) << sName;
        ++nThings;
    }
    EXPECT_GT(nThings, 150);
}

TEST(Architecture, EveryRowOfWhereDoIChangeNamesAPlace)
{
    const std::string sDocument = DocumentGet();
    const std::string sTable = sDocument.substr(sDocument.find("## Where do I change X?"));
    static const std::regex kRow(R"(\n\| ([^|\n]+ \| [^\n]+) \|)");
    std::vector<std::string> asRow = WordsGet(sTable, kRow);
    EXPECT_GT(asRow.size(), 40U);
    for (const std::string& sRow : asRow) {
        const std::string sPlace = sRow.substr(sRow.find(" | "));
        const bool bNamed = !QuotedGet(sPlace).empty() || sPlace.find("](") != std::string::npos
                            || sPlace.find("header in") != std::string::npos
                            || sRow.starts_with("X |") || sRow.starts_with("a message |");
        EXPECT_TRUE(bNamed) << sRow;
    }
}

TEST(Architecture, EveryHeaderOfThePlatformIsNamed)
{
    const std::string sDocument = DocumentGet();
    int nHeaders = 0;
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_FOLDER) / "system")) {
        if (entry.path().extension() != ".h")
            continue;
        const std::string sName = entry.path().filename().string();
        EXPECT_NE(sDocument.find("`" + sName + "`"), std::string::npos) << sName;
        ++nHeaders;
    }
    EXPECT_GT(nHeaders, 20);
}

/// The rows are the values of the enumeration, each of which has a comment.
TEST(Architecture, TheKindsOfFailuresAreThoseOfTheSource)
{
    static const std::regex kKind(R"(\n    (\w+), +///<)");
    static const std::regex kRow(R"(\n\| `(\w+)` \|)");
    const std::string sHeader = BytesRead(SOURCE_FOLDER "/propagation/Prediction.h");
    const std::size_t nEnum = sHeader.find("enum class FailureKind");
    ASSERT_NE(nEnum, std::string::npos);
    const std::vector<std::string> asKind =
        WordsGet(sHeader.substr(nEnum, sHeader.find("};", nEnum) - nEnum), kKind);
    EXPECT_GT(asKind.size(), 5U);
    const std::string sDocument = DocumentGet();
    const std::size_t nTable = sDocument.find("| `FailureKind` | when |");
    ASSERT_NE(nTable, std::string::npos);
    // The search begins at the table's header, which kRow therefore does not match.
    const std::string sTable = sDocument.substr(nTable, sDocument.find("\n\n", nTable) - nTable);
    EXPECT_EQ(WordsGet(sTable, kRow), asKind);
}

TEST(Architecture, EveryPartOfTheWindowsIsNamed)
{
    const std::string sDocument = DocumentGet();
    int nParts = 0;
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(SOURCE_FOLDER) / "ui")) {
        if (entry.path().extension() != ".h")
            continue;
        const std::string sStem = entry.path().stem().string();
        EXPECT_TRUE(std::regex_search(sDocument, std::regex("\\b" + sStem + "\\b"))) << sStem;
        ++nParts;
    }
    EXPECT_GT(nParts, 60);
}

}  // namespace
