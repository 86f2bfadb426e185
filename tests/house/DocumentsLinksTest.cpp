/// What the documents point to exists: files, headings, pictures, folders of the project, options.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
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

const fs::path kRoot = PROJECT_FOLDER;

std::vector<fs::path> DocumentsGet()
{
    std::vector<fs::path> aFile;
    for (const char* sName : {"README.md", "CONTRIBUTING.md", "CHANGELOG.md"})
        aFile.push_back(kRoot / sName);
    for (const char* sFolder : {"docs", "assets", "tests", "tools"})
        for (const auto& entry : fs::recursive_directory_iterator(kRoot / sFolder))
            if (entry.path().extension() == ".md")
                aFile.push_back(entry.path());
    return aFile;
}

/// The text without fenced blocks.
std::string ProseGet(const fs::path& pthFile)
{
    std::istringstream stm(BytesRead(pthFile.string()));
    std::string sProse;
    bool bFenced = false;
    for (std::string sLine; std::getline(stm, sLine);) {
        if (sLine.starts_with("```"))
            bFenced = !bFenced;
        else if (!bFenced)
            sProse += sLine + "\n";
    }
    return sProse;
}

std::vector<std::string> LinksGet(const fs::path& pthFile)
{
    static const std::regex kLink(R"(\]\(([^)\s]+)\))");
    std::vector<std::string> asLink = MatchesGet(ProseGet(pthFile), kLink);
    std::erase_if(asLink, [](const std::string& s) { return s.find("://") != std::string::npos; });
    return asLink;
}

/// Headings as link targets: lower case, hyphens for blanks, other punctuation dropped.
std::set<std::string> AnchorsGet(const fs::path& pthFile)
{
    static const std::regex kHeading(R"((?:^|\n)#+ ([^\n]+))");
    std::set<std::string> asAnchor;
    for (const std::string& sHeading : MatchesGet(ProseGet(pthFile), kHeading)) {
        std::string sAnchor;
        for (const char c : sHeading) {
            const auto nCode = static_cast<unsigned char>(c);
            if (c == ' ' || c == '-')
                sAnchor += '-';
            else if (std::isalnum(nCode) != 0 || c == '_' || nCode >= 0x80)
                sAnchor += static_cast<char>(std::tolower(nCode));
        }
        asAnchor.insert(sAnchor);
    }
    return asAnchor;
}

TEST(DocumentsLinks, LeadToFilesAndHeadings)
{
    std::size_t nLinks = 0;
    for (const fs::path& pthFile : DocumentsGet()) {
        for (const std::string& sLink : LinksGet(pthFile)) {
            const std::size_t nHash = sLink.find('#');
            const fs::path pthTarget =
                nHash == 0 ? pthFile : pthFile.parent_path() / sLink.substr(0, nHash);
            EXPECT_TRUE(fs::exists(pthTarget)) << pthFile << ": " << sLink;
            if (nHash != std::string::npos && fs::exists(pthTarget)) {
                EXPECT_TRUE(AnchorsGet(pthTarget).contains(sLink.substr(nHash + 1)))
                    << pthFile << ": " << sLink;
            }
            ++nLinks;
        }
    }
    EXPECT_GT(nLinks, 50U);
}

bool PathIsThere(const std::string& sPath)
{
    // A module is named without the extensions of its header and source.
    for (const char* sEnd : {"", ".h", ".cpp"})
        if (fs::exists(kRoot / (sPath + sEnd)))
            return true;
    return false;
}

TEST(DocumentsLinks, FoldersAndFilesOfTheProjectThatAreNamedAreThere)
{
    static const std::regex kPath(
        R"(`((?:\.\./)?(?:src|tests|docs|tools|assets|scripts|cmake|bench|packaging)/[A-Za-z0-9_./-]*)`)");
    std::size_t nPaths = 0;
    for (const fs::path& pthFile : DocumentsGet()) {
        for (const std::string& sPath : MatchesGet(ProseGet(pthFile), kPath)) {
            EXPECT_TRUE(PathIsThere(sPath)) << pthFile << ": " << sPath;
            ++nPaths;
        }
    }
    EXPECT_GT(nPaths, 50U);
}

TEST(DocumentsLinks, EveryPictureIsShownAndMadeByATest)
{
    std::string sAll;
    for (const fs::path& pthFile : DocumentsGet()) sAll += BytesRead(pthFile.string());
    const std::string sTest = BytesRead((kRoot / "tests/ui/e2e/GuidePicturesTest.cpp").string());
    int nPictures = 0;
    for (const auto& entry : fs::directory_iterator(kRoot / "docs/images")) {
        const std::string sName = entry.path().filename().string();
        EXPECT_NE(sAll.find("images/" + sName + ")"), std::string::npos) << sName;
        if (entry.path().extension() != ".png")
            continue;
        EXPECT_NE(sTest.find("\"" + sName + "\""), std::string::npos) << sName;
        EXPECT_LT(fs::file_size(entry.path()), 100000U) << sName;
        ++nPictures;
    }
    EXPECT_GT(nPictures, 10);
}

/// The guide's table of a program's options, which has the program's name in its header.
std::string OptionsTableGet(const std::string& sProgram)
{
    const std::string sGuide = BytesRead((kRoot / "docs/guide.md").string());
    const std::size_t nFrom = sGuide.find("\n| `" + sProgram + "` |");
    EXPECT_NE(nFrom, std::string::npos) << sProgram;
    return nFrom == std::string::npos ? std::string()
                                      : sGuide.substr(nFrom, sGuide.find("\n\n", nFrom) - nFrom);
}

std::set<std::string> OptionsIn(const std::string& sText)
{
    static const std::regex kOption("(?:^|[^-A-Za-z0-9])(--[a-z][a-z0-9-]*)");
    const std::vector<std::string> asFound = MatchesGet(sText, kOption);
    return {asFound.begin(), asFound.end()};
}

/// A program's manual page, with its hyphens unescaped; empty if packages have none.
std::string ManualPageGet(const std::string& sProgram)
{
    const fs::path pthPage = kRoot / "packaging/man" / (sProgram + ".1");
    return fs::exists(pthPage)
               ? std::regex_replace(BytesRead(pthPage.string()), std::regex(R"(\\-)"), "-")
               : std::string();
}

class ProgramOptions : public testing::TestWithParam<const char*> {};

TEST_P(ProgramOptions, AreTheSameInHelpGuideAndManualPage)
{
    const ProgramResult res = ProgramRun({std::string(TEST_BIN "/") + GetParam(), "--help"});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    const std::set<std::string> asHelp = OptionsIn(res.sOut);
    EXPECT_GE(asHelp.size(), 3U);
    EXPECT_EQ(asHelp, OptionsIn(OptionsTableGet(GetParam())));
    if (const std::string sPage = ManualPageGet(GetParam()); !sPage.empty()) {
        EXPECT_EQ(asHelp, OptionsIn(sPage));
    }
}

INSTANTIATE_TEST_SUITE_P(Programs, ProgramOptions,
                         testing::ValuesIn(std::vector<const char*>{
                             "hopcast-predict",
#ifdef HOPCAST_WINDOWS_BUILT
                             "hopcast",
#endif
                         }));

}  // namespace
