/// The pages of the guide that are installed with the programs.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>

#include "house/HouseFiles.h"
#include "support/ProgramRun.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

const fs::path kFolder = GUIDE_FOLDER;

std::string PageGet(const std::string& sName) { return BytesRead((kFolder / sName).string()); }

TEST(GuidePages, EveryPictureAndLinkLeadsToAFileOrHeadingThatTravels)
{
    int nLinks = 0;
    for (const auto& entry : fs::directory_iterator(kFolder)) {
        if (entry.path().extension() != ".html")
            continue;
        const std::string sPage = BytesRead(entry.path().string());
        for (const std::string& sName : MatchesGet(sPage, std::regex("src=\"([^\"]+)\"")))
            EXPECT_TRUE(fs::exists(kFolder / sName)) << entry.path() << ": " << sName;
        for (const std::string& sLink : MatchesGet(sPage, std::regex("href=\"([^\"]+)\""))) {
            if (sLink.find("://") != std::string::npos)
                continue;
            ++nLinks;
            const std::size_t nHash = sLink.find('#');
            const std::string sFile = sLink.substr(0, nHash);
            const std::string sTarget = sFile.empty() ? sPage : PageGet(sFile);
            EXPECT_FALSE(sTarget.empty()) << entry.path() << ": " << sLink;
            if (nHash != std::string::npos) {
                EXPECT_NE(sTarget.find("id=\"" + sLink.substr(nHash + 1) + "\""), std::string::npos)
                    << entry.path() << ": " << sLink;
            }
        }
    }
    EXPECT_GT(nLinks, 10);
}

TEST(GuidePages, HaveTheGuidesTablesHeadingsAndPictures)
{
    const std::string sPage = PageGet("guide.html");
    const std::string sGuide = BytesRead(std::string(DOCS_FOLDER) + "/guide.md");
    const auto Count = [](const std::string& sText, const std::regex& rgx) {
        return std::distance(std::sregex_iterator(sText.begin(), sText.end(), rgx),
                             std::sregex_iterator());
    };
    EXPECT_EQ(Count(sPage, std::regex("<h2 ")), Count(sGuide, std::regex("(^|\n)## ")));
    EXPECT_EQ(Count(sPage, std::regex("<img ")), Count(sGuide, std::regex("!\\[")));
    EXPECT_EQ(Count(sPage, std::regex("<table>")),
              Count(sGuide, std::regex("\n[-:| ]*-\\|-[-:| ]*\n")));
    EXPECT_GT(Count(sPage, std::regex("<table>")), 0);
}

TEST(GuidePages, AreNotMadeByAPythonThatWasFoundBeforeAndCannotMakeThemNow)
{
    const TempFolder folder;
    folder.Write("CMakeLists.txt",
                 "cmake_minimum_required(VERSION 3.25)\nproject(pages NONE)\n"
                 "include(" PROJECT_FOLDER
                 "/cmake/GuidePages.cmake)\n"
                 "message(STATUS \"taken: ${GUIDE_PYTHON}\")\n");
    const std::string sLost = folder.Write("python3", "#!/bin/sh\nexit 1\n");
    fs::permissions(sLost, fs::perms::owner_all);
    const ProgramResult res = ProgramRun({CMAKE_PROGRAM, "-G", "Ninja", "-S", folder.Path(), "-B",
                                          folder.Path("build"), "-DGUIDE_PYTHON=" + sLost});
    ASSERT_EQ(res.nStatus, 0) << res.sError;
    EXPECT_NE(res.sOut.find("-- taken: "), std::string::npos) << res.sOut;
    EXPECT_EQ(res.sOut.find("-- taken: " + sLost), std::string::npos) << res.sOut;
}

TEST(GuidePages, NeedNoNetwork)
{
    for (const auto& entry : fs::directory_iterator(kFolder)) {
        if (entry.path().extension() == ".html") {
            EXPECT_TRUE(MatchesGet(BytesRead(entry.path().string()),
                                   std::regex("(?:src|@import|<link)[^>]*(https?://)"))
                            .empty());
        }
    }
}

}  // namespace
